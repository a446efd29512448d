// Prints a table of edits to a document, with what the checker finds after each of them.

#include "Files.h"
#include "SchemaValidator.h"
#include "documents/Place.h"

#include <QApplication>
#include <QFileInfo>

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

// What stands after the mark in the lines at the front that begin with it.
QStringList take(QChar mark, QStringList *lines)
{
    QStringList taken;
    while (!lines->isEmpty() && lines->constFirst().startsWith(mark))
        taken += lines->takeFirst().mid(2);
    return taken;
}

class Table
{
public:
    explicit Table(const QString &path)
        : document(QStringLiteral(PRODUCT "/%1.xml").arg(QFileInfo(path).baseName())),
          content(contentOf(document)),
          place(Place::find(document, &error).value()),
          format(*place.formats.constFirst())
    {
        QStringList rows = QString::fromUtf8(contentOf(path)).split(u"\n\n"_s);
        print(rows.takeFirst()); // the explanation
        for (const QString &row : qAsConst(rows))
            printRow(row.split(u'\n', Qt::SkipEmptyParts));
    }

    bool fits = true; // each row, the document

private:
    static void print(const QString &text) { std::printf("%s\n", qUtf8Printable(text)); }

    static void print(QChar mark, const QStringList &lines)
    {
        for (const QString &line : lines)
            print(line.isEmpty() ? QString(mark) : mark + u" "_s + line);
    }

    void printRow(QStringList lines)
    {
        print(u"\n"_s + lines.constFirst());
        const QString row = lines.takeFirst();
        QString product = place.product;
        if (lines.constFirst().startsWith(u"as "_s)) {
            print(lines.constFirst());
            product = lines.takeFirst().mid(3);
        }
        QByteArray edited = content;
        QByteArray removed;
        bool isEdited = true;
        while (!lines.isEmpty()) {
            const QStringList before = take(u'-', &lines);
            if (!before.isEmpty())
                removed = unescaped(before.join(u'\n'));
            const QStringList after = take(u'+', &lines);
            const int start = edited.indexOf(removed);
            isEdited = isEdited && start >= 0 && !removed.isEmpty() && !after.isEmpty();
            if (!isEdited)
                report(row, u"cannot replace \"%1\""_s.arg(QString::fromUtf8(removed)));
            else
                edited.replace(start, removed.size(), unescaped(after.join(u'\n')));
            print(u'-', before);
            print(u'+', after);
            if (!lines.isEmpty() && !lines.constFirst().startsWith(u'=')) {
                if (after.isEmpty())
                    print(lines.takeFirst());
                continue;
            }
            const QStringList expected = take(u'=', &lines).filter(u":"_s);
            QStringList found = isEdited ? findings(edited, product) : expected;
            if (found.size() < expected.size()) {
                report(row, u"finds less than before; if that is right, delete what it finds"_s);
                found = expected;
            }
            print(u'=', found.isEmpty() ? QStringList {u"nothing"_s} : found);
            edited = content;
            isEdited = true;
        }
    }

    void report(const QString &row, const QString &text)
    {
        std::fprintf(stderr, "row \"%s\": %s\n", qPrintable(row), qPrintable(text));
        fits = false;
    }

    QStringList findings(const QByteArray &edited, const QString &product)
    {
        const Document read = format.parse({}, edited);
        QStringList texts;
        const QVector<Finding> found = checkDocuments({read}, product);
        for (const Finding &finding : found)
            texts += finding.toString().mid(1); // without the path, which is empty
        Findings shape(read);
        if (read.xml.error.text.isEmpty())
            checkShape(read, shape);
        if (read.xml.error.text.isEmpty() && validator.accepts(format, edited) != shape.isEmpty())
            texts += u"The schema does not agree."_s;
        return texts;
    }

    QString error;
    const QString document;
    const QByteArray content;
    const Place place;
    const Format &format;
    SchemaValidator validator;
};

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    // A rule that listens to Qt's messages gives the handler back.
    const QtMessageHandler handler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(handler);
    const bool fits = Table(QString::fromLocal8Bit(argv[1])).fits;
    return fits && qInstallMessageHandler(nullptr) == handler ? 0 : 1;
}
