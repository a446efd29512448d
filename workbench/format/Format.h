#pragma once

#include "document/Finding.h"

#include <QRegularExpression>
#include <QStringList>

#include <optional>

namespace Quenda::Workbench {

/** What an attribute or a text may be; by default, any text. */
struct Value
{
    QStringList choices {}; ///< All that are allowed; empty where there is a pattern.
    QString pattern {}; ///< Of the whole value, with the same meaning in XML Schema and Qt.
    QString expected {}; ///< What to write, for people.
    QRegularExpression whole {}; ///< The pattern for Qt, compiled once.
    bool isStyleSheet = false; ///< Whether Qt has to be able to read it as a style sheet.

    bool isAnyText() const { return choices.isEmpty() && pattern.isEmpty(); }
    bool allows(const QString &value) const;
};

/** How often an attribute or a part occurs. */
enum class Occurrence { Once, Optional, AnyNumber };

struct Attribute
{
    const char *name;
    Value value;
    const char *sentence; ///< What it is for, as editors show it.
    Occurrence occurrence = Occurrence::Once;
};

/** An element and its content. */
struct Element
{
    /** A part of its content: these elements, in any order. */
    struct Part
    {
        std::vector<const Element *> elements;
        Occurrence occurrence = Occurrence::AnyNumber;
    };

    const char *name;
    const char *sentence;
    std::vector<Attribute> attributes {};
    std::vector<Part> parts {}; ///< They follow each other in this order.
    std::optional<Value> text {}; ///< Without one, it contains elements only.
    /** Where several elements have one name, such as properties: the attribute that differs. */
    const char *key = nullptr;

    /** What the key may be; empty without a key. */
    QStringList variants() const;
    /** Its start tag, with the key: <property name="text">. */
    QString tag() const;
    /** The declaration of one of its children; null when it may not have this one. */
    const Element *child(const XmlElement &element) const;
};

/** All that is particular to the documents of one kind. */
struct Format
{
    DocumentKind kind;
    const char *fileName;
    const char *schema; ///< The name of its schema.
    const Element &root;
    bool hasDeclaration; ///< Whether an XML declaration comes first.
    bool hasDocumentType; ///< Whether a document type comes before the root.
    bool isAscii; ///< Whether all characters are ASCII; otherwise they are UTF-8.
};

const Format &entryFormat();
const Format &toolFormat();
const Format &menuFormat();
const QVector<const Format *> &allFormats();

/** The document of this kind, which has to be there. */
const Document &documentOf(const Documents &documents, DocumentKind kind);

/** Its RELAX NG schema, with the sentences, for editors. */
QString schemaOf(const Format &format);

/**
 * Checks that a document has the elements, attributes, texts and values of its format, and no
 * others. The schema accepts the same, but does not see declarations of namespaces.
 */
void checkShape(const Document &document, Findings &findings);

/** Checks what comes before the root, and which characters the document has. */
void checkProlog(const Document &document, Findings &findings);

// What the declarations share.
Value anyText();
Value name();
Value number(int least, int most); ///< The greatest is a digit, or has nines only.
Value oneOf(std::initializer_list<const char *> values);
Value matching(const char *pattern, const QString &expected);
Value styleSheet();
Attribute xlinkNamespace();
Element::Part once(const Element &element);
Element::Part anyOf(const std::vector<const Element *> &elements);

} // namespace Quenda::Workbench
