#pragma once

#include <Help/quendahelp_export.h>

#include <QString>
#include <QStringList>

namespace Quenda::Help {

/**
 * The product configuration as the host sees it: a flat dictionary of named texts.
 *
 * Every value is text, kept as it was put; it gets a type only when it is read. The same entry may
 * be read through any getter. Names are compared by UTF-16 code unit, so letter case counts.
 *
 * A store is made by the library, handed to the host as a boost::shared_ptr and destroyed with the
 * last handle. The interface has no destructor slot, so that the order of its slots stays as
 * applications know it; the handle remembers the concrete type, and nobody can delete through this
 * class.
 *
 * Each getter takes an optional @p ok flag. When given, it is written in every case: true when the
 * entry exists and its text converts, false otherwise. A getter that clears @p ok returns the
 * neutral value that its comment names. No getter throws or logs.
 *
 * A store has no lock. Reading from several threads is safe while nobody writes. Handles may be
 * copied and released on any thread.
 */
class QUENDAHELP_EXPORT AbstractDataSafe
{
public:
    /** The text itself; empty, but not null, when there is no such entry. */
    virtual QString getString(const QString &name, bool *ok = nullptr) const = 0;

    /**
     * The text split at single spaces (U+0020), without empty parts; an empty list when there is no
     * such entry. Tabs, line breaks and other white space separate nothing.
     */
    virtual QStringList getStringList(const QString &name, bool *ok = nullptr) const = 0;

    /** Whether the text is "true"; only exactly "true" and "false" convert. Otherwise false. */
    virtual bool getBool(const QString &name, bool *ok = nullptr) const = 0;

    /**
     * The text as a number in the C locale, white space around it allowed; otherwise 0.0. "inf" and
     * "nan" are numbers; a number too large for a double is not.
     */
    virtual double getDouble(const QString &name, bool *ok = nullptr) const = 0;

    /**
     * The text as a number, read like getDouble() and truncated toward zero; otherwise 0. A number
     * outside the 32-bit range, infinite or not a number gives -2147483648 with @p ok set:
     * applications rely on that value.
     */
    virtual int getInt(const QString &name, bool *ok = nullptr) const = 0;

    /** Stores @p value under @p name and replaces what stood there. The empty name is a name. */
    virtual void put(const QString &name, const QString &value) = 0;

protected:
    AbstractDataSafe() = default;
    ~AbstractDataSafe() = default;

private:
    Q_DISABLE_COPY(AbstractDataSafe)
};

} // namespace Quenda::Help
