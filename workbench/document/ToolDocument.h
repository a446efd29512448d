#pragma once

#include "document/Xml.h"

#include <QRect>

#include <optional>

namespace Quenda::Workbench {

/** The mask of an element without a "mode": available in every state. */
constexpr quint32 everyState = 0xffffffff;

/**
 * Whether an element with the mask @p mode is available in the state with the availability code
 * @p state: the mask has to hold every bit of the code. A tool or separator is shown when this is
 * so for its own mask and its box's at once, that is, for the bits that both have.
 */
constexpr bool isAvailable(quint32 mode, quint32 state)
{
    return (mode & state) == state;
}

/** A mask or an availability code: hexadecimal after "0x", decimal otherwise, 32 bits at most. */
std::optional<quint32> maskFromText(const QString &text);

/** A whole decimal number, without sign, blanks or group separators; at most a million. */
std::optional<int> numberFromText(const QString &text);

/**
 * A tool document. What cannot be read has the value that stands here; a document in which nothing
 * is wrong has no such thing.
 */
struct ToolDocument
{
    /** A tool, a separator, or a key of a keypad. */
    struct Item
    {
        const XmlElement *xml;
        bool isSeparator;
        QString id;
        QString module; ///< The id of the module that provides it.
        QString group;
        quint32 mode;
        QRect cells; ///< Of a key, in the keypad's grid.
    };

    /** A tool box, a keypad, or a tool bar. */
    struct Box
    {
        const XmlElement *xml = nullptr;
        QString id; ///< As the next two, of a tool bar only.
        QString title;
        bool startsRow = false;
        int columns = 1; ///< Of a tool box only.
        int margin = 0;
        int spacing = 0;
        QString buttonStyle;
        quint32 mode = everyState;
        QVector<Item> items;
    };

    QVector<const XmlElement *> modules; ///< As all lists, in document order.
    QVector<Box> toolBoxes;
    QVector<Box> keypads;
    QVector<Box> toolBars;

    static ToolDocument read(const XmlDocument &xml);

    /** The first module of the id, or null. */
    const XmlElement *module(const QString &id) const;
};

} // namespace Quenda::Workbench
