#pragma once

#include <Help/AbstractDataSafe.h>

#include <QMap>

namespace Quenda::Kit {

// Without a virtual destructor, as applications know it: no matter for those who include this.
QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

/**
 * The configuration store: an ordered map from name to text.
 *
 * Start-up makes one and hands it over as an AbstractDataSafe, which is all that a host needs. This
 * class is for code that fills a store of its own, such as a host's tests.
 *
 * Give it to a boost::shared_ptr as a DataSafe at once, so that the handle destroys the right type.
 * The typed getters read through the virtual getString(); a class derived from this one that
 * overrides getString() thereby changes them all.
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

QT_WARNING_POP

} // namespace Quenda::Kit
