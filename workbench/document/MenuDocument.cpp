#include "document/MenuDocument.h"

#include <algorithm>

namespace {

MenuDocument::Menu readMenu(const XmlElement &element)
{
    MenuDocument::Menu menu;
    menu.name = element.value("name");
    menu.title = propertyText(element, "title");
    menu.xml = &element;
    for (const XmlElement &child : element.children) {
        if (child.name == QLatin1String("widget"))
            menu.subMenus.push_back(readMenu(child));
        else if (child.name == QLatin1String("addaction"))
            menu.items.append({child.value("name"), &child});
    }
    return menu;
}

// Wherever they stand: in the menu bar, in an action group or, by mistake, in a menu.
void readActions(const XmlElement &element, QVector<MenuDocument::Action> &actions)
{
    for (const XmlElement &child : element.children) {
        if (child.name == QLatin1String("action") || child.name == QLatin1String("actiongroup"))
            actions.append({child.value("name"), &child});
        readActions(child, actions);
    }
}

template <typename List>
auto findByName(const List &list, const QString &name) -> decltype(&*list.begin())
{
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&name](const auto &one) { return one.name == name; });
    return found == list.end() ? nullptr : &*found;
}

} // namespace

const MenuDocument::Menu *MenuDocument::Menu::subMenu(const QString &menuName) const
{
    return findByName(subMenus, menuName);
}

MenuDocument MenuDocument::read(const XmlDocument &xml)
{
    MenuDocument document;
    if (const XmlElement *bar = xml.root.child("widget"))
        document.bar = readMenu(*bar);
    readActions(xml.root, document.actions);
    return document;
}

const MenuDocument::Action *MenuDocument::action(const QString &name) const
{
    return findByName(actions, name);
}

const XmlElement *propertyOf(const XmlElement &object, const char *property)
{
    for (const XmlElement &child : object.children)
        if (child.name == QLatin1String("property")
            && child.value("name") == QLatin1String(property))
            return child.children.empty() ? nullptr : &child.children.front();
    return nullptr;
}

QString propertyText(const XmlElement &object, const char *property)
{
    const XmlElement *value = propertyOf(object, property);
    return value ? value->text : QString();
}
