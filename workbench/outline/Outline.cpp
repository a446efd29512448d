#include "outline/Outline.h"

#include "menus/Menus.h"

#include <QSet>

namespace Quenda::Workbench {

namespace {

QString shown(const ValueType &value, const QString &text)
{
    const QString plain = QString(text).replace(u'\\', u"\\\\"_s);
    return value.isAnyText() ? quoted(plain) : escaped(plain);
}

QString summaryOf(const XmlElement &element, const ElementDeclaration &declaration);

// Returns what an element contains by itself and through its properties.
QStringList wordsOf(const XmlElement &element, const ElementDeclaration &declaration)
{
    QStringList words;
    for (const AttributeDeclaration &attribute : declaration.attributes) {
        const QString &name = attribute.name;
        const QString value = shown(attribute.value, element.value(attribute.name));
        const bool isNeeded = attribute.occurrence == Occurrence::Once;
        if (isNeeded && (name == u"id" || name == u"name"))
            words += value;
        else if (element.has(attribute.name) && (!isNeeded || attribute.value.choices.size() != 1))
            words += name + u' ' + value;
    }
    for (const ElementDeclaration *property : declaration.children())
        if (const XmlElement *value = propertyOf(element, property->variants().value(0)))
            words += property->variants().constFirst() + u' '
                     + summaryOf(*value, *property->child(*value));
    if (declaration.text) // without the white space between its elements
        words += shown(*declaration.text,
                       declaration.parts.empty() ? element.text : element.text.trimmed());
    return words;
}

// Returns the same with all that is below the element, for a property's value.
QString summaryOf(const XmlElement &element, const ElementDeclaration &declaration)
{
    QStringList words = wordsOf(element, declaration);
    for (const XmlElement &child : element.children)
        words += child.name + u' ' + summaryOf(child, *declaration.child(child));
    return words.join(u' ');
}

class Outline
{
public:
    explicit Outline(const Document &document)
        : root(document.xml.root),
          declaredRoot(document.format->elements.front()),
          menuBar(root.child(u"widget"))
    {
        collectItems(root);
        addLines(root, declaredRoot, QString());
    }

    QString text;

private:
    void collectItems(const XmlElement &parent)
    {
        for (const XmlElement &child : parent.children) {
            if (child.is(u"addaction"))
                placed.insert(child.value(u"name"));
            collectItems(child);
        }
    }

    // Adds what is below an element. An item of a menu is shown as what it names, which is left
    // out where it is defined.
    void addLines(const XmlElement &parent, const ElementDeclaration &declaration,
                  const QString &indentation)
    {
        for (const XmlElement &child : parent.children) {
            const bool isItem = child.is(u"addaction");
            if (child.is(u"property") || (!isItem && placed.contains(child.value(u"name"))))
                continue;
            const XmlElement *named = isItem ? shownBy(child, parent, *menuBar) : nullptr;
            const XmlElement &element = named ? *named : child;
            const ElementDeclaration *own = declaration.child(element);
            if (!own) // an action is defined in the bar
                own = declaredRoot.child(*menuBar)->child(element);
            const QStringList words = QStringList(element.name) + wordsOf(element, *own);
            text += indentation + words.join(u"  "_s) + u'\n';
            addLines(element, *own, indentation + u"  "_s);
        }
    }

    const XmlElement &root;
    const ElementDeclaration &declaredRoot;
    const XmlElement *menuBar; // of a menu document only
    QSet<QString> placed;
};

} // namespace

QString outlineOf(const Documents &documents)
{
    QStringList texts;
    for (const Document &document : documents)
        texts += Outline(document).text;
    return texts.join(u'\n');
}

} // namespace Quenda::Workbench
