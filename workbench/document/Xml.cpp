#include "document/Xml.h"

#include <QRegularExpression>
#include <QTextCodec>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

// Deeper than any real document; QDomDocument recurses and would overflow the stack.
constexpr std::size_t maximumDepth = 100;

// Where the first byte stands that is not UTF-8; -1 when there is none.
int invalidByte(const QByteArray &content)
{
    const QTextCodec *codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    codec->toUnicode(content.constData(), content.size(), &state);
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return -1;

    QTextCodec::ConverterState single(QTextCodec::IgnoreHeader);
    int character = 0; // where the present one begins
    for (int i = 0; i < content.size() && single.invalidChars == 0; ++i) {
        if (single.remainingChars == 0)
            character = i;
        codec->toUnicode(content.constData() + i, 1, &single);
    }
    return character;
}

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
                             QRegularExpression::AnchoredMatchOption);
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

XmlElement startElement(const QXmlStreamReader &reader, const QString &text, int offset)
{
    XmlElement element;
    element.name = reader.qualifiedName().toString();
    element.offset = offset;
    const StartTag tag = scanStartTag(text, offset);
    const QXmlStreamAttributes attributes = reader.attributes();
    for (int i = 0; i < attributes.size(); ++i)
        element.attributes.append({attributes.at(i).qualifiedName().toString(),
                                   attributes.at(i).value().toString(),
                                   tag.attributes.value(i, offset)});
    return element;
}

XmlError errorOf(const QXmlStreamReader &reader, const QString &text, int tokenOffset,
                 const std::vector<XmlElement> &open)
{
    const int token = markupOffset(text, tokenOffset);
    const int stop = static_cast<int>(reader.characterOffset());
    XmlError error {std::max(stop - 1, 0), reader.errorString()};

    const auto at = [&text](int i) { return i < text.size() ? text.at(i) : QChar(); };
    bool isEnd = at(token) == QLatin1Char('<') && at(token + 1) == QLatin1Char('/');
    const int ampersand = text.lastIndexOf(QLatin1Char('&'), stop - 1);
    if (reader.error() == QXmlStreamReader::PrematureEndOfDocumentError) {
        error = {text.size(), QStringLiteral("the document ends too early")};
        isEnd = true;
    } else if (isEnd) {
        error.offset = token;
    } else if (at(token) == QLatin1Char('<') && scanStartTag(text, token).fault >= 0) {
        error.offset = scanStartTag(text, token).fault;
    } else if (ampersand >= tokenOffset
               && !text.midRef(ampersand, stop - 1 - ampersand).contains(QLatin1Char(';'))) {
        error.offset = ampersand;
    } else if (open.empty()) {
        error.offset = token;
    }
    if (error.text.endsWith(QLatin1Char('.')))
        error.text.chop(1);
    error.text.prepend(QLatin1String("not well-formed: "));
    if (!open.empty()) {
        const Position opened = positionOf(text, open.back().offset);
        error.text +=
            QStringLiteral("; <%1> is open, since line %2, column %3%4")
                .arg(open.back().name)
                .arg(opened.line)
                .arg(opened.column)
                .arg(isEnd ? QStringLiteral("; expected </%1>").arg(open.back().name) : QString());
    }
    return error;
}

// The elements; false at an error, which is set.
bool readElements(XmlDocument &document)
{
    QXmlStreamReader reader(document.text);
    reader.setNamespaceProcessing(false);
    std::vector<XmlElement> open;
    while (!reader.atEnd()) {
        const int before = static_cast<int>(reader.characterOffset());
        switch (reader.readNext()) {
        case QXmlStreamReader::StartDocument:
            document.version = reader.documentVersion().toString();
            document.encoding = reader.documentEncoding().toString();
            break;
        case QXmlStreamReader::DTD:
            document.documentType = reader.text().toString().trimmed();
            document.documentTypeOffset = markupOffset(document.text, before);
            if (document.documentType.contains(QLatin1Char('['))) {
                document.error = {document.documentTypeOffset,
                                  QStringLiteral("a document type with an internal subset; "
                                                 "expected none")};
                return false;
            }
            break;
        case QXmlStreamReader::StartElement: {
            const int offset = markupOffset(document.text, before);
            if (open.size() == maximumDepth) {
                document.error = {offset,
                                  QStringLiteral("nested deeper than %1 elements; expected less")
                                      .arg(maximumDepth)};
                return false;
            }
            open.push_back(startElement(reader, document.text, offset));
            break;
        }
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
            if (!open.empty() && (reader.isCDATA() || !reader.isWhitespace())) {
                XmlElement &element = open.back();
                if (element.textOffset < 0)
                    element.textOffset = reader.isCDATA() ? markupOffset(document.text, before)
                                                          : skipBlanks(document.text, before);
                element.text += reader.text();
            }
            break;
        case QXmlStreamReader::Invalid:
            document.error = errorOf(reader, document.text, before, open);
            return false;
        default:
            break;
        }
    }
    return true;
}

} // namespace

const XmlAttribute *XmlElement::find(const char *attribute) const
{
    const auto found =
        std::find_if(attributes.begin(), attributes.end(), [attribute](const XmlAttribute &a) {
            return a.name == QLatin1String(attribute);
        });
    return found == attributes.end() ? nullptr : &*found;
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
    const auto found =
        std::find_if(children.begin(), children.end(), [childName](const XmlElement &c) {
            return c.name == QLatin1String(childName);
        });
    return found == children.end() ? nullptr : &*found;
}

QString XmlElement::childText(const char *childName) const
{
    const XmlElement *found = child(childName);
    return found ? found->text : QString();
}

XmlDocument XmlDocument::fromBytes(const QByteArray &content)
{
    XmlDocument document;
    document.text = QString::fromUtf8(content.constData(), content.size());
    if (const int invalid = invalidByte(content); invalid >= 0) {
        const auto byte = static_cast<uchar>(content.at(invalid));
        document.error = {QString::fromUtf8(content.left(invalid)).size(),
                          QStringLiteral("the byte 0x%1 is not UTF-8; expected UTF-8")
                              .arg(byte, 2, 16, QLatin1Char('0'))};
    } else if (const int zero = document.text.indexOf(QChar(0)); zero >= 0) {
        document.error = {
            zero, QStringLiteral("a zero byte, behind which a host reads nothing; expected text")};
    } else {
        readElements(document);
    }
    return document;
}

Position positionOf(const QString &text, int offset)
{
    const QStringRef before = text.leftRef(offset);
    const int lineStart = before.lastIndexOf(QLatin1Char('\n')) + 1;
    const QVector<uint> characters = before.mid(lineStart).toUcs4();
    return {static_cast<int>(before.count(QLatin1Char('\n'))) + 1, characters.size() + 1};
}
