#include "check/Rules.h"
#include "document/MenuDocument.h"

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

// The shortcuts of the actions and, before them, the mnemonics of the menu bar.
void checkShortcuts(const XmlElement &menuBar, Findings &findings)
{
    QVector<QPair<QKeySequence, const XmlElement *>> taken; // by which menu or action
    for (const XmlElement &object : menuBar.children) {
        const bool isMenu = object.is("widget");
        const XmlElement *value = propertyOf(object, QLatin1String(isMenu ? "title" : "shortcut"));
        if (!value)
            continue;
        const auto keys = isMenu
                              ? QKeySequence::mnemonic(value->text)
                              : QKeySequence::fromString(value->text, QKeySequence::PortableText);
        const int place = value->offsetOfText();
        const bool isWrong = !isMenu && !isReadable(keys, value->text);
        if (isWrong && value->text.isEmpty())
            findings.error(place, "the shortcut is empty; remove <property name=\"shortcut\">");
        else if (isWrong)
            findings.error(place,
                           "\"%1\" is not a valid shortcut; use up to four keys, such as "
                           "\"Ctrl+S\"",
                           value->text);
        if (isWrong || keys.isEmpty())
            continue;
        if ((keys[0] & ~int(Qt::ShiftModifier)) < Qt::Key_Escape)
            findings.warning(place,
                             "\"%1\" takes a character from typing; begin it with Ctrl or Alt",
                             value->text);
        // One that begins another takes all its keys.
        const auto conflict = std::find_if(taken.begin(), taken.end(), [&keys](const auto &other) {
            return keys.matches(other.first) != QKeySequence::NoMatch
                   || other.first.matches(keys) != QKeySequence::NoMatch;
        });
        if (conflict != taken.end())
            findings.add(isMenu ? Finding::Warning : Finding::Error, place,
                         compose("\"%1\" of \"%2\" conflicts with \"%3\" of \"%4\" in line %5; "
                                 "use another",
                                 portable(keys), object.value("name"), portable(conflict->first),
                                 conflict->second->value("name"),
                                 findings.lineOf(*conflict->second)));
        taken.append({keys, &object});
    }
}

class MenuChecker
{
public:
    MenuChecker(const XmlElement &bar, Findings &collected)
        : menuBar(bar), findings(collected), objects(collected)
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
    // The menus and actions, at any depth.
    void checkObjects(const XmlElement &parent)
    {
        for (const XmlElement &child : parent.children) {
            if (!child.is("widget") && !child.is("action"))
                continue;
            checkName(child);
            elements.insert(child.value("name"), &child);
            checkProperties(child);
            checkLabel(child, QLatin1String(child.is("widget") ? "title" : "text"));
            checkObjects(child);
        }
    }

    void checkName(const XmlElement &object)
    {
        const QString name = object.value("name");
        if (name == QLatin1String("separator"))
            findings.error(object.offsetOf("name"),
                           "\"separator\" is reserved for separators; use another name");
        else
            objects.add(object.offsetOf("name"), compose("object name \"%1\"", name));
    }

    void checkProperties(const XmlElement &object)
    {
        Definitions properties(findings);
        bool isCheckable = false;
        for (const XmlElement &property : object.children) {
            if (!property.is("property"))
                continue;
            const QString name = property.value("name");
            const XmlElement &value = property.children.front();
            properties.add(property.offset, compose("property \"%1\"", name));
            if (name == QLatin1String("checkable"))
                isCheckable = value.text == QLatin1String("true");
            if (name == QLatin1String("checked") && !isCheckable)
                findings.error(property.offset, "\"checked\" has no effect unless \"checkable\" "
                                                "is true before it; add or move that");
            if (name == QLatin1String("icon"))
                checkIcon(value);
        }
    }

    void checkIcon(const XmlElement &icon)
    {
        const XmlElement *file = icon.child("normaloff");
        const QString path = icon.text.trimmed(); // behind that element
        if (!icon.has("theme") && (!file || file->text == QLatin1String(".")))
            findings.error(icon.offset, "the icon has no image; add <normaloff> with its path");
        else if (file && path != file->text)
            findings.error(
                icon.offsetOfText(),
                "\"%1\" after <normaloff> differs from \"%2\" in it; write the same path", path,
                file->text);
    }

    // What users read of it.
    void checkLabel(const XmlElement &object, const QString &property)
    {
        const XmlElement *value = propertyOf(object, property);
        const QString text = value ? value->text : QString();
        const int place = value ? value->offsetOfText() : object.offset;
        if (text.isEmpty())
            return findings.error(place, "\"%1\" has no %2; %3", object.value("name"), property,
                                  value ? compose("write it")
                                        : compose("add <property name=\"%1\">", property));
        if (text != text.trimmed())
            findings.warning(place, "white space around \"%1\"; remove it", text);
        QString marks = text;
        marks.remove(QLatin1String("&&"));
        if (marks.count(QLatin1Char('&')) > 1)
            findings.error(place, "several mnemonics in \"%1\"; keep one \"&\"", text);
        const int mark = marks.indexOf(QLatin1Char('&'));
        if (mark >= 0 && marks.mid(mark + 1, 1).trimmed().isEmpty())
            findings.error(place, "a lone \"&\" in \"%1\"; write \"&amp;&amp;\" for the character",
                           text);
    }

    void checkItems(const XmlElement &menu)
    {
        Definitions items(findings);
        QSet<QString> placed;
        for (const XmlElement &item : menu.children) {
            const QString name = item.value("name");
            if (!item.is("addaction") || name == QLatin1String("separator"))
                continue;
            if (!shownBy(item, menu, menuBar))
                reportUnknown(item, menu);
            items.add(item.offsetOf("name"), compose("item \"%1\"", name));
            placed.insert(name);
        }
        for (const XmlElement &subMenu : menu.children) {
            if (!subMenu.is("widget"))
                continue;
            checkItems(subMenu);
            if (!placed.contains(subMenu.value("name")))
                findings.error(subMenu.offset,
                               "menu \"%1\" is never shown; add <addaction name=\"%1\"/> to \"%2\"",
                               subMenu.value("name"), menu.value("name"));
        }
    }

    void reportUnknown(const XmlElement &item, const XmlElement &menu)
    {
        const QString name = item.value("name");
        if (const XmlElement *elsewhere = elements.value(name))
            return findings.error(item.offsetOf("name"),
                                  "\"%1\" is a menu within another one in line %2; move that to "
                                  "\"%3\", or remove this",
                                  name, findings.lineOf(*elsewhere), menu.value("name"));
        QStringList names {QStringLiteral("separator")};
        for (const XmlElement &object : menu.children)
            names += object.is("widget") ? object.value("name") : QString();
        for (const XmlElement &object : menuBar.children)
            names += object.is("action") ? object.value("name") : QString();
        findings.error(
            item.offsetOf("name"), "\"%1\" is neither an action nor a sub-menu of \"%2\"; %3", name,
            menu.value("name"),
            didYouMean(nearest(name, names),
                       compose("define it with <action name=\"%1\">, or remove this", name)));
    }

    const XmlElement &menuBar;
    Findings &findings;
    Definitions objects;
    QMap<QString, const XmlElement *> elements; // by name, of all levels
};

} // namespace

void checkMenus(const Document &document, Findings &findings)
{
    MenuChecker(*document.xml.root.child("widget"), findings).check();
}

} // namespace Quenda::Workbench
