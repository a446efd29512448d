// Prints a session with the preview: a table of steps, with what is new (+) or gone (-) in the
// window.

#include "Files.h"
#include "documents/Place.h"
#include "preview/PreviewWindow.h"
#include "surface/Picture.h"

#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QDockWidget>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <cstdio>
#include <memory>

using namespace Quenda::Workbench;

namespace {

QString toolsOf(const QWidget &panel)
{
    QStringList texts;
    const auto buttons = panel.findChildren<QToolButton *>();
    for (const QToolButton *button : buttons)
        if (button->isVisible() && !button->text().isEmpty())
            texts += button->text();
    return texts.join(u' ');
}

QString nameOf(const QWidget *widget)
{
    if (!widget)
        return u"none"_s;
    return widget->objectName().isEmpty() ? QLatin1String(widget->metaObject()->className())
                                          : widget->objectName();
}

} // namespace

class Session : public QObject
{
    Q_OBJECT

public:
    Session() { QDesktopServices::setUrlHandler(u"file"_s, this, "open"); }

    void printStep(const QString &step)
    {
        const QStringList before = describe();
        opened.clear();
        std::printf("%s\n", qUtf8Printable(step));
        const QString verb = step.section(u' ', 1, 1);
        if (step.startsWith(u"> "_s))
            act(verb, step.section(u' ', 2));
        // The window follows what is in the files.
        if (step.startsWith(u"$ "_s) && !printsInShell(step.mid(2)))
            (void)QTest::qWaitFor([&] { return describe() != before; }, 3000);
        if (step.startsWith(u"& "_s))
            printsInShell(step.mid(2));
        QStringList after = describe();
        const bool isHurried = step.startsWith(u"& "_s) || step.startsWith(u"> write"_s);
        for (int same = isHurried ? 3 : 0; same < 3;) { // until nothing more happens
            QTest::qWait(30);
            const QStringList next = describe();
            same = next == after ? same + 1 : 0;
            after = next;
        }
        for (const QString &line : std::as_const(before))
            if (!hasLine(after, line.section(u' ', 0, 0)))
                std::printf("- %s\n", qUtf8Printable(line));
        for (const QString &line : std::as_const(after))
            if (!before.contains(line))
                std::printf("+ %s\n", qUtf8Printable(line));
    }

public Q_SLOTS:
    void open(const QUrl &url) { opened = u"opened "_s + url.fileName(); }

private:
    static bool hasLine(const QStringList &lines, const QString &start)
    {
        return std::any_of(lines.begin(), lines.end(),
                           [&start](const QString &line) { return line.startsWith(start); });
    }

    static bool printsInShell(const QString &command)
    {
        // A file that is written while it is read must not stay empty until a program has started.
        const QString save = u"save() { text=$(cat); printf '%s\\n' \"$text\" >\"$1\"; }; "_s;
        QProcess shell;
        shell.setStandardOutputFile(u"output"_s);
        shell.start(u"sh"_s, {u"-c"_s, save + command});
        shell.waitForFinished();
        const QString output = QString::fromUtf8(contentOf(u"output"_s));
        if (!output.isEmpty())
            std::printf("| %s", qPrintable(output));
        return !output.isEmpty();
    }

    void act(const QString &verb, const QString &rest)
    {
        const int number = rest.section(u' ', -1).toInt();
        auto *dock = window ? window->findChild<QDockWidget *>(rest) : nullptr;
        if (verb == u"open"_s) {
            QString error;
            window = std::make_unique<PreviewWindow>(
                Place::find(u"a place/lorvan"_s, &error).value(), rest);
            window->show();
            (void)QTest::qWaitForWindowActive(window.get());
        } else if (verb == u"press"_s) {
            const int key = QKeySequence(rest)[0];
            QWidget *focused = QApplication::focusWidget();
            QTest::keyClick(
                focused ? focused : window.get(),
                static_cast<Qt::Key>(key & ~int(Qt::KeyboardModifierMask)),
                static_cast<Qt::KeyboardModifiers>(key & int(Qt::KeyboardModifierMask)));
        } else if (verb == u"tab"_s) { // until something has the focus
            for (int i = 0; i < 100 && nameOf(QApplication::focusWidget()) != rest; ++i)
                act(u"press"_s, u"Tab"_s);
        } else if (verb == u"choose"_s) {
            window->findChild<QComboBox *>(rest.section(u' ', 0, 0))->setCurrentIndex(number);
        } else if (verb == u"panel"_s) {
            togglePanel(rest);
        } else if (verb == u"left"_s || verb == u"right"_s) {
            dock->setFloating(false);
            surface()->addDockWidget(
                verb == u"left"_s ? Qt::LeftDockWidgetArea : Qt::RightDockWidgetArea, dock);
            window->activateWindow();
        } else if (verb == u"float"_s) {
            dock->setFloating(true);
            dock->move(33, 44);
        } else if (verb == u"close"_s) {
            dock->close();
        } else if (verb == u"resize"_s) {
            window->resize(rest.section(u' ', 0, 0).toInt(), number);
        } else if (verb == u"drag"_s) { // the border above the findings, beyond the window
            QWidget *handle = window->findChild<QSplitter *>()->handle(1);
            QTest::mousePress(handle, Qt::LeftButton);
            const QPoint below(0, window->height());
            QMouseEvent move(QEvent::MouseMove, below, handle->mapToGlobal(below), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(handle, &move);
            QTest::mouseRelease(handle, Qt::LeftButton);
        } else if (verb == u"write"_s) { // something else, again and again
            QTimer writer;
            int count = 0;
            connect(&writer, &QTimer::timeout, this, [&] {
                QFile file(rest);
                if (file.open(QIODevice::WriteOnly))
                    file.write("<a" + QByteArray::number(++count));
            });
            writer.start(10);
            QTest::qWait(350);
        } else if (verb == u"no"_s) { // program of the desktop
            QDesktopServices::unsetUrlHandler(u"file"_s);
        } else {
            qputenv("QUENDA_EDITOR", rest.toUtf8());
        }
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

    QMainWindow *surface() const { return window->findChild<QMainWindow *>(); }

    QStringList describe() const
    {
        if (!window || !window->isVisible())
            return {u"closed"_s};
        QStringList lines {u"title: "_s + window->windowTitle(),
                           u"size: %1 by %2"_s.arg(window->width()).arg(window->height())};
        const auto labels = window->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QLabel *label : labels)
            if (const auto *selector = qobject_cast<QComboBox *>(label->buddy()))
                lines += label->text() + u' ' + selector->currentText();
            else if (label->isVisible())
                lines += u"failure: %1 (%2 lines)"_s.arg(label->text())
                             .arg(label->height() / label->fontMetrics().lineSpacing());
        const auto panels =
            surface()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget *panel : panels)
            if (panel->isVisible() && !panel->windowTitle().isEmpty())
                lines += panel->windowTitle() + u": "_s + placeOf(*panel) + toolsOf(*panel);
        // The texts of what is greyed out are not as dark as others.
        const QRect area(surface()->mapTo(window.get(), QPoint()), surface()->size());
        const QImage image = window->grab(area).toImage();
        int darkest = 255;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
        lines += u"surface: %1, %2 from the left, %3 from the right"_s
                     .arg(darkest > 100 ? u"greyed out"_s : u"clear"_s)
                     .arg(area.left())
                     .arg(window->width() - 1 - area.right());
        const QWidget &drawing = *surface()->centralWidget();
        if (drawing.width() < drawing.sizeHint().width())
            lines += u"drawing cut off"_s;
        if (!surface()->isAncestorOf(window->childAt(area.center())))
            lines += u"out of reach of the mouse"_s;
        const auto *pane = window->findChild<QListWidget *>();
        if (pane->isVisible())
            lines +=
                u"findings: %1 % high%2"_s
                    .arg(5 * qRound(20.0 * pane->height() / (area.height() + pane->height())))
                    .arg(pane->horizontalScrollBar()->maximum() == 0 ? u""_s : u", too wide"_s);
        for (int i = 0; pane->isVisible() && i < pane->count(); ++i)
            lines += pane->item(i)->text();
        const QList<QListWidgetItem *> selected = pane->selectedItems();
        for (const QListWidgetItem *item : selected)
            lines += u"selected: "_s + item->text().section(u' ', 0, 0);
        if (!opened.isEmpty())
            lines += opened;
        return lines + QStringList {u"focus: "_s + nameOf(QApplication::focusWidget())};
    }

    QString placeOf(const QWidget &panel) const
    {
        const auto *dock = qobject_cast<const QDockWidget *>(&panel);
        if (!dock)
            return {};
        const auto *area = static_cast<const QScrollArea *>(dock->widget());
        const bool isLeft = panel.geometry().center().x() < surface()->width() / 2;
        QString text = panel.isWindow() ? u"floating at %1 %2, "_s.arg(panel.x()).arg(panel.y())
                                        : (isLeft ? u"left, "_s : u"right, "_s);
        if (area->width() != area->sizeHint().width())
            text += area->width() < area->sizeHint().width() ? u"too narrow, "_s : u"too wide, "_s;
        if (area->verticalScrollBar()->isVisible())
            text += u"scrolled, %1 tenths wide, "_s.arg(
                qRound(10.0 * area->width() / surface()->width()));
        return text + (area->horizontalScrollBar()->isVisible() ? u"scrolled sideways, "_s : u""_s);
    }

    std::unique_ptr<PreviewWindow> window;
    QString opened;
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    useLightStyle();
    QStringList lines = QString::fromUtf8(contentOf(QString::fromLocal8Bit(argv[1]))).split(u'\n');
    lines.removeLast(); // it is empty
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(u"current"_s);
    QDir::setCurrent(folder.filePath(u"current"_s));
    qputenv("product", PRODUCT);
    Session session;
    for (const QString &line : qAsConst(lines))
        if (line.startsWith(u"$ "_s) || line.startsWith(u"& "_s) || line.startsWith(u"> "_s))
            session.printStep(line);
        else if (!QStringList {u"- "_s, u"+ "_s, u"| "_s}.contains(line.left(2)))
            std::printf("%s\n", qUtf8Printable(line));
}

#include "PrintPreview.moc"
