// Prints what a person sees of a place's working surface, or can try there. It is read from the
// widgets that were built: their geometry, their pixels, and what becomes of a click.

#include "Place.h"
#include "surface/Picture.h"
#include "surface/Surface.h"

#include <QApplication>
#include <QDataStream>
#include <QDockWidget>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <cstdio>
#include <map>
#include <set>
#include <vector>

using namespace Quenda::Workbench;

namespace {

void print(int depth, const QString &text)
{
    std::printf("%*s%s\n", 2 * depth, "", qUtf8Printable(text));
}

QString inQuotes(const QString &text)
{
    return QLatin1Char('"') + QString(text).replace(QLatin1Char('\n'), QLatin1String(", "))
           + QLatin1Char('"');
}

// The colours of edge and ground.
QString lookOf(QWidget &button)
{
    const QImage image = button.grab().toImage();
    return image.pixelColor(image.width() / 2, 0).name() + QLatin1Char('/')
           + image.pixelColor(4, 4).name();
}

// The same when it has been left alone, under the mouse, and clicked.
QString looksOf(QToolButton &button)
{
    QStringList looks {lookOf(button)};
    button.setAttribute(Qt::WA_UnderMouse);
    looks += QLatin1String("under the mouse ") + lookOf(button);
    button.setAttribute(Qt::WA_UnderMouse, false);
    button.click();
    looks += button.isChecked() ? QLatin1String("checked ") + lookOf(button)
                                : QStringLiteral("not to be checked");
    return looks.join(QLatin1String(", "));
}

// The file of an icon, for which Qt has no getter.
QString nameOf(const QIcon &icon)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << icon;
    const int start = bytes.indexOf(QByteArray("\0:\0/", 4));
    QString name = icon.name();
    for (int i = start;
         start >= 0 && i + 1 < bytes.size() && bytes.at(i) == 0 && bytes.at(i + 1) >= ' '; i += 2)
        name += QLatin1Char(bytes.at(i + 1));
    return name;
}

// The widgets directly in another that can be seen, row by row.
std::vector<QWidget *> visibleIn(const QWidget &parent)
{
    std::vector<QWidget *> widgets;
    const auto children = parent.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : children)
        if (child->isVisible() && !child->objectName().startsWith(QLatin1String("qt_")))
            widgets.push_back(child);
    std::sort(widgets.begin(), widgets.end(), [](const QWidget *a, const QWidget *b) {
        return std::make_pair(a->y(), a->x()) < std::make_pair(b->y(), b->x());
    });
    return widgets;
}

QString textOf(const QWidget *widget)
{
    const auto *button = qobject_cast<const QToolButton *>(widget);
    return button ? button->text() : QStringLiteral("----");
}

// How many of the numbers are in a range.
int countIn(const std::set<int> &numbers, int first, int size)
{
    return static_cast<int>(
        std::distance(numbers.lower_bound(first), numbers.lower_bound(first + size)));
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
                print(0, state.label()
                             + QLatin1String(shown == Presentation::ToolBoxes ? ", tool boxes"
                                                                              : ", tool bars"));
                printPanels();
            }
        print(0, QStringLiteral("menus"));
        printMenu(*surface.menuBar(), 1);
    }

private:
    void printPanels()
    {
        const QRect drawing = surface.centralWidget()->geometry();
        const QImage middle = surface.centralWidget()->grab().toImage();
        QRegion writing;
        for (int x = 0; x < middle.width(); ++x)
            for (int y = 0; y < middle.height(); ++y)
                if (middle.pixel(x, y) != middle.pixel(0, 0))
                    writing += QRect(x, y, 1, 1);
        const QPoint off = writing.boundingRect().center() - middle.rect().center();
        print(1, QStringLiteral("middle %1 on %2%3")
                     .arg(inQuotes(static_cast<QLabel *>(surface.centralWidget())->text()),
                          middle.pixelColor(0, 0).name(),
                          QLatin1String(off.manhattanLength() < 8 ? "" : ", off its centre")));
        std::set<int> rows;
        for (const QWidget *panel : visibleIn(surface))
            if (qobject_cast<const QToolBar *>(panel))
                rows.insert(panel->y());
        for (const QWidget *panel : visibleIn(surface)) {
            const auto *dock = qobject_cast<const QDockWidget *>(panel);
            if (!dock && !qobject_cast<const QToolBar *>(panel))
                continue;
            const QPoint center = panel->geometry().center();
            const QString place =
                center.y() < drawing.top()
                    ? QStringLiteral("top, row %1").arg(countIn(rows, 0, panel->y()))
                : center.x() < drawing.left() ? QStringLiteral("left")
                                              : QStringLiteral("right");
            const QWidget &content =
                dock ? *static_cast<QScrollArea *>(dock->widget())->widget() : *panel;
            QStringList texts;
            for (const QWidget *widget : visibleIn(content))
                texts += textOf(widget);
            const bool isNew = printed.insert({panel, texts.join(QLatin1Char('\n'))}).second;
            print(1, place + QLatin1Char(' ') + inQuotes(panel->windowTitle())
                         + QLatin1String(isNew ? "" : " as above"));
            if (isNew)
                printContent(content, dock ? *dock->widget() : *panel);
        }
        QStringList offered;
        const std::unique_ptr<QMenu> popup(surface.createPopupMenu());
        const auto actions = popup->actions();
        for (const QAction *action : actions)
            if (action->isVisible() && !action->isSeparator())
                offered += action->text();
        print(1, QLatin1String("offered ") + offered.join(QLatin1String(", ")));
    }

    void printContent(const QWidget &content, const QWidget &holder)
    {
        std::set<int> columns;
        std::set<int> rows;
        std::set<int> gaps;
        QRect area;
        const QWidget *previous = nullptr;
        const std::vector<QWidget *> widgets = visibleIn(content);
        for (const QWidget *widget : widgets) {
            area |= widget->geometry();
            rows.insert(widget->y());
            columns.insert(widget->x());
            if (previous && previous->y() == widget->y())
                gaps.insert(widget->x() - previous->x() - previous->width());
            previous = widget;
        }
        QStringList gapTexts;
        for (const int gap : gaps)
            gapTexts += QString::number(gap);
        area.translate(content.mapTo(&holder, QPoint()));
        if (!qobject_cast<const QToolBar *>(&content))
            print(2, QStringLiteral("columns %1, margins %2 %3 %4, gaps %5")
                         .arg(columns.size())
                         .arg(area.left())
                         .arg(area.top())
                         .arg(holder.width() - area.right() - 1)
                         .arg(gapTexts.join(QLatin1Char(' '))));
        std::map<QString, int> looks;
        for (QWidget *widget : widgets) {
            const int height = countIn(rows, widget->y(), widget->height());
            const int width = countIn(columns, widget->x(), widget->width());
            QString text = QStringLiteral("%1,%2")
                               .arg(countIn(rows, 0, widget->y()))
                               .arg(countIn(columns, 0, widget->x()));
            if (height * width > 1)
                text += QStringLiteral(" %1x%2").arg(height).arg(width);
            text += QLatin1String("  ") + textOf(widget);
            auto *button = qobject_cast<QToolButton *>(widget);
            if (button && described.insert(widget).second) {
                text += QLatin1String("  ") + inQuotes(button->toolTip());
                ++looks[looksOf(*button)];
            }
            print(2, text);
        }
        for (const auto &[look, count] : looks)
            print(2, QStringLiteral("%1 of them: %2").arg(count).arg(look));
        const auto checked =
            std::count_if(widgets.begin(), widgets.end(), [](const QWidget *widget) {
                const auto *button = qobject_cast<const QToolButton *>(widget);
                return button && button->isChecked();
            });
        if (!looks.empty())
            print(2, QStringLiteral("checked at a time: %1").arg(checked));
    }

    // The items that are shown, in their order; Qt leaves some separators out.
    template <typename Menu>
    static void printMenu(const Menu &menu, int depth)
    {
        const auto actions = menu.actions();
        for (const QAction *action : actions) {
            if (menu.actionGeometry(const_cast<QAction *>(action)).isEmpty())
                continue;
            QStringList text {action->isSeparator() ? QStringLiteral("----")
                                                    : inQuotes(action->text())};
            if (!action->shortcut().isEmpty())
                text += action->shortcut().toString(QKeySequence::NativeText);
            if (action->isCheckable())
                text += action->isChecked() ? QStringLiteral("[x]") : QStringLiteral("[ ]");
            if (!action->isEnabled())
                text += QStringLiteral("disabled");
            if (!action->autoRepeat())
                text += QStringLiteral("does not repeat");
            if (!action->icon().isNull())
                text += QLatin1String("icon ") + nameOf(action->icon())
                        + QLatin1String(action->isIconVisibleInMenu() ? "" : ", not shown");
            print(depth, text.join(QLatin1String("  ")));
            if (action->menu())
                printMenu(*action->menu(), depth + 1);
        }
    }

    Surface surface;
    std::set<std::pair<const QWidget *, QString>> printed;
    std::set<const QWidget *> described;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    useLightStyle();
    QString error;
    const auto place = Place::find(QString::fromLocal8Bit(argv[1]), &error);
    const SurfacePrinter printer(place.value());
}
