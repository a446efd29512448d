#include "surface/Surface.h"
#include "StringLiterals.h"
#include "document/Place.h"
#include "surface/Picture.h"

#include <QDockWidget>
#include <QGridLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <memory>

using namespace Quenda::Workbench;

namespace {

Documents builtIn(const QString &product)
{
    QString error;
    return Place::find(product, &error)->read();
}

std::unique_ptr<Surface> surface(const Documents &documents)
{
    auto window = std::make_unique<Surface>(documents);
    window->show();
    return window;
}

// A made-up tool document beside a product's menu document.
std::unique_ptr<Surface> surface(const QByteArray &elements)
{
    Documents documents = builtIn(u"lorvan"_s);
    documents.at(1).xml =
        XmlDocument::fromBytes("<quendaconfig xmlns:xlink=\"http://www.w3.org/1999/xlink\">"
                               "<module id=\"m\" path=\"%LIBRARY%/M\"/>"
                               + elements + "</quendaconfig>");
    return surface(documents);
}

QByteArray tool(const QByteArray &id, const QByteArray &attributes = {})
{
    return "<tool id=\"" + id + "\" xlink:href=\"#m\" " + attributes + "/>";
}

QByteArray bar(const QByteArray &id, const QByteArray &mode, const QByteArray &attributes = {})
{
    return "<toolbar id=\"" + id + "\" title=\"" + id + "\" mode=\"" + mode + "\" " + attributes
           + ">" + tool("select") + "</toolbar>";
}

constexpr const char *boxStart =
    "<toolbox columns=\"2\" mode=\"1\" margin=\"1\" spacing=\"1\" button-style=\"\">";

template <typename Widget>
QList<Widget *> visible(const QWidget *parent)
{
    QList<Widget *> widgets;
    const auto all = parent->findChildren<Widget *>();
    for (Widget *widget : all)
        if (widget->isVisible() && widget->objectName() != u"qt_toolbar_ext_button"_s
            && !widget->objectName().startsWith(u"qt_dockwidget"_s))
            widgets += widget;
    return widgets;
}

// What the tool boxes show: the tools of each row, and lines.
QString boxRows(const QWidget *window)
{
    QStringList rows;
    const auto docks = visible<QDockWidget>(window);
    for (const QDockWidget *dock : docks) {
        if (dock->objectName() == u"keypad"_s)
            continue;
        const auto *area = static_cast<const QScrollArea *>(dock->widget());
        const auto *grid = static_cast<const QGridLayout *>(area->widget()->layout());
        for (int row = 0; row < grid->rowCount(); ++row) {
            QStringList names;
            for (int column = 0; column < grid->columnCount(); ++column)
                if (QLayoutItem *item = grid->itemAtPosition(row, column))
                    names += item->widget()->isVisible() ? item->widget()->objectName() : u"?"_s;
            names.removeDuplicates();
            if (!names.isEmpty())
                rows += names.constFirst().isEmpty() ? u"-"_s : names.join(QLatin1Char(' '));
        }
    }
    return rows.join(QLatin1Char('/'));
}

QString barIds(const QWidget *window)
{
    QStringList ids;
    const auto bars = visible<QToolBar>(window);
    for (const QToolBar *one : bars)
        ids += one->objectName();
    return ids.join(QLatin1Char(' '));
}

} // namespace

class SurfaceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The states' bits, in the shipped documents: which bars are there and how many tools the box
    // has.
    void availability_data()
    {
        QTest::addColumn<QString>("product");
        QTest::addColumn<int>("tools");
        QTest::addColumn<QString>("bars");
        const auto row = [](const char *state, const char *product, int tools, const char *bars) {
            QTest::newRow(state) << QString::fromUtf8(product) << tools << QString::fromUtf8(bars);
        };
        row("style document, grading view", "lorvan", 49,
            "tbsel tbdraw tbpoint tbsegm tbchar tbgrad");
        row("style document, non-grading view", "lorvan", 40, "tbsel tbdraw tbpoint tbsegm tbchar");
        row("base document, non-grading view", "lorvan", 4, "tbbase");
        row("changeset document, grading view", "lorvan", 7, "tbcompare");
        row("full view", "tesmar", 12, "tbsel");
        row("pattern refreshment", "tesmar", 2, "tbpattern");
    }

    void availability()
    {
        QFETCH(QString, product);
        const auto window = surface(builtIn(product));
        // By way of every other state, which must leave nothing behind.
        QVector<HostState> states = hostStates(product);
        const QString wanted = QString::fromUtf8(QTest::currentDataTag());
        std::stable_partition(states.begin(), states.end(),
                              [&wanted](const HostState &s) { return s.name != wanted; });
        QCOMPARE(states.constLast().name, wanted);
        for (const HostState &state : qAsConst(states))
            window->showState(state, Presentation::ToolBoxes);
        QVERIFY(barIds(window.get()).isEmpty());
        QCOMPARE(window->findChild<QDockWidget *>(u"keypad"_s) != nullptr, product == u"tesmar"_s);
        if (auto *keypad = window->findChild<QDockWidget *>(u"keypad"_s)) {
            QVERIFY(keypad->isVisible());
            QCOMPARE(visible<QToolButton>(keypad).size(), 16);
            keypad->hide();
        }
        const QStringList names = boxRows(window.get()).split(QRegularExpression(u"[ /]"_s));
        const int tools = names.size() - names.count(u"-"_s);
        QTEST(tools, "tools");
        window->showState(states.constLast(), Presentation::ToolBars);
        QCOMPARE(boxRows(window.get()), QString());
        QTEST(barIds(window.get()), "bars");
    }

    void toolBoxes_data()
    {
        QTest::addColumn<QByteArray>("items");
        QTest::addColumn<QString>("rows");
        const QByteArray line = "<separator type=\"hline\"/>";
        QTest::newRow("hidden in the middle")
            << tool("a") + tool("b", "mode=\"2\"") + tool("c") << u"a c"_s;
        QTest::newRow("mask wider than the box's") << tool("a", "mode=\"3\"") << u"a"_s;
        QTest::newRow("row by row") << tool("a") + tool("b") + tool("c") << u"a b/c"_s;
        QTest::newRow("line within a row") << tool("a") + line + tool("b") << u"a/-/b"_s;
        QTest::newRow("line behind a full row")
            << tool("a") + tool("b") + line + tool("c") << u"a b/-/c"_s;
        QTest::newRow("hidden line")
            << tool("a") + "<separator type=\"hline\" mode=\"2\"/>" + tool("b") << u"a b"_s;
    }

    void toolBoxes()
    {
        QFETCH(QByteArray, items);
        const auto window = surface(QByteArray(boxStart) + items + "</toolbox>");
        window->showState({1, u"one"_s}, Presentation::ToolBoxes);
        QCoreApplication::processEvents();
        QTEST(boxRows(window.get()), "rows");
        // A mask wider than its box's does not make a tool available where the box is not.
        window->showState({2, u"two"_s}, Presentation::ToolBoxes);
        QCOMPARE(boxRows(window.get()), QString());
    }

    // Bars stand in rows, and one that is hidden takes no room there.
    void hiddenBars()
    {
        const auto window =
            surface(bar("a", "1") + bar("hidden", "2", "break=\"true\"") + bar("b", "1"));
        window->showState({1, u"one"_s}, Presentation::ToolBars);
        window->resize(600, 400);
        QCoreApplication::processEvents();
        const auto place = [&window](const QString &id) {
            return window->findChild<QToolBar *>(id)->geometry();
        };
        QCOMPARE(barIds(window.get()), u"a b"_s);
        QCOMPARE(place(u"b"_s).x(), place(u"a"_s).x());
        QVERIFY(place(u"b"_s).y() > place(u"a"_s).y());
    }

    void menus()
    {
        const auto window = surface(builtIn(u"tesmar"_s));
        const auto action = [&window](const char *name) {
            return window->menuBar()->findChild<QAction *>(QLatin1String(name));
        };
        QVERIFY(action("actionOptionsKeypad")->isCheckable());
        QVERIFY(action("actionOptionsKeypad")->isChecked());
        QVERIFY(!action("actionTreatmentAssistant")->autoRepeat());
        QCOMPARE(action("actionEditClear")->shortcut(), QKeySequence(Qt::Key_Delete));
        // Ctrl+Q ends the preview, not what the document means.
        QCOMPARE(action("actionFileQuit")->shortcutContext(), Qt::WidgetShortcut);
        QVERIFY(!loadMenuBar("<ui version='4.0'><widget class='QWidget' name='w'/></ui>"));
    }

    // As large as the state needs, with the menu that was asked for in its place.
    void pictures()
    {
        const auto states = hostStates(u"lorvan"_s);
        const auto window = surface(builtIn(u"lorvan"_s));
        window->showState(states.at(0), Presentation::ToolBars);
        const QImage bars = pictureOf(*window);
        const auto shown = visible<QToolBar>(window.get());
        for (const QToolBar *one : shown)
            QVERIFY2(one->width() >= one->sizeHint().width(), qPrintable(one->objectName()));
        window->showState(states.at(2), Presentation::ToolBars);
        QVERIFY(pictureOf(*window) != bars);

        auto *points = window->menuBar()->findChild<QMenu *>(u"menuPoints"_s);
        const QImage open = pictureOf(*window, points);
        QVERIFY(points->isVisible());
        const QImage menu = points->grab().toImage().convertToFormat(QImage::Format_RGB32);
        auto *treatment = window->menuBar()->findChild<QMenu *>(u"menuTreatment"_s);
        const QPoint start =
            window->menuBar()->actionGeometry(treatment->menuAction()).bottomLeft();
        const QPoint corner = start + treatment->actionGeometry(points->menuAction()).topRight();
        const QRect left(0, 0, corner.x() - start.x(), treatment->height()); // of the menu
        QCOMPARE(open.copy(left.translated(start)),
                 treatment->grab(left).toImage().convertToFormat(QImage::Format_RGB32));
        QCOMPARE(open.copy(QRect(corner, menu.size())), menu);
        QVERIFY(QRect(QPoint(), open.size()).contains(QRect(corner, menu.size())));
    }
};

QTEST_MAIN(SurfaceTest)
#include "SurfaceTest.moc"
