#pragma once

#include <QStringList>
#include <QVector>

#include <algorithm>
#include <vector>

namespace Quenda::Workbench {

/** The first of a list that has the name, or null. */
template <typename List, typename Name>
const typename List::value_type *findNamed(const List &list, const Name &name)
{
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&name](const auto &one) { return one.name == name; });
    return found == list.end() ? nullptr : &*found;
}

/** An attribute, and where its name begins. All offsets are indexes into the document's text. */
struct XmlAttribute
{
    QString name;
    QString value;
    int offset;
};

/** An element with all that it contains but comments. */
struct XmlElement
{
    QString name; ///< As written, prefix included.
    int offset = 0; ///< Of its "<".
    QVector<XmlAttribute> attributes;
    std::vector<XmlElement> children;
    QString text; ///< Its own, in one piece; empty when it is nothing but white space.
    int textOffset = -1; ///< Of the text's first character that is not white space; -1 without one.

    bool hasText() const { return textOffset >= 0; }
    bool is(QStringView tag) const { return name == tag; }
    bool has(QStringView attribute) const { return find(attribute); }
    const XmlElement *child(QStringView tag) const { return findNamed(children, tag); }
    const XmlAttribute *find(QStringView attribute) const
    {
        return findNamed(attributes, attribute);
    }
    /** The attribute's value; empty when there is none. */
    QString value(QStringView attribute) const
    {
        const XmlAttribute *found = find(attribute);
        return found ? found->value : QString();
    }
    /** Where the attribute begins; the element itself when it has none of the name. */
    int offsetOf(QStringView attribute) const
    {
        const XmlAttribute *found = find(attribute);
        return found ? found->offset : offset;
    }
    /** Where the text begins; the element itself when it has none. */
    int offsetOfText() const { return hasText() ? textOffset : offset; }
};

/** Something that keeps a document from being read, and where it begins. */
struct XmlError
{
    int offset = 0;
    QString text; ///< Empty when there is no error.
};

/** An XML document that knows where everything is. */
struct XmlDocument
{
    QString text; ///< All of it, but for a byte order mark.
    QString version; ///< Of the XML declaration, as the encoding; empty without one.
    QString encoding;
    QString documentType; ///< The name in the document type declaration; empty without one.
    int documentTypeOffset = 0;
    XmlElement root;
    XmlError error; ///< With one, `root` is not to be used.

    /**
     * Reads XML 1.0 in UTF-8. Two things that XML allows are errors: a document type that does more
     * than name the root, as parsers differ in what they make of it, and elements that are nested
     * more than 100 deep, as QDomDocument runs out of stack in the end.
     *
     * @param names  What elements may be called, the root first. With them, an error says which of
     *               two tags that do not match is wrong.
     */
    static XmlDocument fromBytes(const QByteArray &bytes, const QStringList &names);
};

} // namespace Quenda::Workbench
