#include "ToolDocument.h"

#include <QDomDocument>
#include <QRegularExpression>

#include <stdexcept>

namespace {

// Carries the text for fromText(); never leaves this file.
struct DocumentError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

[[noreturn]] void fail(const QDomElement &element, const QString &what)
{
    throw DocumentError(QStringLiteral("line %1: <%2> %3")
                            .arg(element.lineNumber())
                            .arg(element.tagName(), what)
                            .toStdString());
}

int number(const QDomElement &element, const QString &attribute, int least)
{
    bool ok = false;
    const int value = element.attribute(attribute).toInt(&ok);
    if (!ok || value < least)
        fail(element,
             QStringLiteral("needs a number of at least %1 as \"%2\"").arg(least).arg(attribute));
    return value;
}

quint32 mode(const QDomElement &element)
{
    if (!element.hasAttribute(QStringLiteral("mode")))
        return everyState;
    const auto mask = maskFromText(element.attribute(QStringLiteral("mode")));
    if (!mask)
        fail(element, QStringLiteral("needs a number as \"mode\""));
    return *mask;
}

QString module(const QDomElement &element, const ToolDocument &document)
{
    const QString reference = element.attribute(QStringLiteral("xlink:href"));
    QString id = reference.mid(1);
    if (!reference.startsWith(QLatin1Char('#')) || !document.modules.contains(id))
        fail(element,
             QStringLiteral("refers to \"%1\", which is no module before it").arg(reference));
    return id;
}

QVector<ToolDocument::Item> items(const QDomElement &box, const ToolDocument &document)
{
    QVector<ToolDocument::Item> result;
    for (auto child = box.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        ToolDocument::Item item;
        item.mode = mode(child);
        if (child.tagName() == QLatin1String("tool")) {
            item.id = child.attribute(QStringLiteral("id"));
            if (item.id.isEmpty())
                fail(child, QStringLiteral("needs an \"id\""));
            item.module = module(child, document);
            item.group = child.attribute(QStringLiteral("group"));
        } else if (child.tagName() != QLatin1String("separator")) {
            continue;
        }
        result.append(item);
    }
    return result;
}

ToolDocument::ToolBox toolBox(const QDomElement &element, const ToolDocument &document)
{
    ToolDocument::ToolBox box;
    box.columns = number(element, QStringLiteral("columns"), 1);
    box.margin = number(element, QStringLiteral("margin"), 0);
    box.spacing = number(element, QStringLiteral("spacing"), 0);
    box.buttonStyle = element.attribute(QStringLiteral("button-style"));
    box.mode = mode(element);
    box.items = items(element, document);
    return box;
}

ToolDocument::Keypad keypad(const QDomElement &element, const ToolDocument &document)
{
    ToolDocument::Keypad pad;
    pad.margin = number(element, QStringLiteral("margin"), 0);
    pad.spacing = number(element, QStringLiteral("spacing"), 0);
    pad.buttonStyle = element.attribute(QStringLiteral("button-style"));
    const QString tag = QStringLiteral("key");
    for (auto child = element.firstChildElement(tag); !child.isNull();
         child = child.nextSiblingElement(tag)) {
        ToolDocument::Key key;
        key.id = child.attribute(QStringLiteral("id"));
        key.module = module(child, document);
        key.row = number(child, QStringLiteral("row"), 0);
        key.column = number(child, QStringLiteral("column"), 0);
        key.rowSpan = number(child, QStringLiteral("rowSpan"), 1);
        key.columnSpan = number(child, QStringLiteral("columnSpan"), 1);
        pad.keys.append(key);
    }
    return pad;
}

ToolDocument::ToolBar toolBar(const QDomElement &element, const ToolDocument &document)
{
    ToolDocument::ToolBar bar;
    bar.id = element.attribute(QStringLiteral("id"));
    bar.title = element.attribute(QStringLiteral("title"));
    bar.startsRow = element.attribute(QStringLiteral("break")) == QLatin1String("true");
    bar.mode = mode(element);
    bar.items = items(element, document);
    return bar;
}

ToolDocument read(const QDomElement &root)
{
    ToolDocument document;
    for (auto child = root.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString tag = child.tagName();
        if (tag == QLatin1String("module"))
            document.modules.insert(child.attribute(QStringLiteral("id")),
                                    child.attribute(QStringLiteral("path")));
        else if (tag == QLatin1String("toolbox"))
            document.toolBoxes.append(toolBox(child, document));
        else if (tag == QLatin1String("keypad"))
            document.keypads.append(keypad(child, document));
        else if (tag == QLatin1String("toolbar"))
            document.toolBars.append(toolBar(child, document));
    }
    return document;
}

} // namespace

std::optional<quint32> maskFromText(const QString &text)
{
    // toUInt() alone would also take signs and blanks.
    static const QRegularExpression pattern(QStringLiteral("\\A(0x[0-9A-Fa-f]+|[0-9]+)\\z"));
    if (!pattern.match(text).hasMatch())
        return std::nullopt;
    bool ok = false;
    const quint32 mask = text.toUInt(&ok, text.startsWith(QLatin1String("0x")) ? 16 : 10);
    return ok ? std::make_optional(mask) : std::nullopt;
}

std::optional<ToolDocument> ToolDocument::fromText(const QString &text, QString *error)
{
    QDomDocument dom;
    QString message;
    int line = 0;
    if (!dom.setContent(text, &message, &line)) {
        *error = QStringLiteral("line %1: %2").arg(line).arg(message);
        return std::nullopt;
    }
    try {
        return read(dom.documentElement());
    } catch (const DocumentError &failure) {
        *error = QString::fromUtf8(failure.what());
        return std::nullopt;
    }
}
