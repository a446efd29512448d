#include "Products.h"
#include "commands/CommandLine.h"

namespace Quenda::Workbench {

static Status check(const Command &command, const QStringList &arguments)
{
    CommandLine line(command);
    if (const auto status = line.parse(arguments))
        return *status;
    QStringList knownIds;
    for (const Product &product : knownProducts())
        knownIds += product.id;
    QStringList checked;
    QVector<Finding> findings;
    std::size_t documents = 0;
    Status worst = NoErrors;
    const QStringList places = line.values();
    for (const QString &name : places) {
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
        checked += name;
        findings += loaded.findings;
        documents += loaded.documents.size();
    }
    if (checked.isEmpty())
        return worst;
    return std::max(
        worst, print(compose("Checked: %1\n", listed(checked)) + reportOf(findings, documents)));
}

const Command checkCommand {
    "check", "PLACE...", "prints all findings as FILE:LINE:COLUMN: error: TEXT, or warning: TEXT",
    check};

} // namespace Quenda::Workbench
