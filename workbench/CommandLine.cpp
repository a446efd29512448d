#include "CommandLine.h"

#include <QApplication>
#include <QFont>
#include <QStyle>

#include <cstdio>

namespace {

QtMessageHandler defaultMessageHandler = nullptr;

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support"))
        && !text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR")))
        defaultMessageHandler(type, context, text);
}

} // namespace

std::optional<Status> parse(QCommandLineParser &parser, const QStringList &arguments,
                            const Positional &positional, const char *description)
{
    const QString command = QLatin1String(positional.command);
    parser.addPositionalArgument(command, QString(), command);
    parser.addPositionalArgument(
        QStringLiteral("place"),
        QStringLiteral("A product's folder, or a product's id for the documents built in: %1.")
            .arg(Place::builtInProducts().join(QLatin1String(", "))),
        QLatin1String(positional.syntax));
    parser.setApplicationDescription(
        QLatin1String(description)
        + QStringLiteral(
            "\n\nExit status: 0 nothing wrong, 1 errors found, 2 it could not be done."));
    const QCommandLineOption help(QStringLiteral("help"), QStringLiteral("Explain the command."));
    parser.addOption(help);
    if (!parser.parse(arguments))
        return fail(parser.errorText());
    if (parser.isSet(help))
        return print(parser.helpText());
    if (const int count = placesOf(parser).size();
        count < positional.least || count > positional.most)
        return fail(QStringLiteral("%1 needs %2; see quenda-workbench %1 --help")
                        .arg(command, QLatin1String(positional.syntax)));
    return std::nullopt;
}

QStringList placesOf(const QCommandLineParser &parser)
{
    return parser.positionalArguments().mid(1);
}

std::optional<LoadedPlace> LoadedPlace::load(const QString &name)
{
    QString error;
    const auto place = Place::find(name, &error);
    auto documents = place ? place->read(&error) : std::nullopt;
    if (!documents) {
        fail(error);
        return std::nullopt;
    }
    QVector<Finding> findings = checkDocuments(*documents, place->product);
    return LoadedPlace {*place, std::move(*documents), findings};
}

std::optional<Status> LoadedPlace::whyNotBuilt() const
{
    if (documents.size() != 3)
        return fail(QStringLiteral("\"%1\" is one document; expected a product's folder or id")
                        .arg(place.files.join(QLatin1String(", "))));
    if (!hasErrors(findings))
        return std::nullopt;
    std::fputs(qPrintable(reportOf(findings, documents.size())), stderr);
    return ErrorsFound;
}

QString reportOf(const QVector<Finding> &findings, std::size_t documents)
{
    QString text;
    int errors = 0;
    for (const Finding &finding : findings) {
        text += finding.line() + QLatin1Char('\n');
        errors += finding.severity == Finding::Error ? 1 : 0;
    }
    return text
           + QStringLiteral("Documents: %1, errors: %2, warnings: %3\n")
                 .arg(documents)
                 .arg(errors)
                 .arg(findings.size() - errors);
}

Status print(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    const bool written =
        std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
    return written ? NothingWrong : fail(QStringLiteral("cannot write to standard output"));
}

Status fail(const QString &text)
{
    std::fprintf(stderr, "quenda-workbench: %s\n", qPrintable(text));
    return NotDone;
}

void dropPlatformMessages()
{
    defaultMessageHandler = qInstallMessageHandler(handleMessage);
}

void useLightStyle()
{
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(QApplication::style()->standardPalette());
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        QFont font = QApplication::font(); // of the same size everywhere
        font.setPixelSize(12);
        QApplication::setFont(font);
    }
}
