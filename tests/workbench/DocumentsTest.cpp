#include "Files.h"
#include "SchemaValidator.h"
#include "documents/Place.h"
#include "entries/Entries.h"
#include "menus/Menus.h"
#include "surface/Surface.h"

#include <QDir>
#include <QMenuBar>
#include <QTest>

#include <memory>

using namespace Quenda::Workbench;

// What is in the documents that ship is the matter of those who edit them, and of the outlines.
class DocumentsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shipped_data()
    {
        QTest::addColumn<QString>("folder");
        const QDir documents(QStringLiteral(DOCUMENTS));
        const QStringList products = documents.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString &product : products)
            QTest::newRow(qPrintable(product)) << documents.filePath(product);
    }

    void shipped()
    {
        QFETCH(QString, folder);
        QString error;
        const auto place = Place::find(folder, &error);
        QVERIFY2(place, qPrintable(error));
        const Documents documents = place->read();
        QCOMPARE(findingsIn(documents, place->product), QString());
        for (const Document &document : documents) {
            QVERIFY2(validator.accepts(*document.format, contentOf(document.path)),
                     qPrintable(document.path));
            if (document.format == &menuFormat()) {
                const std::unique_ptr<QMenuBar> menuBar(loadMenuBar(document.xml.text));
                QVERIFY(menuBar && !menuBar->actions().isEmpty());
            }
        }
    }

    // What editors learn the formats from.
    void examples()
    {
        const QString page = QString::fromUtf8(contentOf(QStringLiteral(PAGE)));
        for (const Format *format : allFormats()) {
            const QString example = page.section(u"\n## %1\n"_s.arg(format->fileName), 1)
                                        .section(u"```xml\n"_s, 1)
                                        .section(u"```"_s, 0, 0);
            // The example of the entries has not all that a host reads.
            const QString product = format == &entryFormat() ? QString() : u"lorvan"_s;
            QCOMPARE(findingsIn({format->parse({}, example.toUtf8())}, product), QString());
        }
    }

private:
    static QString findingsIn(const Documents &documents, const QString &product)
    {
        QStringList texts;
        const QVector<Finding> findings = checkDocuments(documents, product);
        for (const Finding &finding : findings)
            texts += finding.toString();
        return texts.join(u'\n');
    }

    SchemaValidator validator;
};

QTEST_MAIN(DocumentsTest)
#include "DocumentsTest.moc"
