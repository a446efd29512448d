#pragma once

#include "format/Format.h"

#include <QRect>

namespace Quenda::Workbench {

/** The tool document, tools.xml. */
const Format &toolFormat();

/**
 * Whether an element with the mask @p mode is available in the state with the availability code
 * @p state: the mask has to contain every bit of the code. A tool or separator is shown when this
 * is so for its own mask and its box's at once, that is, for the bits that both have.
 */
constexpr bool isAvailable(quint32 mode, quint32 state)
{
    return (mode & state) == state;
}

/** The cells of a keypad. */
constexpr QRect keypadGrid(0, 0, 4, 5);

/**
 * A mask or an availability code: hexadecimal after "0x", otherwise decimal. Nothing where the text
 * is none, or has more than 32 bits.
 */
std::optional<quint32> maskFromText(const QString &text);

// Of elements of a tool document that is of the right shape.

/** The mask of an element; every bit where it has none. */
quint32 modeOf(const XmlElement &element);

/** The cells of a key in the keypad's grid. */
QRect cellsOf(const XmlElement &key);

/** The module that provides a tool or a key, of the document with this root; null without one. */
const XmlElement *moduleOf(const XmlElement &item, const XmlElement &root);

} // namespace Quenda::Workbench
