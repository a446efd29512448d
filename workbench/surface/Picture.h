#pragma once

#include <QImage>

class QMainWindow;
class QMenu;

namespace Quenda::Workbench {

/**
 * Light colours, for which the style sheets of the documents are made, whatever the desktop has.
 * Without a display, also a font of the same size everywhere, for pictures that can be compared.
 */
void useLightStyle();

/**
 * A picture of @p window, which is made as large as all that it shows, with @p menu open and the
 * menus on the way to it. Without a menu, of the window alone.
 */
QImage pictureOf(QMainWindow &window, QMenu *menu = nullptr);

} // namespace Quenda::Workbench
