// Prints what a person sees of the working surface of a product, state by state. It is read from
// the widgets that were built: their geometry, their pixels, and what becomes of a click.

#include "documents/Place.h"
#include "surface/Picture.h"
#include "surface/Surface.h"

#include <QApplication>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <cstdio>
#include <map>
#include <memory>
#include <set>

using namespace Quenda::Workbench;

namespace {

void print(int depth, const QString &text)
{
    std::printf("%*s%s\n", 2 * depth, "", qUtf8Printable(text));
}

// What a button tells beside its text, the colours of its edge and ground, also with the keyboard's
// focus, and what becomes of a click.
QString descriptionOf(QToolButton &button)
{
    const auto look = [&button] {
        const QImage image = button.grab().toImage();
        return image.pixelColor(image.width() / 2, 0).name() + u'/' + image.pixelColor(4, 4).name();
    };
    QString text = button.toolTip().replace(u'\n', u", "_s).replace(button.text(), u"ID"_s);
    button.clearFocus();
    if (!button.styleSheet().isEmpty())
        text += u", "_s + look();
    button.setFocus();
    if (!button.styleSheet().isEmpty())
        text += u", focused "_s + look();
    button.click();
    return text + (button.isChecked() ? u", checked"_s : u", not to be checked"_s);
}

// The index of a number among those of a set.
int indexIn(const std::set<int> &numbers, int number)
{
    return static_cast<int>(std::distance(numbers.begin(), numbers.lower_bound(number)));
}

class SurfacePrinter
{
public:
    explicit SurfacePrinter(const Place &place) : surface(place.read())
    {
        surface.setDocuments(place.read()); // nothing remains of those before
        surface.show();
        const auto states = statesToShow(place.product);
        for (const HostState &state : states)
            for (const auto shown : {Presentation::ToolBoxes, Presentation::ToolBars}) {
                surface.showState(state, shown);
                surface.resize(surface.sizeHint().expandedTo({1600, 900}));
                QTest::qWait(0);
                const QString name =
                    u"%1 (0x%2), %3"_s.arg(drawing().text())
                        .arg(state.code, 0, 16)
                        .arg(shown == Presentation::ToolBoxes ? u"tool boxes"_s : u"tool bars"_s);
                printState(name);
            }
        printDrawing();
        print(0, u"menus"_s);
        printMenu(*surface.menuBar(), 1);
    }

private:
    QLabel &drawing() const { return *static_cast<QLabel *>(surface.centralWidget()); }

    void printState(const QString &name)
    {
        std::set<int> rows; // of tool bars
        const auto bars = surface.findChildren<QToolBar *>();
        for (const QToolBar *bar : bars)
            if (bar->isVisible())
                rows.insert(bar->y());
        QStringList lines;
        for (QToolBar *bar : bars)
            if (bar->isVisible())
                lines +=
                    u"  top, row %1 \"%2\": "_s.arg(indexIn(rows, bar->y())).arg(bar->windowTitle())
                    + itemsOf(*bar);
        const auto docks = surface.findChildren<QDockWidget *>();
        for (const QDockWidget *dock : docks)
            if (dock->isVisible())
                lines += u"  %1 \"%2\""_s.arg(dock->x() < drawing().x() ? u"left"_s : u"right"_s,
                                              dock->windowTitle())
                         + cellsOf(*static_cast<QScrollArea *>(dock->widget())->widget());
        QStringList offered;
        const std::unique_ptr<QMenu> popup(surface.createPopupMenu());
        const auto actions = popup->actions();
        for (const QAction *action : actions)
            if (action->isVisible() && !action->isSeparator())
                offered += action->text();
        lines += u"  offered "_s + offered.join(u", "_s);
        QString &first = printed[lines.join(u'\n')];
        print(0, first.isEmpty() ? name : name + u" as "_s + first);
        if (first.isEmpty())
            print(0, lines.join(u'\n'));
        if (first.isEmpty())
            first = name;
    }

    QString itemsOf(const QToolBar &bar)
    {
        QStringList texts;
        QList<QToolButton *> buttons;
        const auto actions = bar.actions();
        for (QAction *action : actions) {
            auto *button = qobject_cast<QToolButton *>(bar.widgetForAction(action));
            if (action->isVisible())
                texts += action->isSeparator() ? u"|"_s : button->text();
            if (action->isVisible() && !action->isSeparator())
                buttons += button;
        }
        return texts.join(u' ') + descriptionsOf(buttons);
    }

    // Row by row, each item with its column and, if it covers several cells, with its size.
    QString cellsOf(const QWidget &grid)
    {
        std::map<std::pair<int, int>, QWidget *> widgets;
        std::set<int> columns;
        std::set<int> rows;
        QRect all;
        QList<QToolButton *> buttons;
        const auto children = grid.findChildren<QWidget *>();
        for (QWidget *child : children) {
            auto *button = qobject_cast<QToolButton *>(child);
            if (!child->isVisible())
                continue;
            widgets[{child->y(), child->x()}] = child;
            columns.insert(child->x());
            rows.insert(child->y());
            all |= child->geometry();
            if (button)
                buttons += button;
        }
        const auto spanOf = [](const std::set<int> &starts, int from, int size) {
            return indexIn(starts, from + size) - indexIn(starts, from);
        };
        std::set<int> gaps;
        const QWidget *previous = nullptr;
        QString text;
        for (const auto &[position, widget] : widgets) {
            const auto *button = qobject_cast<const QToolButton *>(widget);
            const bool isNewRow = !previous || previous->y() != widget->y();
            const int height = spanOf(rows, widget->y(), widget->height());
            const int width = spanOf(columns, widget->x(), widget->width());
            if (!isNewRow)
                gaps.insert(widget->x() - previous->x() - previous->width());
            text += (isNewRow ? u"\n    "_s : u" | "_s)
                    + u"%1 "_s.arg(indexIn(columns, widget->x()))
                    + (button ? button->text() : u"----"_s)
                    + (height * width > 1 ? u" %1x%2"_s.arg(height).arg(width) : QString());
            previous = widget;
        }
        QString distances;
        for (const int gap : gaps)
            distances += u" %1"_s.arg(gap);
        text = u": margins %1 %2 %3, gaps"_s.arg(all.left())
                   .arg(all.top())
                   .arg(grid.width() - 1 - all.right())
               + distances + text;
        return (seen.insert(text).second ? text : u" as above"_s) + descriptionsOf(buttons);
    }

    // Of those that are new, and how many are checked at a time.
    QString descriptionsOf(const QList<QToolButton *> &buttons)
    {
        std::map<QString, int> counts;
        for (QToolButton *button : buttons)
            if (described.insert(button).second)
                ++counts[descriptionOf(*button)];
        QString text;
        for (const auto &[description, count] : counts)
            text += u"\n    %1 of them: %2"_s.arg(count).arg(description);
        const auto checked = std::count_if(buttons.begin(), buttons.end(),
                                           [](QToolButton *button) { return button->isChecked(); });
        return counts.empty() ? text : text + u"\n    checked at a time: %1"_s.arg(checked);
    }

    void printDrawing() const
    {
        const QImage image = drawing().grab().toImage();
        QRegion writing;
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixel(x, y) != image.pixel(0, 0))
                    writing += QRect(x, y, 1, 1);
        const QPoint off = writing.boundingRect().center() - image.rect().center();
        print(0, u"drawing on %1, with its text %2"_s.arg(
                     image.pixelColor(0, 0).name(),
                     off.manhattanLength() < 8 ? u"in the middle"_s : u"off the middle"_s));
    }

    // The items that are shown, in their order; Qt leaves some separators out.
    template <typename Menu>
    static void printMenu(const Menu &menu, int depth)
    {
        const auto actions = menu.actions();
        for (QAction *action : actions) {
            if (menu.actionGeometry(action).isEmpty())
                continue;
            print(depth, action->isSeparator()
                             ? u"----"_s
                             : action->text() + u"  "_s
                                   + action->shortcut().toString(QKeySequence::PortableText)
                                   + (action->isChecked() ? u" checked"_s : QString())
                                   + (action->isEnabled() ? QString() : u" greyed out"_s));
            if (action->menu())
                printMenu(*action->menu(), depth + 1);
        }
    }

    Surface surface;
    std::map<QString, QString> printed; // the first state that looks like this
    std::set<QString> seen;
    std::set<const QWidget *> described;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    useLightStyle();
    QString error;
    const SurfacePrinter printer(Place::find(QStringLiteral(PRODUCT), &error).value());
}
