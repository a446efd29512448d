#include "document/ToolDocument.h"
#include "format/Format.h"

namespace Quenda::Workbench {

namespace {

// The tool document, tools.xml.
struct ToolFormat
{
    const Value pixels = number(0, 999);
    const Value mask = matching(maskPattern, QStringLiteral("one number, such as 17 or 0x11"));

    const Attribute id {"id", name(),
                        "The name of the tool or key in its module; keep it for ever."};
    const Attribute module {"xlink:href",
                            matching(referencePattern, QStringLiteral("\"#\" and a module's id")),
                            "# and the id of the module that provides it."};
    const Attribute mode {"mode", mask,
                          "Mask of the states in which it is available; without one, in all.",
                          Occurrence::Optional};
    const Attribute margin {"margin", pixels, "Pixels around the grid."};
    const Attribute spacing {"spacing", pixels, "Pixels between two buttons."};
    const Attribute buttonStyle {"button-style", styleSheet(), "Qt style sheet of the buttons."};

    const Element tool {
        "tool",
        "A button for one tool.",
        {id,
         module,
         {"group", name(), "Name of the group that it forms with its neighbours of the same group.",
          Occurrence::Optional},
         mode}};
    const Element line {"separator",
                        "A line across the tool box, with a new row behind it.",
                        {{"type", oneOf({"hline"}), "Kind of the line: a horizontal one."}, mode},
                        {},
                        {},
                        "type"};
    const Element gap {"separator", "A gap between two tools.", {mode}};
    const Element key {
        "key",
        "A key in its cells of the keypad; rows and columns count from 0.",
        {id,
         {"row", number(0, keypadGrid.bottom()), "Topmost row."},
         {"column", number(0, keypadGrid.right()), "Leftmost column."},
         {"rowSpan", number(1, keypadGrid.height()), "How many rows it is high."},
         {"columnSpan", number(1, keypadGrid.width()), "How many columns it is wide."},
         module}};

    const Element moduleElement {
        "module",
        "A plug-in library that provides tools or keys; stands before the first of them.",
        {{"id", name(), "What xlink:href names the module by."},
         {"path",
          matching(
              "%LIBRARY%/[^\\s/.]([^\\t\\n\\r/.]*[^\\s/.])?",
              QStringLiteral("\"%LIBRARY%/\" and the library's name without \"lib\" and \".so\"")),
          "%LIBRARY%/, the host's library folder, and the library's base name."}}};
    const Element toolBox {"toolbox",
                           "Tool buttons in a grid, row by row.",
                           {{"columns", number(1, 99), "How many buttons stand side by side."},
                            mode,
                            margin,
                            spacing,
                            buttonStyle},
                           {anyOf({&tool, &line})}};
    const Element keypad {"keypad",
                          "Keys, each in its cells of a grid.",
                          {margin, spacing, buttonStyle},
                          {anyOf({&key})}};
    const Element toolBar {
        "toolbar",
        "A row of tool buttons, for users who prefer these to tool boxes.",
        {{"id", name(), "Object name of the tool bar."},
         {"title", name(), "What users read of it."},
         mode,
         {"break", oneOf({"true"}), "It starts a new row of tool bars.", Occurrence::Optional}},
        {anyOf({&tool, &gap})}};

    const Element root {"quendaconfig",
                        "The tools of one product; the order is the order on the screen.",
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
