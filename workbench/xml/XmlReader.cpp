#include "xml/Text.h"
#include "xml/XmlDocument.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace Quenda::Workbench {

namespace {

// This is deeper than any real document. QDomDocument recurses, and would overflow the stack.
constexpr int maximumDepth = 100;

// What a document consists of, and how to write it. The first one whose opening a text begins with
// is the one that it belongs to.
struct Construct
{
    const char *opening;
    const char *name;
    const char *advice;
};

constexpr Construct constructs[] {
    {"<!--", "comment", "end a comment with \"-->\", and write no \"--\" before that"},
    {"<![CDATA[", "CDATA section", "end a CDATA section with \"]]>\""},
    {"<!", "declaration",
     "write a comment as <!-- text -->, and a document type as <!DOCTYPE name>"},
    {"<?", "instruction",
     "begin a document with <?xml version=\"1.0\" encoding=\"UTF-8\"?>, and end any other "
     "instruction with \"?>\""},
    {"</", "end tag", "write an end tag as </name>"},
    {"<", "tag",
     "write a tag as <name first=\"value\" second=\"value\">, with straight quotation marks, each "
     "name once, and \"&lt;\" and \"&amp;\" for the characters \"<\" and \"&\""},
    {"", "text",
     "write \"&\" as \"&amp;\", \"<\" as \"&lt;\", \"]]>\" as \"]]&gt;\", and any other character "
     "as itself"},
};

// Qt knows more white space than XML.
bool isBlank(QChar c)
{
    return u" \t\r\n"_s.contains(c);
}

int skipBlanks(const QString &text, int offset)
{
    while (offset < text.size() && isBlank(text.at(offset)))
        ++offset;
    return offset;
}

// Returns the line, from 1.
int lineOf(const QString &text, int offset)
{
    return text.leftRef(offset).count(u'\n') + 1;
}

// Returns what is before an offset in its line.
QStringRef lineBefore(const QString &text, int offset)
{
    return text.leftRef(offset).mid(text.leftRef(offset).lastIndexOf(u'\n') + 1);
}

class Reader
{
public:
    Reader(XmlDocument &filled, const QStringList &elementNames)
        : document(filled), text(filled.text), names(elementNames), xml(filled.text)
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
            startElement(text.lastIndexOf(u'<', behind - 1), behind);
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
            QRegularExpression::anchoredPattern(u"<!DOCTYPE\\s+[^\\s\\[>]+\\s*>"_s));
        document.documentType = xml.dtdName().toString();
        const int start = document.documentTypeOffset = skipBlanks(text, end);
        if (!nameOnly.match(text.mid(start, behind - start)).hasMatch())
            document.error = {start,
                              compose("the document type has more than a name; write only that: "
                                      "<!DOCTYPE %1>",
                                      document.documentType)};
    }

    void startElement(int offset, int behind)
    {
        // It matches the attributes as they are written, with their values in quotation marks.
        static const QRegularExpression attribute(
            u"[ \\t\\r\\n]([^ \\t\\r\\n=]+)[ \\t\\r\\n]*=[ \\t\\r\\n]*(?:\"[^\"]*\"|'[^']*')"_s);
        if (open.size() == maximumDepth)
            document.error = {offset,
                              compose("nested more than %1 elements deep; add the end tags that "
                                      "are missing above",
                                      maximumDepth)};
        XmlElement element;
        element.name = xml.qualifiedName().toString();
        if (!open.empty()) {
            if (open.back().name == element.name && xml.attributes().isEmpty()
                && suspect.text.isEmpty())
                suspect = {offset,
                           compose("<%1> begins within <%1>; did you mean </%1>?", element.name)};
            compareIndentation(open.back(), offset, false);
        }
        element.offset = offset;
        auto written = attribute.globalMatch(text.mid(offset, behind - offset));
        const QXmlStreamAttributes attributes = xml.attributes();
        for (const QXmlStreamAttribute &one : attributes)
            element.attributes.append({one.qualifiedName().toString(), one.value().toString(),
                                       offset + written.next().capturedStart(1)});
        open.push_back(std::move(element));
    }

    void endElement(int behind)
    {
        XmlElement done = std::move(open.back());
        open.pop_back();
        if (behind != end) // it has a tag of its own
            compareIndentation(done, text.lastIndexOf(u"</"_s, behind), true);
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
                   compose(isEndTag ? "</%1> closes <%1> of line %2, which is indented "
                                      "differently; add the end tag that is missing before it, or "
                                      "delete this one"
                                    : "<%1> of line %2 is not closed before this line, which is "
                                      "not indented more deeply; add </%1>",
                           element.name, lineOf(text, element.offset))};
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

    XmlError diagnose() const
    {
        static const QRegularExpression endTag(u"^</([^\\s</>]+)\\s*>"_s);
        const int start = skipBlanks(text, end); // of what could not be read
        int last = std::max(start, static_cast<int>(xml.characterOffset()) - 1);
        const QString rest = text.mid(start);
        const Construct &construct = *std::find_if(
            std::begin(constructs), std::end(constructs) - 1,
            [&](const Construct &one) { return rest.startsWith(QLatin1String(one.opening)); });
        const bool isCutOff = xml.error() == QXmlStreamReader::PrematureEndOfDocumentError;
        const bool isText = &construct == std::end(constructs) - 1;
        const bool isComment = &construct == std::begin(constructs);
        if (const auto match = endTag.match(rest); match.hasMatch())
            return nestingError(start, match.captured(1));
        if (isText && isCutOff && open.empty())
            return {text.size(),
                    compose("the document has no root element; add <%1>", names.constFirst())};
        if (isText && isCutOff)
            return {text.size(), compose("<%1> of line %2 is never closed; add </%1>",
                                         open.back().name, lineOf(text, open.back().offset))};
        if (open.empty() && (isText || !document.root.name.isEmpty()) && !rest.startsWith(u"<!"_s)
            && !rest.startsWith(u"<?"_s))
            return {start, compose("only comments are allowed outside of the root element; move "
                                   "this into <%1>, or into a comment",
                                   names.constFirst())};
        QString words = xml.errorString()
                            .replace(u"'[a-zA-Z]'"_s, u"a letter"_s)
                            .remove(QRegularExpression(u"[.]$"_s));
        if (isCutOff)
            words = compose("the %1 is never closed", construct.name);
        else if (isComment && text.midRef(last - 2, 2) == u"--") {
            words = u"\"--\" is not allowed"_s;
            last -= 2;
        }
        if (!isCutOff && lineOf(text, start) != lineOf(text, last))
            words.prepend(compose("in the %1 of line %2: ", construct.name, lineOf(text, start)));
        return {isCutOff ? start : last, compose("%1; %2", words, construct.advice)};
    }

    // The place is the first sign of the mistake: an element that does not exist, or a tag that
    // differs from the layout.
    XmlError nestingError(int place, const QString &name) const
    {
        const auto unknown =
            std::find_if(open.rbegin(), open.rend(), [this](const XmlElement &element) {
                return !names.contains(element.name);
            });
        if (unknown != open.rend())
            return {unknown->offset,
                    compose("unknown element <%1>; %2", unknown->name,
                            didYouMean(unknown->name, names,
                                       unknown == open.rbegin() && names.contains(name)
                                           ? compose("write <%1>", name)
                                           : compose("there are: %1", listed(names))))};
        if (!suspect.text.isEmpty())
            return suspect;
        if (open.empty())
            return {place, compose("</%1> closes nothing; delete it, or add <%1> before it", name)};
        const XmlElement &element = open.back();
        const int line = lineOf(text, element.offset);
        if (findNamed(open, name))
            return {element.offset, compose("<%1> is not closed before </%2> of line %3; add </%1>",
                                            element.name, name, lineOf(text, place))};
        const bool isPair = line == lineOf(text, place)
                            || lineBefore(text, element.offset) == lineBefore(text, place);
        return {place, isPair || !names.contains(name)
                           ? compose("</%1> does not match <%2> of line %3; write </%2>", name,
                                     element.name, line)
                           : compose("</%1> does not match <%2> of line %3; delete it, or add <%1> "
                                     "before it",
                                     name, element.name, line)};
    }

    XmlDocument &document;
    const QString &text;
    const QStringList &names;
    QXmlStreamReader xml;
    int end = 0; // of what is read
    std::vector<XmlElement> open;
    XmlError suspect; // the first tag that differs from the layout
};

// Says what is wrong with a document before a parser sees it.
XmlError textError(const QByteArray &bytes, const QString &text)
{
    static const QRegularExpression conflict(u"^(<{7}|>{7})( |$)"_s,
                                             QRegularExpression::MultilineOption);
    if (const auto mark = conflict.match(text); mark.hasMatch())
        return {mark.capturedStart(),
                compose("a merge conflict; keep one of the two versions, and delete the lines that "
                        "begin with <<<<<<<, ======= and >>>>>>>")};
    const QByteArray content = bytes.startsWith("\xef\xbb\xbf") ? bytes.mid(3) : bytes;
    const int zero = content.indexOf('\0');
    if (zero == 0 || zero == 1 || bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff"))
        return {0, compose("the document is UTF-16; save it as UTF-8")};
    if (const int lost = text.indexOf(QChar(QChar::ReplacementCharacter)); lost >= 0)
        return {lost, compose("a character that is not UTF-8, or was lost when it was saved as "
                              "U+FFFD; write it again, and save the document as UTF-8")};
    if (zero > 0)
        return {text.size(), compose("a zero byte is not allowed; remove it")};
    const auto wrongCharacter = std::find_if(text.begin(), text.end(), [](QChar c) {
        // Qt's reader takes some control characters in names.
        return (c < u' ' && !isBlank(c)) || c.unicode() >= 0xfffe;
    });
    if (wrongCharacter != text.end())
        return {
            static_cast<int>(wrongCharacter - text.begin()),
            compose("the character \"%1\" is not allowed; remove it", QString(*wrongCharacter))};
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        return {0, compose("a second byte order mark; remove it")};
    return {};
}

} // namespace

XmlDocument XmlDocument::fromBytes(const QByteArray &bytes, const QStringList &names)
{
    XmlDocument document;
    document.text = QString::fromUtf8(bytes); // without a byte order mark, up to a zero byte
    document.error = textError(bytes, document.text);
    if (document.error.text.isEmpty())
        Reader(document, names).read();
    return document;
}

} // namespace Quenda::Workbench
