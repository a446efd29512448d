#include "CommandLine.h"

#include <QApplication>
#include <QFont>
#include <QStyle>

#include <cstdio>

namespace Quenda::Workbench {

namespace {

std::optional<Place> findPlace(const QString &name)
{
    QString error;
    auto place = Place::find(name, &error);
    if (!place)
        failWith(error);
    return place;
}

} // namespace

std::optional<Place> findProduct(const QString &name)
{
    auto place = findPlace(name);
    if (!place || place->isProduct())
        return place;
    fail("\"%1\" is one document; expected a product's folder or id", name);
    return std::nullopt;
}

std::optional<LoadedPlace> loadPlace(const QString &name)
{
    const auto place = findPlace(name);
    if (!place)
        return std::nullopt;
    Documents documents = place->read();
    const QVector<Finding> findings = checkDocuments(documents, place->product);
    return LoadedPlace {*place, std::move(documents), findings};
}

std::optional<LoadedPlace> loadCorrectProduct(const QString &name, Status *status)
{
    auto loaded = findProduct(name) ? loadPlace(name) : std::nullopt;
    *status = !loaded ? NotDone : hasErrors(loaded->findings) ? ErrorsFound : NothingWrong;
    if (*status == ErrorsFound)
        std::fputs(qPrintable(reportOf(loaded->findings, loaded->documents.size())), stderr);
    return *status == NothingWrong ? std::move(loaded) : std::nullopt;
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
           + compose("Documents: %1, errors: %2, warnings: %3", static_cast<int>(documents), errors,
                     findings.size() - errors)
           + QLatin1Char('\n');
}

Status print(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    const bool written =
        std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
    return written ? NothingWrong : fail("cannot write to standard output");
}

Status failWith(const QString &text)
{
    std::fprintf(stderr, "quenda-workbench: %s\n", qPrintable(text));
    return NotDone;
}

int choose(const char *what, const QString &wanted, const QStringList &names)
{
    for (int i = 0; i < names.size(); ++i)
        if (names.at(i).compare(wanted, Qt::CaseInsensitive) == 0)
            return i;
    fail("there is no %1 \"%2\"; there are: %3", what, wanted, listed(names));
    return -1;
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

} // namespace Quenda::Workbench
