#pragma once

#include <QStringList>
#include <QVector>

/** A state that the host of a product can be in. */
struct HostState
{
    quint32 code; ///< The availability code, with which the masks of a tool document are compared.
    QString name; ///< As the comments of the product's tool document call it.

    QString label() const { return QStringLiteral("%1 (0x%2)").arg(name).arg(code, 0, 16); }
};

struct Product
{
    QString id; ///< In lower case.
    QVector<HostState> states; ///< All states of its host.
};

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
    QStringList products; ///< Their hosts read it from the entry document.
    QString purpose; ///< In a few words, for reports and pages.
};

/** All products. */
const QVector<Product> &knownProducts();

/** The product with this id; null if it is unknown. */
const Product *findProduct(const QString &id);

/** All entries that the hosts read, in the order in which they are reported. */
const QVector<KnownEntry> &knownEntries();

/** The word for @p type in reports. */
QString entryTypeName(EntryType type);
