#include "Config/DataSafe.h"
#include "Program.h"
#include "Report.h"
#include "StringLiterals.h"
#include "Util/Logger.h"

#include <QuendaCore/DefaultLogger.h>

using Quenda::LogLevel;
using Quenda::setDefaultLogger;
using Quenda::Kit::Logger;

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
        commandLineRow("lorvan --entry optimizeEnabled", 1, "",
                       "unknown entry \"optimizeEnabled\"");
        commandLineRow("other", 1, "",
                       "product \"other\" has no configuration; use one of: " PRODUCTS);
        commandLineRow("lorvan --document confs", 2, "", "use entries, tools or menus");
        commandLineRow("", 2, "", "name one product (" PRODUCTS ")");
        commandLineRow("other --document tools", 1, "", "product \"other\" has no configuration");
        commandLineRow("lorvan --entry a --document tools", 2, "", "cannot be combined");
        commandLineRow("lorvan --unknown", 2, "", "Unknown option 'unknown'");
        commandLineRow("lorvan tesmar", 2, "", "name one product");
    }

    void commandLine() { checkCommandLine(QUENDA_HOST, "error: "); }

    void help()
    {
        const Outcome outcome = run(QUENDA_HOST, {u"-h"_s});
        QCOMPARE(outcome.status, 0);
        QVERIFY(outcome.output.contains(
            "Exit status: 0 success, 1 not found or not printed, 2 wrong usage."));
    }

    void messages() { QCOMPARE(run(QUENDA_HOST, {u"lorvan"_s}).errors, QByteArray()); }

    // What no product has: texts that do not convert, a list of several, a key too short to hide.
    void reportOfOddEntries()
    {
        struct : Quenda::TextLineComposer<char>
        {
            void writeLine(const std::string &line) override
            {
                lines += QString::fromStdString(line);
            }
            QStringList lines;
        } warnings;
        Quenda::Kit::DataSafe store;
        store.put(u"maxPieceCount"_s, u"many"_s);
        store.put(u"importFormats"_s, u"dxf  aama"_s);
        store.put(u"cncEnabled"_s, u"True"_s);
        store.put(u"quenda_file_key"_s, u"ke"_s);
        store.put(u"notRead"_s, u"1"_s);
        store.put(u"menubar"_s, u"\u00e9"_s);

        auto *previous = setDefaultLogger(LogLevel::Warning, &warnings);
        const QString report = configurationReport(u"odd"_s, store);
        QCoreApplication::sendPostedEvents(Logger::instance());
        setDefaultLogger(LogLevel::Warning, previous);
        QCOMPARE(report, uR"(Configuration of odd

Entry            Value      Read as  For
maxPieceCount    many       number   greatest number of pieces; -1: no limit
importFormats    dxf, aama  list     formats offered for import
cncEnabled       True       flag     CNC output
quenda_file_key  ke         text     key of the host's document files

Document  Size     For
tools     0 bytes  tool boxes, keypad and tool bars
menus     2 bytes  the menu bar
)"_s);
        QCOMPARE(warnings.lines,
                 (QStringList {uR"(the value of entry "maxPieceCount" is not a number: "many")"_s,
                               uR"(the value of entry "cncEnabled" is not a flag: "True")"_s}));
    }

    void outputThatCannotBeWritten()
    {
        QCOMPARE(statusWithoutOutput(QUENDA_HOST, {u"lorvan"_s}), 1);
    }
};

QTEST_GUILESS_MAIN(HostTest)
#include "HostTest.moc"
