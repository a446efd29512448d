#include "commands/CommandLine.h"
#include "format/Format.h"

namespace Quenda::Workbench {

static Status schema(const Command &command, const QStringList &arguments)
{
    CommandLine line(command);
    if (const auto status = line.parse(arguments))
        return *status;
    QStringList names;
    for (const Format *format : allFormats())
        names += format->schema;
    const int chosen = choose("schema", line.values().constFirst(), names);
    return chosen < 0 ? Failed : print(QString::fromUtf8(schemaText(names.at(chosen))));
}

const Command schemaCommand {
    "schema", "NAME",
    "prints the RELAX NG schema of a document, for editors: entries, tools or menus", schema};

} // namespace Quenda::Workbench
