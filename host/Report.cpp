#include "Report.h"

#include "Products.h"

#include <Help/AbstractDataSafe.h>
#include <Help/EntryNames.h>
#include <Util/Logger.h>

#include <algorithm>

namespace EntryNames = Quenda::Help::EntryNames;
using Quenda::Help::AbstractDataSafe;
using Quenda::Kit::Logger;

namespace {

QString table(const QVector<QStringList> &rows)
{
    const int last = rows.constFirst().size() - 1;
    QVector<int> widths(last);
    for (const QStringList &row : rows)
        for (int i = 0; i < last; ++i)
            widths[i] = std::max(widths[i], row[i].size());

    QString text;
    for (const QStringList &row : rows) {
        for (int i = 0; i < last; ++i)
            text += row[i].leftJustified(widths[i]) + QLatin1String("  ");
        text += row[last] + QLatin1Char('\n');
    }
    return text;
}

QStringList documentRow(const QString &name, const QString &text, const QString &use)
{
    return {name, QStringLiteral("%1 bytes").arg(text.toUtf8().size()), use};
}

} // namespace

QString shownValue(const AbstractDataSafe &store, const KnownEntry &entry)
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
    if (entry.name == EntryNames::fileKey() && value.size() > 2)
        value = QStringLiteral("%1...%2 (%3 characters)")
                    .arg(value.front())
                    .arg(value.back())
                    .arg(value.size());
    return value.isEmpty() ? QStringLiteral("(empty)") : value;
}

QString configurationReport(const QString &product, const AbstractDataSafe &store)
{
    QVector<QStringList> entries {{QStringLiteral("Entry"), QStringLiteral("Value"),
                                   QStringLiteral("Read as"), QStringLiteral("For")}};
    for (const KnownEntry &entry : knownEntries()) {
        bool found = false;
        store.getString(entry.name, &found);
        if (found)
            entries.append(
                {entry.name, shownValue(store, entry), entryTypeName(entry.type), entry.purpose});
    }

    const QVector<QStringList> documents {
        {QStringLiteral("Document"), QStringLiteral("Size"), QStringLiteral("For")},
        documentRow(QStringLiteral("tools"), store.getString(EntryNames::toolDocument()),
                    QStringLiteral("tool boxes, keypad and tool bars")),
        documentRow(QStringLiteral("menus"), store.getString(EntryNames::menuDocument()),
                    QStringLiteral("the menu bar")),
    };

    return QStringLiteral("Configuration of %1\n\n").arg(product) + table(entries)
           + QLatin1Char('\n') + table(documents);
}
