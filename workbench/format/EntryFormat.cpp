#include "format/Format.h"

namespace Quenda::Workbench {

namespace {

// The entry document, confs.xml.
struct EntryFormat
{
    const Element entry {
        "entry",
        "A value for the host, as text; without text, the value is empty.",
        {{"name", name(),
          "Name of the value, by which the host finds it; upper and lower case differ."}},
        {},
        anyText()};
    const Element root {
        "quendaconfig",
        "The configuration of one product, one entry for each value.",
        {{"version", oneOf({"1.0"}), "Version of the format, always 1.0."}, xlinkNamespace()},
        {anyOf({&entry})}};
};

} // namespace

const Format &entryFormat()
{
    static const EntryFormat format;
    static const Format whole {
        DocumentKind::Entries, "confs.xml", "entries", format.root, true, true, false};
    return whole;
}

} // namespace Quenda::Workbench
