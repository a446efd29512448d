#pragma once

#include "format/Finding.h"

#include <QRegularExpression>

#include <deque>
#include <optional>

struct Product;

namespace Quenda::Workbench {

// A schema declares what documents may contain. What they do contain is an XmlElement.

/** What an attribute or a text may be; by default, any text. */
struct ValueType
{
    QStringList choices {}; ///< All that are allowed; empty where there is a pattern.
    QRegularExpression pattern {}; ///< Of the whole value; empty where there are choices.
    QString expected {}; ///< What to write, for people.

    bool isAnyText() const { return choices.isEmpty() && pattern.pattern().isEmpty(); }
    bool allows(const QString &value) const;
};

/** How often an attribute or a part occurs. */
enum class Occurrence { Once, Optional, AnyNumber };

struct AttributeDeclaration
{
    QString name;
    ValueType value;
    Occurrence occurrence;
};

/** An element and its content. */
struct ElementDeclaration
{
    /** A part of its content: these elements, in any order. */
    struct Part
    {
        std::vector<const ElementDeclaration *> elements;
        Occurrence occurrence;
    };

    QString name;
    std::vector<AttributeDeclaration> attributes {};
    std::vector<Part> parts {}; ///< They follow each other in this order.
    std::optional<ValueType> text {}; ///< Without one, it contains elements only.
    /** Where several elements have one name, such as properties: the attribute that differs. */
    QString key {};

    /** What the key may be; empty without a key. */
    QStringList variants() const;
    /** Its start tag, with the key: <property name="text">. */
    QString tag() const;
    /** All that may be its children. */
    std::vector<const ElementDeclaration *> children() const;
    /** The declaration of one of its children; null when it may not have this one. */
    const ElementDeclaration *child(const XmlElement &element) const;
};

/** What a document has before its root. Without a declaration of its encoding, it is ASCII. */
enum class Prolog { None, XmlDeclaration, XmlDeclarationAndDocumentType };

/**
 * Checks how the parts of a document fit together, and with the product, which may be unknown
 * (null). The document is of the right shape: nothing of that is checked again.
 */
using Rules = void(const Document &document, const Product *product, Findings &findings);

/** All that is particular to the documents of one kind. */
struct Format
{
    /** @param schemaName  Of a schema in RELAX NG, which is built in. */
    Format(const char *file, const char *schemaName, Prolog beforeRoot, Rules *rules);
    Q_DISABLE_COPY(Format)

    /** Reads a document of this format. */
    Document parse(const QString &path, const QByteArray &bytes) const;

    const QString fileName;
    const QString schema; ///< The name of its schema.
    const Prolog prolog;
    Rules *const checkRules;
    std::deque<ElementDeclaration> elements; ///< All that are declared, the root first.
};

/** The text of a schema. */
QByteArray schemaText(const QString &name);

/** The document of this format, which has to be there. */
const Document &findDocument(const Documents &documents, const Format &format);

/**
 * Checks that a document has the elements, attributes, texts and values of its format, and no
 * others. The schema accepts the same, but does not see declarations of namespaces.
 */
void checkShape(const Document &document, Findings &findings);

/** Checks what comes before the root, and which characters the document has. */
void checkProlog(const Document &document, Findings &findings);

} // namespace Quenda::Workbench
