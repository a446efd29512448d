#include "format/Format.h"

namespace Quenda::Workbench {

namespace {

// The menu document, menus.xml: of Qt Designer's format, what hosts promise to read, and what
// Designer adds to that without harm.
struct MenuFormat
{
    const Value flag = oneOf({"true", "false"});
    const Value integer = matching("-?[0-9]{1,9}", QStringLiteral("a whole number"));

    static Element property(const char *propertyName, const Element &value, const char *sentence)
    {
        return {"property",    sentence, {{"name", oneOf({propertyName}), "Name of the property."}},
                {once(value)}, {},       "name"};
    }

    const Element string {
        "string",
        "A text.",
        {{"notr", flag, "true: translators leave it as it is.", Occurrence::Optional},
         {"comment", anyText(),
          "For translators: how it differs from the same text in another place.",
          Occurrence::Optional},
         {"extracomment", anyText(), "For translators: a hint.", Occurrence::Optional},
         {"id", anyText(), "For translators: an identifier of the text.", Occurrence::Optional}},
        {},
        anyText()};
    const Element boolean {"bool", "true or false.", {}, {}, flag};

    const Element imagePath {
        "normaloff",
        "Path of the image in the host's resources.",
        {},
        {},
        matching(":/([^\\t\\n\\r]*\\S)|\\.",
                 QStringLiteral("a resource path such as :/images/actions/notch_v.png"))};
    const Element iconSet {
        "iconset",
        "An image; write its path in normaloff, and the same path after that.",
        {{"theme", anyText(), "Name of an icon in the desktop's theme.", Occurrence::Optional},
         {"resource", anyText(), "Resource file that Qt Designer uses.", Occurrence::Optional}},
        {{{&imagePath}, Occurrence::Optional}},
        anyText()};
    const Element menuRoleName {
        "enum",
        "Name of the role.",
        {},
        {},
        oneOf({"QAction::NoRole", "QAction::TextHeuristicRole", "QAction::ApplicationSpecificRole",
               "QAction::AboutQtRole", "QAction::AboutRole", "QAction::PreferencesRole",
               "QAction::QuitRole"})};

    const Element enabled = property("enabled", boolean, "false: greyed out.");
    const Element toolTip = property("toolTip", string, "Text shown beside the mouse pointer.");
    const Element statusTip = property("statusTip", string, "Text shown in the status bar.");
    const Element whatsThis = property("whatsThis", string, "Text shown as help.");

    const Element text =
        property("text", string,
                 "Text in the menu; write &amp; before the letter that chooses the command.");
    const Element shortcut =
        property("shortcut", string, "Keys that call the command, such as Ctrl+S.");
    const Element checkable = property("checkable", boolean, "true: it can have a check mark.");
    const Element checked = property(
        "checked", boolean, "true: it has a check mark at first; must come after checkable.");
    const Element icon = property("icon", iconSet, "Image beside the text.");
    const Element iconVisible =
        property("iconVisibleInMenu", boolean, "true: menus show its icon.");
    const Element autoRepeat =
        property("autoRepeat", boolean, "true: it repeats while its keys are held down.");
    const Element visible = property("visible", boolean, "false: hidden in menus.");
    const Element menuRole = property("menuRole", menuRoleName, "Where macOS shows it.");
    const Element action {
        "action",
        "A command; the host can find it even if no menu shows it.",
        {{"name", name(), "Object name, by which the host finds the command; never change it."}},
        {anyOf({&text, &shortcut, &checkable, &checked, &icon, &iconVisible, &autoRepeat, &enabled,
                &visible, &toolTip, &statusTip, &whatsThis, &menuRole})}};

    const Element item {
        "addaction",
        "Shows a command, a sub-menu or a separator in a menu, or a menu in the menu bar.",
        {{"name", name(),
          "Object name of an action, or of a menu that is defined in this widget, or separator."}}};
    const Element title =
        property("title", string, "Text of the menu; write &amp; before the letter that opens it.");
    const Element menu {
        "widget",
        "A menu: first its properties, then its sub-menus, then its items in their order.",
        {{"class", oneOf({"QMenu"}), "Class of the widget."},
         {"name", name(), "Object name, by which the host finds the menu; never change it."}},
        {anyOf({&title, &enabled, &toolTip, &statusTip, &whatsThis}), anyOf({&menu}),
         anyOf({&item})},
        {},
        "class"};

    const Element x {"x", "Left edge.", {}, {}, integer};
    const Element y {"y", "Upper edge.", {}, {}, integer};
    const Element width {"width", "Width.", {}, {}, integer};
    const Element height {"height", "Height.", {}, {}, integer};
    const Element rect {
        "rect", "A rectangle, in pixels.", {}, {once(x), once(y), once(width), once(height)}};
    const Element geometry =
        property("geometry", rect, "Position and size of the menu bar in Qt Designer.");
    const Element menuBar {
        "widget",
        "The menu bar: first all menus, then all actions, then the order of the menus.",
        {{"class", oneOf({"QMenuBar"}), "Class of the widget."},
         {"name", oneOf({"menubar"}), "Object name."}},
        {once(geometry), anyOf({&menu}), anyOf({&action}), anyOf({&item})},
        {},
        "class"};

    const Element formName {"class", "Name of the form.", {}, {}, oneOf({"menubar"})};
    const Element include {"include",
                           "A resource file that Qt Designer uses.",
                           {{"location", anyText(), "Its path."}}};
    const Element resources {
        "resources", "Resource files that Qt Designer uses.", {}, {anyOf({&include})}};
    const Element connections {"connections", "Always empty."};
    const Element root {"ui",
                        "The menu bar of one product, in the format of Qt Designer.",
                        {{"version", oneOf({"4.0"}), "Version of Qt Designer's format."}},
                        {once(formName), once(menuBar), once(resources), once(connections)}};
};

} // namespace

const Format &menuFormat()
{
    static const MenuFormat format;
    static const Format whole {
        DocumentKind::Menus, "menus.xml", "menus", format.root, true, false, false};
    return whole;
}

} // namespace Quenda::Workbench
