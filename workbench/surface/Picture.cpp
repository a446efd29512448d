#include "surface/Picture.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>

namespace {

// The menu whose sub-menu @p menu is; null for a menu of the menu bar.
QMenu *parentOf(const QMenu *menu)
{
    return qobject_cast<QMenu *>(menu->parentWidget());
}

// Where the open menu belongs in the picture. A small screen may keep the real one from there.
QPoint placeOf(const QMenu *menu, const QMainWindow &window)
{
    QAction *action = menu->menuAction();
    if (const QMenu *parent = parentOf(menu))
        return placeOf(parent, window) + parent->actionGeometry(action).topRight();
    const QMenuBar *menuBar = window.menuBar();
    return menuBar->mapTo(&window, menuBar->actionGeometry(action).bottomLeft());
}

void open(const QMenu *menu, const QMainWindow &window)
{
    if (QMenu *parent = parentOf(menu)) {
        open(parent, window);
        parent->setActiveAction(menu->menuAction());
    } else {
        window.menuBar()->setActiveAction(menu->menuAction());
    }
    QCoreApplication::processEvents();
}

} // namespace

QImage pictureOf(QMainWindow &window, const QMenu *menu)
{
    window.show();
    QCoreApplication::processEvents();
    window.resize(window.sizeHint().expandedTo({800, 480}));
    if (QWidget *focused = window.focusWidget())
        focused->clearFocus();
    QCoreApplication::processEvents();
    if (menu)
        open(menu, window);

    QVector<std::pair<QPoint, QPixmap>> openMenus;
    QRect area = window.rect();
    for (const QMenu *one = menu; one; one = parentOf(one)) {
        openMenus.prepend({placeOf(one, window), const_cast<QMenu *>(one)->grab()});
        area |= QRect(openMenus.constFirst().first, openMenus.constFirst().second.size());
    }
    QImage image(area.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.drawPixmap(-area.topLeft(), window.grab());
    for (const auto &[place, pixmap] : qAsConst(openMenus))
        painter.drawPixmap(place - area.topLeft(), pixmap);
    return image;
}
