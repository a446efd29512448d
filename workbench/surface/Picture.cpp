#include "surface/Picture.h"

#include <QApplication>
#include <QFont>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QStyle>

namespace Quenda::Workbench {

namespace {

struct Part
{
    QPoint place;
    QPixmap pixmap;
};

// Opens a menu and the menus on the way to it, and takes a picture of each. Where they belong in
// the picture of the window: a small screen may keep the real ones from there.
QVector<Part> picturesOf(QMenu *menu, const QMainWindow &window)
{
    QAction *action = menu->menuAction();
    auto *parent = qobject_cast<QMenu *>(menu->parentWidget());
    QMenuBar *bar = window.menuBar();
    QVector<Part> parts;
    QPoint place;
    if (parent) {
        parts = picturesOf(parent, window);
        parent->setActiveAction(action);
        parts.last().pixmap = parent->grab(); // with its item marked
        place = parts.constLast().place + parent->actionGeometry(action).topRight();
    } else {
        bar->setActiveAction(action);
        place = bar->mapTo(&window, bar->actionGeometry(action).bottomLeft());
    }
    parts.append({place, menu->grab()});
    return parts;
}

} // namespace

void useLightStyle()
{
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QFont font = QApplication::font();
    font.setPixelSize(12);
    if (QGuiApplication::platformName() == u"offscreen")
        QApplication::setFont(font);
}

QImage pictureOf(QMainWindow &window, QMenu *menu)
{
    window.show();
    QCoreApplication::processEvents();
    window.resize(window.sizeHint().expandedTo({800, 480}));
    QCoreApplication::processEvents();
    const QVector<Part> menus = menu ? picturesOf(menu, window) : QVector<Part>();
    QRect area = window.rect();
    for (const Part &part : menus)
        area |= QRect(part.place, part.pixmap.size());
    window.resize(area.size()); // what is beside an open menu is the window, too
    QCoreApplication::processEvents();
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    for (const Part &part : menus)
        painter.drawPixmap(part.place, part.pixmap);
    painter.end();
    return picture.toImage();
}

} // namespace Quenda::Workbench
