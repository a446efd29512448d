#include "format/Format.h"
#include "SchemaValidator.h"
#include "documents/Place.h"

#include <QTest>

#include <map>

using namespace Quenda::Workbench;

namespace {

// What is tried as an attribute or a text: around the limits of all kinds of values.
QStringList triedValues(const ValueType &value)
{
    return value.choices
           + u"|a| a|a |a b|a&#10;b|\u00e9|-1|0|1|3|4|5|6|10|99|100|999|1000|01|+17|1.5|999999999"
             "|9999999999|0x|0X11|0x0000000ff|0xFFFFFFFF|0x100000000|#a|#|# a|#a |%LIBRARY%/a"
             "|%LIBRARY%/|%LIBRARY%/a |%LIBRARY%/a.so|%LIBRARY%/a/b|:/a|:/|:/a |/a|.|True"_s.split(
                 u'|');
}

// Edits a document in all ways that its declaration allows and forbids, once for each kind of
// element and attribute. The document has all of them.
class Editor
{
public:
    explicit Editor(const Document &document)
        : format(document.format), xml(document.xml), text(xml.text)
    {
        collect(xml.root, format->elements.front());
        for (const auto &[declared, element] : examples) {
            const QString what = declared->name + u' ' + declared->variants().join(u' ');
            editElement(*element, *declared, what);
            for (const AttributeDeclaration &attribute : declared->attributes)
                editAttribute(*element, attribute, what + u" @"_s + attribute.name);
        }
    }

private:
    void collect(const XmlElement &element, const ElementDeclaration &declared)
    {
        examples.emplace(&declared, &element);
        for (const XmlElement &child : element.children)
            collect(child, *declared.child(child));
    }

    QString textOf(const XmlElement &element) const
    {
        return text.mid(element.offset, endOf(element) - element.offset);
    }

    void add(const QString &what, int from, int to, const QString &with)
    {
        QTest::newRow(qPrintable(what + u' ' + with.left(40)))
            << allFormats().indexOf(format) << text.left(from) + with + text.mid(to);
    }

    void addValues(const QString &what, int from, int to, const ValueType &value,
                   const QString &pattern)
    {
        const QStringList values = triedValues(value);
        for (const QString &tried : values)
            add(what, from, to, QString(pattern).replace(u"%1"_s, tried));
    }

    int endOfTag(const XmlElement &element) const { return text.indexOf(u'>', element.offset) + 1; }

    int endOf(const XmlElement &element) const
    {
        if (text.at(endOfTag(element) - 2) == u'/')
            return endOfTag(element);
        const int inside =
            element.children.empty() ? endOfTag(element) : endOf(element.children.back());
        return text.indexOf(u'>', text.indexOf(u"</"_s, inside)) + 1;
    }

    // Left out, doubled, emptied, misspelt, with a text, and with one more of all that may be
    // inside.
    void editElement(const XmlElement &element, const ElementDeclaration &declared,
                     const QString &what)
    {
        const int start = element.offset;
        const int end = endOf(element);
        const int inside = endOfTag(element);
        const QString open = text.mid(start, inside - start).replace(u"/>"_s, u">"_s);
        const QString close = u"</%1>"_s.arg(element.name);
        if (&element != &xml.root) {
            add(what + u" left out"_s, start, end, {});
            add(what + u" doubled"_s, end, end, textOf(element));
        }
        add(what + u" emptied"_s, start, end, open + close);
        add(what + u" misspelt"_s, start, end, u"<x%1</x%2"_s.arg(open.mid(1), close.mid(2)));
        if (end == inside) // an empty tag
            return;
        if (!declared.text)
            add(what + u" with a text"_s, inside, inside, u"stray"_s);
        else if (element.children.empty())
            addValues(what, inside, end - close.size(), *declared.text, u"%1"_s);
        for (const ElementDeclaration::Part &part : declared.parts)
            for (const ElementDeclaration *child : part.elements)
                for (const int offset : {inside, end - close.size()})
                    add(what + u" with"_s, offset, offset, textOf(*examples.at(child)));
    }

    void editAttribute(const XmlElement &element, const AttributeDeclaration &attribute,
                       const QString &what)
    {
        const QString name = attribute.name;
        const bool isThere = element.has(attribute.name);
        const int start =
            isThere ? element.offsetOf(attribute.name) : element.offset + 1 + element.name.size();
        const int end = isThere ? text.indexOf(u'"', text.indexOf(u'"', start) + 1) + 1 : start;
        add(what + u" left out"_s, start, end, {});
        add(what + u" misspelt"_s, start, end, u" x%1=\"\""_s.arg(name));
        addValues(what, start, end, attribute.value, u" %1=\"%2\""_s.arg(name, u"%1"_s));
    }

    const Format *format;
    const XmlDocument xml;
    const QString text;
    std::map<const ElementDeclaration *, const XmlElement *> examples;
};

} // namespace

// The checker lets pass exactly what the schema accepts, as libxml2 understands it.
class FormatTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void edits_data()
    {
        QTest::addColumn<int>("format");
        QTest::addColumn<QString>("content");
        QString error;
        for (const Document &document : Place::find(QStringLiteral(PRODUCT), &error).value().read())
            Editor {document};
    }

    void edits()
    {
        QFETCH(QString, content);
        QFETCH(int, format);
        const Document edited = allFormats().at(format)->parse({}, content.toUtf8());
        QCOMPARE(edited.xml.error.text, QString());
        Findings shape(edited);
        checkShape(edited, shape);
        const QString first = shape.isEmpty() ? u"accepted"_s : shape.inOrder().at(0).text;
        // Declarations of namespaces are no attributes to a schema.
        if (!first.contains(u"xmlns"_s))
            QVERIFY2(validator.accepts(*edited.format, content.toUtf8()) == shape.isEmpty(),
                     qPrintable(u"checker: "_s + first));
    }

private:
    SchemaValidator validator;
};

QTEST_GUILESS_MAIN(FormatTest)
#include "FormatTest.moc"
