// Prints what the preview's window shows at first, and what changes with each step of a session.

#include "Files.h"
#include "entries/Entries.h"
#include "preview/PreviewWindow.h"
#include "surface/Picture.h"
#include "tools/Tools.h"

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
#include <QToolButton>

#include <cstdio>
#include <filesystem>
#include <memory>

using namespace Quenda::Workbench;

namespace {

// The place of a copy of the product's documents.
Place copyInto(const QString &folder)
{
    QString error;
    const Place original = Place::find(QStringLiteral(PRODUCT), &error).value();
    Place copy = original;
    copy.folder = folder;
    QDir().mkpath(folder);
    for (const Format *format : original.formats)
        QFile::copy(original.pathOf(*format), copy.pathOf(*format));
    return copy;
}

void save(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(content);
}

QString toolsOf(const QWidget &panel)
{
    QStringList texts;
    const auto buttons = panel.findChildren<QToolButton *>();
    for (const QToolButton *button : buttons)
        if (button->isVisible() && !button->text().isEmpty())
            texts += button->text();
    return texts.join(u' ');
}

void print(const QString &heading, const QStringList &lines)
{
    std::printf("%s\n", qUtf8Printable((QStringList(heading) + lines).join(u"\n  "_s)));
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
        QDesktopServices::setUrlHandler(u"file"_s, this, "open");
        openWindow({});
        const QWidget &lastControl = *window->findChild<QPushButton *>();
        const bool isNarrow = lastControl.geometry().right() < window->width() * 9 / 10;
        print(u"opened, %1 by %2%3"_s.arg(window->width())
                  .arg(window->height())
                  .arg(isNarrow ? u""_s : u", controls wide"_s),
              describe());
    }

    void run()
    {
        saveTools("saved in place", with("\"pin\"", "\"one\""));
        step("saved by renaming", [this] {
            save(tools + u".new"_s, with("\"pin\"", "\"two\""));
            std::filesystem::rename(qPrintable(tools + u".new"_s), qPrintable(tools));
        });
        step("saved in several steps", [this] {
            const QStringList before = describe();
            QTimer writer;
            int count = 10;
            connect(&writer, &QTimer::timeout, this,
                    [&] { save(tools, with("\"pin\"", '"' + QByteArray::number(++count) + '"')); });
            writer.start(10);
            QTest::qWait(350);
            if (describe() != before)
                print(u"shown meanwhile"_s, describe());
            save(tools, with("\"pin\"", "\"all\""));
        });
        step("a warning",
             [this] { save(entries, QByteArray(goodEntries).replace(">entp<", "> entp<")); });
        const QByteArray name = "\"&lt;b>bold&lt;/b> " + QByteArray("in words ").repeated(6) + '"';
        saveTools("broken", with("\"pin\"", name).replace("columns=\"2\"", "columns=\"0\""));
        step("to the findings with the keyboard", [this] {
            window->findChild<QComboBox *>(u"presentation"_s)->setFocus();
            for (int i = 0; !findingsPane()->hasFocus(); ++i) {
                if (i == 100)
                    qFatal("the findings have no focus after %d times Tab", i);
                press(Qt::Key_Tab);
            }
            press(Qt::Key_Down);
        });
        step("activated", [this] { press(Qt::Key_Return); });
        step("activated, and the desktop has no program for it", [this] {
            QDesktopServices::unsetUrlHandler(u"file"_s);
            press(Qt::Key_Return);
        });
        step("with an editor", [this] {
            save(u"an editor"_s, "#!/bin/sh\nprintf '<%s> ' \"$@\" >new\nmv new seen\n");
            QFile::setPermissions(u"an editor"_s, QFile::ReadOwner | QFile::ExeOwner);
            qputenv("QUENDA_EDITOR", "none");
            openWindow(u"\"./an editor\" -l {line} {file}:{line}:{column}"_s);
            activateFinding();
            (void)QTest::qWaitFor([] { return QFile::exists(u"seen"_s); }, 3000);
        });
        step("with one that does not exist", [this] {
            QFile::remove(u"seen"_s);
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
        saveTools("corrected", goodTools);
        step("without a warning", [this] { save(entries, goodEntries); });
        step("removed", [this] { QFile::remove(tools); });
        saveTools("put back", goodTools);
        step("folder renamed", [] { std::filesystem::rename("first", "second"); });
        step("another in its place", [] { copyInto(u"first"_s); });
        saveTools("saved in that", with("\"pin\"", "\"new\""));
        step("link switched to the other", [] {
            std::filesystem::create_symlink("second", "new");
            std::filesystem::rename("new", "a place");
        });
        step("keypad moved",
             [this] { surface()->addDockWidget(Qt::LeftDockWidgetArea, panel(u"keypad 1"_s)); });
        saveTools("saved with more columns", with("columns=\"2\"", "columns=\"3\""));
        step("tools floated", [this] {
            panel(u"toolbox 1"_s)->setFloating(true);
            panel(u"toolbox 1"_s)->move(33, 44);
        });
        saveTools("saved with a wider margin", with("margin=\"5\"", "margin=\"90\""));
        step("moved back", [this] {
            panel(u"toolbox 1"_s)->setFloating(false);
            surface()->addDockWidget(Qt::RightDockWidgetArea, panel(u"keypad 1"_s));
            window->activateWindow();
        });
        step("another state", [this] {
            stateSelector()->setFocus();
            press(Qt::Key_Down);
        });
        step("the next state", [this] { press(Qt::Key_Down); });
        step("keypad closed", [this] { panel(u"keypad 1"_s)->toggleViewAction()->trigger(); });
        step("the state before", [this] { stateSelector()->setCurrentIndex(1); });
        saveTools("saved", with("\"pin\"", "\"two\""));
        step("tool bars", [this] {
            stateSelector()->setFocus();
            press(Qt::Key_Tab);
            press(Qt::Key_Down);
        });
        saveTools("saved", with("In every state", "Always"));
        step("keypad opened", [this] { togglePanel(u"Keypad"_s); });
        step("tool bar closed", [this] { togglePanel(u"Style"_s); });
        step("a state without it", [this] { stateSelector()->setCurrentIndex(2); });
        step("a state with it, closed", [this] { stateSelector()->setCurrentIndex(0); });
        step("tool bar opened", [this] { togglePanel(u"Style"_s); });
        step("saved, and F5 before that is noticed", [this] {
            save(tools, goodTools);
            press(Qt::Key_F5);
            QTest::qWait(10);
            print(u"at once"_s, describe());
        });
        step("tool boxes in a low window", [this] {
            window->findChild<QComboBox *>(u"presentation"_s)->setCurrentIndex(0);
            window->resize(600, 140);
        });
        step("in a low and wide one", [this] { window->resize(1200, 140); });
        step("keypad removed", [this] {
            QByteArray content = goodTools;
            const int start = content.indexOf("<keypad");
            save(tools, content.remove(start, content.indexOf("<toolbar") - start));
        });
        step("current folder replaced", [this] {
            const QString folder = QDir::currentPath();
            QDir().rename(folder, folder + u".old"_s);
            copyInto(folder + u'/' + place.folder);
        });
        step("Ctrl+Q", [this] { press(Qt::Key_Q, Qt::ControlModifier); });
    }

public Q_SLOTS:
    void open(const QUrl &url) { opened = u"opened "_s + url.fileName(); }

private:
    void openWindow(const QString &editor)
    {
        window = std::make_unique<PreviewWindow>(place, editor);
        window->show();
        (void)QTest::qWaitForWindowActive(window.get());
    }

    // Waits until something changes, and then until nothing more does.
    template <typename Action>
    void step(const char *name, const Action &action)
    {
        const QStringList before = describe();
        opened.clear();
        action();
        (void)QTest::qWaitFor([&] { return describe() != before; }, 3000);
        QTest::qWait(50);
        const QStringList after = describe();
        QStringList changes;
        for (const QString &line : before)
            if (!after.contains(line))
                changes += u"- "_s + line;
        for (const QString &line : after)
            if (!before.contains(line))
                changes += u"+ "_s + line;
        print(QLatin1String(name), changes);
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

    // The tool document with something else.
    QByteArray with(const QByteArray &before, const QByteArray &after) const
    {
        return QByteArray(goodTools).replace(before, after);
    }

    void saveTools(const char *name, const QByteArray &content)
    {
        step(name, [&] { save(tools, content); });
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget *focused = QApplication::focusWidget();
        QTest::keyClick(focused ? focused : window.get(), key, modifiers);
    }

    QComboBox *stateSelector() const { return window->findChild<QComboBox *>(u"state"_s); }
    QMainWindow *surface() const { return window->findChild<QMainWindow *>(); }
    QListWidget *findingsPane() const { return window->findChild<QListWidget *>(); }
    QDockWidget *panel(const QString &name) const { return window->findChild<QDockWidget *>(name); }

    QStringList describe() const
    {
        if (!window->isVisible())
            return {u"closed"_s};
        QStringList lines {window->windowTitle()};
        const auto labels = window->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QLabel *label : labels)
            if (const auto *selector = qobject_cast<QComboBox *>(label->buddy()))
                lines += label->text() + u' ' + selector->currentText();
        const auto panels =
            surface()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget *shown : panels)
            if (shown->isVisible() && !shown->windowTitle().isEmpty())
                lines += shown->windowTitle() + placeOf(*shown) + u": "_s + toolsOf(*shown);
        // The texts of what is greyed out are not as dark as others.
        const QRect area(surface()->mapTo(window.get(), QPoint()), surface()->size());
        const QImage image = window->grab(area).toImage();
        int darkest = 255;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
        const QWidget &drawing = *surface()->centralWidget();
        lines += u"%1, %2 from the left, %3 from the right"_s
                     .arg(darkest > 100 ? u"greyed out"_s : u"clear"_s)
                     .arg(area.left())
                     .arg(window->width() - 1 - area.right());
        if (drawing.width() < drawing.sizeHint().width())
            lines += u"drawing cut off"_s;
        if (surface()->geometry() != surface()->parentWidget()->rect())
            lines += u"with margins"_s;
        if (!surface()->isAncestorOf(window->childAt(area.center())))
            lines += u"out of reach of the mouse"_s;
        const QListWidget *pane = findingsPane();
        if (pane->isVisible())
            lines +=
                u"findings %1 % high%2"_s
                    .arg(5 * qRound(20.0 * pane->height() / (area.height() + pane->height())))
                    .arg(pane->horizontalScrollBar()->maximum() == 0 ? u""_s : u", too wide"_s);
        for (int i = 0; pane->isVisible() && i < pane->count(); ++i)
            lines += (pane->item(i)->isSelected() ? u"> "_s : u"| "_s) + pane->item(i)->text();
        for (const QLabel *label : labels)
            if (label->isVisible() && !label->buddy())
                lines += u"%1 (%2 lines)"_s.arg(label->text())
                             .arg(label->height() / label->fontMetrics().lineSpacing());
        if (!opened.isEmpty())
            lines += opened;
        if (QFile::exists(u"seen"_s))
            lines += QString::fromUtf8(contentOf(u"seen"_s)).remove(QDir::currentPath() + u'/');
        const QWidget *focused = QApplication::focusWidget();
        const QString name = !focused ? u"none"_s
                             : focused->objectName().isEmpty()
                                 ? QLatin1String(focused->metaObject()->className())
                                 : focused->objectName();
        return lines + QStringList {u"focus: "_s + name};
    }

    QString placeOf(const QWidget &shown) const
    {
        const auto *dock = qobject_cast<const QDockWidget *>(&shown);
        if (!dock)
            return {};
        const auto *area = static_cast<const QScrollArea *>(dock->widget());
        const bool isLeft = shown.geometry().center().x() < surface()->width() / 2;
        QString text = shown.isWindow() ? u", floating at %1 %2"_s.arg(shown.x()).arg(shown.y())
                                        : u", "_s + (isLeft ? u"left"_s : u"right"_s);
        if (area->width() != area->sizeHint().width())
            text += area->width() < area->sizeHint().width() ? u", too narrow"_s : u", too wide"_s;
        if (area->verticalScrollBar()->isVisible())
            text += u", scrolled, %1 tenths wide"_s.arg(
                qRound(10.0 * area->width() / surface()->width()));
        return text + (area->horizontalScrollBar()->isVisible() ? u", scrolled sideways"_s : u""_s);
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
    Place place = copyInto(u"first"_s);
    std::filesystem::create_symlink("first", "a place");
    place.folder = u"a place"_s;
    Session(place).run();
    QDir(folder.path() + u".old"_s).removeRecursively();
}

#include "PrintPreview.moc"
