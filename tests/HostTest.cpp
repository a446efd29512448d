#include "Program.h"
#include "StringLiterals.h"

class HostTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
                       "no configuration for product \"other\"; there are: " PRODUCTS);
        commandLineRow("lorvan --document confs", 2, "", "there are: entries, tools, menus");
        commandLineRow("", 2, "", "needs one product (" PRODUCTS ")");
        commandLineRow("other --document tools", 1, "", "no configuration for product");
        commandLineRow("lorvan --entry a --document tools", 2, "", "exclude each other");
        commandLineRow("lorvan --unknown", 2, "", "Unknown option 'unknown'");
        commandLineRow("lorvan tesmar", 2, "", "needs one product");
    }

    void commandLine() { checkCommandLine(QUENDA_HOST, "error: "); }

    void help()
    {
        const Outcome outcome = run(QUENDA_HOST, {u"-h"_s});
        QCOMPARE(outcome.status, 0);
        QVERIFY(outcome.output.contains("Exit status: 0 shown, 1 not found, 2 wrong usage."));
    }

    void messages() { QCOMPARE(run(QUENDA_HOST, {u"lorvan"_s}).errors, QByteArray()); }

    void outputThatCannotBeWritten()
    {
        QCOMPARE(statusWithoutOutput(QUENDA_HOST, {u"lorvan"_s}), 1);
    }
};

QTEST_GUILESS_MAIN(HostTest)
#include "HostTest.moc"
