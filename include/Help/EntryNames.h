#pragma once

#include <QString>

/** The names of the entries that every store has, whatever the product. */
namespace Quenda::Help::EntryNames {

/** The text of the tool document. */
inline QString toolDocument()
{
    return QStringLiteral("widgetConfig");
}

/** The text of the menu document. */
inline QString menuDocument()
{
    return QStringLiteral("menubar");
}

/** The key of the host's document files. */
inline QString fileKey()
{
    return QStringLiteral("quenda_file_key");
}

} // namespace Quenda::Help::EntryNames
