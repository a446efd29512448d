// Prints a table of edits to the shipped documents, with what the checker finds after each of them.

#include "Files.h"
#include "Place.h"
#include "SchemaValidator.h"
#include "StringLiterals.h"
#include "check/Check.h"

#include <QApplication>
#include <QRegularExpression>

#include <cstdio>

using namespace Quenda::Workbench;

namespace {

QByteArray unescaped(const QString &text)
{
    QByteArray bytes = text.toUtf8().replace("\\t", "\t").replace("\\r", "\r");
    for (int i = bytes.indexOf("\\x"); i >= 0; i = bytes.indexOf("\\x", i))
        bytes.replace(i, 4, QByteArray::fromHex(bytes.mid(i + 2, 2)));
    return bytes;
}

// A row without its findings: its name, the document, and what is replaced by what.
class Edit
{
public:
    explicit Edit(QStringList lines)
    {
        document = lines.value(1).section(u' ', 0, 0);
        product = lines.value(1).section(u" as "_s, 1);
        if (product.isEmpty())
            product = document.section(u'/', 0, 0);
        content = contentOf(QStringLiteral(DOCUMENTS "/") + document);
        lines = lines.mid(2);
        while (!lines.isEmpty()) {
            const QStringList before = take(u'-', &lines);
            const QByteArray removed = unescaped(before.join(u'\n'));
            const QByteArray added = unescaped(take(u'+', &lines).join(u'\n'));
            const int start = content.indexOf(removed);
            if (start < 0 || before.isEmpty())
                qFatal("%s does not contain %s", qPrintable(document), removed.constData());
            content.replace(start, removed.size(), added);
            if (firstLine == 0)
                firstLine = content.left(start).count('\n') + 1;
        }
    }

    QStringList findings(SchemaValidator *validator) const
    {
        QString error;
        const Place place = Place::find(QStringLiteral(DOCUMENTS "/") + document, &error).value();
        const Document edited {place.formats.constFirst(), document,
                               XmlDocument::fromBytes(content)};
        QStringList texts;
        const QVector<Finding> found = checkDocument(edited, product);
        for (const Finding &finding : found)
            texts += relative(u"line %1"_s.arg(finding.position.line)).mid(5)
                     + u":%1: %2"_s.arg(finding.position.column).arg(relative(finding.message()));
        Findings shape(edited);
        if (edited.xml.error.text.isEmpty())
            checkShape(edited, shape);
        if (edited.xml.error.text.isEmpty()
            && validator->accepts(*edited.format, content) != shape.list.isEmpty())
            texts += u"The schema does not agree."_s;
        return texts;
    }

private:
    static QStringList take(QChar mark, QStringList *lines)
    {
        QStringList taken;
        while (!lines->isEmpty() && lines->constFirst().startsWith(mark))
            taken += lines->takeFirst().mid(2);
        return taken;
    }

    // Lines count from that of the edit, so that a row does not depend on what is above it.
    QString relative(const QString &text) const
    {
        QString result;
        const QStringList parts = text.split(u"line "_s);
        for (const QString &part : parts) {
            const int digits = QRegularExpression(u"^\\d*"_s).match(part).capturedLength();
            const int line = part.leftRef(digits).toInt() - firstLine;
            result += result.isNull() ? part
                                      : u"line "_s + (line < 0 ? u""_s : u"+"_s)
                                            + QString::number(line) + part.midRef(digits);
        }
        return result;
    }

    QString document;
    QString product;
    QByteArray content;
    int firstLine = 0;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    SchemaValidator validator;
    QStringList rows =
        QString::fromUtf8(contentOf(QString::fromLocal8Bit(argv[1]))).split(u"\n\n"_s);
    std::printf("%s\n", qUtf8Printable(rows.takeFirst())); // the explanation
    for (const QString &row : qAsConst(rows)) {
        const QStringList lines = row.split(u'\n', Qt::SkipEmptyParts);
        static const QRegularExpression finding(u"^([-+]\\d+:\\d+: |The schema).*"_s);
        QStringList edit = lines;
        while (finding.match(edit.constLast()).hasMatch())
            edit.removeLast();
        edit += Edit(edit).findings(&validator);
        std::printf("\n%s\n", qUtf8Printable(edit.join(u'\n')));
    }
}
