#include "menus/Menus.h"

namespace Quenda::Workbench {

const XmlElement *objectIn(const XmlElement &parent, QStringView element, const QString &name)
{
    const auto &children = parent.children;
    const auto found = std::find_if(children.begin(), children.end(), [&](const XmlElement &child) {
        return child.is(element) && child.value(u"name") == name;
    });
    return found == children.end() ? nullptr : &*found;
}

const XmlElement *shownBy(const XmlElement &item, const XmlElement &menu, const XmlElement &menuBar)
{
    const QString name = item.value(u"name");
    const XmlElement *subMenu = objectIn(menu, u"widget", name);
    return subMenu ? subMenu : objectIn(menuBar, u"action", name);
}

const XmlElement *propertyOf(const XmlElement &object, const QString &property)
{
    const XmlElement *found = objectIn(object, u"property", property);
    return found ? &found->children.front() : nullptr;
}

} // namespace Quenda::Workbench
