#include "outline/Outline.h"

#include "document/MenuDocument.h"
#include "document/Text.h"
#include "format/Format.h"

#include <QSet>

namespace Quenda::Workbench {

namespace {

QString shown(const Value &value, const QString &text)
{
    const QString plain = QString(text).replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    return value.isAnyText() ? quoted(plain) : escaped(plain);
}

QString summaryOf(const XmlElement &element, const Element &declared);

// What an element says by itself and through its properties.
QStringList wordsOf(const XmlElement &element, const Element &declared)
{
    QStringList words;
    for (const Attribute &attribute : declared.attributes) {
        const QString name = QLatin1String(attribute.name);
        const QString value = shown(attribute.value, element.value(attribute.name));
        const bool isNeeded = attribute.occurrence == Occurrence::Once;
        if (isNeeded && (name == QLatin1String("id") || name == QLatin1String("name")))
            words += value;
        else if (element.has(attribute.name) && (!isNeeded || attribute.value.choices.size() != 1))
            words += name + QLatin1Char(' ') + value;
    }
    for (const Element::Part &part : declared.parts)
        for (const Element *property : part.elements)
            if (const XmlElement *value = propertyOf(element, property->variants().value(0)))
                words += property->variants().constFirst() + QLatin1Char(' ')
                         + summaryOf(*value, *property->child(*value));
    if (declared.text) // without the white space between its elements
        words +=
            shown(*declared.text, declared.parts.empty() ? element.text : element.text.trimmed());
    return words;
}

// The same with all that is below it, for a property's value.
QString summaryOf(const XmlElement &element, const Element &declared)
{
    QStringList words = wordsOf(element, declared);
    for (const XmlElement &child : element.children)
        words += child.name + QLatin1Char(' ') + summaryOf(child, *declared.child(child));
    return words.join(QLatin1Char(' '));
}

class Outline
{
public:
    explicit Outline(const Document &document)
        : root(document.xml.root),
          declaredRoot(document.format->root),
          menuBar(root.child("widget"))
    {
        collectItems(root);
        addLines(root, declaredRoot, QString());
    }

    QString text;

private:
    void collectItems(const XmlElement &parent)
    {
        for (const XmlElement &child : parent.children) {
            if (child.is("addaction"))
                placed.insert(child.value("name"));
            collectItems(child);
        }
    }

    // What is below an element. An item of a menu is shown as what it names, which is left out
    // where it is defined.
    void addLines(const XmlElement &parent, const Element &declared, const QString &indentation)
    {
        for (const XmlElement &child : parent.children) {
            const bool isItem = child.is("addaction");
            if (child.is("property") || (!isItem && placed.contains(child.value("name"))))
                continue;
            const XmlElement *named = isItem ? shownBy(child, parent, *menuBar) : nullptr;
            const XmlElement &element = named ? *named : child;
            const Element *declaration = declared.child(element);
            if (!declaration) // an action is defined in the bar
                declaration = declaredRoot.child(*menuBar)->child(element);
            const QStringList words = QStringList(element.name) + wordsOf(element, *declaration);
            text += indentation + words.join(QLatin1String("  ")) + QLatin1Char('\n');
            addLines(element, *declaration, indentation + QLatin1String("  "));
        }
    }

    const XmlElement &root;
    const Element &declaredRoot;
    const XmlElement *menuBar; // of a menu document only
    QSet<QString> placed;
};

} // namespace

QString outlineOf(const Documents &documents)
{
    QStringList texts;
    for (const Document &document : documents)
        texts += Outline(document).text;
    return texts.join(QLatin1Char('\n'));
}

} // namespace Quenda::Workbench
