#pragma once

#include <QMap>
#include <QString>
#include <QVector>

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

/** A tool document as plain values, in document order. */
struct ToolDocument
{
    /** A tool, or a separator when the id is empty. */
    struct Item
    {
        QString id;
        QString module;
        QString group;
        quint32 mode = everyState;

        bool isSeparator() const { return id.isEmpty(); }
    };

    struct ToolBox
    {
        int columns = 1;
        int margin = 0;
        int spacing = 0;
        QString buttonStyle;
        quint32 mode = everyState;
        QVector<Item> items;
    };

    struct Key
    {
        QString id;
        QString module;
        int row = 0;
        int column = 0;
        int rowSpan = 1;
        int columnSpan = 1;
    };

    struct Keypad
    {
        int margin = 0;
        int spacing = 0;
        QString buttonStyle;
        QVector<Key> keys;
    };

    struct ToolBar
    {
        QString id;
        QString title;
        bool startsRow = false;
        quint32 mode = everyState;
        QVector<Item> items;
    };

    QMap<QString, QString> modules; ///< From a module's id to the path of its library.
    QVector<ToolBox> toolBoxes;
    QVector<Keypad> keypads;
    QVector<ToolBar> toolBars;

    /**
     * Reads the text of the store entry "widgetConfig". What it does not know, it passes over.
     *
     * @param error  Receives what is wrong, with the line, when there is no result: the text is not
     *               well-formed, a number is none, or a reference is to no module before it.
     */
    static std::optional<ToolDocument> fromText(const QString &text, QString *error);
};
