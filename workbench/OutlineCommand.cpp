#include "CommandLine.h"
#include "outline/Outline.h"

int outlineCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    if (const auto status =
            parse(parser, arguments, {"outline", "PLACE", 1, 1},
                  "Prints all that a product's documents say and nothing else, one thing a line."))
        return *status;
    const auto loaded = LoadedPlace::load(placesOf(parser).constFirst());
    if (!loaded)
        return NotDone;
    if (const auto status = loaded->whyNotBuilt())
        return *status;
    return print(outlineOf(loaded->documents));
}
