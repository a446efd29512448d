#pragma once

#include "document/Xml.h"

#include <optional>

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
 * A tool document, in document order. What cannot be read has the value that stands here; a
 * document in which nothing is wrong has no such thing.
 */
struct ToolDocument
{
    struct Module
    {
        QString id;
        QString path;
        const XmlElement *xml;
    };

    /** A tool, or a separator. */
    struct Item
    {
        bool isSeparator = false;
        QString id;
        QString module; ///< The id of the module that provides it.
        QString group;
        quint32 mode = everyState;
        const XmlElement *xml = nullptr;
    };

    /** A tool box or a tool bar. */
    struct Box
    {
        bool isToolBar = false;
        QString id; ///< As the next two, of a tool bar only.
        QString title;
        bool startsRow = false;
        int columns = 1; ///< As the next three, of a tool box only.
        int margin = 0;
        int spacing = 0;
        QString buttonStyle;
        quint32 mode = everyState;
        QVector<Item> items;
        const XmlElement *xml = nullptr;
    };

    struct Key
    {
        QString id;
        QString module;
        int row = 0;
        int column = 0;
        int rowSpan = 1;
        int columnSpan = 1;
        const XmlElement *xml = nullptr;
    };

    struct Keypad
    {
        int margin = 0;
        int spacing = 0;
        QString buttonStyle;
        QVector<Key> keys;
        const XmlElement *xml = nullptr;
    };

    QVector<Module> modules;
    QVector<Box> toolBoxes;
    QVector<Keypad> keypads;
    QVector<Box> toolBars;

    static ToolDocument read(const XmlDocument &xml);

    /** The path of the module's library; empty when there is no such module. */
    QString libraryOf(const QString &module) const;
};
