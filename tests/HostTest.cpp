#include "Program.h"
#include "StringLiterals.h"

class HostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void report()
    {
        const Outcome outcome = run(QUENDA_HOST, {u"lorvan"_s});
        QCOMPARE(outcome.status, 0);
        QVERIFY(outcome.errors.isEmpty());

        QStringList rows;
        const QStringList lines = QString::fromUtf8(outcome.output).split(QLatin1Char('\n'));
        for (const QString &line : lines)
            rows += line.simplified();
        QVERIFY(rows.contains(u"filePassword (empty) text"_s));
        QVERIFY(rows.contains(u"fileOpenDomains all list"_s));
        QVERIFY(rows.contains(u"maxPieceCount -1 number"_s));
        QVERIFY(rows.contains(u"toolEnabled false flag"_s));
        QVERIFY(rows.contains(u"quenda_file_key 0%1k text"_s.arg(QString(62, QLatin1Char('*')))));
        QVERIFY(rows.filter(u"autoMarkerEnabled"_s).isEmpty());
        const QString size =
            QString::number(QFileInfo(QStringLiteral(DOCUMENTS "/lorvan/tools.xml")).size());
        QVERIFY(rows.contains(u"tools %1 bytes tool boxes, keypad and tool bars"_s.arg(size)));
    }

    void documents()
    {
        for (const auto &[document, file] :
             {std::pair("entries", "confs"), std::pair("tools", "tools"),
              std::pair("menus", "menus")}) {
            QFile shipped(QStringLiteral(DOCUMENTS "/tesmar/%1.xml").arg(QLatin1String(file)));
            QVERIFY(shipped.open(QIODevice::ReadOnly));
            const Outcome outcome =
                run(QUENDA_HOST, {u"Tesmar"_s, u"--document"_s, QLatin1String(document)});
            QCOMPARE(outcome.output, shipped.readAll());
        }
    }

    void commandLine_data()
    {
        addCommandLineColumns();
        commandLineRow("lorvan --entry fileSaveDomain", 0, "entp\n", "");
        commandLineRow("TESMAR --entry filePassword", 0, "\n", "");
        commandLineRow("--version", 0, "quenda-host " VERSION "\n", "");
        commandLineRow("lorvan --entry optimizeEnabled", 1, "", "no entry \"optimizeEnabled\"");
        commandLineRow("other", 1, "",
                       "no configuration for product \"other\"; there are: lorvan, tesmar");
        commandLineRow("lorvan --document confs", 2, "", "there are: entries, tools, menus");
        commandLineRow("lorvan --entry a --document tools", 2, "", "exclude each other");
        commandLineRow("lorvan --unknown", 2, "", "Unknown option 'unknown'");
        commandLineRow("lorvan tesmar", 2, "", "needs one product");
    }

    void commandLine() { checkCommandLine(QUENDA_HOST, "error: "); }
};

QTEST_GUILESS_MAIN(HostTest)
#include "HostTest.moc"
