#include "document/Text.h"
#include "format/Format.h"

#include <QXmlStreamWriter>

namespace Quenda::Workbench {

namespace {

// What an element is called within the schema: several may have one name in the documents.
QString definitionName(const Element &element)
{
    return (QStringList(QLatin1String(element.name)) + element.variants()).join(QLatin1Char('.'));
}

// Declarations of namespaces are no attributes to RELAX NG.
bool isNamespace(const Attribute &attribute)
{
    return QLatin1String(attribute.name).startsWith(QLatin1String("xmlns:"));
}

class SchemaWriter
{
public:
    explicit SchemaWriter(QString *text) : xml(text)
    {
        xml.setAutoFormatting(true);
        xml.setAutoFormattingIndent(2);
    }

    void write(const Format &format)
    {
        xml.writeStartDocument();
        xml.writeComment(compose(
            "\n  Printed by \"quenda-workbench schema %1\". Only \"quenda-workbench check\" "
            "checks what comes before\n  the root element, and whether elements fit "
            "together.\n",
            format.schema));
        write("grammar", [&] {
            attribute("xmlns", "http://relaxng.org/ns/structure/1.0");
            attribute("xmlns:a", "http://relaxng.org/ns/compatibility/annotations/1.0");
            attribute("datatypeLibrary", "http://www.w3.org/2001/XMLSchema-datatypes");
            write("start", [&] { writeElement(format.root); });
            // They grow meanwhile.  NOLINTNEXTLINE(modernize-loop-convert)
            for (std::size_t i = 0; i < defined.size(); ++i)
                write("define", [&] {
                    attribute("name", definitionName(*defined[i]));
                    writeElement(*defined[i]);
                });
        });
        xml.writeEndDocument();
    }

private:
    template <typename Content>
    void write(const char *tag, const Content &content)
    {
        xml.writeStartElement(QLatin1String(tag));
        content();
        xml.writeEndElement();
    }

    template <typename Content>
    void writeIf(bool isNeeded, const char *tag, const Content &content)
    {
        isNeeded ? write(tag, content) : content();
    }

    void attribute(const char *name, const QString &value)
    {
        xml.writeAttribute(QLatin1String(name), value);
    }

    void attribute(const char *name, const char *value)
    {
        attribute(name, QString::fromUtf8(value));
    }

    void writeHead(const char *name, const char *sentence)
    {
        attribute("name", name);
        if (QLatin1String(name).contains(QLatin1Char(':')))
            attribute("xmlns:xlink", xlinkNamespace().value.choices.constFirst());
        write("a:documentation", [&] { xml.writeCharacters(QString::fromUtf8(sentence)); });
    }

    void writeElement(const Element &element)
    {
        write("element", [&] {
            writeHead(element.name, element.sentence);
            for (const Attribute &declared : element.attributes)
                if (!isNamespace(declared))
                    writeIf(declared.occurrence == Occurrence::Optional, "optional", [&] {
                        write("attribute", [&] {
                            writeHead(declared.name, declared.sentence);
                            writeValue(declared.value);
                        });
                    });
            writeIf(element.text && !element.parts.empty(), "mixed", [&] {
                for (const Element::Part &part : element.parts)
                    writePart(part);
            });
            if (element.parts.empty() && element.text)
                writeValue(*element.text);
            else if (element.parts.empty())
                xml.writeEmptyElement(QStringLiteral("empty"));
        });
    }

    void writePart(const Element::Part &part)
    {
        const char *many = part.occurrence == Occurrence::Optional ? "optional" : "zeroOrMore";
        writeIf(part.occurrence != Occurrence::Once, many, [&] {
            writeIf(part.elements.size() > 1, "choice", [&] {
                for (const Element *child : part.elements) {
                    if (std::find(defined.begin(), defined.end(), child) == defined.end())
                        defined.push_back(child);
                    write("ref", [&] { attribute("name", definitionName(*child)); });
                }
            });
        });
    }

    void writeValue(const Value &value)
    {
        if (value.isAnyText())
            xml.writeEmptyElement(QStringLiteral("text"));
        else if (value.choices.isEmpty())
            write("data", [&] {
                attribute("type", "string");
                write("param", [&] {
                    attribute("name", "pattern");
                    xml.writeCharacters(value.pattern);
                });
            });
        else
            writeIf(value.choices.size() > 1, "choice", [&] {
                for (const QString &choice : value.choices)
                    write("value", [&] {
                        attribute("type", "string");
                        attribute("datatypeLibrary", ""); // whose messages are clearer in xmllint
                        xml.writeCharacters(choice);
                    });
            });
    }

    QXmlStreamWriter xml;
    std::vector<const Element *> defined;
};

} // namespace

QString schemaOf(const Format &format)
{
    QString text;
    SchemaWriter(&text).write(format);
    return text;
}

} // namespace Quenda::Workbench
