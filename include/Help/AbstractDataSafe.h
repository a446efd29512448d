#pragma once

#include <Help/quendahelp_export.h>

#include <QString>
#include <QStringList>

namespace Quenda::Help {

/**
 * The configuration of a product, as the host sees it: a flat dictionary of named texts.
 *
 * The store keeps every value as text, unchanged. A value gets a type only when it is read, and any
 * getter may read any entry. Names are compared by UTF-16 code unit, so letter case matters.
 *
 * The library makes the store and hands it to the host as a boost::shared_ptr, the handle. The last
 * handle destroys the store, with code of the library: release all handles, also the connector's,
 * before the library is unloaded. This class has no virtual destructor, because applications depend
 * on the order of its virtual functions. The handle knows the concrete type; nobody can delete a
 * store through this class.
 *
 * Each getter has an optional @p ok flag. If it is given, the getter always writes it: true if the
 * entry exists and its text converts, false otherwise. When it is false, the getter returns the
 * neutral value that its comment names. Getters neither throw nor log.
 *
 * A store has no lock. Several threads may read it while no thread writes. Handles may be copied
 * and released on any thread. The library does not change a store after it has handed it over.
 */
class QUENDAHELP_EXPORT AbstractDataSafe
{
public:
    /** The text; empty, but not null, if there is no such entry. */
    virtual QString getString(const QString &name, bool *ok = nullptr) const = 0;

    /**
     * The text, split at each space (U+0020), without empty parts; an empty list if there is no
     * such entry. Tabs, line breaks and other white space do not separate parts.
     */
    virtual QStringList getStringList(const QString &name, bool *ok = nullptr) const = 0;

    /** True for "true", false for "false". No other text converts; the result is then false. */
    virtual bool getBool(const QString &name, bool *ok = nullptr) const = 0;

    /**
     * The text as a number in the C locale, such as "-2.5e3"; 0.0 if it does not convert. White
     * space around the number is allowed. "inf" and "nan" convert; a number that is too large for a
     * double does not.
     */
    virtual double getDouble(const QString &name, bool *ok = nullptr) const = 0;

    /**
     * The text as a number, read as getDouble() reads it, without its fraction; 0 if it does not
     * convert. For "inf", "nan" and every number outside the range of 32 bits (-2147483648 to
     * 2147483647), the result is -2147483648 and @p ok is true. Applications rely on that value.
     */
    virtual int getInt(const QString &name, bool *ok = nullptr) const = 0;

    /** Stores @p value under @p name, and replaces an earlier value. The name may be empty. */
    virtual void put(const QString &name, const QString &value) = 0;

protected:
    AbstractDataSafe() = default;
    ~AbstractDataSafe() = default;

private:
    Q_DISABLE_COPY(AbstractDataSafe)
};

} // namespace Quenda::Help
