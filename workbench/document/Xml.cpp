#include "document/Xml.h"

#include "document/Text.h"

#include <QTextCodec>

#include <expat.h>

#include <cstring>
#include <memory>

namespace Quenda::Workbench {

namespace {

// Deeper than any real document; QDomDocument recurses and would overflow the stack.
constexpr int maximumDepth = 100;

constexpr char byteOrderMark[] = "\xef\xbb\xbf";
constexpr int byteOrderMarkSize = sizeof byteOrderMark - 1;

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

// QString::fromUtf8() drops a byte order mark, which inside a document is a character.
QString textFrom(const char *utf8, int size = -1)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return QTextCodec::codecForName("UTF-8")->toUnicode(
        utf8, size < 0 ? static_cast<int>(qstrlen(utf8)) : size, &state);
}

class Reader
{
public:
    explicit Reader(XmlDocument &filled)
        : document(filled),
          content(filled.content),
          parser(XML_ParserCreate("UTF-8"), XML_ParserFree)
    {
        XML_SetUserData(parser.get(), this);
        XML_SetXmlDeclHandler(parser.get(), [](void *self, auto *version, auto *encoding, int) {
            reader(self).document.version = textFrom(version);
            reader(self).document.encoding = textFrom(encoding);
        });
        XML_SetStartDoctypeDeclHandler(
            parser.get(), [](void *self, auto *name, auto *system, auto *publicId, int hasSubset) {
                reader(self).documentType(name, system || publicId || hasSubset);
            });
        XML_SetElementHandler(
            parser.get(),
            [](void *self, auto *name, auto **list) { reader(self).startElement(name, list); },
            [](void *self, auto *) { reader(self).endElement(); });
        XML_SetCharacterDataHandler(parser.get(), [](void *self, auto *text, int size) {
            reader(self).addText(textFrom(text, size));
        });
    }

    void read()
    {
        // It passes over one mark, and a second one is no part of a document.
        XML_Parse(parser.get(), byteOrderMark, byteOrderMarkSize, XML_FALSE);
        if (XML_Parse(parser.get(), content.constData(), content.size(), XML_TRUE) != XML_STATUS_OK
            && document.error.text.isEmpty())
            document.error = errorAt(here());
    }

private:
    static Reader &reader(void *self) { return *static_cast<Reader *>(self); }

    int here() const
    {
#if XML_MAJOR_VERSION > 2 || XML_MINOR_VERSION >= 9 // which deprecates the other
        const auto index = XML_GetCurrentByteIndex64(parser.get());
#else
        const auto index = XML_GetCurrentByteIndex(parser.get());
#endif
        return static_cast<int>(index) - byteOrderMarkSize;
    }

    void stop(int offset, const QString &why)
    {
        document.error = {offset, why};
        XML_StopParser(parser.get(), XML_FALSE);
    }

    void documentType(const char *name, bool hasMore)
    {
        document.documentType = textFrom(name);
        document.documentTypeOffset = content.lastIndexOf("<!", here());
        if (hasMore)
            stop(document.documentTypeOffset,
                 compose("a document type with an identifier or a subset; expected its name only"));
    }

    void startElement(const char *name, const char **list)
    {
        if (open.size() == maximumDepth)
            return stop(here(),
                        compose("nested deeper than %1 elements; expected less", maximumDepth));
        XmlElement element;
        element.name = textFrom(name);
        element.offset = here();
        // The tag is well-formed, so its attributes are easily found.
        int offset = here() + 1 + static_cast<int>(std::strlen(name));
        for (; *list; list += 2) {
            offset = skipBlanks(content, offset);
            element.attributes.append({textFrom(list[0]), textFrom(list[1]), offset});
            const int quote = skipBlanks(content, content.indexOf('=', offset) + 1);
            offset = content.indexOf(content.at(quote), quote + 1) + 1;
        }
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

    void addText(const QString &text)
    {
        XmlElement &element = open.back();
        if (element.textOffset < 0
            && !std::all_of(text.begin(), text.end(), [](QChar c) { return isBlank(c.unicode()); }))
            element.textOffset = skipBlanks(content, here());
        element.text += text;
    }

    XmlError errorAt(int offset) const
    {
        const XML_Error code = XML_GetErrorCode(parser.get());
        XmlError error {offset, QString::fromUtf8(XML_ErrorString(code))};
        if (code == XML_ERROR_INVALID_TOKEN)
            error = invalidToken(offset);
        else if (code == XML_ERROR_UNCLOSED_TOKEN)
            error.text = compose("what begins here is not closed");
        else if (code == XML_ERROR_TAG_MISMATCH) // told of the name
            error = {offset - 2, compose("expected </%1>", open.back().name)};
        else if (code == XML_ERROR_NO_ELEMENTS)
            error.text = compose("the document ends too early");

        error.text.prepend(QLatin1String("not well-formed: "));
        if (!open.empty()) {
            const auto [line, column] = positionOf(content, open.back().offset);
            error.text +=
                compose("; <%1> is open, since line %2, column %3", open.back().name, line, column);
        }
        return error;
    }

    // What people meet most often, where the parser tells of a wrong character only.
    XmlError invalidToken(int offset) const
    {
        const QByteArray before = content.left(offset);
        const QString character = characterAt(content, offset);
        const auto byte = static_cast<uchar>(content.at(offset));
        const int tag = before.lastIndexOf('<');
        const int ampersand = before.lastIndexOf('&');
        if (character == QChar(QChar::ReplacementCharacter))
            return {offset, compose("the byte 0x%1; expected UTF-8", QString::number(byte, 16))};
        if (tag >= 0 && tag == offset - 1)
            return {tag, compose("\"<\" begins no tag; expected \"&lt;\" for the character")};
        if (before.mid(tag).startsWith("<!--"))
            return {offset - 2, compose("\"--\" in a comment")};
        if (ampersand > tag && !before.mid(ampersand).contains(';'))
            return {ampersand, compose("a lone \"&\"; expected \"&amp;\" for the character")};
        if (byte == '<' || tag > before.lastIndexOf('>'))
            return {offset, compose("\"%1\" in the tag of line %2; expected a quotation mark or "
                                    "\">\" before it",
                                    character, positionOf(before, tag).line)};
        return {offset, compose("\"%1\" is not allowed here", character)};
    }

    XmlDocument &document;
    const QByteArray &content;
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser;
    std::vector<XmlElement> open;
};

} // namespace

XmlDocument XmlDocument::fromBytes(const QByteArray &content)
{
    XmlDocument document;
    document.content = content.startsWith(byteOrderMark) ? content.mid(byteOrderMarkSize) : content;
    // The parser would read UTF-16, too.
    const int zero = document.content.indexOf('\0');
    if (zero == 0 || zero == 1 || content.startsWith("\xff\xfe") || content.startsWith("\xfe\xff"))
        document.error = {0, compose("UTF-16; expected UTF-8")};
    else if (zero > 0)
        document.error = {zero, compose("a zero byte; expected none, as hosts read up to it only")};
    else
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

QString characterAt(const QByteArray &content, int offset)
{
    const QString text =
        textFrom(content.constData() + offset, std::min(4, content.size() - offset));
    return text.left(text.front().isHighSurrogate() ? 2 : 1);
}

} // namespace Quenda::Workbench
