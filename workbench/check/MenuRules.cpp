#include "check/Rules.h"
#include "check/Shortcuts.h"
#include "document/MenuDocument.h"

#include <QAction>
#include <QActionGroup>
#include <QMenuBar>
#include <QMetaProperty>
#include <QSet>

#include <algorithm>
#include <iterator>

namespace {

// The properties of the format, and the value element of each.
struct PropertyRule
{
    const char *owner;
    const char *name;
    const char *value;
};

constexpr PropertyRule propertyRules[] {
    {"QMenuBar", "geometry", "rect"}, {"QMenu", "title", "string"},
    {"action", "text", "string"},     {"action", "shortcut", "string"},
    {"action", "checkable", "bool"},  {"action", "checked", "bool"},
    {"action", "icon", "iconset"},    {"action", "iconVisibleInMenu", "bool"},
    {"action", "autoRepeat", "bool"},
};

const QMetaObject &metaObjectOf(const QString &owner)
{
    if (owner == QLatin1String("QMenuBar"))
        return QMenuBar::staticMetaObject;
    if (owner == QLatin1String("QMenu"))
        return QMenu::staticMetaObject;
    return owner == QLatin1String("action") ? QAction::staticMetaObject
                                            : QActionGroup::staticMetaObject;
}

// The value element that QUiLoader needs for a property beyond the format; empty where it is none
// that the bench can judge.
QString valueElement(const QMetaProperty &property)
{
    if (!property.isWritable())
        return {};
    if (property.isEnumType())
        return property.isFlagType() ? QString() : QStringLiteral("enum");
    switch (property.userType()) {
    case QMetaType::QString:
        return QStringLiteral("string");
    case QMetaType::Bool:
        return QStringLiteral("bool");
    case QMetaType::QIcon:
        return QStringLiteral("iconset");
    case QMetaType::QRect:
        return QStringLiteral("rect");
    default:
        return {};
    }
}

class MenuChecker
{
public:
    MenuChecker(const Document &checked, Findings &collected)
        : document(checked),
          menus(MenuDocument::read(checked.xml)),
          findings(collected),
          shortcuts(collected)
    {
    }

    void check()
    {
        if (const XmlElement *name = document.xml.root.child("class");
            name && name->text != QLatin1String("menubar"))
            findings.error(name->offsetOfText(), "<class> is %1; expected menubar",
                           quoted(name->text));
        if (!menus.bar.xml)
            return; // reported with the shape
        expect(*menus.bar.xml, "name", "menubar");
        for (const MenuDocument::Menu &menu : menus.bar.subMenus)
            shortcuts.addMnemonic(menu.title, menu.name);
        checkMenu(menus.bar, "QMenuBar");
        for (const MenuDocument::Action &action : menus.actions)
            checkAction(action);
        checkItems(menus.bar);
        shortcuts.check();
    }

private:
    void expect(const XmlElement &element, const char *attribute, const char *value)
    {
        if (element.has(attribute) && element.value(attribute) != QLatin1String(value))
            findings.error(element.offsetOf(attribute), "\"%1\" is %2; expected \"%3\"",
                           QLatin1String(attribute), quoted(element.value(attribute)),
                           QLatin1String(value));
    }

    void checkObjectName(const XmlElement &element)
    {
        const QString name = element.value("name");
        const int before = findings.list.size();
        if (!element.has("name") || !checkName(element, "name", findings))
            hasBadName = true;
        else if (name == QLatin1String("separator"))
            findings.error(element.offsetOf("name"),
                           "\"separator\" is the name of separators; expected another");
        else if (objectNames.contains(name))
            findings.error(element.offsetOf("name"),
                           "object name \"%1\" stands twice; expected once", name);
        hasBadName = hasBadName || findings.list.size() > before;
        objectNames.insert(name);
    }

    void checkProperties(const XmlElement &object, const QString &owner)
    {
        QSet<QString> seen;
        for (const XmlElement &property : object.children) {
            if (property.name != QLatin1String("property") || !property.has("name"))
                continue;
            const QString name = property.value("name");
            if (seen.contains(name))
                findings.error(property.offset, "property %1 stands twice; expected once",
                               quoted(name));
            seen.insert(name);
            if (property.children.size() > 1)
                findings.error(property.children.at(1).offset,
                               "a second value in property %1; expected one", quoted(name));
            checkProperty(property, owner);
        }
    }

    void checkProperty(const XmlElement &property, const QString &owner)
    {
        const QString name = property.value("name");
        QStringList names;
        QString expected;
        for (const PropertyRule &rule : propertyRules)
            if (owner == QLatin1String(rule.owner)) {
                names += QLatin1String(rule.name);
                if (name == names.constLast())
                    expected = QLatin1String(rule.value);
            }
        if (expected.isEmpty()) {
            const QMetaObject &meta = metaObjectOf(owner);
            const int index = meta.indexOfProperty(name.toUtf8().constData());
            // The first, the object name, would rename what others refer to.
            expected = index < 1 ? QString() : valueElement(meta.property(index));
            if (expected.isEmpty())
                return findings.error(property.offsetOf("name"),
                                      "unknown property %1 of %2; expected: %3%4", quoted(name),
                                      owner, listed(names), suggestion(name, names));
            findings.warning(
                property.offset,
                "property \"%1\": QUiLoader reads it, but hosts promise the format only", name);
            if (!property.children.empty() && expected == QLatin1String("enum"))
                checkEnum(property.children.front(), meta.property(index));
        }
        if (property.children.empty())
            findings.error(property.offset, "property \"%1\" holds nothing; expected <%2>", name,
                           expected);
        else if (property.children.front().name != expected)
            findings.error(property.children.front().offset,
                           "property \"%1\" holds <%2>; expected <%3>", name,
                           property.children.front().name, expected);
        else
            checkValue(name, property.children.front());
    }

    void checkEnum(const XmlElement &value, const QMetaProperty &property)
    {
        bool ok = false;
        property.enumerator().keyToValue(value.text.toUtf8().constData(), &ok);
        if (!ok)
            findings.error(value.offsetOfText(),
                           "property \"%1\" is %2; expected one of its values in Qt",
                           QLatin1String(property.name()), quoted(value.text));
    }

    void checkValue(const QString &name, const XmlElement &value)
    {
        if (value.name == QLatin1String("bool") && value.text != QLatin1String("true")
            && value.text != QLatin1String("false"))
            findings.error(value.offsetOfText(), "property \"%1\" is %2; expected true or false",
                           name, quoted(value.text));
        const bool isStyle = name == QLatin1String("styleSheet");
        if (const QString complaint = isStyle ? styleSheetComplaint(value.text) : QString();
            !complaint.isEmpty())
            findings.error(value.offsetOfText(),
                           "the style sheet does not work: %1; expected Qt's style sheet syntax",
                           complaint);
        if (value.name == QLatin1String("iconset") && !value.has("theme"))
            checkIcon(value);
        if (value.name == QLatin1String("rect"))
            for (const XmlElement &side : value.children) {
                bool ok = false;
                side.text.toInt(&ok);
                if (!ok)
                    findings.error(side.offsetOfText(), "<%1> is %2; expected a number", side.name,
                                   quoted(side.text));
            }
    }

    void checkIcon(const XmlElement &value)
    {
        const XmlElement *file = value.child("normaloff");
        if (!file)
            findings.error(value.offset, "an icon without <normaloff>; expected one");
        else if (!file->text.startsWith(QLatin1String(":/")) || file->text != file->text.trimmed())
            findings.error(
                file->offsetOfText(),
                "icon path %1 is no resource; expected one such as :/images/actions/notch_v.png",
                quoted(file->text));
        else if (value.text.trimmed() != file->text)
            findings.error(
                value.offsetOfText(),
                "the icon's path is %1 behind <normaloff> and %2 in it; expected the same twice",
                quoted(value.text), quoted(file->text));
    }

    // What users read: an action's text or a menu's title.
    void checkLabel(const XmlElement &object, const char *property)
    {
        const XmlElement *value = propertyOf(object, property);
        const QString text = propertyText(object, property);
        if (text.isEmpty())
            return findings.error(value ? value->offset : object.offset,
                                  "%1 has no %2; expected a \"%2\"", quoted(object.value("name")),
                                  QLatin1String(property));
        if (text != text.trimmed())
            findings.warning(value->offsetOfText(), "white space around %1; expected none",
                             quoted(text));
        int mnemonics = 0;
        for (int i = text.indexOf(QLatin1Char('&')); i >= 0;
             i = text.indexOf(QLatin1Char('&'), i + 2)) {
            const QChar next = text.size() > i + 1 ? text.at(i + 1) : QChar(QLatin1Char(' '));
            if (next == QLatin1Char('&'))
                continue;
            ++mnemonics;
            if (next.isSpace())
                return findings.error(
                    value->offsetOfText(),
                    "a lone \"&\" in %1 is not shown; expected \"&&\", written \"&amp;&amp;\"",
                    quoted(text));
        }
        if (mnemonics > 1)
            findings.error(value->offsetOfText(),
                           "%1 mnemonics in %2; expected one \"&\" at the most", mnemonics,
                           quoted(text));
    }

    void checkAction(const MenuDocument::Action &action)
    {
        const XmlElement &xml = *action.xml;
        checkObjectName(xml);
        checkProperties(xml, xml.name);
        if (xml.name != QLatin1String("action"))
            return;
        checkLabel(xml, "text");
        const XmlElement *checkable = propertyOf(xml, "checkable");
        const XmlElement *checked = propertyOf(xml, "checked");
        if (propertyText(xml, "checked") == QLatin1String("true")
            && (propertyText(xml, "checkable") != QLatin1String("true")
                || checkable->offset > checked->offset))
            findings.error(checked->offset,
                           "%1 is checked before it is checkable; expected \"checkable\" first",
                           quoted(action.name));
        const XmlElement *iconVisible = propertyOf(xml, "iconVisibleInMenu");
        if (iconVisible && !propertyOf(xml, "icon"))
            findings.warning(iconVisible->offset, "%1 has no icon to show; expected an \"icon\"",
                             quoted(action.name));
        if (const XmlElement *shortcut = propertyOf(xml, "shortcut"))
            shortcuts.add(*shortcut, action.name);
    }

    // A menu, or the menu bar, with all its sub-menus.
    void checkMenu(const MenuDocument::Menu &menu, const char *className)
    {
        checkObjectName(*menu.xml);
        expect(*menu.xml, "class", className);
        checkProperties(*menu.xml, QLatin1String(className));
        if (&menu != &menus.bar)
            checkLabel(*menu.xml, "title");
        for (const MenuDocument::Menu &subMenu : menu.subMenus)
            checkMenu(subMenu, "QMenu");
    }

    void checkItems(const MenuDocument::Menu &menu)
    {
        for (const MenuDocument::Menu &subMenu : menu.subMenus)
            checkItems(subMenu);
        QSet<QString> placed;
        QMap<QString, QString> mnemonics; // to the item that has it
        bool hasUnknown = false;
        for (const MenuDocument::Item &item : menu.items) {
            if (item.isSeparator() || !item.xml->has("name"))
                continue;
            const int place = item.xml->offsetOf("name");
            const MenuDocument::Menu *subMenu = menu.subMenu(item.name);
            const MenuDocument::Action *action = menus.action(item.name);
            // QUiLoader takes a group for all that is in it.
            if (!subMenu && (!action || action->xml->name != QLatin1String("action"))) {
                hasUnknown = true;
                const QString slip = suggestion(item.name, namesFor(menu));
                if (!hasBadName || !slip.isEmpty()) // or it names what is without its name
                    findings.error(place,
                                   "%1 names nothing; expected an action, a sub-menu of \"%2\" or "
                                   "separator%3",
                                   quoted(item.name), menu.name, slip);
                continue;
            }
            if (placed.contains(item.name))
                findings.error(
                    place,
                    "\"%1\" stands twice in \"%2\", and only the last is shown; expected once",
                    item.name, menu.name);
            placed.insert(item.name);
            const QString text = subMenu ? subMenu->title : propertyText(*action->xml, "text");
            const QString mnemonic = mnemonicOf(text);
            if (!mnemonic.isEmpty() && mnemonics.contains(mnemonic)
                && mnemonics.value(mnemonic) != item.name)
                findings.warning(place, "\"%1\" and \"%2\" share the mnemonic %3",
                                 mnemonics.value(mnemonic), item.name, mnemonic);
            else if (!mnemonic.isEmpty())
                mnemonics.insert(mnemonic, item.name);
        }
        for (const MenuDocument::Menu &subMenu : menu.subMenus)
            if (!placed.contains(subMenu.name) && !hasUnknown) // which is likely to be this one
                findings.error(subMenu.xml->offset,
                               "menu %1 is placed nowhere; expected an <addaction> in \"%2\"",
                               quoted(subMenu.name), menu.name);
    }

    QStringList namesFor(const MenuDocument::Menu &menu) const
    {
        QStringList names {QStringLiteral("separator")};
        for (const MenuDocument::Menu &subMenu : menu.subMenus)
            names += subMenu.name;
        for (const MenuDocument::Action &action : menus.actions)
            names += action.name;
        return names;
    }

    const Document &document;
    const MenuDocument menus;
    Findings &findings;
    Shortcuts shortcuts;
    QSet<QString> objectNames;
    bool hasBadName = false;
};

} // namespace

bool checkName(const XmlElement &element, const char *attribute, Findings &findings)
{
    const XmlAttribute *name = element.find(attribute);
    const bool isName = !name || (!name->value.isEmpty() && name->value == name->value.trimmed());
    if (!isName)
        findings.error(name->offset,
                       "\"%1\" is %2; expected a name without white space at its ends", name->name,
                       quoted(name->value));
    return isName;
}

void checkMenus(const Document &document, Findings &findings)
{
    MenuChecker(document, findings).check();
}
