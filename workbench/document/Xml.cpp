#include "document/Xml.h"

#include "document/Text.h"

#include <expat.h>

#include <cstring>
#include <memory>

namespace Quenda::Workbench {

namespace {

// Deeper than any real document; QDomDocument recurses and would overflow the stack.
constexpr int maximumDepth = 100;

// White space as XML has it; Qt knows more.
constexpr bool isBlank(ushort character)
{
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

int skipBlanks(const QByteArray &content, int offset)
{
    while (isBlank(static_cast<uchar>(content.at(offset))))
        ++offset;
    return offset;
}

// The attributes of a well-formed start tag; names and values alternate in @p list.
QVector<XmlAttribute> attributesOf(const QByteArray &content, int nameEnd, const char **list)
{
    QVector<XmlAttribute> attributes;
    for (int offset = nameEnd; *list; list += 2) {
        offset = skipBlanks(content, offset);
        attributes.append({QString::fromUtf8(list[0]), QString::fromUtf8(list[1]), offset});
        const int quote = skipBlanks(content, content.indexOf('=', offset) + 1);
        offset = content.indexOf(content.at(quote), quote + 1) + 1;
    }
    return attributes;
}

class Reader
{
public:
    explicit Reader(XmlDocument &filled)
        : document(filled), parser(XML_ParserCreate("UTF-8"), XML_ParserFree)
    {
        XML_SetUserData(parser.get(), this);
        XML_SetXmlDeclHandler(parser.get(),
                              [](void *self, const char *version, const char *encoding, int) {
                                  reader(self).document.version = QString::fromUtf8(version);
                                  reader(self).document.encoding = QString::fromUtf8(encoding);
                              });
        XML_SetStartDoctypeDeclHandler(parser.get(), [](void *self, const char *name,
                                                        const char *system, const char *publicId,
                                                        int hasSubset) {
            reader(self).documentType(name, system || publicId || hasSubset);
        });
        XML_SetElementHandler(
            parser.get(),
            [](void *self, const char *name, const char **attributes) {
                reader(self).startElement(name, attributes);
            },
            [](void *self, const char *) { reader(self).endElement(); });
        XML_SetCharacterDataHandler(parser.get(), [](void *self, const char *text, int size) {
            reader(self).addText(QString::fromUtf8(text, size));
        });
        XML_SetStartCdataSectionHandler(parser.get(), [](void *self) { reader(self).startText(); });
    }

    void read()
    {
        const bool isRead =
            XML_Parse(parser.get(), document.content.constData(), document.content.size(), XML_TRUE)
            == XML_STATUS_OK;
        if (!isRead && document.error.text.isEmpty())
            document.error = notWellFormed(here());
    }

private:
    static Reader &reader(void *self) { return *static_cast<Reader *>(self); }

    int here() const { return static_cast<int>(XML_GetCurrentByteIndex(parser.get())); }

    void stop(int offset, const QString &why)
    {
        document.error = {offset, why};
        XML_StopParser(parser.get(), XML_FALSE);
    }

    void documentType(const char *name, bool hasMore)
    {
        document.documentType = QString::fromUtf8(name);
        document.documentTypeOffset = document.content.lastIndexOf("<!", here());
        if (hasMore)
            stop(document.documentTypeOffset,
                 compose("a document type with an identifier or a subset; expected its name only"));
    }

    void startElement(const char *name, const char **attributes)
    {
        if (open.size() == maximumDepth)
            return stop(here(),
                        compose("nested deeper than %1 elements; expected less", maximumDepth));
        XmlElement element;
        element.name = QString::fromUtf8(name);
        element.offset = here();
        element.attributes = attributesOf(
            document.content, here() + 1 + static_cast<int>(std::strlen(name)), attributes);
        open.push_back(std::move(element));
    }

    void endElement()
    {
        XmlElement done = std::move(open.back());
        open.pop_back();
        if (done.textOffset < 0)
            done.text.clear();
        if (open.empty())
            document.root = std::move(done);
        else
            open.back().children.push_back(std::move(done));
    }

    void startText()
    {
        if (open.back().textOffset < 0)
            open.back().textOffset = here();
    }

    void addText(const QString &text)
    {
        XmlElement &element = open.back();
        if (element.textOffset < 0
            && !std::all_of(text.begin(), text.end(), [](QChar c) { return isBlank(c.unicode()); }))
            element.textOffset = skipBlanks(document.content, here());
        element.text += text;
    }

    XmlError notWellFormed(int offset) const
    {
        const XML_Error code = XML_GetErrorCode(parser.get());
        XmlError error {offset, QString::fromUtf8(XML_ErrorString(code))};
        if (code == XML_ERROR_INVALID_TOKEN)
            error = invalidToken(offset);
        else if (code == XML_ERROR_UNCLOSED_TOKEN)
            error.text = compose("what begins here is not closed");
        else if (code == XML_ERROR_TAG_MISMATCH) // found at the name
            error = {offset - 2, compose("expected </%1>", open.back().name)};
        else if (code == XML_ERROR_NO_ELEMENTS)
            error.text = compose("the document ends too early");

        error.text.prepend(QLatin1String("not well-formed: "));
        if (open.empty())
            return error;
        const Position opened = positionOf(document.content, open.back().offset);
        error.text += compose("; <%1> is open, since line %2, column %3", open.back().name,
                              opened.line, opened.column);
        return error;
    }

    // Says what people meet most often, where the parser sees a wrong character only.
    XmlError invalidToken(int offset) const
    {
        const QByteArray before = document.content.left(offset);
        const QString rest = QString::fromUtf8(document.content.mid(offset, 8));
        const auto byte = static_cast<uchar>(document.content.at(offset));
        const int tag = before.lastIndexOf('<');
        const int ampersand = before.lastIndexOf('&');
        if (offset == 0 && byte >= 0xfe)
            return {offset, compose("UTF-16; expected UTF-8")};
        if (byte == 0)
            return {offset, compose("a zero byte, behind which a host reads nothing")};
        if (rest.startsWith(QChar::ReplacementCharacter))
            return {offset, compose("the byte 0x%1 is not UTF-8; expected UTF-8",
                                    QString::number(byte, 16))};
        if (tag >= 0 && tag == offset - 1)
            return {tag, compose("\"<\" begins no tag; expected \"&lt;\" for the character")};
        if (before.mid(tag).startsWith("<!--"))
            return {offset - 2, compose("\"--\" in a comment")};
        if (ampersand > tag && !before.mid(ampersand).contains(';'))
            return {ampersand, compose("a lone \"&\"; expected \"&amp;\" for the character")};
        if (tag > before.lastIndexOf('>'))
            return {offset, compose("\"%1\" in the tag of line %2; expected a quotation mark or "
                                    "\">\" before it",
                                    rest.left(1), positionOf(before, tag).line)};
        return {offset, compose("\"%1\" is not allowed here", rest.left(1))};
    }

    XmlDocument &document;
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser;
    std::vector<XmlElement> open;
};

} // namespace

const XmlAttribute *XmlElement::find(const char *attribute) const
{
    return findNamed(attributes, QLatin1String(attribute));
}

QString XmlElement::value(const char *attribute) const
{
    const XmlAttribute *found = find(attribute);
    return found ? found->value : QString();
}

int XmlElement::offsetOf(const char *attribute) const
{
    const XmlAttribute *found = find(attribute);
    return found ? found->offset : offset;
}

const XmlElement *XmlElement::child(const char *childName) const
{
    return findNamed(children, QLatin1String(childName));
}

XmlDocument XmlDocument::fromBytes(const QByteArray &content)
{
    XmlDocument document;
    document.content = content.startsWith("\xef\xbb\xbf") ? content.mid(3) : content;
    Reader(document).read();
    return document;
}

Position positionOf(const QByteArray &content, int offset)
{
    const QByteArray before = content.left(offset);
    const auto lineStart = before.begin() + before.lastIndexOf('\n') + 1;
    const auto startsCharacter = [](char byte) { return (byte & 0xc0) != 0x80; };
    return {before.count('\n') + 1,
            static_cast<int>(std::count_if(lineStart, before.end(), startsCharacter)) + 1};
}

} // namespace Quenda::Workbench
