#include "format/Format.h"

namespace Quenda::Workbench {

namespace {

// The entry document, confs.xml.
struct EntryFormat
{
    const Element entry {"entry",
                         "A value that the host looks up by its name; no text is the empty value.",
                         {{"name", name(), "What the host looks the value up by; case matters."}},
                         {},
                         anyText()};
    const Element root {
        "quendaconfig",
        "The configuration of one product, entry by entry.",
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
