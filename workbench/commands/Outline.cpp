#include "outline/Outline.h"

#include "commands/CommandLine.h"

namespace Quenda::Workbench {

static Status outline(const Command &command, const QStringList &arguments)
{
    CommandLine line(command);
    if (const auto status = line.parse(arguments))
        return *status;
    LoadedPlace loaded;
    const Status status = loadProduct(line.values().constFirst(), &loaded);
    return status == NoErrors ? print(outlineOf(loaded.documents)) : status;
}

const Command outlineCommand {"outline", "PLACE",
                              "prints all that the documents contain, one item per line", outline};

} // namespace Quenda::Workbench
