#include "Mutator.h"

#include <QRegularExpression>
#include <QString>
#include <QVector>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

extern "C" size_t LLVMFuzzerMutate(uint8_t *data, size_t size, size_t maxSize);

namespace {

// The well-formed elements of a text, each with its contents.
QVector<QStringRef> elementsOf(const QString &text)
{
    static const QRegularExpression tag(
        QStringLiteral("<(/?)[A-Za-z](?:\"[^\"]*\"|[^<>\"])*?(/?)>"));
    QVector<QStringRef> elements;
    QVector<int> open;
    for (auto tags = tag.globalMatch(text); tags.hasNext();) {
        const QRegularExpressionMatch match = tags.next();
        const bool isEnd = match.capturedLength(1) > 0;
        if (!isEnd)
            open.append(match.capturedStart());
        if ((isEnd || match.capturedLength(2) > 0) && !open.isEmpty()) {
            const int begin = open.takeLast();
            elements.append(text.midRef(begin, match.capturedEnd() - begin));
        }
    }
    return elements;
}

// The values of attributes, and the texts.
QVector<QStringRef> valuesOf(const QString &text)
{
    static const QRegularExpression value(
        QStringLiteral("(?<==\")[^\"<]*(?=\")|(?<=>)[^<]*[^<\\s][^<]*(?=<)"));
    QVector<QStringRef> values;
    for (auto matches = value.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        values.append(text.midRef(match.capturedStart(), match.capturedLength()));
    }
    return values;
}

// An arbitrary value, often a word of the dictionary.
QString changed(const QString &value)
{
    QByteArray bytes = value.toLatin1();
    const auto size = static_cast<size_t>(bytes.size());
    const auto room = size + 20;
    bytes.resize(static_cast<int>(room));
    const size_t newSize = LLVMFuzzerMutate(reinterpret_cast<uint8_t *>(bytes.data()), size, room);
    return QString::fromLatin1(bytes.constData(), static_cast<int>(newSize));
}

// Like a mistake of a person: one element removed, copied or moved, or one value changed.
QString edited(QString text, std::minstd_rand &random)
{
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    const QString before = text; // the parts refer to it
    const bool isElement = below(2) == 0;
    const QVector<QStringRef> parts = isElement ? elementsOf(before) : valuesOf(before);
    if (parts.isEmpty())
        return text;
    const QStringRef &part = parts.at(below(parts.size()));
    const QStringRef &other = parts.at(below(parts.size()));
    const int what = below(3);
    if (isElement) {
        const bool isRemoved = what < 2;
        const bool isInserted = what > 0;
        const int shift = isInserted && other.position() <= part.position() ? part.size() : 0;
        if (isInserted)
            text.insert(other.position(), part.toString());
        return isRemoved ? text.remove(part.position() + shift, part.size()) : text;
    }
    const QString value = part.toString();
    const QString newValue = what == 0 ? other.toString() : changed(what == 1 ? value : QString());
    if (below(2) == 0) // everywhere
        return text.replace(QLatin1Char('"') + value + QLatin1Char('"'),
                            QLatin1Char('"') + newValue + QLatin1Char('"'));
    return text.replace(part.position(), part.size(), newValue);
}

std::vector<QByteArray> &correctDocuments()
{
    static std::vector<QByteArray> documents;
    return documents;
}

} // namespace

void rememberCorrect(const QByteArray &document)
{
    constexpr std::size_t most = 1000;
    std::vector<QByteArray> &documents = correctDocuments();
    if (documents.size() < most)
        documents.push_back(document);
    else
        documents[qHash(document) % most] = document;
}

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maxSize, unsigned seed)
{
    std::minstd_rand random(seed);
    auto text = QString::fromLatin1(reinterpret_cast<char *>(data), static_cast<int>(size));
    const std::vector<QByteArray> &correct = correctDocuments();
    if (!correct.empty() && random() % 4 == 0)
        text = QString::fromLatin1(correct[random() % correct.size()]);
    const std::string result =
        random() % 4 > 0 ? edited(text, random).toLatin1().toStdString() : "";
    if (result.empty() || result.size() > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::copy(result.begin(), result.end(), data);
    return result.size();
}
