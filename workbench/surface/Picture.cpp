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

// Opens a menu, and the menus on the way to it. Where they belong in the picture: a small screen
// may keep the real ones from there.
QVector<Part> open(QMenu *menu, const QMainWindow &window)
{
    QAction *action = menu->menuAction();
    auto *parent = qobject_cast<QMenu *>(menu->parentWidget());
    QVector<Part> parts;
    QPoint place;
    if (parent) {
        parts = open(parent, window);
        parent->setActiveAction(action);
        place = parts.constLast().place + parent->actionGeometry(action).topRight();
    } else {
        window.menuBar()->setActiveAction(action);
        place =
            window.menuBar()->mapTo(&window, window.menuBar()->actionGeometry(action).bottomLeft());
    }
    if (parent)
        parts.last().pixmap = parent->grab(); // with its item marked
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
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QApplication::setFont(font);
}

QImage pictureOf(QMainWindow &window, QMenu *menu)
{
    window.show();
    QCoreApplication::processEvents();
    window.resize(window.sizeHint().expandedTo({800, 480}));
    if (QWidget *focused = window.focusWidget())
        focused->clearFocus();
    QCoreApplication::processEvents();
    const QVector<Part> menus = menu ? open(menu, window) : QVector<Part>();
    QRect area = window.rect();
    for (const Part &part : menus)
        area |= QRect(part.place, part.pixmap.size());
    QImage image(area.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.drawPixmap(-area.topLeft(), window.grab());
    for (const Part &part : menus)
        painter.drawPixmap(part.place - area.topLeft(), part.pixmap);
    return image;
}

} // namespace Quenda::Workbench
