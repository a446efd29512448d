// The code of docs/hosts.md that builds a host's window and writes to its log.

#include "Config/DataSafe.h"
#include "StringLiterals.h"

#include <Help/Controller.h>
#include <Help/EntryNames.h>
#include <QuendaCore/ConnectorImpl.h>
#include <QuendaCore/DefaultLogger.h>

#include <QAction>
#include <QGridLayout>
#include <QMainWindow>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace EntryNames = Quenda::Help::EntryNames;
using Quenda::LogLevel;

void addMenus(QMainWindow *window, const Quenda::Help::AbstractDataSafe &configuration);
void addTools(QMainWindow *window, const Quenda::Help::AbstractDataSafe &configuration,
              quint32 state, bool usesBars);
void logMessage(QtMsgType type, const QMessageLogContext &context, const QString &text);
void deliverRecords();

namespace {

// Keeps the lines of a severity.
class Lines : public Quenda::TextLineComposer<char>
{
public:
    explicit Lines(LogLevel severity)
        : level(severity), previous(Quenda::setDefaultLogger(level, this))
    {
    }
    ~Lines() override { Quenda::setDefaultLogger(level, previous); }
    Q_DISABLE_COPY(Lines)

    void writeLine(const std::string &line) override { all += QString::fromStdString(line); }

    QStringList all;

private:
    LogLevel level;
    TextLineComposer *previous;
};

// What is in the boxes, with row, column and spans, and then in the bars.
QStringList shownIn(const QMainWindow &window)
{
    QStringList texts;
    const QString folder = QCoreApplication::applicationDirPath();
    const auto textOf = [&folder](const QWidget *widget, const QString &other) {
        const auto *button = qobject_cast<const QToolButton *>(widget);
        return button ? button->text() + QString(button->toolTip()).replace(folder, u" of "_s)
                      : other;
    };
    const auto grids = window.findChildren<QGridLayout *>();
    for (const QGridLayout *grid : grids)
        for (int i = 0; i < grid->count(); ++i) {
            int row = 0;
            int column = 0;
            int rows = 0;
            int columns = 0;
            grid->getItemPosition(i, &row, &column, &rows, &columns);
            texts += u"%1, %2 %3 %4 %5"_s.arg(textOf(grid->itemAt(i)->widget(), u"line"_s))
                         .arg(row)
                         .arg(column)
                         .arg(rows)
                         .arg(columns);
        }
    const auto bars = window.findChildren<QToolBar *>();
    for (QToolBar *bar : bars) {
        texts += bar->objectName() + u' ' + bar->windowTitle()
                 + (window.toolBarBreak(bar) ? u", new row"_s : QString());
        const auto actions = bar->actions();
        for (QAction *action : actions)
            texts += textOf(bar->widgetForAction(action), u"separator"_s);
    }
    return texts;
}

} // namespace

class PageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tools_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<bool>("usesBars");
        QTest::addColumn<QString>("shown");
        QTest::newRow("all of a box") << 0x11 << false
                                      << u"select of /Some, 0 0 1 1|zoom of /Some, 0 1 1 1|"
                                         "ruler of /Some, 1 0 1 1|line, 2 0 1 2|"
                                         "grcopy of /Some, 3 0 1 1|Gap of /Keys, 1 3 2 1"_s;
        QTest::newRow("without a line and what follows it")
            << 0x21 << false
            << u"select of /Some, 0 0 1 1|zoom of /Some, 0 1 1 1|"
               "ruler of /Some, 1 0 1 1|Gap of /Keys, 1 3 2 1"_s;
        QTest::newRow("one of two bits") << 0x12 << false << u"Gap of /Keys, 1 3 2 1"_s;
        QTest::newRow("bars") << 0x11 << true
                              << u"Gap of /Keys, 1 3 2 1|tb1 First|select of /Some|separator|"
                                 "zoom of /Some|tb2 Second, new row|ruler of /Some"_s;
        QTest::newRow("one bar")
            << 0x21 << true << u"Gap of /Keys, 1 3 2 1|tb1 First|select of /Some|zoom of /Some"_s;
    }

    void tools()
    {
        QFETCH(int, state);
        QFETCH(bool, usesBars);
        Quenda::Kit::DataSafe store;
        store.put(EntryNames::toolDocument(), uR"(<quendaconfig>
            <module id='some' path='%LIBRARY%/Some'/>
            <module id='keys' path='%LIBRARY%/Keys'/>
            <toolbox columns='2' mode='0x31' margin='1' spacing='1'>
                <tool id='select' xlink:href='#some'/>
                <tool id='zoom' xlink:href='#some'/>
                <tool id='ruler' xlink:href='#some'/>
                <separator type='hline' mode='17'/>
                <tool id='grcopy' xlink:href='#some' mode='17'/>
            </toolbox>
            <keypad margin='1' spacing='1'>
                <key id='Gap' row='1' column='3' rowSpan='2' columnSpan='1' xlink:href='#keys'/>
            </keypad>
            <toolbar id='tb1' title='First'>
                <tool id='select' xlink:href='#some'/>
                <separator mode='0x11'/>
                <tool id='zoom' xlink:href='#some'/>
            </toolbar>
            <toolbar id='tb2' title='Second' break='true' mode='0x11'>
                <tool id='ruler' xlink:href='#some'/>
            </toolbar>
        </quendaconfig>)"_s);
        QMainWindow window;
        addTools(&window, store, quint32(state), usesBars);
        QTEST(shownIn(window).join(u'|'), "shown");
    }

    void menus()
    {
        for (const auto &[product, hasQuit] :
             {std::pair("lorvan", true), std::pair("tesmar", false)}) {
            Quenda::ConnectorImpl connector(QString::fromLatin1(product));
            Quenda::Help::Controller::instance()->startUp();
            QMainWindow window;
            addMenus(&window, *connector.appData());
            window.show();
            QVERIFY(window.menuBar()->actions().size() > 5);
            auto *quit = window.menuBar()->findChild<QAction *>(u"actionQuit"_s);
            QCOMPARE(quit != nullptr, hasQuit);
            if (quit)
                quit->trigger();
            QCOMPARE(window.isVisible(), !hasQuit);
        }
    }

    // A document that cannot be read is an error in the log.
    void brokenDocuments()
    {
        Lines errors(LogLevel::Error);
        const Quenda::Kit::DataSafe store;
        QMainWindow window;
        addTools(&window, store, 0x11, false);
        addMenus(&window, store);
        deliverRecords();
        QCOMPARE(errors.all.size(), 2);
        QVERIFY(!errors.all.contains(QString()));
    }

    void messagesOfQt()
    {
        Lines errors(LogLevel::Error);
        Lines warnings(LogLevel::Warning);
        Lines others(LogLevel::Info);
        qInstallMessageHandler(logMessage);
        qCritical("error");
        qWarning("warning");
        qInfo("information");
        deliverRecords();
        QCOMPARE(errors.all, QStringList(u"error"_s));
        QCOMPARE(warnings.all, QStringList(u"warning"_s));
        QCOMPARE(others.all, QStringList(u"information"_s));
        qWarning("not in the log any more");
        deliverRecords();
        QCOMPARE(warnings.all.size(), 1);
    }
};

QTEST_MAIN(PageTest)
#include "PageTest.moc"
