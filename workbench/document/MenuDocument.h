#pragma once

#include "document/Xml.h"

/** A menu document: the menu bar as a tree of menus, and the actions. */
struct MenuDocument
{
    /** A place in a menu: an action, a sub-menu or "separator" by its name. */
    struct Item
    {
        QString name;
        const XmlElement *xml;

        bool isSeparator() const { return name == QLatin1String("separator"); }
    };

    /** A menu, or the menu bar. */
    struct Menu
    {
        QString name;
        QString title;
        std::vector<Menu> subMenus; ///< In the order in which they are defined.
        QVector<Item> items; ///< In the order in which they are shown.
        const XmlElement *xml = nullptr;

        const Menu *subMenu(const QString &menuName) const;
    };

    struct Action
    {
        QString name;
        const XmlElement *xml;
    };

    Menu bar; ///< Without `xml` when the document has no menu bar.
    QVector<Action> actions;

    static MenuDocument read(const XmlDocument &xml);

    const Action *action(const QString &name) const;
};

/** The value element of the property of an action or menu; null when it is not set. */
const XmlElement *propertyOf(const XmlElement &object, const char *property);

/** The text of that element; empty when there is none. */
QString propertyText(const XmlElement &object, const char *property);
