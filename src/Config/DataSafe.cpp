#include "Config/DataSafe.h"

#include <limits>

namespace Quenda::Kit {

namespace {

void report(bool *ok, bool outcome)
{
    if (ok)
        *ok = outcome;
}

} // namespace

DataSafe::DataSafe() = default;

QString DataSafe::getString(const QString &name, bool *ok) const
{
    const auto entry = entries.constFind(name);
    const bool found = entry != entries.constEnd();
    report(ok, found);
    return found ? *entry : QString(QLatin1String(""));
}

QStringList DataSafe::getStringList(const QString &name, bool *ok) const
{
    bool found = false;
    const QString text = getString(name, &found);
    report(ok, found);
    return found ? text.split(QLatin1Char(' '), Qt::SkipEmptyParts) : QStringList();
}

bool DataSafe::getBool(const QString &name, bool *ok) const
{
    bool found = false;
    const QString text = getString(name, &found);
    const bool isTrue = found && text == QLatin1String("true");
    report(ok, isTrue || (found && text == QLatin1String("false")));
    return isTrue;
}

double DataSafe::getDouble(const QString &name, bool *ok) const
{
    bool found = false;
    const QString text = getString(name, &found);
    bool converted = false;
    const double number = text.toDouble(&converted);
    report(ok, found && converted);
    return found && converted ? number : 0.0;
}

int DataSafe::getInt(const QString &name, bool *ok) const
{
    // Applications rely on the result of x86's truncating conversion for a number that does not
    // fit. In C++ such a conversion is undefined, so only a number that fits is converted. Both
    // comparisons are false for "nan".
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr double below = -2147483649.0;
    constexpr double above = 2147483648.0;

    // Not virtual: a class that overrides getDouble() does not change getInt().
    const double number = DataSafe::getDouble(name, ok);
    return number > below && number < above ? static_cast<int>(number) : lowest;
}

void DataSafe::put(const QString &name, const QString &value)
{
    entries.insert(name, value);
}

void DataSafe::clear()
{
    entries.clear();
}

} // namespace Quenda::Kit
