#pragma once

#include <QString>
#include <QVector>

/** How a host reads an entry. */
enum class EntryType {
    Text, ///< getString()
    List, ///< getStringList()
    Flag, ///< getBool()
    Number, ///< getInt()
};

/** An entry that this host knows. */
struct KnownEntry
{
    QString name;
    EntryType type;
};

/** All entries that this host reads, in the order in which it reports them. */
const QVector<KnownEntry> &knownEntries();

/** The word for @p type in reports. */
QString entryTypeName(EntryType type);
