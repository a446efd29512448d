#pragma once

#include <Help/AbstractDataSafe.h>

#include <QMap>

#include <boost/make_shared.hpp>

/** The library's parts that a host may use directly: store, XML readers, logger, utilities. */
namespace Quenda::Kit {

// Without a virtual destructor, because applications depend on that. Files that include this header
// may have the warning on.
QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

/**
 * The configuration store: an ordered map from name to text.
 *
 * The start-up makes one and hands it over as an AbstractDataSafe, which is all that a host needs.
 * This class is for code that fills a store itself, such as a host's tests. AbstractDataSafe
 * describes the getters, and the rules for threads.
 *
 * Make one as a local variable, or with makeDataSafe() if you need a handle. The other getters call
 * the virtual getString(): a derived class that overrides getString() changes them all.
 */
class QUENDAHELP_EXPORT DataSafe : public Help::AbstractDataSafe
{
public:
    /** An empty store. */
    DataSafe();

    QString getString(const QString &name, bool *ok = nullptr) const override;
    QStringList getStringList(const QString &name, bool *ok = nullptr) const override;
    bool getBool(const QString &name, bool *ok = nullptr) const override;
    double getDouble(const QString &name, bool *ok = nullptr) const override;
    int getInt(const QString &name, bool *ok = nullptr) const override;
    void put(const QString &name, const QString &value) override;

    /** Removes every entry. */
    void clear();

private:
    QMap<QString, QString> entries;
};

/**
 * Makes an empty store and its handle, which destroys the right type.
 *
 * So does boost::make_shared<DataSafe>(). But there, clang++ with -Wall warns that the destructor
 * is not virtual (-Wdelete-non-abstract-non-virtual-dtor). It does not warn about a final class, so
 * mark a class of your own that you derive from DataSafe.
 */
inline boost::shared_ptr<DataSafe> makeDataSafe()
{
    class Store final : public DataSafe
    {
    };
    return boost::make_shared<Store>();
}

QT_WARNING_POP

} // namespace Quenda::Kit
