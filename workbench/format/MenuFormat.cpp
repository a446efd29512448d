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
        {{"notr", flag, "Not to be translated.", Occurrence::Optional},
         {"comment", anyText(), "For translators: what tells it from others of the same text.",
          Occurrence::Optional},
         {"extracomment", anyText(), "For translators: a hint.", Occurrence::Optional},
         {"id", anyText(), "For translators: the text's own name.", Occurrence::Optional}},
        {},
        anyText()};
    const Element boolean {"bool", "true or false.", {}, {}, flag};

    const Element imagePath {
        "normaloff",
        "Resource path of the image.",
        {},
        {},
        matching(":/([^\\t\\n\\r]*\\S)|\\.",
                 QStringLiteral("a resource path such as :/images/actions/notch_v.png"))};
    const Element iconSet {
        "iconset",
        "The image's path twice: in normaloff, and as text behind that.",
        {{"theme", anyText(), "Name in the desktop's icon theme.", Occurrence::Optional},
         {"resource", anyText(), "Designer's resource file.", Occurrence::Optional}},
        {{{&imagePath}, Occurrence::Optional}},
        anyText()};
    const Element menuRoleName {
        "enum",
        "The role's name.",
        {},
        {},
        oneOf({"QAction::NoRole", "QAction::TextHeuristicRole", "QAction::ApplicationSpecificRole",
               "QAction::AboutQtRole", "QAction::AboutRole", "QAction::PreferencesRole",
               "QAction::QuitRole"})};

    const Element enabled = property("enabled", boolean, "It can be chosen.");
    const Element toolTip = property("toolTip", string, "Shown under the mouse.");
    const Element statusTip = property("statusTip", string, "Shown in the status bar.");
    const Element whatsThis = property("whatsThis", string, "Shown as help.");

    const Element text = property(
        "text", string,
        "What menus show; \"&\", written &amp;, stands before the letter that chooses it.");
    const Element shortcut = property("shortcut", string, "Keys for the command, such as Ctrl+S.");
    const Element checkable = property("checkable", boolean, "It has a check mark.");
    const Element checked =
        property("checked", boolean, "Its check mark is set at first; stands behind checkable.");
    const Element icon = property("icon", iconSet, "An image from the host's resources.");
    const Element iconVisible = property("iconVisibleInMenu", boolean, "Menus show its icon.");
    const Element autoRepeat =
        property("autoRepeat", boolean, "It repeats while its keys are held.");
    const Element visible = property("visible", boolean, "Menus show it.");
    const Element menuRole = property("menuRole", menuRoleName, "Where macOS shows it.");
    const Element action {
        "action",
        "A command; it is there for the host whether a menu shows it or not.",
        {{"name", name(), "Object name, by which the host finds the command; keep it for ever."}},
        {anyOf({&text, &shortcut, &checkable, &checked, &icon, &iconVisible, &autoRepeat, &enabled,
                &visible, &toolTip, &statusTip, &whatsThis, &menuRole})}};

    const Element item {
        "addaction",
        "One item of a menu, or one menu of the bar.",
        {{"name", name(), "Object name of an action, or of a menu defined here, or separator."}}};
    const Element title = property("title", string,
                                   "What users read of the menu; \"&\", written &amp;, stands "
                                   "before the letter that opens it.");
    const Element menu {
        "widget",
        "A menu: its properties, its sub-menus, then its items in their order.",
        {{"class", oneOf({"QMenu"}), "Class of the widget."},
         {"name", name(), "Object name, by which the host finds the menu; keep it for ever."}},
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
        property("geometry", rect, "Place and size of the menu bar in Designer.");
    const Element menuBar {
        "widget",
        "The menu bar: its menus, then all actions, then the order of the menus.",
        {{"class", oneOf({"QMenuBar"}), "Class of the widget."},
         {"name", oneOf({"menubar"}), "Object name."}},
        {once(geometry), anyOf({&menu}), anyOf({&action}), anyOf({&item})},
        {},
        "class"};

    const Element formName {"class", "Name of the form.", {}, {}, oneOf({"menubar"})};
    const Element include {
        "include", "A resource file that Designer knows.", {{"location", anyText(), "Its path."}}};
    const Element resources {"resources", "Designer's resource files.", {}, {anyOf({&include})}};
    const Element connections {"connections", "Always empty."};
    const Element root {"ui",
                        "The menu bar of one product, in the format of Qt Designer.",
                        {{"version", oneOf({"4.0"}), "Version of Designer's format."}},
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
