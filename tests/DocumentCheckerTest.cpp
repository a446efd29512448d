#include "DocumentChecker.h"
#include "Table.h"
#include "ToolDocument.h"

#include <QtTest>

#include <algorithm>

namespace {

QVector<HostState> lorvanStates()
{
    return hostStates("lorvan"_s);
}

QString faultsOf(DocumentKind kind, const QByteArray &content)
{
    QStringList faults;
    const auto findings = checkDocument(kind, content, lorvanStates());
    for (const Finding &finding : findings)
        if (finding.severity == Finding::Fault)
            faults += "%1: %2"_s.arg(finding.line).arg(finding.text);
    return faults.join(QLatin1Char('\n'));
}

const char entriesHead[] =
    "<?xml version='1.0' encoding='UTF-8'?>\n<!DOCTYPE quendaconfig>\n"
    "<quendaconfig xmlns:xlink='http://www.w3.org/1999/xlink' version='1.0'>\n";
const char toolsHead[] = "<quendaconfig xmlns:xlink='http://www.w3.org/1999/xlink'>\n";
const char module[] = "<module id='m' path='%LIBRARY%/M'/>\n";
const char box[] = "<toolbox columns='2' mode='0x31' margin='1' spacing='1' button-style=''>\n";
const char pad[] = "<keypad margin='1' spacing='1' button-style=''>\n";
const char menusHead[] =
    "<?xml version='1.0' encoding='UTF-8'?>\n<ui version='4.0'><class>menubar</class>"
    "<widget class='QMenuBar' name='menubar'>\n";
const char menusTail[] = "</widget><resources/><connections/></ui>";

QByteArray menuXml(const QByteArray &items)
{
    return QByteArray("<widget class='QMenu' name='menuA'><property name='title'><string>A</string>"
                      "</property>\n")
           + items + "</widget>\n";
}

QByteArray actionXml(const QByteArray &name, const QByteArray &properties = {})
{
    return QByteArray("<action name=\"") + name
           + "\"><property name='text'><string>Text</string></property>" + properties
           + "</action>\n";
}

QByteArray propertyXml(const char *name, const QByteArray &value)
{
    return QByteArray("<property name='") + name + "'>" + value + "</property>";
}

} // namespace

class DocumentCheckerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kinds_data()
    {
        addColumns<QString, QByteArray, int>("path", "content", "kind");
        const QString other = "other.xml"_s;
        addRow("by name", "a/confs.xml", QByteArray(menusHead), int(DocumentKind::Entries));
        addRow("menus", other, QByteArray(menusHead), int(DocumentKind::Menus));
        addRow("entries", other, entriesHead + QByteArray("<entry/>"), int(DocumentKind::Entries));
        addRow("tools", other, toolsHead + QByteArray("<!-- <entry/> --><module/>"),
               int(DocumentKind::Tools));
    }

    void kinds()
    {
        QFETCH(QString, path);
        QFETCH(QByteArray, content);
        QTEST(int(documentKind(path, content)), "kind");
    }

    void entries_data()
    {
        addColumns<QByteArray, QString>("content", "fault");
        const auto row = [](const char *name, const QByteArray &entries, const char *fault) {
            addRow(name, entriesHead + entries + "</quendaconfig>", fault);
        };
        row("sound", "<entry name='toolEnabled'>true</entry>\n", "");
        row("nameless", "<entry>x</entry>", "4: <entry> has no \"name\"");
        row("empty name", "\n<entry name=''/>", "5: the entry's name is empty");
        row("doubled", "<entry name='a'/>\n<entry name='a'/>", "5: entry \"a\" stands twice");
        row("not well-formed", "<entry>", "4: not well-formed");
        row("attribute twice", "<entry name='a' name='b'/>", "4: not well-formed");
        row("zero byte", QByteArray("\n\0", 2), "5: a zero byte");
        row("unknown element", "<item/>", "4: unknown element <item>; expected: <entry>");
        row("unknown attribute", "<entry name='a' value='b'/>", "4: unknown attribute \"value\"");
        row("text outside", "stray", "4: text \"stray\" in <quendaconfig>");
        row("no flag", "<entry name='toolEnabled'>True</entry>", "expected a flag");
        row("no number", "<entry name='maxPieceCount'>many</entry>", "expected a number");
        addRow("no declaration", QByteArray(entriesHead).mid(39) + "</quendaconfig>",
               "1: expected the XML declaration");
        addRow("too deep", entriesHead + QByteArray("<entry>").repeated(200000),
               "4: nested deeper");
    }

    void entries() { checkRow(DocumentKind::Entries); }

    void tools_data()
    {
        addColumns<QByteArray, QString>("content", "fault");
        const auto row = [](const char *name, const QByteArray &elements, const char *fault) {
            addRow(name, toolsHead + elements + "</quendaconfig>", fault);
        };
        const auto boxRow = [&row](const char *name, const QByteArray &items, const char *fault) {
            row(name, QByteArray(module) + box + items + "</toolbox>", fault);
        };
        // A second key, at these cells, beside or on one at row 1 and column 1 with two spans.
        const auto padRow = [&row](const char *name, const char *cells, const char *fault) {
            const auto key = [](const QString &id, const QString &numbers) {
                const QStringList n = numbers.split(QLatin1Char(' '));
                return "<key id='%1' row='%2' column='%3' rowSpan='%4' columnSpan='%5'"
                       " xlink:href='#m'/>\n"_s.arg(id, n[0], n[1], n[2], n[3])
                           .toUtf8();
            };
            row(name,
                QByteArray(module) + pad + key("a"_s, "1 1 2 2"_s)
                    + key("b"_s, QLatin1String(cells)) + "</keypad>",
                fault);
        };
        const QByteArray tool("<tool id='a' xlink:href='#m'/>\n");

        boxRow("sound", tool, "");
        boxRow("unknown element", "<toll/>", "4: unknown element <toll>; expected: <tool>, ");
        boxRow("unknown attribute", "<tool id='a' xlink:href='#m' Mode='1'/>",
               "unknown attribute \"Mode\"");
        boxRow("missing attribute", "<tool id='a'/>", "<tool> has no \"xlink:href\"");
        boxRow("no such module", "<tool id='a' xlink:href='#x'/>",
               "4: \"xlink:href\" is \"#x\", which is no module");
        boxRow("no reference", "<tool id='a' xlink:href='m'/>", "which is no module");
        row("later module", box + tool + "</toolbox>" + module, "3: module \"m\" stands later");
        row("module twice", QByteArray(module) + module, "3: module \"m\" stands twice");
        boxRow("tool twice", tool + tool, "5: tool \"a\" stands twice");
        boxRow("group torn apart",
               "<tool id='a' group='g' xlink:href='#m'/><tool id='b' "
               "xlink:href='#m'/>\n<tool id='c' group='g' xlink:href='#m'/>",
               "5: tool \"c\" stands apart from its group \"g\"");
        boxRow("mask that is no number", "<separator type='hline' mode='x11'/>",
               "4: \"mode\" is \"x11\"");
        boxRow("mask without a view", "<separator type='hline' mode='0x0f'/>",
               "4: no state meets \"mode\"");
        boxRow("mask outside the box's", "<separator type='hline' mode='0x12'/>", "in this box");
        boxRow("unknown line", "<separator type='vline'/>",
               "\"type\" is \"vline\"; expected \"hline\"");
        row("no columns", QByteArray(box).replace("'2'", "'0'") + "</toolbox>",
            "2: \"columns\" is \"0\"");
        row("box mask that no state meets", QByteArray(box).replace("0x31", "0x1") + "</toolbox>",
            "2: no state meets");
        row("tool bar twice", "<toolbar id='t' title='T'/>\n<toolbar id='t' title='T'/>",
            "3: tool bar \"t\" stands twice");
        row("module's path", "<module id='m' path='/lib/M'/>", "expected \"%LIBRARY%/\"");
        row("not ASCII", "<!-- \xc3\xa9 -->", "2: a character outside ASCII");
        addRow("declaration", QByteArray("<?xml version='1.0'?>") + toolsHead + "</quendaconfig>",
               "1: an XML declaration");

        padRow("keys side by side", "3 3 2 1", "");
        padRow("key on another", "2 2 1 1", "5: key \"b\" lies on top of key \"a\"");
        padRow("key below the grid", "4 0 2 1", "5: key \"b\" leaves the grid");
        padRow("key beside the grid", "0 4 1 1", "leaves the grid");
        padRow("no row", "-1 0 1 1", "\"row\" is \"-1\"");
        padRow("no span", "0 0 0 1", "\"rowSpan\" is \"0\"");
    }

    void tools() { checkRow(DocumentKind::Tools); }

    void menus_data()
    {
        addColumns<QByteArray, QString>("content", "fault");
        const QByteArray place("<addaction name='menuA'/>");
        const auto row = [&place](const char *name, const QByteArray &items,
                                  const QByteArray &actions, const char *fault) {
            addRow(name, menusHead + menuXml(items) + actions + place + menusTail, fault);
        };
        const auto actionRow = [&row](const char *name, const QByteArray &properties,
                                      const char *fault) {
            row(name, "", actionXml("b", "") + actionXml("a", properties), fault);
        };
        const QByteArray isTrue("<bool>true</bool>");

        row("sound", "<addaction name='a'/><addaction name='separator'/>", actionXml("a"), "");
        row("names nothing", "<addaction name='b'/>", actionXml("a"), "4: \"b\" names nothing");
        row("sub-menu of another", "<addaction name='menuA'/>", "", "4: \"menuA\" names nothing");
        row("object name twice", "", actionXml("a") + actionXml("a"),
            "6: object name \"a\" stands twice");
        row("action named like a menu", "", actionXml("menuA"),
            "object name \"menuA\" stands twice");
        row("unknown element", "<addmenu/>", "", "4: unknown element <addmenu>");
        row("menu without a place",
            "<widget class='QMenu' name='menuB'><property "
            "name='title'><string>B</string></property></widget>",
            "", "4: menu \"menuB\" is placed nowhere");
        row("other widget", "<widget class='QFrame' name='f'/>", "",
            "\"class\" is \"QFrame\"; expected \"QMenu\"");
        actionRow("unknown property", propertyXml("enabled", "<bool>true</bool>"),
                  "6: unknown property \"enabled\" of action");
        actionRow("value of another kind", propertyXml("checkable", "<string>true</string>"),
                  "holds <string>; expected <bool>");
        actionRow("no bool", propertyXml("checkable", "<bool>yes</bool>"),
                  "expected true or false");
        actionRow("checked, not checkable", propertyXml("checked", isTrue),
                  "6: action \"a\" is checked but not checkable");
        actionRow("checked and checkable",
                  propertyXml("checkable", isTrue) + propertyXml("checked", isTrue), "");
        actionRow("invalid shortcut", propertyXml("shortcut", "<string>Ctrl+Foo</string>"),
                  "6: \"Ctrl+Foo\" is no shortcut");
        actionRow("empty shortcut", propertyXml("shortcut", "<string/>"), "is no shortcut");
        actionRow("shortcut spelled otherwise", propertyXml("shortcut", "<string>ctrl+s</string>"),
                  "expected \"Ctrl+S\"");
        row("shortcut taken", "",
            actionXml("a", propertyXml("shortcut", "<string>Del</string>"))
                + actionXml("b", propertyXml("shortcut", "<string>Del</string>")),
            "6: shortcut \"Del\" of \"b\" is taken by \"a\"");
        actionRow("icon of two paths",
                  propertyXml("icon", "<iconset><normaloff>:/a</normaloff>:/b</iconset>"),
                  "the icon's path differs");
        row("action without a text", "", "<action name='a'/>", "action \"a\" has no text");
    }

    void menus() { checkRow(DocumentKind::Menus); }

    void oddButWorking_data()
    {
        addColumns<int, QByteArray, QString>("kind", "content", "remark");
        const QByteArray items = menuXml("<addaction name='a'/><addaction name='b'/>")
                                 + actionXml("a").replace("Text", "&amp;One")
                                 + actionXml("b").replace("Text", "Tw&amp;o");
        addRow("mnemonic of two items", int(DocumentKind::Menus),
               menusHead + items + "<addaction name='menuA'/>" + menusTail,
               "\"a\" and \"b\" share the mnemonic Alt+O");
        const auto entryRow = [](const char *name, const char *entry, const char *remark) {
            const QByteArray content = entriesHead + QByteArray(entry) + "</quendaconfig>";
            addRow(name, int(DocumentKind::Entries), content, remark);
        };
        entryRow("entry over a document", "<entry name='menubar'/>",
                 "takes the place of a document");
        entryRow("entry under the file key", "<entry name='quenda_file_key'/>", "has no effect");
        entryRow("unknown entry", "<entry name='mtmEnable'/>", "not one that the host reads");
    }

    void oddButWorking()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, content);
        QFETCH(QString, remark);
        const auto findings =
            checkDocument(static_cast<DocumentKind>(kind), content, lorvanStates());
        QCOMPARE(findings.size(), 1);
        QCOMPARE(findings.first().severity, Finding::Remark);
        QVERIFY2(findings.first().text.contains(remark), qPrintable(findings.first().text));
    }

    void masks_data()
    {
        addColumns<QString, qint64>("text", "mask"); // -1 where it is none
        const auto row = [](const char *text, qint64 mask) { addRow(text, text, mask); };
        row("17", 17);
        row("0x1", 1);
        row("0x0000000000000aF", 0xaf);
        row("010", 10);
        row("0xffffffff", 0xffffffff);
        for (const char *text :
             {"", "0x", "0X11", "11h", " 17", "+17", "-1", "0x0x1", "1.0", "0x100000000"})
            row(text, -1);
    }

    void masks()
    {
        QFETCH(QString, text);
        const auto mask = maskFromText(text);
        QTEST(mask ? qint64(*mask) : qint64(-1), "mask");
    }

private:
    // One fault, or none where none is expected.
    static void checkRow(DocumentKind kind)
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, fault);
        const QString faults = faultsOf(kind, content);
        QVERIFY2(fault.isEmpty() ? faults.isEmpty() : faults.contains(fault), qPrintable(faults));
        QVERIFY2(!faults.contains(QLatin1Char('\n')), qPrintable(faults));
    }
};

QTEST_GUILESS_MAIN(DocumentCheckerTest)
#include "DocumentCheckerTest.moc"
