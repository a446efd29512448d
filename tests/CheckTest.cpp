#include "check/Check.h"
#include "SchemaValidator.h"
#include "StringLiterals.h"
#include "document/Place.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

using namespace Quenda::Workbench;

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

QString documentPath(const QString &document)
{
    return QStringLiteral(DOCUMENTS "/") + document;
}

// "\t", "\r" and "\xNN" in the table.
QByteArray unescaped(const QString &text)
{
    QByteArray bytes = text.toUtf8().replace("\\t", "\t").replace("\\r", "\r");
    for (int i = bytes.indexOf("\\x"); i >= 0; i = bytes.indexOf("\\x", i))
        bytes.replace(i, 4, QByteArray::fromHex(bytes.mid(i + 2, 2)));
    return bytes;
}

// A document of a product, as if it stood in a file.
Document documentOf(const QString &path, const QByteArray &content)
{
    QString error;
    const auto place = Place::find(path, &error);
    if (!place)
        qFatal("%s", qPrintable(error));
    return {place->formats.constFirst(), path, XmlDocument::fromBytes(content)};
}

} // namespace

class CheckTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void edits_data()
    {
        QTest::addColumn<QString>("document");
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        QTest::addColumn<QByteArray>(
            "place"); // the text that stands there; null: marked in "after"
        QTest::addColumn<QStringList>("findings");

        QStringList rows = QString::fromUtf8(contentOf(QStringLiteral(EDITS))).split(u"\n\n"_s);
        rows.removeFirst(); // the explanation
        for (const QString &row : qAsConst(rows)) {
            const QStringList lines = row.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
            QMap<QChar, QStringList> parts;
            QStringList findings = lines.mid(2);
            while (!findings.isEmpty() && u"-+^"_s.contains(findings.constFirst().front())) {
                const QString line = findings.takeFirst();
                parts[line.front()] += line.mid(2);
            }
            const auto part = [&parts](char mark) {
                const QByteArray text =
                    unescaped(parts.value(QLatin1Char(mark)).join(QLatin1Char('\n')));
                return parts.contains(QLatin1Char(mark)) ? QByteArray("") + text : QByteArray();
            };
            QTest::newRow(qPrintable(lines.at(0)))
                << lines.at(1) << part('-') << part('+') << part('^') << findings;
        }
    }

    void edits()
    {
        QFETCH(QString, document);
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        QFETCH(QByteArray, place);
        QByteArray content = contentOf(documentPath(document));
        const int start = content.indexOf(before);
        QVERIFY(start >= 0 && !before.isEmpty());
        const int mark = after.indexOf('^');
        content.replace(start, before.size(), QByteArray(after).replace("^", ""));
        const int offset = mark >= 0         ? start + mark
                           : place.isEmpty() ? content.size()
                                             : content.indexOf(place);

        const Document edited = documentOf(documentPath(document), content);
        const Position marked = positionOf(content, offset);
        QStringList messages;
        const auto found = checkDocument(edited, document.section(QLatin1Char('/'), 0, 0));
        for (const Finding &finding : found) {
            const auto [line, column] = finding.position;
            const bool isThere = line == marked.line && column == marked.column;
            messages += (isThere ? QString() : u"elsewhere: "_s)
                        + finding.message().replace(
                            QRegularExpression(u"line \\d+(, column \\d+)?"_s), u"line N"_s);
        }
        QTEST(messages, "findings");
        if (edited.xml.error.text.isEmpty()) {
            Findings shape(edited);
            checkShape(edited, shape);
            QCOMPARE(validator.accepts(*edited.format, content), shape.list.isEmpty());
        }
    }

    void shippedDocuments()
    {
        for (QDirIterator files(QStringLiteral(DOCUMENTS), {u"*.xml"_s}, QDir::Files,
                                QDirIterator::Subdirectories);
             files.hasNext();) {
            const QString path = files.next();
            const Document document = documentOf(path, contentOf(path));
            const QString product = QFileInfo(path).dir().dirName();
            QVERIFY2(checkDocument(document, product).isEmpty(), qPrintable(path));
            QVERIFY2(validator.accepts(*document.format, document.xml.content), qPrintable(path));
            // What holds for the files holds for what is built in.
            QCOMPARE(contentOf(path),
                     contentOf(QString(path).replace(QStringLiteral(DOCUMENTS), u":/widgets"_s)));
        }
    }

    // What editors learn the formats from.
    void examples()
    {
        const QString page = QString::fromUtf8(contentOf(QStringLiteral(PAGE)));
        for (const QString &file : {u"confs.xml"_s, u"tools.xml"_s, u"menus.xml"_s}) {
            const QString example = page.section(u"\n## %1\n"_s.arg(file), 1)
                                        .section(u"```xml\n"_s, 1)
                                        .section(u"```"_s, 0, 0);
            const Document document =
                documentOf(documentPath(u"lorvan/"_s + file), example.toUtf8());
            // Of a product's entries, all but those of the example would be missed.
            const bool isWhole = document.format->kind != DocumentKind::Entries;
            const auto found = checkDocument(document, isWhole ? u"lorvan"_s : QString());
            QVERIFY2(found.isEmpty(), qPrintable(found.value(0).line()));
        }
    }

    // QDomDocument, with which applications read, would run out of stack.
    void nestedBeyondAnySense()
    {
        const auto xml = XmlDocument::fromBytes(QByteArray("<entry>").repeated(200000));
        QCOMPARE(xml.error.text, u"nested deeper than 100 elements; expected less"_s);
    }

    void lines()
    {
        const auto xml = XmlDocument::fromBytes("<a>\r\n \xc3\xa9 <b>\n\t</a>");
        QCOMPARE(xml.error.text,
                 u"not well-formed: expected </b>; <b> is open, since line 2, column 4"_s);
        const Finding finding {Finding::Error, u"f.xml"_s,
                               positionOf(xml.content, xml.error.offset), u"x"_s};
        QCOMPARE(finding.line(), u"f.xml:3:2: error: x"_s);
        QCOMPARE(quoted(u"a\n\t\r\u0001\u202e\U0001f9f5"_s),
                 u"\"a\\n\\t\\r\\u0001\\u202e\U0001f9f5\""_s);
    }

private:
    SchemaValidator validator;
};

QTEST_MAIN(CheckTest)
#include "CheckTest.moc"
