#pragma once

#include <QString>

/** u"text"_s, which Qt has since version 6.4. */
inline QString operator""_s(const char16_t *text, std::size_t size)
{
    return QString::fromUtf16(text, static_cast<int>(size));
}
