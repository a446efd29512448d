#include "CommandLine.h"
#include "outline/Outline.h"

namespace Quenda::Workbench {

Status outlineCommand(const QStringList &places, const QCommandLineParser &)
{
    Status status = NothingWrong;
    const auto loaded = loadCorrectProduct(places.constFirst(), &status);
    return loaded ? print(outlineOf(loaded->documents)) : status;
}

} // namespace Quenda::Workbench
