#include "menus/Menus.h"

#include <QKeySequence>
#include <QSet>

namespace Quenda::Workbench {

namespace {

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

// Says what to do with a shortcut that Qt cannot read.
QString adviceOn(const QString &text)
{
    static const QStringList modifiers {u"Ctrl"_s, u"Shift"_s, u"Alt"_s, u"Meta"_s, u"Num"_s};
    QStringList names = modifiers;
    for (int key = Qt::Key_Escape; key <= Qt::Key_F12; ++key)
        names += portable(QKeySequence(key));
    const QStringList words = text.split(QRegularExpression(u"[-+,] ?"_s));
    for (const QString &word : words)
        if (!word.isEmpty() && !modifiers.contains(word, Qt::CaseInsensitive)
            && !isReadable(QKeySequence::fromString(word, QKeySequence::PortableText), word))
            return compose(
                "there is no key \"%1\": %2", word,
                didYouMean(word, names, compose("keys are called Ctrl, Shift, Alt, S, F5, Del")));
    return compose("use up to four keys, such as \"Ctrl+S\"");
}

// Mnemonics of the menu bar come first, then the shortcuts of the actions.
void checkShortcuts(const XmlElement &menuBar, Findings &findings)
{
    QVector<QPair<QKeySequence, const XmlElement *>> taken; // by which menu or action
    for (const XmlElement &object : menuBar.children) {
        const bool isMenu = object.is(u"widget");
        const XmlElement *value = propertyOf(object, QLatin1String(isMenu ? "title" : "shortcut"));
        if (!value)
            continue;
        const auto keys = isMenu
                              ? QKeySequence::mnemonic(value->text)
                              : QKeySequence::fromString(value->text, QKeySequence::PortableText);
        const int place = value->offsetOfText();
        const bool isWrong = !isMenu && !isReadable(keys, value->text);
        if (isWrong && value->text.isEmpty())
            findings.error(place, "the shortcut is empty; write its keys, or remove the property");
        else if (isWrong)
            findings.error(place, "\"%1\" is not a valid shortcut; %2", value->text,
                           adviceOn(value->text));
        if (isWrong || keys.isEmpty())
            continue;
        if ((keys[0] & ~int(Qt::ShiftModifier)) < Qt::Key_Escape)
            findings.warning(place,
                             "the shortcut \"%1\" prevents typing that character; begin it with "
                             "Ctrl or Alt",
                             value->text);
        // A shortcut that begins another one takes all its keys.
        const auto conflict = std::find_if(taken.begin(), taken.end(), [&keys](const auto &other) {
            return keys.matches(other.first) != QKeySequence::NoMatch
                   || other.first.matches(keys) != QKeySequence::NoMatch;
        });
        if (conflict != taken.end())
            findings.add(isMenu ? Finding::Warning : Finding::Error, place,
                         compose("\"%1\" of \"%2\" conflicts with \"%3\" of \"%4\" in line %5; "
                                 "use another",
                                 portable(keys), object.value(u"name"), portable(conflict->first),
                                 conflict->second->value(u"name"),
                                 findings.lineOf(*conflict->second)));
        taken.append({keys, &object});
    }
}

class MenuChecker
{
public:
    MenuChecker(const XmlElement &bar, Findings &collected)
        : menuBar(bar), findings(collected), objects(collected, "rename one")
    {
    }

    void check()
    {
        checkName(menuBar);
        checkObjects(menuBar);
        checkItems(menuBar);
        checkShortcuts(menuBar, findings);
    }

private:
    // Checks the menus and actions at any depth.
    void checkObjects(const XmlElement &parent)
    {
        for (const XmlElement &child : parent.children) {
            if (!child.is(u"widget") && !child.is(u"action"))
                continue;
            checkName(child);
            elements.insert(child.value(u"name"), &child);
            checkProperties(child);
            checkLabel(child, child.is(u"widget") ? QLatin1String("title") : QLatin1String("text"));
            checkObjects(child);
        }
    }

    void checkName(const XmlElement &object)
    {
        const QString name = object.value(u"name");
        if (name == u"separator")
            findings.error(object.offsetOf(u"name"),
                           "\"separator\" is reserved for separators; use another name");
        else
            objects.check(object.offsetOf(u"name"), compose("object name \"%1\"", name));
    }

    void checkProperties(const XmlElement &object)
    {
        Duplicates properties(findings, "keep one");
        bool isCheckable = false;
        for (const XmlElement &property : object.children) {
            if (!property.is(u"property"))
                continue;
            const QString name = property.value(u"name");
            const XmlElement &value = property.children.front();
            properties.check(property.offset, compose("property \"%1\"", name));
            if (name == u"checkable")
                isCheckable = value.text == u"true";
            if (name == u"checked" && !isCheckable)
                findings.error(property.offset, "\"checked\" has no effect unless \"checkable\" "
                                                "is true before it; add or move that");
            if (name == u"icon")
                checkIcon(value);
        }
    }

    void checkIcon(const XmlElement &icon)
    {
        const XmlElement *file = icon.child(u"normaloff");
        const QString path = icon.text.trimmed(); // behind that element
        if (!icon.has(u"theme") && (!file || file->text == u"."))
            findings.error(icon.offset, "the icon has no image; add <normaloff> with its path");
        else if (file && path != file->text)
            findings.error(
                icon.offsetOfText(),
                "\"%1\" after <normaloff> differs from \"%2\" in it; write the same path", path,
                file->text);
    }

    // Checks what users read of an object.
    void checkLabel(const XmlElement &object, const QString &property)
    {
        const XmlElement *value = propertyOf(object, property);
        const QString text = value ? value->text : QString();
        const int place = value ? value->offsetOfText() : object.offset;
        if (text.isEmpty())
            return findings.error(place, "\"%1\" has no %2; %3", object.value(u"name"), property,
                                  value ? compose("write it")
                                        : compose("add <property name=\"%1\">", property));
        if (text != text.trimmed() || text.contains(u'\t'))
            findings.warning(place, "white space in \"%1\"; write \"%2\"", text, text.simplified());
        if (text.contains(u"&amp;"_s))
            findings.error(place, "\"&amp;\" is written twice in \"%1\"; write it once", text);
        QString marks = text;
        marks.remove(u"&&"_s);
        if (marks.count(u'&') > 1)
            findings.error(
                place,
                "several mnemonics in \"%1\"; keep one \"&\", and write \"&amp;&amp;\" for the "
                "character",
                text);
        const int mark = marks.indexOf(u'&');
        if (mark >= 0 && marks.mid(mark + 1, 1).trimmed().isEmpty())
            findings.error(place, "a lone \"&\" in \"%1\"; write \"&amp;&amp;\" for the character",
                           text);
    }

    void checkItems(const XmlElement &menu)
    {
        Duplicates items(findings, "keep one");
        QSet<QString> placed;
        for (const XmlElement &item : menu.children) {
            const QString name = item.value(u"name");
            if (!item.is(u"addaction") || name == u"separator")
                continue;
            if (!shownBy(item, menu, menuBar))
                reportUnknown(item, menu);
            items.check(item.offsetOf(u"name"), compose("item \"%1\"", name));
            placed.insert(name);
        }
        for (const XmlElement &subMenu : menu.children) {
            if (!subMenu.is(u"widget"))
                continue;
            checkItems(subMenu);
            if (!placed.contains(subMenu.value(u"name")))
                findings.error(subMenu.offset,
                               "menu \"%1\" is never shown; add <addaction name=\"%1\"/> to \"%2\"",
                               subMenu.value(u"name"), menu.value(u"name"));
        }
    }

    void reportUnknown(const XmlElement &item, const XmlElement &menu)
    {
        const QString name = item.value(u"name");
        if (const XmlElement *elsewhere = elements.value(name))
            return findings.error(item.offsetOf(u"name"),
                                  "\"%1\" is a sub-menu of another menu, in line %2; move that "
                                  "to \"%3\"",
                                  name, findings.lineOf(*elsewhere), menu.value(u"name"));
        QStringList names {u"separator"_s};
        for (const XmlElement &object : menu.children)
            names += object.is(u"widget") ? object.value(u"name") : QString();
        for (const XmlElement &object : menuBar.children)
            names += object.is(u"action") ? object.value(u"name") : QString();
        findings.error(
            item.offsetOf(u"name"), "\"%1\" is neither an action nor a sub-menu of \"%2\"; %3",
            name, menu.value(u"name"),
            didYouMean(name, names, compose("define it with <action name=\"%1\">", name)));
    }

    const XmlElement &menuBar;
    Findings &findings;
    Duplicates objects;
    QMap<QString, const XmlElement *> elements; // by name, of all levels
};

void checkMenus(const Document &document, const Product *, Findings &findings)
{
    MenuChecker(*document.xml.root.child(u"widget"), findings).check();
}

} // namespace

const Format &menuFormat()
{
    static const Format format("menus.xml", "menus", Prolog::XmlDeclaration, checkMenus);
    return format;
}

} // namespace Quenda::Workbench
