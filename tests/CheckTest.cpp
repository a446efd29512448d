#include "check/Check.h"
#include "StringLiterals.h"
#include "document/Place.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

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

// All findings but the remarks on mnemonics, which the shipped documents have too.
QVector<Finding> findingsOf(const QString &path)
{
    QString error;
    const auto place = Place::find(path, &error);
    if (!place)
        qFatal("%s", qPrintable(error));
    QVector<Finding> findings = checkDocuments(place->read(), place->product);
    findings.erase(std::remove_if(findings.begin(), findings.end(),
                                  [](const Finding &finding) {
                                      return finding.text.contains(u"share the mnemonic"_s);
                                  }),
                   findings.end());
    return findings;
}

bool schemaAccepts(const QString &path)
{
    const QString schema = QFileInfo(path).completeBaseName() == u"confs"_s
                               ? u"entries"_s
                               : QFileInfo(path).completeBaseName();
    QProcess xmllint;
    xmllint.start(u"xmllint"_s, {u"--noout"_s, u"--relaxng"_s,
                                 QStringLiteral(SCHEMAS "/%1.rng").arg(schema), path});
    if (!xmllint.waitForFinished() || (xmllint.exitCode() != 0 && xmllint.exitCode() != 3))
        qFatal("xmllint: %s %s", qPrintable(xmllint.errorString()),
               xmllint.readAllStandardError().constData());
    return xmllint.exitCode() == 0;
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
        QTest::addColumn<bool>("schemaRejects");
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
            const bool schemaRejects = findings.removeOne(u"schema"_s);
            QTest::newRow(qPrintable(lines.at(0)))
                << lines.at(1) << part('-') << part('+') << part('^') << schemaRejects << findings;
        }
    }

    void edits()
    {
        QFETCH(QString, document);
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        QFETCH(QByteArray, place);
        QFETCH(bool, schemaRejects);
        QByteArray content = contentOf(documentPath(document));
        const int start = content.indexOf(before);
        QVERIFY(start >= 0 && !before.isEmpty());
        const int mark = after.indexOf('^');
        content.replace(start, before.size(), QByteArray(after).replace("^", ""));
        const int offset = mark >= 0         ? start + mark
                           : place.isEmpty() ? content.size()
                                             : content.indexOf(place);

        QTemporaryDir directory;
        const QString path = directory.filePath(document);
        QVERIFY(QDir(directory.path()).mkdir(document.section(QLatin1Char('/'), 0, 0)));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        const auto findings = findingsOf(path);
        QStringList messages;
        for (const Finding &finding : findings)
            messages += finding.message().replace(
                QRegularExpression(u"line \\d+(, column \\d+)?"_s), u"line N"_s);
        QTEST(messages, "findings");
        if (!findings.isEmpty()) {
            const QByteArray line = content.left(offset).split('\n').constLast();
            QCOMPARE(findings.constLast().position.line, content.left(offset).count('\n') + 1);
            QCOMPARE(findings.constLast().position.column, QString::fromUtf8(line).size() + 1);
        }
        if (schemaRejects)
            QVERIFY(!schemaAccepts(path));
    }

    void shippedDocuments()
    {
        for (QDirIterator files(QStringLiteral(DOCUMENTS), {u"*.xml"_s}, QDir::Files,
                                QDirIterator::Subdirectories);
             files.hasNext();) {
            const QString path = files.next();
            QVERIFY2(findingsOf(path).isEmpty() && schemaAccepts(path), qPrintable(path));
            // What holds for the files holds for what is built in.
            QCOMPARE(contentOf(path),
                     contentOf(QString(path).replace(QStringLiteral(DOCUMENTS), u":/widgets"_s)));
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
};

QTEST_MAIN(CheckTest)
#include "CheckTest.moc"
