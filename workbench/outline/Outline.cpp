#include "outline/Outline.h"

#include "document/EntryDocument.h"
#include "document/MenuDocument.h"
#include "document/ToolDocument.h"

#include <QMap>
#include <QSet>

#include <algorithm>

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
        .replace(QLatin1Char('"'), QLatin1String("\\\""))
        .replace(QLatin1Char('\n'), QLatin1String("\\n"))
        .replace(QLatin1Char('\t'), QLatin1String("\\t"));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString aligned(Rows rows)
{
    QVector<int> widths;
    for (Row &row : rows) {
        row.cells.first().prepend(QString(2 * row.depth + 2, QLatin1Char(' ')));
        while (row.cells.constLast().isEmpty())
            row.cells.removeLast();
        widths.resize(std::max(widths.size(), row.cells.size()));
        for (int i = 0; i + 1 < row.cells.size(); ++i) // nothing stands behind the last
            widths[i] = std::max(widths.at(i), row.cells.at(i).size());
    }
    QString text;
    for (const Row &row : qAsConst(rows)) {
        for (int i = 0; i + 1 < row.cells.size(); ++i)
            text += row.cells.at(i).leftJustified(widths.at(i)) + QLatin1String("  ");
        text += row.cells.constLast() + QLatin1Char('\n');
    }
    return text;
}

Rows rowsOf(const EntryDocument &document)
{
    Rows rows;
    for (const EntryDocument::Entry &entry : document.entries)
        rows.append({0, {entry.name, inQuotes(entry.value)}});
    return rows;
}

// An attribute as the document spells it; empty where it is absent.
QString said(const XmlElement *element, const char *attribute)
{
    return element->has(attribute)
               ? QLatin1String(attribute) + QLatin1Char(' ') + element->value(attribute)
               : QString();
}

Rows rowsOf(const ToolDocument::Box &box)
{
    Rows rows;
    if (box.isToolBar)
        rows.append({0,
                     {QStringLiteral("toolbar ") + box.id, inQuotes(box.title),
                      said(box.xml, "mode"), said(box.xml, "break")}});
    else
        rows = {{0,
                 {QStringLiteral("toolbox"), said(box.xml, "columns"), said(box.xml, "mode"),
                  said(box.xml, "margin"), said(box.xml, "spacing")}},
                {1, {said(box.xml, "button-style")}}};
    for (const ToolDocument::Item &item : box.items)
        rows.append(
            {1,
             {item.isSeparator ? QStringLiteral("separator") : QStringLiteral("tool ") + item.id,
              item.isSeparator ? said(item.xml, "type") : item.module, said(item.xml, "mode"),
              said(item.xml, "group")}});
    return rows;
}

Rows rowsOf(const ToolDocument::Keypad &pad)
{
    Rows rows {{0, {QStringLiteral("keypad"), said(pad.xml, "margin"), said(pad.xml, "spacing")}},
               {1, {said(pad.xml, "button-style")}}};
    for (const ToolDocument::Key &key : pad.keys)
        rows.append(
            {1,
             {QStringLiteral("key ") + key.id, key.module, said(key.xml, "row"),
              said(key.xml, "column"), said(key.xml, "rowSpan"), said(key.xml, "columnSpan")}});
    return rows;
}

Rows rowsOf(const ToolDocument &document)
{
    QMap<int, Rows> parts; // by their places
    for (const ToolDocument::Module &module : document.modules)
        parts[module.xml->offset] = {{0, {QStringLiteral("module ") + module.id, module.path}}};
    for (const ToolDocument::Box &box : document.toolBoxes + document.toolBars)
        parts[box.xml->offset] = rowsOf(box);
    for (const ToolDocument::Keypad &pad : document.keypads)
        parts[pad.xml->offset] = rowsOf(pad);
    Rows rows;
    for (const Rows &part : qAsConst(parts))
        rows += part;
    return rows;
}

// The cells of an action or a menu: name, text, shortcut, and whatever else is set.
QStringList cellsOf(const XmlElement &object, const QString &name, const char *label)
{
    QStringList rest;
    for (const XmlElement &property : object.children) {
        const QString what = property.value("name");
        if (property.name != QLatin1String("property") || what == QLatin1String(label)
            || what == QLatin1String("shortcut"))
            continue;
        const XmlElement &value = property.children.front();
        if (value.name == QLatin1String("iconset"))
            rest += what + QLatin1Char(' ') + inQuotes(value.childText("normaloff"));
        else if (value.text == QLatin1String("true"))
            rest += what;
        else
            rest += what + QLatin1Char(' ') + value.text;
    }
    return {name, inQuotes(propertyText(object, label)), propertyText(object, "shortcut"),
            rest.join(QLatin1String(", "))};
}

void addMenu(const MenuDocument &document, const MenuDocument::Menu &menu, int depth, Rows &rows,
             QSet<QString> &placed)
{
    for (const MenuDocument::Item &item : menu.items) {
        if (item.isSeparator()) {
            rows.append({depth, {QStringLiteral("--------")}});
        } else if (const MenuDocument::Menu *subMenu = menu.subMenu(item.name)) {
            rows.append({depth, cellsOf(*subMenu->xml, item.name, "title")});
            addMenu(document, *subMenu, depth + 1, rows, placed);
        } else {
            rows.append({depth, cellsOf(*document.action(item.name)->xml, item.name, "text")});
            placed.insert(item.name);
        }
    }
}

} // namespace

QString outlineOf(const std::vector<Document> &documents)
{
    QString text;
    for (const Document &document : documents) {
        if (document.kind == DocumentKind::Entries) {
            text +=
                QLatin1String("Entries\n\n") + aligned(rowsOf(EntryDocument::read(document.xml)));
        } else if (document.kind == DocumentKind::Tools) {
            text +=
                QLatin1String("\nTools\n\n") + aligned(rowsOf(ToolDocument::read(document.xml)));
        } else {
            const MenuDocument menus = MenuDocument::read(document.xml);
            Rows rows;
            QSet<QString> placed;
            addMenu(menus, menus.bar, 0, rows, placed);
            text += QLatin1String("\nMenus\n\n") + aligned(rows);
            rows.clear();
            for (const MenuDocument::Action &action : menus.actions)
                if (!placed.contains(action.name))
                    rows.append({0, cellsOf(*action.xml, action.name, "text")});
            text += QLatin1String("\nActions in no menu\n\n") + aligned(rows);
        }
    }
    return text;
}
