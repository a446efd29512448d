#include "Report.h"

#include "Entries.h"
#include "ToolDocument.h"

#include <Help/AbstractDataSafe.h>
#include <Help/EntryNames.h>
#include <Util/Logger.h>

#include <QDomDocument>

#include <algorithm>
#include <array>

using Quenda::Help::AbstractDataSafe;
namespace EntryNames = Quenda::Help::EntryNames;
using Quenda::Kit::Logger;

namespace {

using Row = std::array<QString, 3>;

// The value of an entry that exists, read as a host reads it.
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
        Logger::logWarn(QStringLiteral("entry \"%1\" holds \"%2\", which is no %3")
                            .arg(entry.name, value, entryTypeName(entry.type)));
    }
    if (entry.name == EntryNames::fileKey() && value.size() > 2)
        value = value.front() + QString(value.size() - 2, QLatin1Char('*')) + value.back();
    return value.isEmpty() ? QStringLiteral("(empty)") : value;
}

QString table(const QVector<Row> &rows)
{
    std::array<int, 2> widths {0, 0};
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

QString count(int number, const QString &singular, const QString &plural)
{
    return QStringLiteral("%1 %2").arg(number).arg(number == 1 ? singular : plural);
}

QString toolsSummary(const QString &text)
{
    QString error;
    const auto document = ToolDocument::fromText(text, &error);
    if (!document) {
        Logger::logWarn(QStringLiteral("tool document: %1").arg(error));
        return QStringLiteral("cannot be read");
    }
    int keys = 0;
    for (const ToolDocument::Keypad &keypad : document->keypads)
        keys += keypad.keys.size();
    return count(document->toolBoxes.size(), QStringLiteral("tool box"),
                 QStringLiteral("tool boxes"))
           + QLatin1String(", ")
           + count(document->toolBars.size(), QStringLiteral("tool bar"),
                   QStringLiteral("tool bars"))
           + QLatin1String(", ") + count(keys, QStringLiteral("key"), QStringLiteral("keys"));
}

QString menusSummary(const QString &text)
{
    QDomDocument document;
    QString error;
    int line = 0;
    if (!document.setContent(text, &error, &line)) {
        Logger::logWarn(QStringLiteral("menu document: line %1: %2").arg(line).arg(error));
        return QStringLiteral("cannot be read");
    }
    int menus = 0;
    const QDomNodeList widgets = document.elementsByTagName(QStringLiteral("widget"));
    for (int i = 0; i < widgets.size(); ++i)
        if (widgets.at(i).toElement().attribute(QStringLiteral("class")) == QLatin1String("QMenu"))
            ++menus;
    const int actions = document.elementsByTagName(QStringLiteral("action")).size();
    return count(menus, QStringLiteral("menu"), QStringLiteral("menus")) + QLatin1String(", ")
           + count(actions, QStringLiteral("action"), QStringLiteral("actions"));
}

Row documentRow(const QString &name, const QString &text, const QString &summary)
{
    return {name, QStringLiteral("%1 bytes").arg(text.toUtf8().size()), summary};
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

    const QString tools = store.getString(EntryNames::toolDocument());
    const QString menus = store.getString(EntryNames::menuDocument());
    const QVector<Row> documents {
        {QStringLiteral("Document"), QStringLiteral("Size"), QStringLiteral("Holds")},
        documentRow(QStringLiteral("tools"), tools, toolsSummary(tools)),
        documentRow(QStringLiteral("menus"), menus, menusSummary(menus)),
    };

    return QStringLiteral("Configuration of %1\n\n").arg(product) + table(entries)
           + QLatin1Char('\n') + table(documents);
}
