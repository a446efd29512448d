#pragma once

#include <QString>
#include <QTest>

/** "text"_s for the many texts in the tables of the tests. */
inline QString operator""_s(const char *text, std::size_t size)
{
    return QString::fromUtf8(text, static_cast<int>(size));
}

/** Adds columns of the types, each with its name, to the table of a test. */
template <typename... Types, typename... Names>
void addColumns(Names... names)
{
    (QTest::addColumn<Types>(names), ...);
}

inline QString tableValue(const char *text)
{
    return QString::fromUtf8(text);
}

template <typename Value>
const Value &tableValue(const Value &value)
{
    return value;
}

/** Adds a row to the table of a test; literals become QStrings. */
template <typename... Values>
void addRow(const char *name, const Values &...values)
{
    (QTest::addRow("%s", name) << ... << tableValue(values));
}
