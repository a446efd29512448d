#include "document/Xml.h"

#include "document/Text.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace Quenda::Workbench {

namespace {

// Deeper than any real document; QDomDocument recurses and would overflow the stack.
constexpr int maximumDepth = 100;

// White space as XML has it; Qt knows more.
bool isBlank(QChar c)
{
    return QStringLiteral(" \t\r\n").contains(c);
}

int skipBlanks(const QString &text, int offset)
{
    while (offset < text.size() && isBlank(text.at(offset)))
        ++offset;
    return offset;
}

// The attributes of a tag as written, with their values in quotation marks.
QRegularExpressionMatchIterator attributesIn(const QString &tag)
{
    static const QRegularExpression attribute(QStringLiteral(
        "[ \\t\\r\\n]([^ \\t\\r\\n=]+)[ \\t\\r\\n]*=[ \\t\\r\\n]*(?:\"[^\"]*\"|'[^']*')"));
    return attribute.globalMatch(tag);
}

class Reader
{
public:
    explicit Reader(XmlDocument &filled) : document(filled), text(filled.text), xml(filled.text)
    {
        xml.setNamespaceProcessing(false);
    }

    void read()
    {
        while (!xml.atEnd() && document.error.text.isEmpty()) {
            xml.readNext();
            if (xml.hasError())
                document.error = diagnose();
            else
                readToken(static_cast<int>(xml.characterOffset()));
        }
    }

private:
    // The reader is behind the token, and behind the "<" that ends a text.
    void readToken(int behind)
    {
        if (xml.isStartDocument()) {
            document.version = xml.documentVersion().toString();
            document.encoding = xml.documentEncoding().toString();
            behind = document.version.isEmpty() ? 0 : behind;
        } else if (xml.isDTD()) {
            readDocumentType(behind);
        } else if (xml.isStartElement()) {
            startElement(text.lastIndexOf(QLatin1Char('<'), behind - 1), behind);
        } else if (xml.isEndElement()) {
            endElement(behind);
        } else if (xml.isCharacters() && !open.empty()) {
            addText();
            if (!xml.isCDATA())
                --behind;
        }
        end = behind;
    }

    void readDocumentType(int behind)
    {
        static const QRegularExpression nameOnly(
            QRegularExpression::anchoredPattern(QStringLiteral("<!DOCTYPE\\s+[^\\s\\[>]+\\s*>")));
        document.documentType = xml.dtdName().toString();
        document.documentTypeOffset = skipBlanks(text, end);
        const int size = behind - document.documentTypeOffset;
        if (!nameOnly.match(text.mid(document.documentTypeOffset, size)).hasMatch())
            document.error = documentTypeError(document.documentTypeOffset);
    }

    static XmlError documentTypeError(int offset)
    {
        return {offset, compose("the document type has more than a name; write only that, such as "
                                "<!DOCTYPE quendaconfig>")};
    }

    void startElement(int offset, int behind)
    {
        if (open.size() == maximumDepth)
            document.error = {offset, compose("nested more than %1 elements deep", maximumDepth)};
        XmlElement element;
        element.name = xml.qualifiedName().toString();
        if (!open.empty()) {
            compareIndentation(open.back(), offset, false);
            if (open.back().hasText() && open.back().name == element.name && suspect.text.isEmpty())
                suspect = {offset,
                           compose("<%1> begins within <%1>; did you mean </%1>?", element.name)};
        }
        element.offset = offset;
        auto written = attributesIn(text.mid(offset, behind - offset));
        const QXmlStreamAttributes attributes = xml.attributes();
        for (const QXmlStreamAttribute &attribute : attributes)
            element.attributes.append({attribute.qualifiedName().toString(),
                                       attribute.value().toString(),
                                       offset + written.next().capturedStart(1)});
        open.push_back(std::move(element));
    }

    void endElement(int behind)
    {
        XmlElement done = std::move(open.back());
        open.pop_back();
        if (behind != end) // it has a tag of its own
            compareIndentation(done, text.lastIndexOf(QLatin1String("</"), behind), true);
        if (!done.hasText())
            done.text.clear();
        if (open.empty())
            document.root = std::move(done);
        else
            open.back().children.push_back(std::move(done));
    }

    // Where tags do not match, the mistake is most often where they first differ from the layout.
    void compareIndentation(const XmlElement &element, int tag, bool isEndTag)
    {
        const QStringRef outer = lineBefore(text, element.offset);
        const QStringRef inner = lineBefore(text, tag);
        const bool differs =
            isEndTag ? inner != outer : !outer.isEmpty() && inner.size() <= outer.size();
        if (!differs || !suspect.text.isEmpty() || !outer.trimmed().isEmpty()
            || !inner.trimmed().isEmpty())
            return;
        suspect = {tag,
                   compose(isEndTag ? "</%1> in line %2 closes <%1> of line %3, which is indented "
                                      "differently; add the end tag that is missing before it, or "
                                      "remove this one"
                                    : "<%1> of line %3 is not closed before line %2, which is not "
                                      "indented further; add </%1>",
                           element.name, positionOf(text, tag).line,
                           positionOf(text, element.offset).line)};
    }

    void addText()
    {
        XmlElement &element = open.back();
        const int start = end + (xml.isCDATA() ? static_cast<int>(qstrlen("<![CDATA[")) : 0);
        const QStringRef added = xml.text();
        if (!element.hasText() && !std::all_of(added.begin(), added.end(), isBlank))
            element.textOffset = skipBlanks(text, start);
        element.text += added;
    }

    // Qt's messages say what is wrong. What people meet most often also says what to do.
    XmlError diagnose() const
    {
        const int start = skipBlanks(text, end); // of what could not be read
        const int last = static_cast<int>(xml.characterOffset()) - 1; // where Qt gave up
        const QStringRef rest = text.midRef(start);
        const auto begins = [&rest](const char *with) {
            return rest.startsWith(QLatin1String(with));
        };
        const bool isComment = begins("<!--");
        if (xml.error() == QXmlStreamReader::PrematureEndOfDocumentError)
            for (const auto &[opening, closing] :
                 {std::pair("<!--", "\"-->\""), std::pair("<![CDATA[", "\"]]>\""),
                  std::pair("<?", "\"?>\""), std::pair("<", "a quotation mark or \">\"")})
                if (begins(opening))
                    return {start, compose("what begins here is never closed; add %1", closing)};
        if (rest.isEmpty() && open.empty())
            return {text.size(), compose("the document has no root element; add it")};
        if (rest.isEmpty())
            return nestingError(text.size(), "<%1> of line %2 is never closed; add </%1>");
        if (begins("</") && open.empty())
            return {start, compose("this end tag closes nothing; remove it")};
        if (begins("</"))
            return nestingError(start, closesAnyOf(rest)
                                           ? "<%1> of line %2 is not closed; add </%1> before this"
                                           : "this end tag does not match <%1> of line %2; write "
                                             "</%1>");
        if (!document.root.name.isEmpty())
            return {start, compose("only one root element is allowed; remove this")};
        if (begins("<!DOCTYPE") && document.documentType.isEmpty())
            return documentTypeError(start);
        if (isComment && text.midRef(last - 2, 2) == QLatin1String("--"))
            return {last - 2, compose("\"--\" is not allowed in a comment; write \"- -\", or "
                                      "\"-->\" where the comment ends")};
        static const QRegularExpression reference(QStringLiteral("&[^\\s;<'\"]*[\\s;<'\"]$"));
        const auto match = reference.match(text.left(last + 1));
        if (match.hasMatch() && !begins("<!") && !begins("<?"))
            return {match.capturedStart(),
                    match.captured().endsWith(QLatin1Char(';'))
                        ? compose("unknown reference \"%1\"; write the character itself, or "
                                  "\"&amp;\" for \"&\"",
                                  match.captured())
                        : compose("a lone \"&\"; write \"&amp;\" for the character")};
        if (begins("<") && last == start + 1)
            return {start, compose("\"<\" begins no tag; write \"&lt;\" for the character")};
        if (begins("<") && !begins("<!") && !begins("<?"))
            return diagnoseTag(start, last);
        if (open.empty() && document.root.name.isEmpty() && !begins("<"))
            return {start, compose("text before the root element; remove it")};
        return {begins("<?") || (open.empty() && !isComment) ? start : last,
                compose(begins("<?xml") ? "not well-formed: %1 The document begins with "
                                          "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                                        : "not well-formed: %1",
                        xml.errorString())};
    }

    XmlError diagnoseTag(int start, int last) const
    {
        QStringList names;
        const QString before = text.mid(start, last - start);
        for (auto written = attributesIn(before); written.hasNext();) {
            const auto attribute = written.next();
            if (names.contains(attribute.captured(1)))
                return {start + attribute.capturedStart(1),
                        compose("duplicate attribute \"%1\"; remove one", attribute.captured(1))};
            names += attribute.captured(1);
        }
        if (xml.errorString().startsWith(QLatin1String("Expected '='")))
            return {last, compose("add \"=\" and a value in quotation marks before this")};
        // Behind the end of a value, nothing is missing but a blank.
        static const QRegularExpression value(QStringLiteral("[^=\\s]\\s*[\"']\\s*$"));
        const QChar character = text.at(last);
        return {last, compose("\"%1\" is not allowed in the tag of line %2; %3",
                              characterAt(text, last), positionOf(text, start).line,
                              character.category() == QChar::Punctuation_InitialQuote
                                      || character.category() == QChar::Punctuation_FinalQuote
                                  ? "write a straight quotation mark"
                              : !value.match(before).hasMatch()
                                  ? "add the quotation mark or \">\" that is missing before it"
                              : character.isLetter()
                                  ? "write a blank before it, or \"&quot;\" for the quotation mark"
                              : character == QLatin1Char('<') ? "add \">\" before it"
                                                              : "remove it")};
    }

    bool closesAnyOf(const QStringRef &endTag) const
    {
        return std::any_of(open.begin(), open.end(), [&endTag](const XmlElement &element) {
            return endTag.startsWith(compose("</%1>", element.name));
        });
    }

    // At the first sign of it.
    XmlError nestingError(int offset, const char *pattern) const
    {
        const XmlElement &element = open.back();
        return suspect.text.isEmpty()
                   ? XmlError {offset, compose(pattern, element.name,
                                               positionOf(text, element.offset).line)}
                   : suspect;
    }

    XmlDocument &document;
    const QString &text;
    QXmlStreamReader xml;
    int end = 0; // of what is read
    std::vector<XmlElement> open;
    XmlError suspect; // the first end tag that differs from the layout
};

} // namespace

XmlDocument XmlDocument::fromBytes(const QByteArray &bytes)
{
    XmlDocument document;
    document.text = QString::fromUtf8(bytes); // without a byte order mark, up to a zero byte
    const QByteArray again = document.text.toUtf8();
    const QByteArray content =
        bytes.right(bytes.size() - (bytes.startsWith("\xef\xbb\xbf") ? 3 : 0));
    const int zero = content.indexOf('\0');
    const auto control = std::find_if(document.text.cbegin(), document.text.cend(), [](QChar c) {
        return c < QLatin1Char(' ') && !isBlank(c); // Qt's reader takes some of them in names
    });
    const auto wrong = std::mismatch(again.begin(), again.end(), content.begin(), content.end());
    if (zero == 0 || zero == 1 || bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff"))
        document.error = {0, compose("the document is UTF-16; save it as UTF-8")};
    else if (wrong.first != again.end()) {
        int size = static_cast<int>(wrong.first - again.begin());
        while ((again.at(size) & 0xc0) == 0x80) // within the character that Qt put there
            --size;
        document.error = {QString::fromUtf8(again.constData(), size).size(),
                          compose("the byte 0x%1 is not UTF-8; save the document as UTF-8",
                                  QString::number(static_cast<uchar>(content.at(size)), 16))};
    } else if (zero > 0)
        document.error = {document.text.size(),
                          compose("a zero byte; remove it, as hosts read no further")};
    else if (control != document.text.cend())
        document.error = {
            static_cast<int>(control - document.text.cbegin()),
            compose("the control character \"%1\" is not allowed; remove it", QString(*control))};
    else if (document.text.startsWith(QChar(QChar::ByteOrderMark)))
        document.error = {0, compose("a second byte order mark; remove it")};
    else
        Reader(document).read();
    return document;
}

} // namespace Quenda::Workbench
