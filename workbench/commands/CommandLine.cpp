#include "commands/CommandLine.h"

#include <cstdio>

namespace Quenda::Workbench {

namespace {

bool write(const QString &text, std::FILE *file)
{
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, file) == size && std::fflush(file) == 0;
}

} // namespace

CommandLine::CommandLine(const Command &parsedCommand) : command(parsedCommand)
{
    setApplicationDescription(compose("This command %1.", command.description));
    addPositionalArgument(QLatin1String(command.name), {},
                          compose("%1 %2", command.name, command.syntax));
    addOption({{u"h"_s, u"help"_s}, u"Prints this help."_s});
}

void CommandLine::add(const char *option, const char *value, const char *description)
{
    addOption({QLatin1String(option), QLatin1String(description), QLatin1String(value)});
}

std::optional<Status> CommandLine::parse(const QStringList &arguments)
{
    if (!QCommandLineParser::parse(arguments))
        return fail("%1 See quenda-workbench %2 --help.", errorText(), command.name);
    if (isSet(u"help"_s))
        return print(helpText().section(u"\nArguments:"_s, 0, 0));
    const QString syntax = QLatin1String(command.syntax);
    const int missing = syntax.split(u' ').size() - values().size();
    if (missing > 0 || (missing < 0 && !syntax.endsWith(u"..."_s)))
        return fail("%1 needs %2; see quenda-workbench %1 --help", command.name, syntax);
    return std::nullopt;
}

Status load(const QString &name, LoadedPlace *loaded)
{
    QString error;
    const auto place = Place::find(name, &error);
    if (!place)
        return fail("%1", error);
    const Documents documents = place->read();
    *loaded = {*place, documents, checkDocuments(documents, place->product)};
    return hasErrors(loaded->findings) ? ErrorsFound : NoErrors;
}

Status loadProduct(const QString &name, LoadedPlace *loaded)
{
    const Status status = load(name, loaded);
    if (status != Failed && !loaded->place.isProduct())
        return fail("\"%1\" is a single document; name a product's folder", name);
    if (status == ErrorsFound)
        write(reportOf(loaded->findings, loaded->documents.size()), stderr);
    return status;
}

QString reportOf(const QVector<Finding> &findings, std::size_t documents)
{
    QString text;
    for (const Finding &finding : findings)
        text += finding.toString() + u'\n';
    const auto errors = std::count_if(findings.begin(), findings.end(), [](const Finding &finding) {
        return finding.severity == Finding::Error;
    });
    return text
           + u"Documents: %1, errors: %2, warnings: %3\n"_s.arg(documents).arg(errors).arg(
               findings.size() - errors);
}

Status print(const QString &text)
{
    return write(text, stdout) ? NoErrors : fail("cannot write to standard output");
}

void inform(const QString &text)
{
    write(u"quenda-workbench: "_s + text + u'\n', stderr);
}

int choose(const char *what, const QString &wanted, const QStringList &names)
{
    for (int i = 0; i < names.size(); ++i)
        if (names.at(i).compare(wanted, Qt::CaseInsensitive) == 0)
            return i;
    fail("there is no %1 \"%2\"; there are: %3", what, wanted, listed(names));
    return -1;
}

} // namespace Quenda::Workbench
