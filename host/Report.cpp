#include "Report.h"

#include "Products.h"

#include <Help/AbstractDataSafe.h>
#include <Help/EntryNames.h>
#include <Util/Logger.h>

#include <algorithm>
#include <array>

namespace EntryNames = Quenda::Help::EntryNames;
using Quenda::Help::AbstractDataSafe;
using Quenda::Kit::Logger;

namespace {

using Row = std::array<QString, 3>;

// The value of an entry, read as a host reads it.
QString valueForPeople(const AbstractDataSafe &store, const KnownEntry &entry)
{
    bool ok = false;
    QString value;
    switch (entry.type) {
    case EntryType::Text:
        value = store.getString(entry.name, &ok);
        break;
    case EntryType::List:
        value = store.getStringList(entry.name, &ok).join(QLatin1String(", "));
        break;
    case EntryType::Flag:
        value = store.getBool(entry.name, &ok) ? QStringLiteral("true") : QStringLiteral("false");
        break;
    case EntryType::Number:
        value = QString::number(store.getInt(entry.name, &ok));
        break;
    }
    if (!ok) {
        value = store.getString(entry.name);
        Logger::logWarn(QStringLiteral("the value of entry \"%1\" is not a %3: \"%2\"")
                            .arg(entry.name, value, entryTypeName(entry.type)));
    }
    if (entry.name == EntryNames::fileKey())
        for (int i = 1; i < value.size() - 1; ++i)
            value[i] = QLatin1Char('*');
    return value.isEmpty() ? QStringLiteral("(empty)") : value;
}

QString table(const QVector<Row> &rows)
{
    std::array<int, 2> widths {};
    for (const Row &row : rows)
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());

    QString text;
    for (const Row &row : rows)
        text += row[0].leftJustified(widths[0]) + QLatin1String("  ")
                + row[1].leftJustified(widths[1]) + QLatin1String("  ") + row[2]
                + QLatin1Char('\n');
    return text;
}

Row documentRow(const QString &name, const QString &text, const QString &use)
{
    return {name, QStringLiteral("%1 bytes").arg(text.toUtf8().size()), use};
}

} // namespace

QString configurationReport(const QString &product, const AbstractDataSafe &store)
{
    QVector<Row> entries {
        {QStringLiteral("Entry"), QStringLiteral("Value"), QStringLiteral("Read as")}};
    for (const KnownEntry &entry : knownEntries()) {
        bool found = false;
        store.getString(entry.name, &found);
        if (found)
            entries.append({entry.name, valueForPeople(store, entry), entryTypeName(entry.type)});
    }

    const QVector<Row> documents {
        {QStringLiteral("Document"), QStringLiteral("Size"), QStringLiteral("For")},
        documentRow(QStringLiteral("tools"), store.getString(EntryNames::toolDocument()),
                    QStringLiteral("tool boxes, keypad and tool bars")),
        documentRow(QStringLiteral("menus"), store.getString(EntryNames::menuDocument()),
                    QStringLiteral("the menu bar")),
    };

    return QStringLiteral("Configuration of %1\n\n").arg(product) + table(entries)
           + QLatin1Char('\n') + table(documents);
}
