#include "DocumentChecker.h"

#include "Entries.h"
#include "ToolDocument.h"

#include <Help/EntryNames.h>

#include <QDomDocument>
#include <QFileInfo>
#include <QKeySequence>
#include <QRect>
#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

namespace EntryNames = Quenda::Help::EntryNames;

namespace {

// Deeper than any real document; QDomDocument recurses and would overflow the stack.
constexpr int maximumDepth = 100;

// The cells of a keypad.
constexpr QRect keypadGrid(0, 0, 4, 5);

// An element that may stand in a parent, and the attributes that it must and may have.
struct ElementRule
{
    const char *parent;
    const char *name;
    const char *required;
    const char *optional;
};

constexpr ElementRule entryRules[] {
    {"", "quendaconfig", "xmlns:xlink version", ""},
    {"quendaconfig", "entry", "name", ""},
};

constexpr ElementRule toolRules[] {
    {"", "quendaconfig", "xmlns:xlink", ""},
    {"quendaconfig", "module", "id path", ""},
    {"quendaconfig", "toolbox", "columns margin spacing button-style", "mode"},
    {"quendaconfig", "keypad", "margin spacing button-style", ""},
    {"quendaconfig", "toolbar", "id title", "mode break"},
    {"toolbox", "tool", "id xlink:href", "group mode"},
    {"toolbox", "separator", "type", "mode"},
    {"toolbar", "tool", "id xlink:href", "group mode"},
    {"toolbar", "separator", "", "mode"},
    {"keypad", "key", "id row column rowSpan columnSpan xlink:href", ""},
};

constexpr ElementRule menuRules[] {
    {"", "ui", "version", ""},
    {"ui", "class", "", ""},
    {"ui", "widget", "class name", ""},
    {"ui", "resources", "", ""},
    {"ui", "connections", "", ""},
    {"widget", "property", "name", ""},
    {"widget", "widget", "class name", ""},
    {"widget", "action", "name", ""},
    {"widget", "addaction", "name", ""},
    {"action", "property", "name", ""},
    {"property", "rect", "", ""},
    {"property", "string", "", ""},
    {"property", "bool", "", ""},
    {"property", "iconset", "", ""},
    {"rect", "x", "", ""},
    {"rect", "y", "", ""},
    {"rect", "width", "", ""},
    {"rect", "height", "", ""},
    {"iconset", "normaloff", "", ""},
};

// The elements whose text means something.
constexpr const char *textElements = "entry class string bool x y width height iconset normaloff";

// The properties of the menu document, and the value element of each.
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

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString listed(const QStringList &names)
{
    return names.isEmpty() ? QStringLiteral("none") : names.join(QLatin1String(", "));
}

std::vector<QDomElement> children(const QDomElement &parent, const QString &tag = QString())
{
    std::vector<QDomElement> result;
    for (auto child = parent.firstChildElement(tag); !child.isNull();
         child = child.nextSiblingElement(tag))
        result.push_back(child);
    return result;
}

QString attribute(const QDomElement &element, const char *name)
{
    return element.attribute(QLatin1String(name));
}

class Checker
{
public:
    QVector<Finding> findings;

protected:
    void fault(const QDomNode &node, const QString &text)
    {
        findings.append({Finding::Fault, node.lineNumber(), text});
    }

    void remark(const QDomNode &node, const QString &text)
    {
        findings.append({Finding::Remark, node.lineNumber(), text});
    }

    // That the element and all below it are known, have their attributes and hold no stray text.
    template <std::size_t Count>
    void checkShape(const QDomElement &element, const ElementRule (&rules)[Count])
    {
        const QString parent = element.parentNode().toElement().tagName();
        const QString tag = element.tagName();
        QStringList expected;
        for (const ElementRule &rule : rules) {
            if (parent != QLatin1String(rule.parent))
                continue;
            if (tag == QLatin1String(rule.name)) {
                checkAttributes(element, words(rule.required), words(rule.optional));
                checkText(element);
                for (const QDomElement &child : children(element))
                    checkShape(child, rules);
                return;
            }
            expected += QLatin1Char('<') + QLatin1String(rule.name) + QLatin1Char('>');
        }
        fault(element,
              QStringLiteral("unknown element <%1>; expected: %2").arg(tag, listed(expected)));
    }

    // One rule for all that has to differ within a document: reports the second of two.
    void checkUnique(QSet<QString> &seen, const QDomElement &element, const QString &what,
                     const QString &name)
    {
        if (seen.contains(name))
            fault(element, QStringLiteral("%1 \"%2\" stands twice; expected once").arg(what, name));
        seen.insert(name);
    }

    void expectAttribute(const QDomElement &element, const char *name, const char *value)
    {
        const QString found = attribute(element, name);
        if (element.hasAttribute(QLatin1String(name)) && found != QLatin1String(value))
            fault(element, QStringLiteral("\"%1\" is \"%2\"; expected \"%3\"")
                               .arg(QLatin1String(name), found, QLatin1String(value)));
    }

private:
    void checkAttributes(const QDomElement &element, const QStringList &required,
                         const QStringList &optional)
    {
        const QDomNamedNodeMap attributes = element.attributes();
        for (int i = 0; i < attributes.size(); ++i) {
            const QString name = attributes.item(i).nodeName();
            if (!required.contains(name) && !optional.contains(name))
                fault(element, QStringLiteral("unknown attribute \"%1\" of <%2>; expected: %3")
                                   .arg(name, element.tagName(), listed(required + optional)));
        }
        for (const QString &name : required)
            if (!element.hasAttribute(name))
                fault(element, QStringLiteral("<%1> has no \"%2\"; expected: %3")
                                   .arg(element.tagName(), name, listed(required)));
    }

    void checkText(const QDomElement &element)
    {
        if (words(textElements).contains(element.tagName()))
            return;
        for (QDomNode node = element.firstChild(); !node.isNull(); node = node.nextSibling())
            if (node.isText())
                fault(node, QStringLiteral("text \"%1\" in <%2>; expected elements only")
                                .arg(node.nodeValue().simplified(), element.tagName()));
    }
};

class EntryChecker : public Checker
{
public:
    void check(const QDomElement &root)
    {
        checkShape(root, entryRules);
        expectAttribute(root, "xmlns:xlink", "http://www.w3.org/1999/xlink");
        expectAttribute(root, "version", "1.0");
        QSet<QString> seen;
        for (const QDomElement &entry : children(root, QStringLiteral("entry"))) {
            const QString name = attribute(entry, "name");
            if (name.isEmpty()) {
                if (entry.hasAttribute(QStringLiteral("name")))
                    fault(entry, QStringLiteral("the entry's name is empty; expected a name"));
                continue;
            }
            checkUnique(seen, entry, QStringLiteral("entry"), name);
            checkValue(entry, name);
        }
    }

private:
    void checkValue(const QDomElement &entry, const QString &name)
    {
        const auto known = std::find_if(knownEntries().begin(), knownEntries().end(),
                                        [&name](const KnownEntry &k) { return k.name == name; });
        if (name == EntryNames::menuDocument() || name == EntryNames::toolDocument())
            remark(entry, QStringLiteral("entry \"%1\" takes the place of a document").arg(name));
        else if (name == EntryNames::fileKey())
            remark(entry,
                   QStringLiteral("entry \"%1\" has no effect; the library sets it").arg(name));
        else if (known == knownEntries().end())
            remark(entry, QStringLiteral("entry \"%1\" is not one that the host reads").arg(name));
        else if (!converts(entry.text(), known->type))
            fault(entry, QStringLiteral("entry \"%1\" is \"%2\"; expected a %3")
                             .arg(name, entry.text(), entryTypeName(known->type)));
    }

    static bool converts(const QString &text, EntryType type)
    {
        bool ok = true;
        if (type == EntryType::Number)
            text.toDouble(&ok);
        else if (type == EntryType::Flag)
            ok = text == QLatin1String("true") || text == QLatin1String("false");
        return ok;
    }
};

class ToolChecker : public Checker
{
public:
    explicit ToolChecker(const QVector<HostState> &hostStates) : states(hostStates) { }

    void check(const QDomElement &root)
    {
        checkShape(root, toolRules);
        expectAttribute(root, "xmlns:xlink", "http://www.w3.org/1999/xlink");
        for (const QDomElement &module : children(root, QStringLiteral("module")))
            allModules.append(attribute(module, "id"));
        QSet<QString> barIds;
        for (const QDomElement &element : children(root)) {
            const QString tag = element.tagName();
            if (tag == QLatin1String("module")) {
                checkModule(element);
            } else if (tag == QLatin1String("toolbox")) {
                checkNumber(element, "columns", 1);
                checkBox(element);
            } else if (tag == QLatin1String("toolbar")) {
                checkUnique(barIds, element, QStringLiteral("tool bar"), attribute(element, "id"));
                expectAttribute(element, "break", "true");
                checkBox(element);
            } else if (tag == QLatin1String("keypad")) {
                checkKeypad(element);
            }
        }
    }

private:
    void checkModule(const QDomElement &module)
    {
        checkUnique(modules, module, QStringLiteral("module"), attribute(module, "id"));
        if (!attribute(module, "path").startsWith(QLatin1String("%LIBRARY%/")))
            fault(module,
                  QStringLiteral("\"path\" is \"%1\"; expected \"%LIBRARY%/\" and a library's name")
                      .arg(attribute(module, "path")));
    }

    void checkReference(const QDomElement &element)
    {
        if (!element.hasAttribute(QStringLiteral("xlink:href")))
            return; // a missing attribute has been reported already
        const QString reference = attribute(element, "xlink:href");
        const QString id = reference.mid(1);
        if (!reference.startsWith(QLatin1Char('#')) || !allModules.contains(id))
            fault(element,
                  QStringLiteral("\"xlink:href\" is \"%1\", which is no module; expected: #%2")
                      .arg(reference, allModules.join(QLatin1String(", #"))));
        else if (!modules.contains(id))
            fault(element,
                  QStringLiteral("module \"%1\" stands later; expected before its first use")
                      .arg(id));
    }

    void checkNumber(const QDomElement &element, const char *name, int least)
    {
        bool ok = false;
        const int value = attribute(element, name).toInt(&ok);
        if (element.hasAttribute(QLatin1String(name)) && (!ok || value < least))
            fault(element, QStringLiteral("\"%1\" is \"%2\"; expected a number of at least %3")
                               .arg(QLatin1String(name), attribute(element, name))
                               .arg(least));
    }

    // The element's mask within its box's.
    quint32 checkMode(const QDomElement &element, quint32 boxMode = everyState)
    {
        if (!element.hasAttribute(QStringLiteral("mode")))
            return boxMode;
        const QString text = attribute(element, "mode");
        const auto own = maskFromText(text);
        if (!own) {
            fault(element,
                  QStringLiteral("\"mode\" is \"%1\"; expected a number such as 17 or 0x11")
                      .arg(text));
            return boxMode;
        }
        const quint32 mode = *own & boxMode;
        const bool canBeMet =
            std::any_of(states.begin(), states.end(),
                        [mode](const HostState &state) { return isAvailable(mode, state.code); });
        if (!canBeMet)
            fault(
                element,
                QStringLiteral(
                    "no state meets \"mode\" \"%1\"%2; expected one of the host's states")
                    .arg(text, boxMode == everyState ? QString() : QStringLiteral(" in this box")));
        return mode;
    }

    void checkBox(const QDomElement &box)
    {
        const bool isToolBox = box.tagName() == QLatin1String("toolbox");
        const quint32 mode = checkMode(box);
        if (isToolBox) {
            checkNumber(box, "margin", 0);
            checkNumber(box, "spacing", 0);
        }
        QSet<QString> ids;
        QSet<QString> groups;
        QString previousGroup;
        for (const QDomElement &item : children(box)) {
            checkMode(item, mode);
            const QString group = attribute(item, "group");
            if (item.tagName() == QLatin1String("tool")) {
                checkUnique(ids, item, QStringLiteral("tool"), attribute(item, "id"));
                checkReference(item);
                if (!group.isEmpty() && group != previousGroup && groups.contains(group))
                    fault(item,
                          QStringLiteral("tool \"%1\" stands apart from its group \"%2\"; expected "
                                         "next to the others")
                              .arg(attribute(item, "id"), group));
                groups.insert(group);
            } else if (isToolBox) {
                expectAttribute(item, "type", "hline");
            }
            previousGroup = group;
        }
    }

    void checkKeypad(const QDomElement &keypad)
    {
        checkNumber(keypad, "margin", 0);
        checkNumber(keypad, "spacing", 0);
        QSet<QString> ids;
        QVector<std::pair<QString, QRect>> placed;
        for (const QDomElement &key : children(keypad, QStringLiteral("key"))) {
            const QString id = attribute(key, "id");
            checkUnique(ids, key, QStringLiteral("key"), id);
            checkReference(key);
            for (const char *name : {"row", "column"})
                checkNumber(key, name, 0);
            for (const char *name : {"rowSpan", "columnSpan"})
                checkNumber(key, name, 1);

            const QRect cells(attribute(key, "column").toInt(), attribute(key, "row").toInt(),
                              attribute(key, "columnSpan").toInt(),
                              attribute(key, "rowSpan").toInt());
            if (!cells.isValid() || cells.x() < 0 || cells.y() < 0)
                continue; // reported as numbers
            if (!keypadGrid.contains(cells))
                fault(key, QStringLiteral(
                               "key \"%1\" leaves the grid; expected within %2 rows and %3 columns")
                               .arg(id)
                               .arg(keypadGrid.height())
                               .arg(keypadGrid.width()));
            for (const auto &[other, otherCells] : placed)
                if (cells.intersects(otherCells))
                    fault(key, QStringLiteral(
                                   "key \"%1\" lies on top of key \"%2\"; expected free cells")
                                   .arg(id, other));
            placed.append({id, cells});
        }
    }

    const QVector<HostState> &states;
    QStringList allModules;
    QSet<QString> modules; // those that stand before the present element
};

class MenuChecker : public Checker
{
public:
    void check(const QDomElement &root)
    {
        checkShape(root, menuRules);
        expectAttribute(root, "version", "4.0");
        if (const QString name = root.firstChildElement(QStringLiteral("class")).text();
            name != QLatin1String("menubar"))
            fault(root, QStringLiteral("<class> is \"%1\"; expected \"menubar\"").arg(name));

        const std::vector<QDomElement> bars = children(root, QStringLiteral("widget"));
        if (bars.size() != 1) {
            fault(root, QStringLiteral("%1 menu bars; expected one <widget>").arg(bars.size()));
            return;
        }
        const QDomElement &bar = bars.front();
        expectAttribute(bar, "class", "QMenuBar");
        expectAttribute(bar, "name", "menubar");
        for (const QDomElement &action : children(bar, QStringLiteral("action")))
            checkAction(action);
        checkMenu(bar);
    }

private:
    // The values of the properties of an action or menu, by name.
    QMap<QString, QDomElement> checkProperties(const QDomElement &owner)
    {
        const QString ownerKind = owner.tagName() == QLatin1String("action")
                                      ? owner.tagName()
                                      : attribute(owner, "class");
        QMap<QString, QDomElement> values;
        for (const QDomElement &property : children(owner, QStringLiteral("property"))) {
            const QString name = attribute(property, "name");
            const QDomElement value = property.firstChildElement();
            const auto rule = std::find_if(std::begin(propertyRules), std::end(propertyRules),
                                           [&](const PropertyRule &candidate) {
                                               return ownerKind == QLatin1String(candidate.owner)
                                                      && name == QLatin1String(candidate.name);
                                           });
            if (rule == std::end(propertyRules))
                fault(property, QStringLiteral("unknown property \"%1\" of %2; expected: %3")
                                    .arg(name, ownerKind, listed(propertyNames(ownerKind))));
            else if (value.tagName() != QLatin1String(rule->value))
                fault(property, QStringLiteral("property \"%1\" holds <%2>; expected <%3>")
                                    .arg(name, value.tagName(), QLatin1String(rule->value)));
            else
                checkPropertyValue(name, value);
            if (values.contains(name))
                fault(property,
                      QStringLiteral("property \"%1\" stands twice; expected once").arg(name));
            values.insert(name, value);
        }
        return values;
    }

    static QStringList propertyNames(const QString &ownerKind)
    {
        QStringList names;
        for (const PropertyRule &rule : propertyRules)
            if (ownerKind == QLatin1String(rule.owner))
                names += QLatin1String(rule.name);
        return names;
    }

    void checkPropertyValue(const QString &name, const QDomElement &value)
    {
        const QString text = value.text();
        if (value.tagName() == QLatin1String("bool") && text != QLatin1String("true")
            && text != QLatin1String("false"))
            fault(value, QStringLiteral("property \"%1\" is \"%2\"; expected true or false")
                             .arg(name, text));
        if (value.tagName() == QLatin1String("iconset")) {
            const QString path = value.firstChildElement(QStringLiteral("normaloff")).text();
            if (path.isEmpty() || text != path + path)
                fault(value, QStringLiteral("the icon's path differs from the one in <normaloff>; "
                                            "expected the same twice"));
        }
    }

    void checkAction(const QDomElement &action)
    {
        const QString name = attribute(action, "name");
        checkUnique(objectNames, action, QStringLiteral("object name"), name);
        const auto values = checkProperties(action);
        const QString isTrue = QStringLiteral("true");
        const QString text = values.value(QStringLiteral("text")).text();
        if (text.isEmpty())
            fault(action,
                  QStringLiteral("action \"%1\" has no text; expected a \"text\"").arg(name));
        actionTexts.insert(name, text);
        if (values.value(QStringLiteral("checked")).text() == isTrue
            && values.value(QStringLiteral("checkable")).text() != isTrue)
            fault(action, QStringLiteral(
                              "action \"%1\" is checked but not checkable; expected \"checkable\"")
                              .arg(name));
        if (values.contains(QStringLiteral("shortcut")))
            checkShortcut(values.value(QStringLiteral("shortcut")), name);
    }

    void checkShortcut(const QDomElement &value, const QString &action)
    {
        const QString text = value.text();
        const auto keys = QKeySequence::fromString(text, QKeySequence::PortableText);
        bool known = !keys.isEmpty();
        for (int i = 0; i < keys.count(); ++i)
            known = known && keys[static_cast<uint>(i)] != Qt::Key_unknown;
        const QString portable = keys.toString(QKeySequence::PortableText);
        if (!known)
            fault(value,
                  QStringLiteral("\"%1\" is no shortcut; expected keys such as Ctrl+S").arg(text));
        else if (portable != text)
            fault(value, QStringLiteral("shortcut \"%1\"; expected \"%2\"").arg(text, portable));
        else if (shortcuts.contains(text))
            fault(value,
                  QStringLiteral("shortcut \"%1\" of \"%2\" is taken by \"%3\"; expected another")
                      .arg(text, action, shortcuts.value(text)));
        else
            shortcuts.insert(text, action);
    }

    // A menu, or the menu bar, with all its sub-menus.
    void checkMenu(const QDomElement &menu)
    {
        const QString name = attribute(menu, "name");
        checkUnique(objectNames, menu, QStringLiteral("object name"), name);
        checkProperties(menu);

        QMap<QString, QDomElement> subMenus;
        for (const QDomElement &subMenu : children(menu, QStringLiteral("widget"))) {
            expectAttribute(subMenu, "class", "QMenu");
            if (attribute(subMenu, "class") != QLatin1String("QMenu"))
                continue;
            subMenus.insert(attribute(subMenu, "name"), subMenu);
            if (titleOf(subMenu).isEmpty())
                fault(subMenu, QStringLiteral("menu \"%1\" has no title; expected a \"title\"")
                                   .arg(attribute(subMenu, "name")));
            checkMenu(subMenu);
        }

        QSet<QString> placed;
        QMap<QString, QString> mnemonics; // to the item that has it
        for (const QDomElement &item : children(menu, QStringLiteral("addaction"))) {
            const QString itemName = attribute(item, "name");
            if (itemName == QLatin1String("separator"))
                continue;
            if (!subMenus.contains(itemName) && !actionTexts.contains(itemName)) {
                fault(item,
                      QStringLiteral("\"%1\" names nothing; expected an action, a sub-menu of "
                                     "\"%2\" or separator")
                          .arg(itemName, name));
                continue;
            }
            placed.insert(itemName);
            const QString text = subMenus.contains(itemName) ? titleOf(subMenus.value(itemName))
                                                             : actionTexts.value(itemName);
            const QString mnemonic = QKeySequence::mnemonic(text).toString();
            if (mnemonic.isEmpty())
                continue;
            if (mnemonics.contains(mnemonic))
                remark(item, QStringLiteral("\"%1\" and \"%2\" share the mnemonic %3")
                                 .arg(mnemonics.value(mnemonic), itemName, mnemonic));
            else
                mnemonics.insert(mnemonic, itemName);
        }
        for (auto subMenu = subMenus.cbegin(); subMenu != subMenus.cend(); ++subMenu)
            if (!placed.contains(subMenu.key()))
                fault(*subMenu,
                      QStringLiteral("menu \"%1\" is placed nowhere; expected an <addaction> "
                                     "in \"%2\"")
                          .arg(subMenu.key(), name));
    }

    static QString titleOf(const QDomElement &menu)
    {
        for (const QDomElement &property : children(menu, QStringLiteral("property")))
            if (attribute(property, "name") == QLatin1String("title"))
                return property.firstChildElement().text();
        return {};
    }

    QSet<QString> objectNames;
    QMap<QString, QString> actionTexts;
    QMap<QString, QString> shortcuts; // to the action that has it
};

// What the DOM does not tell: whether it can be built at all, and what stands before the root.
std::optional<Finding> checkSyntax(DocumentKind kind, const QByteArray &content)
{
    const auto fault = [](qint64 line, const QString &text) {
        return Finding {Finding::Fault, static_cast<int>(line), text};
    };
    const int zero = content.indexOf('\0');
    if (zero >= 0)
        return fault(
            content.left(zero).count('\n') + 1,
            QStringLiteral("a zero byte, behind which a host reads nothing; expected text"));

    QXmlStreamReader reader(content);
    reader.setNamespaceProcessing(false);
    QString declaration;
    QString documentType;
    int depth = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartDocument:
            declaration = reader.documentVersion() + QLatin1Char(' ') + reader.documentEncoding();
            break;
        case QXmlStreamReader::DTD:
            documentType = reader.text().toString().trimmed();
            break;
        case QXmlStreamReader::StartElement:
            if (++depth > maximumDepth)
                return fault(reader.lineNumber(),
                             QStringLiteral("nested deeper than expected, which is %1 at the most")
                                 .arg(maximumDepth));
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        default:
            break;
        }
    }
    if (reader.hasError())
        return fault(reader.lineNumber(),
                     QStringLiteral("not well-formed: %1; expected XML 1.0 in UTF-8")
                         .arg(reader.errorString()));

    const QString expectedDeclaration =
        kind == DocumentKind::Tools ? QStringLiteral(" ") : QStringLiteral("1.0 UTF-8");
    if (declaration != expectedDeclaration)
        return fault(1, kind == DocumentKind::Tools
                            ? QStringLiteral("an XML declaration; expected none in a tool document")
                            : QStringLiteral("expected the XML declaration with version 1.0 and "
                                             "encoding UTF-8"));
    const QString expectedType =
        kind == DocumentKind::Entries ? QStringLiteral("<!DOCTYPE quendaconfig>") : QString();
    if (documentType != expectedType)
        return fault(1, QStringLiteral("document type \"%1\"; expected %2")
                            .arg(documentType,
                                 expectedType.isEmpty() ? QStringLiteral("none") : expectedType));
    if (kind == DocumentKind::Tools) {
        const auto isAscii = [](char c) { return static_cast<uchar>(c) < 0x80; };
        const auto other = std::find_if_not(content.begin(), content.end(), isAscii);
        if (other != content.end())
            return fault(std::count(content.begin(), other, '\n') + 1,
                         QStringLiteral("a character outside ASCII; expected plain ASCII"));
    }
    return std::nullopt;
}

} // namespace

DocumentKind documentKind(const QString &path, const QByteArray &content)
{
    const QString name = QFileInfo(path).fileName();
    if (name == QLatin1String("confs.xml"))
        return DocumentKind::Entries;
    if (name == QLatin1String("tools.xml"))
        return DocumentKind::Tools;
    if (name == QLatin1String("menus.xml"))
        return DocumentKind::Menus;

    // The first element that only one kind has; comments and texts do not mislead.
    QXmlStreamReader reader(content);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("ui"))
            return DocumentKind::Menus;
        if (reader.name() == QLatin1String("entry"))
            return DocumentKind::Entries;
    }
    return DocumentKind::Tools;
}

QVector<Finding> checkDocument(DocumentKind kind, const QByteArray &content,
                               const QVector<HostState> &states)
{
    if (const auto finding = checkSyntax(kind, content))
        return {*finding};

    // Qt's two parsers do not agree in everything, and hosts use this one.
    QDomDocument document;
    QString message;
    int line = 0;
    if (!document.setContent(QString::fromUtf8(content), &message, &line))
        return {{Finding::Fault, line,
                 QStringLiteral("not well-formed: %1; expected XML 1.0").arg(message)}};

    const QDomElement root = document.documentElement();
    const auto run = [&root](auto checker) {
        checker.check(root);
        std::stable_sort(checker.findings.begin(), checker.findings.end(),
                         [](const Finding &a, const Finding &b) { return a.line < b.line; });
        return checker.findings;
    };
    switch (kind) {
    case DocumentKind::Entries:
        return run(EntryChecker());
    case DocumentKind::Tools:
        return run(ToolChecker(states));
    case DocumentKind::Menus:
        return run(MenuChecker());
    }
    Q_UNREACHABLE();
}
