#include "CommandLine.h"
#include "outline/Outline.h"

Status outlineCommand(const QStringList &places, const QCommandLineParser &)
{
    Status status = NothingWrong;
    const auto loaded = loadCorrectProduct(places.constFirst(), &status);
    return loaded ? print(outlineOf(loaded->documents)) : status;
}
