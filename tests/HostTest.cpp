#include "Table.h"

#include <QProcess>
#include <QtTest>

namespace {

struct Outcome
{
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

Outcome runHost(const QStringList &arguments)
{
    QProcess host;
    host.start(QStringLiteral(QUENDA_HOST), arguments);
    if (!host.waitForFinished() || host.exitStatus() != QProcess::NormalExit)
        qFatal("the host did not run to its end");
    return {host.exitCode(), host.readAllStandardOutput(), host.readAllStandardError()};
}

} // namespace

class HostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void report()
    {
        const Outcome outcome = runHost({"lorvan"_s});
        QCOMPARE(outcome.status, 0);
        QVERIFY(outcome.errors.isEmpty());

        QStringList rows;
        const QStringList lines = QString::fromUtf8(outcome.output).split(QLatin1Char('\n'));
        for (const QString &line : lines)
            rows += line.simplified();
        QVERIFY(rows.contains("filePassword (empty) text"_s));
        QVERIFY(rows.contains("fileOpenDomains all list"_s));
        QVERIFY(rows.contains("maxPieceCount -1 number"_s));
        QVERIFY(rows.contains("toolEnabled false flag"_s));
        QVERIFY(rows.contains("quenda_file_key 0%1k text"_s.arg(QString(62, QLatin1Char('*')))));
        QVERIFY(rows.filter("autoMarkerEnabled"_s).isEmpty());
        QVERIFY(!rows.filter(QRegularExpression(
                                 "^tools \\d+ bytes 4 tool boxes, 9 tool bars, 0 keys$"_s))
                     .isEmpty());
        QVERIFY(!rows.filter(QRegularExpression("^menus \\d+ bytes 19 menus, 93 actions$"_s))
                     .isEmpty());
    }

    void documentsByteForByte()
    {
        for (const QString &product : {"lorvan"_s, "tesmar"_s})
            for (const QString &document : {"tools"_s, "menus"_s}) {
                QFile file(QStringLiteral(DOCUMENTS "/%1/%2.xml").arg(product, document));
                QVERIFY(file.open(QIODevice::ReadOnly));
                const Outcome outcome = runHost({product, "--document"_s, document});
                QCOMPARE(outcome.status, 0);
                QCOMPARE(outcome.output, file.readAll());
            }
    }

    void commandLine_data()
    {
        addColumns<QString, int, QString, QString>("arguments", "status", "output",
                                                   "error"); // a part of the one line
        const auto row = [](const char *arguments, int status, const char *output,
                            const char *error) {
            addRow(arguments, arguments, status, output, error);
        };
        row("lorvan --entry fileSaveDomain", 0, "entp\n", "");
        row("TESMAR --entry filePassword", 0, "\n", "");
        row("lorvan --entry optimizeEnabled", 1, "", "no entry \"optimizeEnabled\"");
        row("other", 1, "", "no configuration for product \"other\"; there are: lorvan, tesmar");
        row("other --entry fileSaveDomain", 1, "", "no configuration for product \"other\"");
        row("lorvan --document confs", 2, "", "no document \"confs\"; there are: tools, menus");
        row("lorvan --entry a --document tools", 2, "", "exclude each other");
        row("lorvan --unknown", 2, "", "Unknown option 'unknown'");
        row("lorvan --entry", 2, "", "Missing value after '--entry'");
        row("", 2, "", "needs one product");
        row("lorvan -x", 2, "", "Unknown option 'x'");
        row("lorvan tesmar", 2, "", "needs one product");
        row("--check none", 2, "", "\"none\" is neither a file nor a product");
        row("--check lorvan --entry a", 2, "", "exclude each other");
#ifdef QUENDAHOST_SURFACE
        row("lorvan --menu menuFile", 2, "", "need --window or --screenshot");
        row("lorvan --state 0x31 --screenshot s.png", 2, "",
            "no state \"0x31\"; there are: 0x11, ");
        row("tesmar --state x --screenshot s.png", 2, "", "no state \"x\"; there are: 0x01, ");
        row("tesmar --menu menuNone --screenshot s.png", 2, "", "no menu \"menuNone\"");
        row("tesmar --screenshot missing/s.png", 2, "", "cannot write missing/s.png");
        row("none --screenshot s.png", 1, "", "no configuration");
#endif
    }

    void commandLine()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, error);
        const Outcome outcome = runHost(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
        QTEST(outcome.status, "status");
        QTEST(QString::fromUtf8(outcome.output), "output");
        if (error.isEmpty()) {
            QVERIFY(outcome.errors.isEmpty());
        } else {
            QVERIFY(outcome.errors.startsWith("error: "));
            QVERIFY2(outcome.errors.contains(error.toUtf8()), outcome.errors.constData());
            QCOMPARE(outcome.errors.count('\n'), 1);
        }
    }

    void checkOfDocuments()
    {
        const Outcome shipped = runHost({"--check"_s});
        QCOMPARE(shipped.status, 0);
        QVERIFY2(shipped.output.contains("\nDocuments: 6, faults: 0, remarks: "),
                 shipped.output.constData());
        // The report shows what the host knows, so it is complete as long as this is.
        QVERIFY2(!shipped.output.contains("not one that the host reads"),
                 shipped.output.constData());

        // In the folder of a product, the masks are that product's: tesmar has no bit 0x40.
        QTemporaryDir directory;
        const QString path = directory.filePath("tesmar/tools.xml"_s);
        QVERIFY(QDir(directory.path()).mkdir("tesmar"_s));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<quendaconfig xmlns:xlink=\"http://www.w3.org/1999/xlink\">\n"
                   "<toolbar id=\"a\" title=\"A\" mode=\"0x20\"/>\n"
                   "<toolbar id=\"b\" title=\"B\" mode=\"0x40\"/></quendaconfig>");
        file.close();
        const Outcome edited = runHost({"--check"_s, path});
        QCOMPARE(edited.status, 1);
        QVERIFY2(edited.output.startsWith(path.toUtf8() + ":3: fault: no state meets"),
                 edited.output.constData());
        QVERIFY(edited.output.endsWith("\nDocuments: 1, faults: 1, remarks: 0\n"));
        QVERIFY(edited.errors.isEmpty());
    }

#ifdef QUENDAHOST_SURFACE
    void screenshot()
    {
        QTemporaryDir directory;
        const QString path = directory.filePath("surface.png"_s);
        const Outcome outcome =
            runHost({"tesmar"_s, "--state"_s, "0x10"_s, "--screenshot"_s, path});
        QCOMPARE(outcome.status, 0);
        QVERIFY2(outcome.errors.isEmpty(), outcome.errors.constData());
        QVERIFY(QFileInfo(path).size() > 1000);
    }
#endif
};

QTEST_GUILESS_MAIN(HostTest)
#include "HostTest.moc"
