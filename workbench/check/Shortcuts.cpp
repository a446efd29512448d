#include "check/Shortcuts.h"

namespace {

QString portable(const QKeySequence &keys)
{
    return keys.toString(QKeySequence::PortableText);
}

bool isReadable(const QKeySequence &keys)
{
    for (int i = 0; i < keys.count(); ++i)
        if (keys[static_cast<uint>(i)] == Qt::Key_unknown)
            return false;
    return !keys.isEmpty();
}

} // namespace

QString mnemonicOf(const QString &text)
{
    const QKeySequence keys = QKeySequence::mnemonic(text);
    return keys.isEmpty() ? QString()
                          : portable(QKeySequence(keys[0] & ~int(Qt::KeyboardModifierMask)));
}

void Shortcuts::addMnemonic(const QString &title, const QString &menu)
{
    const QKeySequence keys = QKeySequence::mnemonic(title);
    if (!keys.isEmpty())
        mnemonics.insert(portable(keys), menu);
}

void Shortcuts::add(const XmlElement &value, const QString &action)
{
    const QString &text = value.text;
    const auto keys = QKeySequence::fromString(text, QKeySequence::PortableText);
    const int place = value.offsetOfText();
    // Qt drops what is behind the fourth key.
    if (!isReadable(keys) || portable(keys).count(QLatin1Char(',')) != text.count(QLatin1Char(',')))
        return findings.error(place, "%1 is no shortcut; expected one to four keys such as Ctrl+S",
                              quoted(text));
    if (portable(keys) != text)
        findings.warning(place, "shortcut %1; Qt spells it %2", quoted(text),
                         quoted(portable(keys)));
    const auto key = keys[0] & ~int(Qt::ShiftModifier);
    if (keys.count() == 1 && key < Qt::Key_Escape)
        findings.warning(place,
                         "shortcut %1 takes a character from typing; expected one with Ctrl or Alt",
                         quoted(text));
    if (mnemonics.contains(portable(keys)))
        findings.error(place, "shortcut \"%1\" of \"%2\" opens the menu \"%3\"; expected another",
                       portable(keys), action, mnemonics.value(portable(keys)));
    shortcuts.append({keys, action, place});
}

void Shortcuts::check()
{
    for (auto later = shortcuts.cbegin(); later != shortcuts.cend(); ++later)
        for (auto earlier = shortcuts.cbegin(); earlier != later; ++earlier) {
            if (earlier->keys == later->keys)
                findings.error(later->offset,
                               "shortcut \"%1\" of \"%2\" is taken by \"%3\"; expected another",
                               portable(later->keys), later->action, earlier->action);
            else if (earlier->keys.matches(later->keys) == QKeySequence::PartialMatch
                     || later->keys.matches(earlier->keys) == QKeySequence::PartialMatch)
                findings.error(
                    later->offset,
                    "shortcuts \"%1\" of \"%2\" and \"%3\" of \"%4\" begin alike; expected another",
                    portable(later->keys), later->action, portable(earlier->keys), earlier->action);
            else
                continue;
            break;
        }
}
