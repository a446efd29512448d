#include "Report.h"
#include "Config/DataSafe.h"
#include "StringLiterals.h"
#include "Util/Logger.h"

#include <QTest>
#include <QuendaCore/DefaultLogger.h>

using Quenda::LogLevel;
using Quenda::setDefaultLogger;
using Quenda::Kit::Logger;

class ReportTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
maxPieceCount    many       number   greatest number of pieces; -1 means no limit
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
};

QTEST_GUILESS_MAIN(ReportTest)
#include "ReportTest.moc"
