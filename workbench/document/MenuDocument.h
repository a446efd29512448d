#pragma once

#include "document/Xml.h"

namespace Quenda::Workbench {

/** A menu document: the menu bar as a tree of menus, and the actions. */
struct MenuDocument
{
    /** An action, a group of actions, or an item of a menu, which names what is shown there. */
    struct Object
    {
        QString name;
        const XmlElement *xml = nullptr;

        bool isSeparator() const { return name == QLatin1String("separator"); }
    };

    /** A menu, or the menu bar. */
    struct Menu : Object
    {
        std::vector<Menu> subMenus; ///< In the order in which they are defined.
        QVector<Object> items; ///< In the order in which they are shown.

        const Menu *subMenu(const QString &menuName) const { return findNamed(subMenus, menuName); }
    };

    Menu bar; ///< Without `xml` when the document has no menu bar.
    QVector<Object> actions; ///< Wherever they stand.

    static MenuDocument read(const XmlDocument &xml);

    /** The action of the name, or null; a group is none. */
    const XmlElement *action(const QString &name) const;
};

/** The value element of the property of an action or menu; null when it is not set. */
const XmlElement *propertyOf(const XmlElement &object, const char *property);

/** The text of that element; empty when there is none. */
QString propertyText(const XmlElement &object, const char *property);

} // namespace Quenda::Workbench
