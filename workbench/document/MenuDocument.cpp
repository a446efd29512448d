#include "document/MenuDocument.h"

namespace Quenda::Workbench {

const XmlElement *objectIn(const XmlElement &parent, const char *element, const QString &name)
{
    const auto &children = parent.children;
    const auto found = std::find_if(children.begin(), children.end(), [&](const XmlElement &child) {
        return child.is(element) && child.value("name") == name;
    });
    return found == children.end() ? nullptr : &*found;
}

const XmlElement *shownBy(const XmlElement &item, const XmlElement &menu, const XmlElement &menuBar)
{
    const QString name = item.value("name");
    const XmlElement *subMenu = objectIn(menu, "widget", name);
    return subMenu ? subMenu : objectIn(menuBar, "action", name);
}

const XmlElement *propertyOf(const XmlElement &object, const QString &property)
{
    const XmlElement *found = objectIn(object, "property", property);
    return found ? &found->children.front() : nullptr;
}

} // namespace Quenda::Workbench
