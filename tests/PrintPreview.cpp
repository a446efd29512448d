// Prints what the preview's window shows after each step of a session with it.

#include "PreviewWindow.h"
#include "format/Format.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QDockWidget>
#include <QListWidget>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <cstdio>

using namespace Quenda::Workbench;

namespace {

// The documents of tesmar in a folder, where they may be written.
Place copyInto(const QString &folder)
{
    QString error;
    const Place builtIn = Place::find(QStringLiteral("tesmar"), &error).value();
    Place copy = builtIn;
    copy.folder = folder;
    for (const Format *format : builtIn.formats) {
        QFile::copy(builtIn.pathOf(*format), copy.pathOf(*format));
        QFile::setPermissions(copy.pathOf(*format), QFile::ReadOwner | QFile::WriteOwner);
    }
    return copy;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
    explicit Session(const Place &place)
        : window(place),
          entries(place.pathOf(entryFormat())),
          tools(place.pathOf(toolFormat())),
          goodEntries(contentOf(entries)),
          goodTools(contentOf(tools))
    {
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        std::printf("opened\n%s", qUtf8Printable(describe()));
    }

    void run()
    {
        step("saved in place", [this] { save(tools, withTool("first")); });
        step("saved by renaming", [this] {
            save(tools + QLatin1String(".new"), withTool("second"));
            std::rename(qPrintable(tools + QLatin1String(".new")), qPrintable(tools));
        });
        step("saved in place again", [this] { save(tools, withTool("third")); });
        step("a warning",
             [this] { save(entries, QByteArray(goodEntries).replace(">entp<", "> entp<")); });
        step("broken", [this] {
            save(tools, QByteArray(goodTools)
                            .replace("\"block\"", "\"&lt;b>bold&lt;/b> \"")
                            .replace("columns=\"6\"", "columns=\"0\""));
        });
        step("to the findings with the keyboard", [this] {
            window.findChild<QComboBox *>(QStringLiteral("presentation"))->setFocus();
            while (!qobject_cast<QListWidget *>(QApplication::focusWidget()))
                press(Qt::Key_Tab);
            press(Qt::Key_Down);
        });
        step("activated", [this] { press(Qt::Key_Return); });
        step("mended", [this] { save(tools, goodTools); });
        step("without a warning", [this] { save(entries, goodEntries); });
        step("removed", [this] { QFile::remove(tools); });
        step("put back", [this] { save(tools, goodTools); });
        step("another state", [this] {
            window.findChild<QComboBox *>(QStringLiteral("state"))->setFocus();
            press(Qt::Key_Down);
        });
        step("keypad closed", [this] {
            keypad()
                ->findChild<QAbstractButton *>(QStringLiteral("qt_dockwidget_closebutton"))
                ->click();
        });
        step("the next state", [this] {
            window.findChild<QComboBox *>(QStringLiteral("state"))->setFocus();
            press(Qt::Key_Down);
        });
        step("saved", [this] { save(tools, withTool("fourth")); });
        step("tool bars", [this] {
            press(Qt::Key_Tab);
            press(Qt::Key_Down);
        });
        step("saved", [this] { save(tools, withTool("fifth")); });
        step("keypad opened", [this] { keypad()->toggleViewAction()->trigger(); });
        step("saved, and F5 before that is noticed", [this] {
            save(tools, withTool("sixth"));
            press(Qt::Key_F5);
            QTest::qWait(10);
            std::printf("at once\n%s", qUtf8Printable(describe()));
        });
        step("Ctrl+S, which the menu shows", [this] { press(Qt::Key_S, Qt::ControlModifier); });
        step("Ctrl+Q", [this] { press(Qt::Key_Q, Qt::ControlModifier); });
    }

public Q_SLOTS:
    void open(const QUrl &url) { opened = QLatin1String("opened ") + url.fileName(); }

private:
    template <typename Action>
    void step(const char *name, const Action &action)
    {
        const QString before = describe();
        opened.clear();
        action();
        (void)QTest::qWaitFor([&] { return describe() != before || !opened.isEmpty(); }, 3000);
        QTest::qWait(100); // in which nothing more happens
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
        QTest::keyClick(focused ? focused : &window, key, modifiers);
    }

    QDockWidget *keypad() const
    {
        return window.findChild<QDockWidget *>(QStringLiteral("keypad"));
    }

    QString describe() const
    {
        if (!window.isVisible())
            return QStringLiteral("  closed\n");
        QStringList lines;
        const auto selectors = window.findChildren<QComboBox *>();
        for (const QComboBox *selector : selectors)
            lines += selector->objectName() + QLatin1String(": ") + selector->currentText();
        auto *surface = window.findChild<QMainWindow *>();
        const auto panels = surface->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget *panel : panels)
            if (panel->isVisible() && !panel->windowTitle().isEmpty())
                lines += panel->windowTitle() + QLatin1String(": ") + toolsOf(*panel);
        // The texts of what is set back are not as dark as others.
        const QRect area(surface->mapTo(&window, QPoint()), surface->size());
        const QImage image = const_cast<PreviewWindow &>(window).grab(area).toImage();
        int darkest = 255;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
        lines += QStringLiteral("%1, %2 from the left, %3 from the right")
                     .arg(QLatin1String(darkest > 100 ? "set back" : "clear"))
                     .arg(area.left())
                     .arg(window.width() - 1 - area.right());
        auto *pane = window.findChild<QListWidget *>();
        for (int i = 0; pane->isVisible() && i < pane->count(); ++i)
            lines +=
                QLatin1String(pane->item(i)->isSelected() ? "> " : "| ") + pane->item(i)->text();
        if (!opened.isEmpty())
            lines += opened;
        lines += QLatin1String("focus: ") + nameOf(QApplication::focusWidget());
        return QLatin1String("  ") + lines.join(QLatin1String("\n  ")) + QLatin1Char('\n');
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

    PreviewWindow window;
    const QString entries;
    const QString tools;
    const QByteArray goodEntries;
    const QByteArray goodTools;
    QString opened;
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(QStringLiteral("tesmar"));
    Session(copyInto(folder.filePath(QStringLiteral("tesmar")))).run();
}

#include "PrintPreview.moc"
