// Prints what the preview's window shows after each step of a session with it.

#include "Files.h"
#include "PreviewWindow.h"
#include "format/Format.h"
#include "surface/Picture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QDockWidget>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <cstdio>
#include <filesystem>
#include <memory>

using namespace Quenda::Workbench;

namespace {

// The place of a copy of tesmar's documents.
Place copyInto(const QString &folder)
{
    QString error;
    const Place builtIn = Place::find(QStringLiteral("tesmar"), &error).value();
    Place copy = builtIn;
    copy.folder = folder;
    QDir().mkpath(folder);
    for (const Format *format : builtIn.formats) {
        QFile::copy(builtIn.pathOf(*format), copy.pathOf(*format));
        QFile::setPermissions(copy.pathOf(*format), QFile::ReadOwner | QFile::WriteOwner);
    }
    return copy;
}

void save(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
}

} // namespace

class Session : public QObject
{
    Q_OBJECT

public:
    explicit Session(const Place &shownPlace)
        : place(shownPlace),
          entries(place.pathOf(entryFormat())),
          tools(place.pathOf(toolFormat())),
          goodEntries(contentOf(entries)),
          goodTools(contentOf(tools))
    {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
        openWindow({});
        const QWidget &lastControl = *window->findChild<QPushButton *>();
        std::printf("opened, %d by %d%s\n%s", window->width(), window->height(),
                    lastControl.geometry().right() < window->width() * 9 / 10 ? ""
                                                                              : ", controls wide",
                    qUtf8Printable(describe()));
    }

    void run()
    {
        step("saved in place", [this] { save(tools, withTool("first")); });
        step("saved by renaming", [this] {
            save(tools + QLatin1String(".new"), withTool("second"));
            std::rename(qPrintable(tools + QLatin1String(".new")), qPrintable(tools));
        });
        step("saved in place again", [this] { save(tools, withTool("third")); });
        step("saved in several steps", [this] {
            QTimer writer;
            int count = 0;
            connect(&writer, &QTimer::timeout, this,
                    [&] { save(tools, withTool("part " + QByteArray::number(++count))); });
            writer.start(10);
            QTest::qWait(350);
            std::printf("meanwhile\n%s", qUtf8Printable(describe()));
            save(tools, withTool("whole"));
        });
        step("a warning",
             [this] { save(entries, QByteArray(goodEntries).replace(">entp<", "> entp<")); });
        step("broken", [this] {
            save(tools, QByteArray(goodTools)
                            .replace("\"block\"", "\"&lt;b>bold&lt;/b> "
                                                      + QByteArray("in words ").repeated(6) + '"')
                            .replace("columns=\"6\"", "columns=\"0\""));
        });
        step("to the findings with the keyboard", [this] {
            window->findChild<QComboBox *>(QStringLiteral("presentation"))->setFocus();
            for (int i = 0; !findingsPane()->hasFocus(); ++i) {
                if (i == 100)
                    qFatal("the findings have no focus after %d times Tab", i);
                press(Qt::Key_Tab);
            }
            press(Qt::Key_Down);
        });
        step("activated", [this] { press(Qt::Key_Return); });
        step("activated, and the desktop has no program for it", [this] {
            QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
            press(Qt::Key_Return);
        });
        step("with an editor", [this] {
            save(QStringLiteral("an editor"),
                 "#!/bin/sh\nprintf '<%s> ' \"$@\" >new\nmv new seen\n");
            QFile::setPermissions(QStringLiteral("an editor"), QFile::ReadOwner | QFile::ExeOwner);
            qputenv("QUENDA_EDITOR", "none");
            openWindow(QStringLiteral("\"./an editor\" -l {line} {file}:{line}:{column}"));
            activateFinding();
        });
        step("with one that does not exist", [this] {
            QFile::remove(QStringLiteral("seen"));
            qputenv("QUENDA_EDITOR",
                    "\"none<br><br><br>" + QByteArray(" at all").repeated(10) + "\" {file}");
            openWindow({});
            togglePanel({}); // there is none
            activateFinding();
        });
        step("findings dragged down", [this] {
            QWidget *handle = window->findChild<QSplitter *>()->handle(1);
            QTest::mousePress(handle, Qt::LeftButton);
            const QPoint below(0, window->height());
            QMouseEvent move(QEvent::MouseMove, below, handle->mapToGlobal(below), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(handle, &move);
            QTest::mouseRelease(handle, Qt::LeftButton);
        });
        step("corrected", [this] { save(tools, goodTools); });
        step("without a warning", [this] { save(entries, goodEntries); });
        step("removed", [this] { QFile::remove(tools); });
        step("put back", [this] { save(tools, goodTools); });
        step("folder removed", [] { QDir(QStringLiteral("first")).removeRecursively(); });
        step("folder put back", [] { copyInto(QStringLiteral("first")); });
        step("saved there", [this] { save(tools, withTool("there")); });
        step("folder renamed", [] { std::rename("first", "second"); });
        step("another in its place", [] { copyInto(QStringLiteral("first")); });
        step("saved in that", [this] { save(tools, withTool("that")); });
        step("link switched", [] {
            std::filesystem::create_symlink("second", "new");
            std::rename("new", "a place");
        });
        step("saved behind the link", [this] { save(tools, goodTools); });
        step("keypad moved",
             [this] { surface()->addDockWidget(Qt::LeftDockWidgetArea, keypad()); });
        step("saved with more columns",
             [this] { save(tools, withTool("a").replace("columns=\"4\"", "columns=\"5\"")); });
        step("tools floated", [this] {
            auto *dock = window->findChild<QDockWidget *>(QStringLiteral("toolbox 1"));
            dock->setFloating(true);
            dock->move(33, 44);
        });
        step("saved", [this] { save(tools, withTool("zeroth")); });
        step("moved back", [this] {
            window->findChild<QDockWidget *>(QStringLiteral("toolbox 1"))->setFloating(false);
            surface()->addDockWidget(Qt::RightDockWidgetArea, keypad());
            window->activateWindow();
        });
        step("another state", [this] {
            stateSelector()->setFocus();
            press(Qt::Key_Down);
        });
        step("keypad closed", [this] {
            keypad()
                ->findChild<QAbstractButton *>(QStringLiteral("qt_dockwidget_closebutton"))
                ->click();
        });
        step("the next state", [this] {
            stateSelector()->setFocus();
            press(Qt::Key_Down);
        });
        step("saved", [this] { save(tools, withTool("fourth")); });
        step("tool bars", [this] {
            press(Qt::Key_Tab);
            press(Qt::Key_Down);
        });
        step("saved", [this] { save(tools, withTool("fifth")); });
        step("keypad opened", [this] { togglePanel(QStringLiteral("Keypad")); });
        step("tool bar closed", [this] { togglePanel(QStringLiteral("OptiCut View")); });
        step("the state before", [this] { stateSelector()->setCurrentIndex(1); });
        step("the next state, with it closed", [this] { stateSelector()->setCurrentIndex(2); });
        step("tool bar opened", [this] { togglePanel(QStringLiteral("OptiCut View")); });
        step("saved, and F5 before that is noticed", [this] {
            save(tools, withTool("sixth"));
            press(Qt::Key_F5);
            QTest::qWait(10);
            std::printf("at once\n%s", qUtf8Printable(describe()));
        });
        step("tool boxes in a low window", [this] {
            window->findChild<QComboBox *>(QStringLiteral("presentation"))->setCurrentIndex(0);
            window->resize(720, 200);
        });
        step("in a low and wide one", [this] { window->resize(1200, 200); });
        step("keypad removed", [this] {
            QByteArray content = withTool("seventh");
            const int start = content.indexOf("<keypad");
            save(tools, content.remove(start, content.indexOf("<toolbar") - start));
        });
        step("current folder replaced", [this] {
            const QString folder = QDir::currentPath();
            QDir().rename(folder, folder + QLatin1String(".old"));
            Place other = copyInto(folder + QLatin1Char('/') + place.folder);
            save(other.pathOf(toolFormat()), withTool("eighth"));
        });
        step("Ctrl+S, which the menu shows", [this] { press(Qt::Key_S, Qt::ControlModifier); });
        step("Ctrl+Q", [this] { press(Qt::Key_Q, Qt::ControlModifier); });
    }

public Q_SLOTS:
    void open(const QUrl &url) { opened = QLatin1String("opened ") + url.fileName(); }

private:
    void openWindow(const QString &editor)
    {
        window = std::make_unique<PreviewWindow>(place, editor);
        window->show();
        (void)QTest::qWaitForWindowActive(window.get());
    }

    QComboBox *stateSelector() const
    {
        return window->findChild<QComboBox *>(QStringLiteral("state"));
    }

    void togglePanel(const QString &name)
    {
        QMenu *panels = window->findChild<QPushButton *>()->menu();
        panels->popup(QPoint());
        panels->hide();
        window->activateWindow();
        const auto actions = panels->actions();
        for (QAction *action : actions)
            if (action->isVisible() && action->text() == name)
                action->trigger();
    }

    void activateFinding()
    {
        findingsPane()->setFocus();
        press(Qt::Key_Down);
        press(Qt::Key_Return);
    }

    template <typename Action>
    void step(const char *name, const Action &action)
    {
        const QString before = describe();
        opened.clear();
        action();
        (void)QTest::qWaitFor([&] { return describe() != before || !opened.isEmpty(); }, 3000);
        QTest::qWait(250); // nothing more happens
        std::printf("%s\n%s", name, qUtf8Printable(describe()));
    }

    // "zoom", which is in every box, by another name.
    QByteArray withTool(const QByteArray &id) const
    {
        return QByteArray(goodTools).replace("\"zoom\"", '"' + id + '"');
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget *focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : window.get(), key, modifiers);
    }

    QMainWindow *surface() const { return window->findChild<QMainWindow *>(); }
    QListWidget *findingsPane() const { return window->findChild<QListWidget *>(); }

    QDockWidget *keypad() const
    {
        return window->findChild<QDockWidget *>(QStringLiteral("keypad 1"));
    }

    QString describe() const
    {
        if (!window->isVisible())
            return QStringLiteral("  closed\n");
        QStringList lines;
        const auto labels = window->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QLabel *label : labels)
            if (const auto *selector = qobject_cast<QComboBox *>(label->buddy()))
                lines += label->text() + QLatin1Char(' ') + selector->currentText();
        const auto panels =
            surface()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget *panel : panels)
            if (panel->isVisible() && !panel->windowTitle().isEmpty())
                lines +=
                    panel->windowTitle() + placeOf(*panel) + QLatin1String(": ") + toolsOf(*panel);
        // The texts of what is greyed out are not as dark as others.
        const QRect area(surface()->mapTo(window.get(), QPoint()), surface()->size());
        const QImage image = window->grab(area).toImage();
        int darkest = 255;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
        const QWidget &drawing = *surface()->centralWidget();
        lines += QStringLiteral("%1, %2 from the left, %3 from the right%4")
                     .arg(QLatin1String(darkest > 100 ? "greyed out" : "clear"))
                     .arg(area.left())
                     .arg(window->width() - 1 - area.right())
                     .arg(QLatin1String(
                         drawing.width() < drawing.sizeHint().width() ? ", drawing cut off" : ""));
        if (surface()->geometry() != surface()->parentWidget()->rect())
            lines += QStringLiteral("with margins");
        if (!surface()->isAncestorOf(window->childAt(area.center())))
            lines += QStringLiteral("out of reach of the mouse");
        const QListWidget *pane = findingsPane();
        if (pane->isVisible())
            lines += QStringLiteral("findings %1 % high%2")
                         .arg(5 * qRound(20.0 * pane->height() / (area.height() + pane->height())))
                         .arg(QLatin1String(
                             pane->horizontalScrollBar()->maximum() == 0 ? "" : ", too wide"));
        for (int i = 0; pane->isVisible() && i < pane->count(); ++i)
            lines +=
                QLatin1String(pane->item(i)->isSelected() ? "> " : "| ") + pane->item(i)->text();
        for (const QLabel *label : labels)
            if (label->isVisible() && !label->buddy())
                lines += QStringLiteral("%1 (%2 lines)")
                             .arg(label->text())
                             .arg(label->height() / label->fontMetrics().lineSpacing());
        if (!opened.isEmpty())
            lines += opened;
        if (QFile::exists(QStringLiteral("seen")))
            lines += QString::fromUtf8(contentOf(QStringLiteral("seen")))
                         .remove(QDir::currentPath() + QLatin1Char('/'));
        lines += QLatin1String("focus: ") + nameOf(QApplication::focusWidget());
        return QLatin1String("  ") + lines.join(QLatin1String("\n  ")) + QLatin1Char('\n');
    }

    QString placeOf(const QWidget &panel) const
    {
        const auto *dock = qobject_cast<const QDockWidget *>(&panel);
        if (!dock)
            return {};
        const auto *area = static_cast<const QScrollArea *>(dock->widget());
        const bool isLeft = panel.geometry().center().x() < surface()->width() / 2;
        return (panel.isWindow()
                    ? QStringLiteral(", floating at %1 %2").arg(panel.x()).arg(panel.y())
                    : QLatin1String(isLeft ? ", left" : ", right"))
               + QLatin1String(area->width() < area->sizeHint().width() ? ", too narrow" : "")
               + QLatin1String(area->width() > area->sizeHint().width() ? ", too wide" : "")
               + (area->verticalScrollBar()->isVisible()
                      ? QStringLiteral(", scrolled, %1 tenths wide")
                            .arg(qRound(10.0 * area->width() / surface()->width()))
                      : QString())
               + QLatin1String(area->horizontalScrollBar()->isVisible() ? ", scrolled sideways"
                                                                        : "");
    }

    static QString toolsOf(const QWidget &panel)
    {
        QStringList texts;
        const auto buttons = panel.findChildren<QToolButton *>();
        for (const QToolButton *button : buttons)
            if (button->isVisible() && !button->text().isEmpty())
                texts += button->text();
        return texts.join(QLatin1Char(' '));
    }

    static QString nameOf(const QWidget *widget)
    {
        if (!widget)
            return QStringLiteral("none");
        return widget->objectName().isEmpty() ? QLatin1String(widget->metaObject()->className())
                                              : widget->objectName();
    }

    const Place place;
    std::unique_ptr<PreviewWindow> window;
    const QString entries;
    const QString tools;
    const QByteArray goodEntries;
    const QByteArray goodTools;
    QString opened;
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    useLightStyle();
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    Place place = copyInto(QStringLiteral("first"));
    std::filesystem::create_symlink("first", "a place");
    place.folder = QStringLiteral("a place");
    Session(place).run();
    QDir(folder.path() + QLatin1String(".old")).removeRecursively();
}

#include "PrintPreview.moc"
