#include "document/MenuDocument.h"

namespace Quenda::Workbench {

namespace {

MenuDocument::Menu readMenu(const XmlElement &element)
{
    MenuDocument::Menu menu {{element.value("name"), &element}, {}, {}};
    for (const XmlElement &child : element.children) {
        if (child.is("widget"))
            menu.subMenus.push_back(readMenu(child));
        else if (child.is("addaction"))
            menu.items.append({child.value("name"), &child});
    }
    return menu;
}

// In the menu bar, in an action group or, by mistake, in a menu.
void readActions(const XmlElement &element, QVector<MenuDocument::Object> &actions)
{
    for (const XmlElement &child : element.children) {
        if (child.is("action") || child.is("actiongroup"))
            actions.append({child.value("name"), &child});
        readActions(child, actions);
    }
}

} // namespace

MenuDocument MenuDocument::read(const XmlDocument &xml)
{
    MenuDocument document;
    if (const XmlElement *bar = xml.root.child("widget"))
        document.bar = readMenu(*bar);
    readActions(xml.root, document.actions);
    return document;
}

const XmlElement *MenuDocument::action(const QString &name) const
{
    const Object *found = findNamed(actions, name);
    return found && found->xml->is("action") ? found->xml : nullptr;
}

const XmlElement *propertyOf(const XmlElement &object, const char *property)
{
    for (const XmlElement &child : object.children)
        if (child.is("property") && child.value("name") == QLatin1String(property))
            return child.children.empty() ? nullptr : &child.children.front();
    return nullptr;
}

QString propertyText(const XmlElement &object, const char *property)
{
    const XmlElement *value = propertyOf(object, property);
    return value ? value->text : QString();
}

} // namespace Quenda::Workbench
