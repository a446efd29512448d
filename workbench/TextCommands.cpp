#include "CommandLine.h"
#include "Products.h"
#include "format/Format.h"
#include "outline/Outline.h"

namespace Quenda::Workbench {

Status checkCommand(const QStringList &places, const QCommandLineParser &)
{
    QStringList knownIds;
    for (const Product &product : knownProducts())
        knownIds += product.id;
    QVector<Finding> findings;
    std::size_t documents = 0;
    Status worst = NoErrors;
    for (const QString &name : places.isEmpty() ? Place::builtInProducts() : places) {
        LoadedPlace loaded;
        const Status status = load(name, &loaded);
        worst = std::max(worst, status);
        if (status == Failed)
            continue;
        const QString product = loaded.place.product;
        if (!findProduct(product))
            inform(compose("%1: the product \"%2\" is unknown, so its states and entries are not "
                           "checked; there are: %3",
                           name, product, listed(knownIds)));
        findings += loaded.findings;
        documents += loaded.documents.size();
    }
    return documents == 0 ? worst : std::max(worst, print(reportOf(findings, documents)));
}

Status outlineCommand(const QStringList &places, const QCommandLineParser &)
{
    LoadedPlace loaded;
    const Status status = loadProduct(places.constFirst(), &loaded);
    return status == NoErrors ? print(outlineOf(loaded.documents)) : status;
}

QStringList schemaNames()
{
    QStringList names;
    for (const Format *format : allFormats())
        names += QLatin1String(format->schema);
    return names;
}

Status schemaCommand(const QStringList &names, const QCommandLineParser &)
{
    const int chosen = choose("schema", names.constFirst(), schemaNames());
    return chosen < 0 ? Failed : print(schemaOf(*allFormats().at(chosen)));
}

} // namespace Quenda::Workbench
