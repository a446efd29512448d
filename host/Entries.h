#pragma once

#include <QStringList>
#include <QVector>

/** How a host reads an entry. */
enum class EntryType {
    Text, ///< getString()
    List, ///< getStringList()
    Flag, ///< getBool()
    Number, ///< getInt()
};

/** An entry that hosts know. */
struct KnownEntry
{
    QString name;
    EntryType type;
    QStringList products; ///< Whose hosts read it from the product's entry document.
};

/** All entries that the hosts read, in the order in which they are reported. */
const QVector<KnownEntry> &knownEntries();

/** The word for @p type in reports. */
QString entryTypeName(EntryType type);
