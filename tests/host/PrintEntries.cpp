// Prints docs/entries.md: what hosts know of the entries, and the values that the library delivers.

#include "Products.h"
#include "Report.h"

#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <QuendaCore/ConnectorImpl.h>

#include <cstdio>

namespace {

const char introduction[] = R"(# All entries

What each entry is for, and its value in each product. "-" means that the product does not have the entry. The table is generated from the list of entries in `host/Products.cpp` and from the documents.

Read a *text* with `getString`, a *list* with `getStringList`, a *flag* with `getBool` and a *number* with `getInt`. A flag says whether the function is on. `Help/EntryNames.h` has a function for each name, such as `maxPieceCount()`. The names of formats and of file domains, such as "all" and "entp", belong to the hosts; this library only passes them on.

)";

QString row(const QStringList &cells)
{
    return QLatin1String("| ") + cells.join(QLatin1String(" | ")) + QLatin1String(" |\n");
}

} // namespace

int main()
{
    QStringList heading {QStringLiteral("entry"), QStringLiteral("type"), QStringLiteral("for")};
    QVector<boost::shared_ptr<Quenda::Help::AbstractDataSafe>> stores;
    for (const Product &product : knownProducts()) {
        Quenda::ConnectorImpl connector(product.id);
        Quenda::Help::Controller::instance()->startUp();
        stores.append(connector.appData());
        heading.append(product.id);
    }

    QString text = QString::fromUtf8(introduction) + row(heading)
                   + QStringLiteral("| --- ").repeated(heading.size()) + QLatin1String("|\n");
    for (const KnownEntry &entry : knownEntries()) {
        QStringList cells {entry.name, entryTypeName(entry.type), entry.purpose};
        for (const auto &store : qAsConst(stores)) {
            bool found = false;
            store->getString(entry.name, &found);
            cells += found ? shownValue(*store, entry) : QStringLiteral("-");
        }
        text += row(cells);
    }
    text += QLatin1String("\nEvery store also has \"widgetConfig\", the text of the tool document, "
                          "and \"menubar\", the text of the menu document.\n");
    return std::fputs(qUtf8Printable(text), stdout) < 0;
}
