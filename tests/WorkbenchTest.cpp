#include "Program.h"
#include "StringLiterals.h"

#include <QImage>
#include <QTemporaryDir>

class WorkbenchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // A product's folder with a mistake, and one that lacks a document.
        QVERIFY(QDir::setCurrent(directory.path()));
        for (const QString &folder : {u"edited/tesmar"_s, u"partial"_s}) {
            QVERIFY(QDir().mkpath(folder));
            for (const QString &file : {u"confs.xml"_s, u"tools.xml"_s, u"menus.xml"_s})
                if (folder != u"partial"_s || file != u"menus.xml"_s)
                    QVERIFY(QFile::copy(QStringLiteral(DOCUMENTS "/tesmar/") + file,
                                        folder + u'/' + file));
        }
        QFile tools(u"edited/tesmar/tools.xml"_s);
        QVERIFY(tools.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
        QVERIFY(tools.open(QIODevice::WriteOnly | QIODevice::Append));
        tools.write("<");
        QVERIFY(QDir().mkdir(u"empty"_s));
    }

    void commandLine_data()
    {
        addCommandLineColumns();
        commandLineRow("--version", 0, "quenda-workbench " VERSION "\n", "");
        commandLineRow(
            "check edited/tesmar/confs.xml tesmar", 0,
            ":/widgets/tesmar/menus.xml:128:15: warning: \"actionTreatmentAlignPieces\" and "
            "\"actionTreatmentAssistant\" share the mnemonic A\n"
            "Documents: 4, errors: 0, warnings: 1\n",
            "");
        commandLineRow(
            "check partial", 1,
            "partial/menus.xml:1:1: error: cannot be read: No such file or directory; a product "
            "needs all three documents\nDocuments: 3, errors: 1, warnings: 0\n",
            "partial: the product \"partial\" is unknown, so its states and entries are not "
            "checked; there are: lorvan, tesmar");
        commandLineRow("check none edited/tesmar/confs.xml", 2, // the rest is reported all the same
                       "Documents: 1, errors: 0, warnings: 0\n", "there is no \"none\"");
        commandLineRow("checks", 2, "", "there are: check, preview, screenshot, outline");
        commandLineRow("check none", 2, "", "or a product: lorvan, tesmar");
        commandLineRow("check empty", 2, "", "holds none of confs.xml");
        commandLineRow("outline tesmar/tools.xml", 2, "", "there is no \"tesmar/tools.xml\"");
        commandLineRow("outline edited/tesmar/confs.xml", 2, "", "is one document; expected");
        commandLineRow("screenshot tesmar", 2, "", "screenshot needs PLACE FILE");
        commandLineRow("screenshot tesmar s.doc", 2, "", "expected one of the suffixes bmp, ");
        commandLineRow("screenshot tesmar none/s.png", 2, "", "cannot write none/s.png");
        commandLineRow("screenshot tesmar s.png --state 0x31", 2, "",
                       "there are: full view (0x1), ");
        commandLineRow("screenshot tesmar s.png --menu menuNone", 2, "", "there are: menuFile, ");
        commandLineRow("screenshot tesmar s.png --tools all", 2, "", "there are: boxes, bars");
        commandLineRow("preview none", 2, "", "preview needs a display");
    }

    void commandLine() { checkCommandLine(QUENDA_WORKBENCH, "quenda-workbench: "); }

    void placesWithErrors()
    {
        for (const char *command : {"outline edited/tesmar", "screenshot edited/tesmar s.png"}) {
            const Outcome outcome =
                run(QUENDA_WORKBENCH, QString::fromUtf8(command).split(QLatin1Char(' ')));
            QCOMPARE(outcome.status, 1);
            QVERIFY2(outcome.errors.contains("edited/tesmar/tools.xml:154:1: error: "),
                     outcome.errors.constData());
        }
        QVERIFY(!QFile::exists(u"s.png"_s));
    }

    // One thing a line, whatever the values hold.
    void outlineOfOddValues()
    {
        QVERIFY(QDir().mkpath(u"odd/tesmar"_s));
        for (const char *name : {"confs.xml", "tools.xml", "menus.xml"}) {
            QFile shipped(QStringLiteral(DOCUMENTS "/tesmar/") + QLatin1String(name));
            QFile odd(u"odd/tesmar/"_s + QLatin1String(name));
            QVERIFY(shipped.open(QIODevice::ReadOnly) && odd.open(QIODevice::WriteOnly));
            odd.write(shipped.readAll()
                          .replace(">entp<", ">en\ntp \"x\\<")
                          .replace("<string>Load...<", "<string>Load\t&quot;x&quot;<"));
        }
        const Outcome outcome = run(QUENDA_WORKBENCH, {u"outline"_s, u"odd/tesmar"_s});
        QCOMPARE(outcome.status, 0);
        QVERIFY(outcome.output.contains("\"en\\ntp \\\"x\\\\\""));
        QVERIFY(outcome.output.contains("\"Load\\t\\\"x\\\"\""));
    }

    void stateByName()
    {
        const auto picture = [](const QString &state) {
            const QStringList arguments {u"screenshot"_s, u"tesmar"_s, u"s.ppm"_s, u"--state"_s,
                                         state};
            return run(QUENDA_WORKBENCH, arguments).status == 0 ? QImage(u"s.ppm"_s) : QImage();
        };
        const QImage byCode = picture(u"16"_s);
        QVERIFY(!byCode.isNull());
        QCOMPARE(picture(u"Link piece VIEW"_s), byCode);
    }

    void screenshots()
    {
        const auto picture = [](const char *options) {
            const Outcome outcome =
                run(QUENDA_WORKBENCH, QString::fromUtf8(options).split(QLatin1Char(' ')));
            return outcome.status == 0 && outcome.errors.isEmpty() ? QImage(u"s.BMP"_s) : QImage();
        };
        const QImage first = picture("screenshot tesmar s.BMP");
        QVERIFY(!first.isNull());
        QCOMPARE(first, picture("screenshot tesmar s.BMP --state 1 --tools boxes"));
        QVERIFY(first != picture("screenshot tesmar s.BMP --tools bars"));
        const QImage other = picture("screenshot tesmar s.BMP --state 0x10");
        QVERIFY(!other.isNull() && other != first);
        QVERIFY(other != picture("screenshot tesmar s.BMP --state 0x10 --menu menuFile"));
    }

private:
    QTemporaryDir directory;
};

QTEST_GUILESS_MAIN(WorkbenchTest)
#include "WorkbenchTest.moc"
