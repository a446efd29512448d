#include "CommandLine.h"

int checkCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    if (const auto status =
            parse(parser, arguments, {"check", "[PLACE...]", 0, 1000},
                  "Reports all that is wrong with the documents, one finding a line:\n"
                  "FILE:LINE:COLUMN: error: TEXT, or warning. Warnings do not count as wrong.\n"
                  "A place may be one document, too; without a place, those built in are checked."))
        return *status;

    QStringList places = placesOf(parser);
    if (places.isEmpty())
        places = Place::builtInProducts();
    QVector<Finding> findings;
    std::size_t documents = 0;
    for (const QString &name : qAsConst(places)) {
        const auto loaded = LoadedPlace::load(name);
        if (!loaded)
            return NotDone;
        findings += loaded->findings;
        documents += loaded->documents.size();
    }
    const Status printed = print(reportOf(findings, documents));
    return printed == NothingWrong && hasErrors(findings) ? ErrorsFound : printed;
}
