#include "check/Rules.h"

#include <QAction>
#include <QActionGroup>
#include <QMenuBar>
#include <QMetaProperty>

#include <iterator>

namespace Quenda::Workbench {

namespace {

// What has properties, and those of the format; Qt knows all that there are.
struct Owner
{
    const char *name;
    const QMetaObject *meta;
    const char *properties;
};

const Owner menuBarOwner {"QMenuBar", &QMenuBar::staticMetaObject, "geometry"};
const Owner menuOwner {"QMenu", &QMenu::staticMetaObject, "title"};
const Owner actionOwner {"action", &QAction::staticMetaObject,
                         "text shortcut checkable checked icon iconVisibleInMenu autoRepeat"};
const Owner groupOwner {"actiongroup", &QActionGroup::staticMetaObject, ""};

// The value element that QUiLoader needs for a property; empty where it is none that the bench can
// judge.
QString valueElement(const QMetaProperty &property)
{
    if (!property.isWritable() || property.isFlagType())
        return {};
    if (property.isEnumType())
        return QStringLiteral("enum");
    switch (property.userType()) {
    case QMetaType::QString:
    case QMetaType::QKeySequence:
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
        : menus(MenuDocument::read(checked.xml)), findings(collected)
    {
    }

    void check()
    {
        if (!menus.bar.xml)
            return; // reported with the shape
        objectNames.insert(menus.bar.name);
        checkProperties(*menus.bar.xml, menuBarOwner);
        for (const MenuDocument::Menu &menu : menus.bar.subMenus)
            checkMenu(menu);
        for (const MenuDocument::Object &action : menus.actions)
            checkAction(action);
        checkItems(menus.bar);
        checkShortcuts(menus, findings);
    }

private:
    void checkObjectName(const MenuDocument::Object &object)
    {
        const int place = object.xml->offsetOf("name");
        if (object.isSeparator())
            findings.error(place, "\"separator\" is the name of separators; expected another");
        else if (objectNames.contains(object.name) && !findings.isWrong(place))
            findings.error(place, "object name \"%1\" stands twice; expected once", object.name);
        hasBadName = hasBadName || object.name.isEmpty() || findings.isWrong(place);
        objectNames.insert(object.name);
    }

    void checkProperties(const XmlElement &object, const Owner &owner)
    {
        QSet<QString> seen;
        for (const XmlElement &property : object.children) {
            if (!property.is("property") || !property.has("name"))
                continue;
            const QString name = property.value("name");
            if (seen.contains(name))
                findings.error(property.offset, "property \"%1\" stands twice; expected once",
                               name);
            seen.insert(name);
            if (property.children.size() > 1 && !findings.isWrong(property.children.at(1).offset))
                findings.error(property.children.at(1).offset,
                               "a second value in property \"%1\"; expected one", name);
            checkProperty(property, name, owner);
        }
    }

    void checkProperty(const XmlElement &property, const QString &name, const Owner &owner)
    {
        const QStringList names =
            QString::fromLatin1(owner.properties).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const int index = owner.meta->indexOfProperty(name.toUtf8().constData());
        const QMetaProperty meta = owner.meta->property(index);
        // The first, the object name, would rename what others refer to.
        const QString expected = index < 1 ? QString() : valueElement(meta);
        if (expected.isEmpty())
            return findings.error(property.offsetOf("name"),
                                  index < 1 ? "unknown property \"%1\" of %2; expected: %3%4"
                                            : "property \"%1\" of %2 is beyond the format; "
                                              "expected: %3%4",
                                  name, owner.name, listed(names),
                                  suggestion(meantName(name, names)));
        if (!names.contains(name))
            findings.beyondFormat(property.offset, compose("property \"%1\"", name));
        if (findings.isWrong(property.offsetOfText()))
            return;
        if (property.children.empty())
            return findings.error(property.offset, "property \"%1\" holds nothing; expected <%2>",
                                  name, expected);
        const XmlElement &value = property.children.front();
        if (value.name != expected && !findings.isWrong(value.offset))
            findings.error(value.offset, "property \"%1\" holds <%2>; expected <%3>", name,
                           value.name, expected);
        else if (meta.isEnumType())
            checkEnum(value, meta);
        else if (name == QLatin1String("styleSheet"))
            checkStyleSheet(value.text, value.offsetOfText(), findings);
        else if (value.is("iconset") && !value.has("theme"))
            checkIcon(value);
    }

    void checkEnum(const XmlElement &value, const QMetaProperty &property)
    {
        bool ok = false;
        property.enumerator().keyToValue(value.text.toUtf8().constData(), &ok);
        if (!ok)
            findings.error(value.offsetOfText(),
                           "property \"%1\" is \"%2\"; expected one of its values in Qt",
                           property.name(), value.text);
    }

    void checkIcon(const XmlElement &value)
    {
        const XmlElement *file = value.child("normaloff");
        if (!file)
            findings.error(value.offset, "an icon without <normaloff>; expected one");
        else if (!file->text.startsWith(QLatin1String(":/")) || file->text != file->text.trimmed())
            findings.error(file->offsetOfText(),
                           "icon path \"%1\" is no resource; expected one such as "
                           ":/images/actions/notch_v.png",
                           file->text);
        else if (value.text.trimmed() != file->text)
            findings.error(value.offsetOfText(),
                           "the icon's path is \"%1\" behind <normaloff> and \"%2\" in it; "
                           "expected the same twice",
                           value.text.trimmed(), file->text);
    }

    // Whether what is missed may be there, but is wrong.
    bool hasWrongPart(const XmlElement &object) const
    {
        return std::any_of(
            object.children.begin(), object.children.end(), [this](const XmlElement &part) {
                return findings.isWrong(part.offset) || findings.isWrong(part.offsetOf("name"))
                       || findings.isWrong(part.offsetOfText());
            });
    }

    // What users read: an action's text or a menu's title.
    void checkLabel(const MenuDocument::Object &object, const char *property)
    {
        const XmlElement *value = propertyOf(*object.xml, property);
        const QString text = propertyText(*object.xml, property);
        if (text.isEmpty() && hasWrongPart(*object.xml))
            return;
        if (text.isEmpty())
            return findings.error(value ? value->offset : object.xml->offset,
                                  "\"%1\" has no %2; expected a \"%2\"", object.name, property);
        const int place = value->offsetOfText();
        if (text != text.trimmed())
            findings.warning(place, "white space around \"%1\"; expected none", text);
        QString marks = text;
        marks.remove(QLatin1String("&&"));
        const int mnemonics = marks.count(QLatin1Char('&'));
        for (int i = marks.indexOf(QLatin1Char('&')); i >= 0;
             i = marks.indexOf(QLatin1Char('&'), i + 1))
            if (i + 1 == marks.size() || marks.at(i + 1).isSpace())
                return findings.error(
                    place,
                    "a lone \"&\" in \"%1\" is not shown; expected \"&&\", written \"&amp;&amp;\"",
                    text);
        if (mnemonics > 1)
            findings.error(place, "%1 mnemonics in \"%2\"; expected one \"&\" at the most",
                           mnemonics, text);
    }

    void checkAction(const MenuDocument::Object &action)
    {
        const XmlElement &xml = *action.xml;
        const bool isAction = xml.is("action");
        if (findings.isWrong(xml.offset)) // in another place than it can be
            return;
        checkObjectName(action);
        checkProperties(xml, isAction ? actionOwner : groupOwner);
        if (!isAction)
            return;
        checkLabel(action, "text");
        const XmlElement *checkable = propertyOf(xml, "checkable");
        const XmlElement *checked = propertyOf(xml, "checked");
        if (propertyText(xml, "checked") == QLatin1String("true")
            && (propertyText(xml, "checkable") != QLatin1String("true")
                || checkable->offset > checked->offset))
            findings.error(checked->offset,
                           "\"%1\" is checked before it is checkable; expected \"checkable\" first",
                           action.name);
        const XmlElement *iconVisible = propertyOf(xml, "iconVisibleInMenu");
        if (iconVisible && !propertyOf(xml, "icon"))
            findings.warning(iconVisible->offset,
                             "\"%1\" has no icon to show; expected an \"icon\"", action.name);
    }

    void checkMenu(const MenuDocument::Menu &menu)
    {
        checkObjectName(menu);
        checkProperties(*menu.xml, menuOwner);
        checkLabel(menu, "title");
        for (const MenuDocument::Menu &subMenu : menu.subMenus)
            checkMenu(subMenu);
    }

    void checkItems(const MenuDocument::Menu &menu)
    {
        QSet<QString> placed;
        QMap<QString, QString> mnemonics; // to the item that has it
        bool hasUnknown = false;
        for (const MenuDocument::Object &item : menu.items) {
            if (item.isSeparator() || !item.xml->has("name"))
                continue;
            const int place = item.xml->offsetOf("name");
            const MenuDocument::Menu *subMenu = menu.subMenu(item.name);
            const XmlElement *action = menus.action(item.name);
            if (!subMenu && !action) {
                hasUnknown = true;
                if (!hasBadName
                    && !unknown.contains(item.name)) // or it names what is without its name
                    reportUnknown(item, menu);
                unknown.insert(item.name);
                continue;
            }
            if (placed.contains(item.name))
                findings.error(
                    place,
                    "\"%1\" stands twice in \"%2\", and only the last is shown; expected once",
                    item.name, menu.name);
            placed.insert(item.name);
            const QString mnemonic = mnemonicOf(subMenu ? propertyText(*subMenu->xml, "title")
                                                        : propertyText(*action, "text"));
            const QString holder = mnemonics.value(mnemonic, item.name);
            if (mnemonic.isEmpty() || holder == item.name)
                mnemonics.insert(mnemonic, item.name);
            else
                findings.warning(place, "\"%1\" and \"%2\" share the mnemonic %3", holder,
                                 item.name, mnemonic);
        }
        for (const MenuDocument::Menu &subMenu : menu.subMenus) {
            checkItems(subMenu);
            if (!placed.contains(subMenu.name) && !hasUnknown) // which is likely to be this one
                findings.error(subMenu.xml->offset,
                               "menu \"%1\" is placed nowhere; expected an <addaction> in \"%2\"",
                               subMenu.name, menu.name);
        }
    }

    void reportUnknown(const MenuDocument::Object &item, const MenuDocument::Menu &menu)
    {
        QStringList names {QStringLiteral("separator")};
        for (const MenuDocument::Menu &subMenu : menu.subMenus)
            names += subMenu.name;
        for (const MenuDocument::Object &action : menus.actions)
            names += action.name;
        findings.error(
            item.xml->offsetOf("name"),
            "\"%1\" names nothing; expected an action, a sub-menu of \"%2\" or separator%3",
            item.name, menu.name, suggestion(meantName(item.name, names)));
    }

    const MenuDocument menus;
    Findings &findings;
    QSet<QString> objectNames;
    QSet<QString> unknown; // names of items that name nothing
    bool hasBadName = false;
};

} // namespace

void checkMenus(const Document &document, Findings &findings)
{
    MenuChecker(document, findings).check();
}

} // namespace Quenda::Workbench
