#include "outline/Outline.h"

#include "document/EntryDocument.h"
#include "document/MenuDocument.h"
#include "document/Text.h"

#include <QHash>
#include <QSet>

namespace Quenda::Workbench {

namespace {

// A line: how deep it is in the tree, and its cells, which stand below those of other lines.
struct Row
{
    int depth;
    QStringList cells;
};

using Rows = QVector<Row>;

QString inQuotes(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"))
        .replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString aligned(const char *heading, Rows rows)
{
    QVector<int> widths;
    for (Row &row : rows) {
        std::transform(row.cells.begin(), row.cells.end(), row.cells.begin(), escaped);
        row.cells.first().prepend(QString(2 * row.depth + 2, QLatin1Char(' ')));
        while (row.cells.constLast().isEmpty())
            row.cells.removeLast();
        widths.resize(std::max(widths.size(), row.cells.size()));
        for (int i = 0; i + 1 < row.cells.size(); ++i) // nothing stands behind the last
            widths[i] = std::max(widths.at(i), row.cells.at(i).size());
    }
    QString text = QLatin1String(heading) + QLatin1String("\n\n");
    for (const Row &row : qAsConst(rows)) {
        for (int i = 0; i + 1 < row.cells.size(); ++i)
            text += row.cells.at(i).leftJustified(widths.at(i)) + QLatin1String("  ");
        text += row.cells.constLast() + QLatin1Char('\n');
    }
    return text;
}

QString outlineOf(const EntryDocument &document)
{
    Rows rows;
    for (const EntryDocument::Entry &entry : document.entries)
        rows.append({0, {entry.name, inQuotes(entry.value)}});
    return aligned("Entries", rows);
}

// What follows the name of an element of a tool document.
const char *attributesOf(const XmlElement &element)
{
    static const QHash<QString, const char *> attributes {
        {QStringLiteral("module"), "path"},
        {QStringLiteral("toolbox"), "columns mode margin spacing"},
        {QStringLiteral("keypad"), "margin spacing"},
        {QStringLiteral("toolbar"), "title mode break"},
        {QStringLiteral("tool"), "xlink:href mode group"},
        {QStringLiteral("key"), "xlink:href row column rowSpan columnSpan"},
        {QStringLiteral("separator"), "type mode"},
    };
    return attributes.value(element.name);
}

// Attributes as the document spells them.
QStringList cellsOf(const XmlElement &element, const char *attributes)
{
    QStringList cells {(element.name + QLatin1Char(' ') + element.value("id")).trimmed()};
    const auto names = QString::fromLatin1(attributes).split(QLatin1Char(' '));
    for (const QString &name : names) {
        const XmlAttribute *attribute = findNamed(element.attributes, name);
        if (!attribute)
            cells += QString();
        else if (name == QLatin1String("title"))
            cells += inQuotes(attribute->value);
        else if (name == QLatin1String("path") || name == QLatin1String("xlink:href"))
            cells += attribute->value.mid(name.contains(QLatin1Char(':')) ? 1 : 0);
        else
            cells += name + QLatin1Char(' ') + attribute->value;
    }
    return cells;
}

Rows toolRows(const XmlElement &parent, int depth)
{
    Rows rows;
    for (const XmlElement &element : parent.children) {
        rows.append({depth, cellsOf(element, attributesOf(element))});
        if (element.has("button-style"))
            rows.append({1, {QLatin1String("button-style ") + element.value("button-style")}});
        rows += toolRows(element, depth + 1);
    }
    return rows;
}

// The cells of an action or a menu: name, text, shortcut, and whatever else is set.
QStringList menuCells(const XmlElement &object, const char *label)
{
    QStringList rest;
    for (const XmlElement &property : object.children) {
        const QString what = property.value("name");
        if (!property.is("property") || what == QLatin1String(label)
            || what == QLatin1String("shortcut"))
            continue;
        const XmlElement &value = property.children.front();
        const XmlElement *path = value.child("normaloff");
        if (value.is("iconset"))
            rest += what + QLatin1Char(' ') + inQuotes(path ? path->text : QString());
        else if (value.text == QLatin1String("true"))
            rest += what;
        else
            rest += what + QLatin1Char(' ') + value.text;
    }
    return {object.value("name"), inQuotes(propertyText(object, label)),
            propertyText(object, "shortcut"), rest.join(QLatin1String(", "))};
}

Rows rowsOf(const MenuDocument &document, const MenuDocument::Menu &menu, int depth,
            QSet<QString> &placed)
{
    Rows rows;
    for (const MenuDocument::Object &item : menu.items) {
        placed.insert(item.name);
        if (item.isSeparator()) {
            rows.append({depth, {QStringLiteral("--------")}});
        } else if (const MenuDocument::Menu *subMenu = menu.subMenu(item.name)) {
            rows.append({depth, menuCells(*subMenu->xml, "title")});
            rows += rowsOf(document, *subMenu, depth + 1, placed);
        } else {
            rows.append({depth, menuCells(*document.action(item.name), "text")});
        }
    }
    return rows;
}

QString outlineOf(const MenuDocument &document)
{
    QSet<QString> placed;
    const QString menus = aligned("\nMenus", rowsOf(document, document.bar, 0, placed));
    Rows rows;
    for (const MenuDocument::Object &action : document.actions)
        if (!placed.contains(action.name))
            rows.append({0, menuCells(*action.xml, "text")});
    return menus + aligned("\nActions in no menu", rows);
}

} // namespace

QString outlineOf(const Documents &documents)
{
    QString text;
    for (const Document &document : documents) {
        if (document.kind == DocumentKind::Entries)
            text += outlineOf(EntryDocument::read(document.xml));
        else if (document.kind == DocumentKind::Tools)
            text += aligned("\nTools", toolRows(document.xml.root, 0));
        else
            text += outlineOf(MenuDocument::read(document.xml));
    }
    return text;
}

} // namespace Quenda::Workbench
