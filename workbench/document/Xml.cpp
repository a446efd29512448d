#include "document/Xml.h"

#include "document/Text.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace Quenda::Workbench {

namespace {

// Deeper than any real document; QDomDocument recurses and would overflow the stack.
constexpr int maximumDepth = 100;

int skipBlanks(const QString &text, int offset)
{
    while (offset < text.size() && text.at(offset).isSpace())
        ++offset;
    return offset;
}

// Where a token's markup begins. The reader may be one or two characters into it already.
int markupOffset(const QString &text, int readerOffset)
{
    const int bracket = text.lastIndexOf(QLatin1Char('<'), readerOffset);
    if (bracket >= 0 && readerOffset - bracket <= 2
        && !text.midRef(bracket, readerOffset - bracket).contains(QLatin1Char('>')))
        return bracket;
    return skipBlanks(text, readerOffset);
}

struct StartTag
{
    QVector<int> attributes; // where each begins
    int fault = -1; // where the first begins that is not well-formed, or stands twice
};

StartTag scanStartTag(const QString &text, int tag)
{
    static const QRegularExpression name(QStringLiteral("<[^ \\t\\r\\n<>/=\"']+"));
    static const QRegularExpression attribute(QStringLiteral(
        "[ \\t\\r\\n]+([^ \\t\\r\\n<>/=\"']+)[ \\t\\r\\n]*=[ \\t\\r\\n]*(\"[^\"<]*\"|'[^'<]*')"));
    static const QRegularExpression end(QStringLiteral("[ \\t\\r\\n]*/?>"));
    const auto matchAt = [&text](const QRegularExpression &pattern, int offset) {
        return pattern.match(text, offset, QRegularExpression::NormalMatch,
                             QRegularExpression::AnchoredMatchOption
                                 | QRegularExpression::DontCheckSubjectStringMatchOption);
    };

    StartTag result;
    QStringList names;
    int offset = matchAt(name, tag).capturedEnd();
    if (offset < 0)
        return result;
    for (auto match = matchAt(attribute, offset); match.hasMatch();
         match = matchAt(attribute, offset)) {
        if (names.contains(match.captured(1)) && result.fault < 0)
            result.fault = match.capturedStart(1);
        names += match.captured(1);
        result.attributes += match.capturedStart(1);
        offset = match.capturedEnd();
    }
    if (result.fault < 0 && !matchAt(end, offset).hasMatch())
        result.fault = skipBlanks(text, offset);
    return result;
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
            before = static_cast<int>(xml.characterOffset());
            readToken(xml.readNext());
        }
    }

private:
    void readToken(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::StartDocument:
            document.version = xml.documentVersion().toString();
            document.encoding = xml.documentEncoding().toString();
            break;
        case QXmlStreamReader::DTD:
            document.documentType = xml.text().toString().trimmed();
            document.documentTypeOffset = markupOffset(text, before);
            if (document.documentType.contains(QLatin1Char('[')))
                document.error = {
                    document.documentTypeOffset,
                    compose("a document type with an internal subset; expected none")};
            break;
        case QXmlStreamReader::StartElement:
            startElement(markupOffset(text, before));
            break;
        case QXmlStreamReader::EndElement: {
            XmlElement done = std::move(open.back());
            open.pop_back();
            if (open.empty())
                document.root = std::move(done);
            else
                open.back().children.push_back(std::move(done));
            break;
        }
        case QXmlStreamReader::Characters:
            if (!open.empty() && (xml.isCDATA() || !xml.isWhitespace()))
                addText(open.back());
            break;
        case QXmlStreamReader::Invalid:
            setError();
            break;
        default:
            break;
        }
    }

    void startElement(int offset)
    {
        if (open.size() == maximumDepth) {
            document.error = {
                offset, compose("nested deeper than %1 elements; expected less", maximumDepth)};
            return;
        }
        XmlElement element;
        element.name = xml.qualifiedName().toString();
        element.offset = offset;
        const StartTag tag = scanStartTag(text, offset);
        const QXmlStreamAttributes attributes = xml.attributes();
        for (int i = 0; i < attributes.size(); ++i)
            element.attributes.append({attributes.at(i).qualifiedName().toString(),
                                       attributes.at(i).value().toString(),
                                       tag.attributes.value(i, offset)});
        open.push_back(std::move(element));
    }

    void addText(XmlElement &element)
    {
        if (element.textOffset < 0)
            element.textOffset =
                xml.isCDATA() ? markupOffset(text, before) : skipBlanks(text, before);
        element.text += xml.text();
    }

    bool isAt(int offset, const char *markup) const
    {
        return text.midRef(offset).startsWith(QLatin1String(markup));
    }

    // Where what is wrong begins, as far as that can be told from where the reader stopped.
    int errorOffset(int token) const
    {
        const int stop = static_cast<int>(xml.characterOffset());
        const int bracket = text.lastIndexOf(QLatin1Char('<'), stop - 1);
        const int ampersand = text.lastIndexOf(QLatin1Char('&'), stop - 1);
        if (isAt(token, "<!--") || isAt(token, "<![CDATA[") || isAt(token, "</"))
            return token;
        if (xml.error() == QXmlStreamReader::PrematureEndOfDocumentError)
            return text.size();
        if (const int fault = scanStartTag(text, token).fault; fault >= 0)
            return fault;
        if (xml.errorString().startsWith(QLatin1String("Entity")) // read to its end already
            || (ampersand >= before
                && !text.midRef(ampersand, stop - 1 - ampersand).contains(QLatin1Char(';'))))
            return ampersand;
        if (open.empty())
            return text.leftRef(token).contains(QLatin1Char('<')) ? token : skipBlanks(text, 0);
        if (stop - bracket <= 2)
            return bracket;
        return stop - (text.leftRef(stop).endsWith(QLatin1String("]]>")) ? 3 : 1);
    }

    QString errorText(int token, bool isCut) const
    {
        if (isAt(token, "<!--"))
            return compose("a comment is not closed, or holds \"--\"");
        if (isCut)
            return isAt(token, "<![CDATA[") ? compose("a CDATA section is not closed")
                                            : compose("the document ends too early");
        const QString message = xml.errorString();
        return message.endsWith(QLatin1Char('.')) ? message.chopped(1) : message;
    }

    void setError()
    {
        const bool isCut = xml.error() == QXmlStreamReader::PrematureEndOfDocumentError;
        const int token = markupOffset(text, before);
        QString what = compose("not well-formed: %1", errorText(token, isCut));
        if (!open.empty()) {
            const Position opened = positionOf(text, open.back().offset);
            what += compose("; <%1> is open, since line %2, column %3", open.back().name,
                            opened.line, opened.column);
            if (isCut || isAt(token, "</"))
                what += compose("; expected </%1>", open.back().name);
        }
        document.error = {errorOffset(token), what};
    }

    XmlDocument &document;
    const QString &text;
    QXmlStreamReader xml;
    std::vector<XmlElement> open;
    int before = 0; // where the present token begins, or the one before ended
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
    const char *const byteOrderMark = "\xef\xbb\xbf";
    const QByteArray bytes = content.mid(content.startsWith(byteOrderMark) ? 3 : 0);
    XmlDocument document;
    document.text = QString::fromUtf8(bytes.constData(), bytes.size());
    // Qt has put another character in the place of the first byte that is not UTF-8.
    const QByteArray read = document.text.toUtf8();
    int valid = 0;
    while (valid < bytes.size() && valid < read.size() && bytes.at(valid) == read.at(valid))
        ++valid;
    while (valid < bytes.size() && valid > 0 && (read.at(valid) & 0xc0) == 0x80)
        --valid; // to that character's own first byte
    if (valid < bytes.size())
        document.error = {QString::fromUtf8(bytes.left(valid)).size(),
                          compose("the byte 0x%1 is not UTF-8; expected UTF-8",
                                  QString::number(static_cast<uchar>(bytes.at(valid)), 16))};
    else if (const int zero = document.text.indexOf(QChar(0)); zero >= 0)
        document.error = {zero,
                          compose("a zero byte, behind which a host reads nothing; expected text")};
    else
        Reader(document).read();
    return document;
}

Position positionOf(const QString &text, int offset)
{
    const QStringRef before = text.leftRef(offset);
    const int lineStart = before.lastIndexOf(QLatin1Char('\n')) + 1;
    const QVector<uint> characters = before.mid(lineStart).toUcs4();
    return {static_cast<int>(before.count(QLatin1Char('\n'))) + 1, characters.size() + 1};
}

} // namespace Quenda::Workbench
