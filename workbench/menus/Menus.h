#pragma once

#include "format/Format.h"

namespace Quenda::Workbench {

/** The menu document, menus.xml. */
const Format &menuFormat();

/** The child of this element name and "name": a sub-menu of a menu, an action of the menu bar. */
const XmlElement *objectIn(const XmlElement &parent, QStringView element, const QString &name);

/** What an item shows: a sub-menu of its menu, or an action; null for a separator. */
const XmlElement *shownBy(const XmlElement &item, const XmlElement &menu,
                          const XmlElement &menuBar);

/** The value element of the property of an action or menu; null when it is not set. */
const XmlElement *propertyOf(const XmlElement &object, const QString &property);

} // namespace Quenda::Workbench
