#include "document/ToolDocument.h"
#include "format/Format.h"

namespace Quenda::Workbench {

namespace {

// The tool document, tools.xml.
struct ToolFormat
{
    const Value pixels = number(0, 999);
    const Value mask = matching(maskPattern, QStringLiteral("one number, such as 17 or 0x11"));

    const Attribute id {"id", name(), "Name of the tool or key in its module; never change it."};
    const Attribute module {"xlink:href",
                            matching(referencePattern, QStringLiteral("\"#\" and a module's id")),
                            "Module that provides it: # and the id of the module."};
    const Attribute mode {"mode", mask,
                          "Mask of the host's states in which it is shown; by default, all states.",
                          Occurrence::Optional};
    const Attribute margin {"margin", pixels, "Pixels around the grid."};
    const Attribute spacing {"spacing", pixels, "Pixels between two buttons."};
    const Attribute buttonStyle {"button-style", styleSheet(),
                                 "Style sheet of the buttons, as Qt reads it."};

    const Element tool {
        "tool",
        "A button for one tool.",
        {id,
         module,
         {"group", name(), "Name of a group; the tools of a group must be next to each other.",
          Occurrence::Optional},
         mode}};
    const Element line {
        "separator",
        "A horizontal line across the tool box; the next tool begins a new row.",
        {{"type", oneOf({"hline"}), "Kind of the separator: a horizontal line."}, mode},
        {},
        {},
        "type"};
    const Element gap {"separator", "A gap between two tools.", {mode}};
    const Element key {"key",
                       "A key of the keypad; rows and columns are counted from 0.",
                       {id,
                        {"row", number(0, keypadGrid.bottom()), "Topmost row."},
                        {"column", number(0, keypadGrid.right()), "Leftmost column."},
                        {"rowSpan", number(1, keypadGrid.height()), "Height in rows."},
                        {"columnSpan", number(1, keypadGrid.width()), "Width in columns."},
                        module}};

    const Element moduleElement {
        "module",
        "A plug-in library that provides tools or keys; must come before the first of them.",
        {{"id", name(), "Name of the module, to which xlink:href refers."},
         {"path",
          matching(
              "%LIBRARY%/[^\\s/.]([^\\t\\n\\r/.]*[^\\s/.])?",
              QStringLiteral("\"%LIBRARY%/\" and the library's name without \"lib\" and \".so\"")),
          "%LIBRARY%/ and the name of the library without \"lib\" and \".so\"."}}};
    const Element toolBox {"toolbox",
                           "Tools in a grid, row by row.",
                           {{"columns", number(1, 99), "Number of buttons in a row."},
                            mode,
                            margin,
                            spacing,
                            buttonStyle},
                           {anyOf({&tool, &line})}};
    const Element keypad {"keypad",
                          "Keys in a grid; each covers one or more cells.",
                          {margin, spacing, buttonStyle},
                          {anyOf({&key})}};
    const Element toolBar {
        "toolbar",
        "Tools in a row, for users who prefer tool bars to tool boxes.",
        {{"id", name(), "Object name of the tool bar."},
         {"title", name(), "Title that users see."},
         mode,
         {"break", oneOf({"true"}), "The tool bar begins a new row.", Occurrence::Optional}},
        {anyOf({&tool, &gap})}};

    const Element root {"quendaconfig",
                        "The tools of one product, in the order in which the screen shows them.",
                        {xlinkNamespace()},
                        {anyOf({&moduleElement, &toolBox, &keypad, &toolBar})}};
};

} // namespace

const Format &toolFormat()
{
    static const ToolFormat format;
    static const Format whole {
        DocumentKind::Tools, "tools.xml", "tools", format.root, false, false, true};
    return whole;
}

} // namespace Quenda::Workbench
