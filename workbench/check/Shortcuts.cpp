#include "check/Rules.h"

#include <QKeySequence>

namespace Quenda::Workbench {

namespace {

// A shortcut of an action, or the mnemonic of a menu in the bar.
struct Shortcut
{
    QKeySequence keys;
    QString owner;
};

QString portable(const QKeySequence &keys)
{
    return keys.toString(QKeySequence::PortableText);
}

bool isReadable(const QKeySequence &keys, const QString &text)
{
    for (int i = 0; i < keys.count(); ++i)
        if (keys[static_cast<uint>(i)] == Qt::Key_unknown)
            return false;
    // Qt drops what is behind the fourth key.
    const QLatin1Char comma(',');
    return !keys.isEmpty() && portable(keys).count(comma) == text.count(comma);
}

void checkSpelling(const QKeySequence &keys, const XmlElement &value, Findings &findings)
{
    if (portable(keys) != value.text)
        findings.warning(value.offsetOfText(), "shortcut \"%1\"; Qt spells it \"%2\"", value.text,
                         portable(keys));
    if (keys.count() == 1 && (keys[0] & ~int(Qt::ShiftModifier)) < Qt::Key_Escape)
        findings.warning(
            value.offsetOfText(),
            "shortcut \"%1\" takes a character from typing; expected one with Ctrl or Alt",
            value.text);
}

// Against those that are taken already.
void checkConflict(const Shortcut &shortcut, const QVector<Shortcut> &taken, int offset,
                   Findings &findings)
{
    const auto conflict = std::find_if(taken.begin(), taken.end(), [&](const Shortcut &other) {
        return shortcut.keys.matches(other.keys) != QKeySequence::NoMatch
               || other.keys.matches(shortcut.keys) != QKeySequence::NoMatch;
    });
    if (conflict == taken.end())
        return;
    if (conflict->keys == shortcut.keys)
        findings.error(offset, "shortcut \"%1\" of %2 is taken by %3; expected another",
                       portable(shortcut.keys), shortcut.owner, conflict->owner);
    else
        findings.error(
            offset, "shortcuts \"%1\" of %2 and \"%3\" of %4 begin alike; expected another",
            portable(shortcut.keys), shortcut.owner, portable(conflict->keys), conflict->owner);
}

} // namespace

QString mnemonicOf(const QString &text)
{
    const QKeySequence keys = QKeySequence::mnemonic(text); // with Alt
    return portable(keys.isEmpty() ? keys : QKeySequence(keys[0] & ~int(Qt::ALT)));
}

void checkShortcuts(const MenuDocument &menus, Findings &findings)
{
    QVector<Shortcut> taken;
    for (const MenuDocument::Menu &menu : menus.bar.subMenus) {
        const QKeySequence mnemonic = QKeySequence::mnemonic(propertyText(*menu.xml, "title"));
        if (!mnemonic.isEmpty())
            taken.append({mnemonic, compose("the menu \"%1\"", menu.name)});
    }
    for (const MenuDocument::Object &action : menus.actions) {
        const XmlElement *value = propertyOf(*action.xml, "shortcut");
        if (!value || findings.isWrong(action.xml->offsetOf("name")))
            continue;
        const Shortcut shortcut {QKeySequence::fromString(value->text, QKeySequence::PortableText),
                                 quoted(action.name)};
        if (!isReadable(shortcut.keys, value->text)) {
            findings.error(value->offsetOfText(),
                           "\"%1\" is no shortcut; expected one to four keys such as Ctrl+S",
                           value->text);
            continue;
        }
        checkSpelling(shortcut.keys, *value, findings);
        checkConflict(shortcut, taken, value->offsetOfText(), findings);
        taken.append(shortcut);
    }
}

} // namespace Quenda::Workbench
