#include "Figures.h"

#include "Config/AppDataParser.h"

#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <QuendaCore/ConnectorImpl.h>
#include <QuendaCore/RuntimeConfig.h>

#include <QDomDocument>
#include <QFile>

#include <memory>

using Quenda::ConnectorImpl;
using Quenda::Help::AbstractDataSafe;
using Quenda::Help::Controller;
using Quenda::Kit::AppDataParser;
using Quenda::Kit::DomVisitor;

namespace {

QString readText(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

void addStartUp(const QString &product)
{
    const auto code = [product](benchmark::State &state) {
        ConnectorImpl connector(product);
        for ([[maybe_unused]] auto step : state)
            Controller::instance()->startUp();
        state.SetItemsProcessed(state.iterations());
    };
    const auto floor = [product](benchmark::State &state) {
        const QString pattern = QStringLiteral(":/widgets/%1/%2.xml");
        const QString tools = pattern.arg(product, QStringLiteral("tools"));
        const QString menus = pattern.arg(product, QStringLiteral("menus"));
        const QString entries = pattern.arg(product, QStringLiteral("confs"));
        for ([[maybe_unused]] auto step : state) {
            const QString first = readText(tools);
            const QString second = readText(menus);
            const Quenda::RuntimeConfig config(entries);
            benchmark::DoNotOptimize(first);
            benchmark::DoNotOptimize(second);
        }
        state.SetItemsProcessed(state.iterations());
    };
    addFigure("startUp " + product.toStdString(), 1.15, code, floor);
}

// A product's store, and a bare map of the same entries.
struct Stores
{
    boost::shared_ptr<AbstractDataSafe> store;
    QMap<QString, QString> map;

    Stores()
    {
        ConnectorImpl connector(QStringLiteral("lorvan"));
        Controller::instance()->startUp();
        store = connector.appData();
        AppDataParser parser;
        parser.visit(readText(QStringLiteral(":/widgets/lorvan/confs.xml")));
        map = parser.result();
        for (const char *name : {"widgetConfig", "menubar", "quenda_file_key"})
            map.insert(QLatin1String(name), store->getString(QLatin1String(name)));
        // Something to split.
        const QString formats = QStringLiteral("importFormats");
        store->put(formats, QStringLiteral("dxf aama astm iges"));
        map.insert(formats, store->getString(formats));
    }
};

template <typename Getter, typename Conversion>
void addGetter(const char *name, const QString &entry, Getter getter, Conversion conversion)
{
    const auto stores = std::make_shared<Stores>();
    const auto code = [=](benchmark::State &state) {
        for ([[maybe_unused]] auto step : state) {
            bool ok = false;
            benchmark::DoNotOptimize((stores->store.get()->*getter)(entry, &ok));
            benchmark::DoNotOptimize(ok);
        }
        state.SetItemsProcessed(state.iterations());
    };
    const auto floor = [=](benchmark::State &state) {
        for ([[maybe_unused]] auto step : state)
            benchmark::DoNotOptimize(conversion(stores->map.value(entry)));
        state.SetItemsProcessed(state.iterations());
    };
    addFigure(name, 1.2, code, floor);
}

void walkByHand(const QDomElement &first)
{
    for (QDomElement element = first; !element.isNull(); element = element.nextSiblingElement())
        walkByHand(element.firstChildElement());
}

void addWalk()
{
    QDomDocument document;
    document.setContent(readText(QStringLiteral(":/widgets/lorvan/menus.xml")));
    const auto code = [document](benchmark::State &state) {
        DomVisitor visitor;
        for ([[maybe_unused]] auto step : state)
            visitor.visit(document.documentElement());
        state.SetItemsProcessed(state.iterations());
    };
    const auto floor = [document](benchmark::State &state) {
        for ([[maybe_unused]] auto step : state)
            walkByHand(document.documentElement());
        state.SetItemsProcessed(state.iterations());
    };
    addFigure("walk over menus.xml", 1.3, code, floor);
}

void addParser(int entries)
{
    QString text = QStringLiteral("<quendaconfig>\n");
    for (int i = 0; i < entries; ++i)
        text += QStringLiteral("\t<entry name=\"entry%1\">value %1</entry>\n\n").arg(i);
    text += QLatin1String("</quendaconfig>\n");

    const auto code = [text, entries](benchmark::State &state) {
        for ([[maybe_unused]] auto step : state) {
            AppDataParser parser;
            parser.visit(text);
            benchmark::DoNotOptimize(parser.result().size());
        }
        state.SetItemsProcessed(state.iterations() * entries);
    };
    const auto floor = [text, entries](benchmark::State &state) {
        for ([[maybe_unused]] auto step : state) {
            QDomDocument document;
            benchmark::DoNotOptimize(document.setContent(text));
        }
        state.SetItemsProcessed(state.iterations() * entries);
    };
    addFigure("entry document, each of " + std::to_string(entries), 1.3, code, floor);
}

} // namespace

void addConfigurationFigures()
{
    addStartUp(QStringLiteral("lorvan"));
    addStartUp(QStringLiteral("tesmar"));

    addGetter("getString", QStringLiteral("fileSaveDomain"), &AbstractDataSafe::getString,
              [](const QString &text) { return text; });
    addGetter("getBool", QStringLiteral("mtmEnabled"), &AbstractDataSafe::getBool,
              [](const QString &text) { return text == QLatin1String("true"); });
    addGetter("getInt", QStringLiteral("maxPieceCount"), &AbstractDataSafe::getInt,
              [](const QString &text) { return static_cast<int>(text.toDouble()); });
    addGetter("getStringList", QStringLiteral("importFormats"), &AbstractDataSafe::getStringList,
              [](const QString &text) { return text.split(QLatin1Char(' '), Qt::SkipEmptyParts); });

    addWalk();
    for (int entries : {10, 1000, 100000})
        addParser(entries);
}
