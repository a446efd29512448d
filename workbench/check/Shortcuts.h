#pragma once

#include "check/Finding.h"

#include <QKeySequence>
#include <QMap>

/** The mnemonic's letter, as in a menu; empty for a text without one. */
QString mnemonicOf(const QString &text);

/** The shortcuts of a menu document, which have to differ from each other. */
class Shortcuts
{
public:
    explicit Shortcuts(Findings &collected) : findings(collected) { }

    /** A menu of the bar, whose mnemonic is a shortcut with Alt. */
    void addMnemonic(const QString &title, const QString &menu);

    /** The shortcut of an action, which is judged for itself at once. */
    void add(const XmlElement &value, const QString &action);

    /** Judges them together, after the last. */
    void check();

private:
    struct Shortcut
    {
        QKeySequence keys;
        QString action;
        int offset;
    };

    Findings &findings;
    QVector<Shortcut> shortcuts;
    QMap<QString, QString> mnemonics; // to the menu that has it
};
