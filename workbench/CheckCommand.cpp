#include "CommandLine.h"

Status checkCommand(const QStringList &places, const QCommandLineParser &)
{
    QVector<Finding> findings;
    std::size_t documents = 0;
    for (const QString &name : places.isEmpty() ? Place::builtInProducts() : places) {
        const auto loaded = loadPlace(name, Place::Wanted::Documents);
        if (!loaded)
            return NotDone;
        findings += loaded->findings;
        documents += loaded->documents.size();
    }
    const Status printed = print(reportOf(findings, documents));
    return printed == NothingWrong && hasErrors(findings) ? ErrorsFound : printed;
}
