#pragma once

#include "document/Xml.h"

#include <QRect>

#include <optional>

namespace Quenda::Workbench {

/**
 * Whether an element with the mask @p mode is available in the state with the availability code
 * @p state: the mask has to hold every bit of the code. A tool or separator is shown when this is
 * so for its own mask and its box's at once, that is, for the bits that both have.
 */
constexpr bool isAvailable(quint32 mode, quint32 state)
{
    return (mode & state) == state;
}

/** The cells of a keypad. */
constexpr QRect keypadGrid(0, 0, 4, 5);

/** What a mask looks like: hexadecimal after "0x", decimal otherwise, 32 bits at most. */
constexpr char maskPattern[] = "0x0*[0-9A-Fa-f]{1,8}|0*[0-9]{1,9}";

/** A mask or an availability code; nothing where the text is none. */
std::optional<quint32> maskFromText(const QString &text);

// Of elements of a tool document that is of the right shape.

/** The mask of an element; every bit where it says none. */
quint32 modeOf(const XmlElement &element);

/** The cells of a key in the keypad's grid. */
QRect cellsOf(const XmlElement &key);

/** What a reference to a module looks like, see moduleOf(). */
constexpr char referencePattern[] = "#\\S([^\\t\\n\\r]*\\S)?";

/** What refers to a module: "#" and its id. */
QString referenceTo(const XmlElement &module);

/** The module that provides a tool or a key, of the document with this root; null without one. */
const XmlElement *moduleOf(const XmlElement &item, const XmlElement &root);

} // namespace Quenda::Workbench
