// Prints what a person sees of the working surface of a product, state by state. It is read from
// the widgets that were built: their geometry, their pixels, and what becomes of a click.

#include "documents/Place.h"
#include "surface/Picture.h"
#include "surface/Surface.h"

#include <QApplication>
#include <QDockWidget>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
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

// What a button has beside its text, the colours of its edge and ground, and what becomes of a
// click.
QString descriptionOf(QToolButton &button)
{
    QString text = button.toolTip().replace(button.text(), u"ID"_s).replace(u'\n', u", "_s);
    const QImage image = button.grab().toImage();
    if (!button.styleSheet().isEmpty()) // others look as Qt has it
        text += u", %1/%2"_s.arg(image.pixelColor(image.width() / 2, 0).name(),
                                 image.pixelColor(4, 4).name());
    button.click();
    return text + (button.isChecked() ? u", checked"_s : u", not to be checked"_s);
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
                print(
                    drawing().text()
                        + (shown == Presentation::ToolBoxes ? u", tool boxes"_s : u", tool bars"_s),
                    panels() + offered());
            }
    }

private:
    // Names another that was printed already with the same lines.
    void print(const QString &name, const QStringList &lines)
    {
        QString &first = printed[lines];
        std::printf("%s\n",
                    qUtf8Printable(first.isEmpty() ? name + u"\n  "_s + lines.join(u"\n  "_s)
                                                   : name + u": as "_s + first));
        if (first.isEmpty())
            first = name;
    }

    QLabel &drawing() const { return *static_cast<QLabel *>(surface.centralWidget()); }

    QStringList offered()
    {
        QString texts;
        const std::unique_ptr<QMenu> popup(surface.createPopupMenu());
        const auto actions = popup->actions();
        for (const QAction *action : actions)
            if (action->isVisible() && !action->isSeparator())
                texts += u' ' + action->text();
        return {u"offered:"_s + texts};
    }

    QStringList panels()
    {
        QStringList lines;
        const auto bars = surface.findChildren<QToolBar *>();
        for (QToolBar *bar : bars)
            if (bar->isVisible())
                lines += u"%1 \"%2\":"_s.arg(surface.toolBarBreak(bar) ? u"top, in a new row,"_s
                                                                       : u"top"_s,
                                             bar->windowTitle())
                         + itemsOf(*bar);
        const auto docks = surface.findChildren<QDockWidget *>();
        for (const QDockWidget *dock : docks)
            if (dock->isVisible())
                lines += u"%1 \"%2\": "_s.arg(dock->x() < drawing().x() ? u"left"_s : u"right"_s,
                                              dock->windowTitle())
                         + cellsOf(*static_cast<QScrollArea *>(dock->widget())->widget());
        return lines;
    }

    QString itemsOf(const QToolBar &bar)
    {
        QString text;
        QList<QToolButton *> buttons;
        const auto actions = bar.actions();
        for (QAction *action : actions) {
            auto *button = qobject_cast<QToolButton *>(bar.widgetForAction(action));
            if (!action->isVisible())
                continue;
            text += u' ' + (action->isSeparator() ? u"|"_s : button->text());
            if (!action->isSeparator())
                buttons += button;
        }
        return text + descriptionsOf(buttons);
    }

    // Row by row, each item with its column and, if it covers several cells, with its size.
    QString cellsOf(const QWidget &grid)
    {
        const auto *layout = qobject_cast<const QGridLayout *>(grid.layout());
        const QRect area = layout->contentsRect();
        QList<QToolButton *> buttons;
        QString text = u"%1 %2 %3 around, %4 between"_s.arg(area.left())
                           .arg(area.top())
                           .arg(grid.width() - 1 - area.right())
                           .arg(layout->spacing());
        for (int i = 0, before = -1; i < layout->count(); ++i) {
            auto *button = qobject_cast<QToolButton *>(layout->itemAt(i)->widget());
            if (button)
                buttons += button;
            int row = 0;
            int column = 0;
            int height = 0;
            int width = 0;
            layout->getItemPosition(i, &row, &column, &height, &width);
            text += (row == before ? u" |"_s : u"\n    %1:"_s.arg(row))
                    + u" %1 %2"_s.arg(column).arg(button ? button->text() : u"----"_s);
            if (height * width > 1)
                text += u" %1x%2"_s.arg(height).arg(width);
            before = row;
        }
        return (seen.insert(text).second ? text : u"as above"_s) + descriptionsOf(buttons);
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

    Surface surface;
    std::map<QStringList, QString> printed;
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
