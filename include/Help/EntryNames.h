#pragma once

#include <QString>

/** The names of the entries that every store has, for every product. */
namespace Quenda::Help::EntryNames {

/** The text of the tool document: tool boxes, keypad and tool bars. */
inline QString toolDocument()
{
    return QStringLiteral("widgetConfig");
}

/** The text of the menu document, for QUiLoader. */
inline QString menuDocument()
{
    return QStringLiteral("menubar");
}

/** The key of the host's document files; the same text for every product. */
inline QString fileKey()
{
    return QStringLiteral("quenda_file_key");
}

} // namespace Quenda::Help::EntryNames
