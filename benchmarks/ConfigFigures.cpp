#include "Figures.h"

#include "Config/AppDataParser.h"
#include "Config/DataSafe.h"

#include <Help/Controller.h>
#include <QuendaCore/ConnectorImpl.h>
#include <QuendaCore/RuntimeConfig.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#ifdef BENCHMARK_KCONFIG
#include <KConfig>
#include <KConfigGroup>
#endif

#include <memory>

using benchmark::DoNotOptimize;
using Quenda::Help::AbstractDataSafe;
using namespace Quenda::Kit;

namespace {

constexpr int runs = 50; // of a start-up or a walk
constexpr int reads = 1000;

using Entries = QMap<QString, QString>;

QString path(const QString &product, const char *document)
{
    return QStringLiteral(":/widgets/%1/%2.xml").arg(product, QLatin1String(document));
}

// As the library does: up to the first zero byte.
QString readText(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll().constData());
}

Entries readEntries(const QString &path)
{
    const Quenda::RuntimeConfig config(path);
    Entries entries;
    for (QDomElement entry = config.content().documentElement().firstChildElement();
         !entry.isNull(); entry = entry.nextSiblingElement())
        entries.insert(entry.attribute(QStringLiteral("name")), entry.text());
    return entries;
}

// For each file, reads the tool and the menu document, and then the entries from the file.
template <typename Read>
Job reading(const QString &product, const QVector<QString> &files, Read read)
{
    return {[=] {
        for (const QString &file : files) {
            DoNotOptimize(readText(path(product, "tools")));
            DoNotOptimize(readText(path(product, "menus")));
            read(file);
        }
    }};
}

Figure startUp(const QString &product)
{
    const auto once = [product] {
        const Quenda::ConnectorImpl connector(product);
        Quenda::Help::Controller::instance()->startUp();
    };
    const Job baseline = reading(product, QVector<QString>(runs, path(product, "confs")),
                                 [](const QString &file) { DoNotOptimize(readEntries(file)); });
    return {"startUp " + product.toStdString(), runs, {repeated(runs, once)}, baseline, 1.05};
}

// The same job, but the entries are in INI files: one for each run, more than QSettings caches.
void addAlternatives(std::vector<Figure> &figures, const QString &product)
{
    const Figure usual = startUp(product);
    const Entries shipped = readEntries(path(product, "confs"));
    static const QTemporaryDir folder;
    QVector<QString> files;
    for (int i = 0; i < runs; ++i) {
        files.append(folder.filePath(QString::number(i)));
        QSettings file(files.last(), QSettings::IniFormat);
        for (auto entry = shipped.cbegin(); entry != shipped.cend(); ++entry)
            file.setValue(entry.key(), entry.value());
    }

    const Job settings = reading(product, files, [](const QString &file) {
        const QSettings entries(file, QSettings::IniFormat);
        const QStringList names = entries.allKeys();
        for (const QString &name : names)
            DoNotOptimize(entries.value(name).toString());
    });
    figures.push_back({usual.name + ", QSettings instead", runs, settings, usual.baseline});
#ifdef BENCHMARK_KCONFIG
    const Job kconfig = reading(product, files, [](const QString &file) {
        DoNotOptimize(KConfig(file, KConfig::SimpleConfig).group("General").entryMap());
    });
    figures.push_back({usual.name + ", KConfig instead", runs, kconfig, usual.baseline});
#endif
}

// Not inlined, as a function of a library: one search, which returns the text and the flag.
[[gnu::noinline]] QString find(const Entries &entries, const QString &name, bool &ok)
{
    const auto entry = entries.constFind(name);
    ok = entry != entries.constEnd();
    return ok ? *entry : QString();
}

// A getter of a store that has these entries and one with the given value, which it reads. The
// baseline reads from a bare map. Both are filled in the same order, so that they have the same
// shape.
template <typename Getter, typename Conversion>
Figure getter(const char *name, Entries entries, const char *value, Getter get, Conversion convert)
{
    const QString entryName = QStringLiteral("measuredEntry");
    entries.insert(entryName, QLatin1String(value));
    Entries map;
    const std::shared_ptr<AbstractDataSafe> store = std::make_shared<DataSafe>();
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        map.insert(entry.key(), entry.value());
        store->put(entry.key(), entry.value());
    }
    const auto once = [=] {
        bool ok = false;
        DoNotOptimize(((*store).*get)(entryName, &ok));
        DoNotOptimize(ok);
    };
    const auto baseline = [=] {
        bool ok = false;
        QString text = find(map, entryName, ok);
        DoNotOptimize(convert(text, ok));
        DoNotOptimize(ok);
    };
    return {name, reads, {repeated(reads, once)}, {repeated(reads, baseline)}, 1.1};
}

void addGetters(std::vector<Figure> &figures, const Entries &entries)
{
    const auto asIs = [](QString &text, bool) -> QString & { return text; };
    const auto asBool = [](const QString &text, bool &ok) {
        const bool isTrue = text == QLatin1String("true");
        ok = isTrue || text == QLatin1String("false");
        return isTrue;
    };
    const auto asInt = [](const QString &text, bool &ok) { return int(text.toDouble(&ok)); };
    const auto asList = [](const QString &text, bool) {
        return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    figures.push_back(getter("getString", entries, "lorvan", &AbstractDataSafe::getString, asIs));
    figures.push_back(getter("getBool", entries, "true", &AbstractDataSafe::getBool, asBool));
    figures.push_back(getter("getInt", entries, "120", &AbstractDataSafe::getInt, asInt));
    figures.push_back(getter("getStringList", entries, "dxf aama astm iges",
                             &AbstractDataSafe::getStringList, asList));
}

// By value, so that no handle is copied.
void walkByHand(QDomElement element)
{
    for (; !element.isNull(); element = element.nextSiblingElement())
        walkByHand(element.firstChildElement());
}

Figure walk(const QString &product)
{
    const QDomDocument document = Quenda::RuntimeConfig(path(product, "menus")).content();
    const auto once = [document] { DomVisitor().visit(document.documentElement()); };
    const auto byHand = [document] { walkByHand(document.documentElement()); };
    return {"walk over menus.xml", runs, {repeated(runs, once)}, {repeated(runs, byHand)}, 1.1};
}

Figure parser(int entries)
{
    QString text = QStringLiteral("<quendaconfig>\n");
    for (int i = 0; i < entries; ++i)
        text += QStringLiteral("\t<entry name=\"entry%1\">value %1</entry>\n\n").arg(i);
    text += QLatin1String("</quendaconfig>\n");
    const auto parse = [text] { DoNotOptimize(AppDataParser().visit(text)); };
    const auto baseline = [text] { DoNotOptimize(QDomDocument().setContent(text)); };
    return {"entry document, each of " + std::to_string(entries), entries, {parse}, {baseline}};
}

} // namespace

void addConfigFigures(std::vector<Figure> &figures)
{
    const QStringList products = QDir(QStringLiteral(":/widgets")).entryList();
    for (const QString &product : products)
        figures.push_back(startUp(product));
    addAlternatives(figures, products.first());
    addGetters(figures, readEntries(path(products.first(), "confs")));
    figures.push_back(walk(products.first()));
    for (int entries : {10, 1000, 100000})
        figures.push_back(parser(entries));
}
