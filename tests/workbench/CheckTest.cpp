#include "check/Check.h"
#include "Files.h"
#include "Place.h"
#include "SchemaValidator.h"
#include "StringLiterals.h"

#include <QDirIterator>
#include <QTest>

using namespace Quenda::Workbench;

namespace {

QString documentPath(const QString &document)
{
    return QStringLiteral(DOCUMENTS "/") + document;
}

// A document of a product with other content.
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
    void shippedDocuments()
    {
        for (QDirIterator files(QStringLiteral(DOCUMENTS), {u"*.xml"_s}, QDir::Files,
                                QDirIterator::Subdirectories);
             files.hasNext();) {
            const QString path = files.next();
            const Document document = documentOf(path, contentOf(path));
            const QString product = QFileInfo(path).dir().dirName();
            QVERIFY2(checkDocument(document, product).isEmpty(), qPrintable(path));
            QVERIFY2(validator.accepts(*document.format, document.xml.text.toUtf8()),
                     qPrintable(path));
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
            QVERIFY2(found.isEmpty(), qPrintable(found.value(0).toString()));
        }
    }

    void documentsWithoutAPlaceForAnEdit()
    {
        const auto errorOf = [](const QByteArray &content) {
            const XmlError error = XmlDocument::fromBytes(content).error;
            return u"%1: %2"_s.arg(error.offset).arg(error.text);
        };
        QCOMPARE(errorOf({}), u"0: the document has no root element; add it"_s);
        QCOMPARE(errorOf("<!---->\n"), u"8: the document has no root element; add it"_s);
        // QDomDocument, with which the library reads, would run out of stack.
        QCOMPARE(errorOf(QByteArray("<entry>").repeated(200000)),
                 u"700: nested more than 100 elements deep"_s);
    }

    void lines()
    {
        const auto xml = XmlDocument::fromBytes("<a>\r\n \xc3\xa9 <b>\n\t</a>");
        QCOMPARE(xml.error.text, u"<b> of line 2 is not closed; add </b> before this"_s);
        const Finding finding {Finding::Error, u"f.xml"_s, positionOf(xml.text, xml.error.offset),
                               u"x"_s};
        QCOMPARE(finding.toString(), u"f.xml:3:2: error: x"_s);
        QCOMPARE(quoted(u"a\n\t\r\u0001\u202e\U0001f9f5"_s),
                 u"\"a\\n\\t\\r\\u0001\\u202e\U0001f9f5\""_s);
    }

private:
    SchemaValidator validator;
};

QTEST_MAIN(CheckTest)
#include "CheckTest.moc"
