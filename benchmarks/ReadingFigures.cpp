#include "Figures.h"

#include "Config/AppDataParser.h"
#include "Config/DataSafe.h"

#include <QDomDocument>
#include <QFile>

#include <memory>

using Quenda::Help::AbstractDataSafe;
using Quenda::Kit::AppDataParser;
using Quenda::Kit::DataSafe;
using Quenda::Kit::DomVisitor;

namespace {

QString readText(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

using Entries = QMap<QString, QString>;

// A product's entries. Inserted in ascending order, as into the store, so that both maps have the
// same shape.
Entries someEntries()
{
    AppDataParser parser;
    parser.visit(readText(QStringLiteral(":/widgets/lorvan/confs.xml")));
    Entries entries;
    for (auto entry = parser.result().cbegin(); entry != parser.result().cend(); ++entry)
        entries.insert(entry.key(), entry.value());
    entries[QStringLiteral("importFormats")] = QStringLiteral("dxf aama astm iges");
    return entries;
}

// Not inlined, as a function of a library: one search, which returns the text and the flag.
[[gnu::noinline]] QString find(const Entries &entries, const QString &name, bool &ok)
{
    const auto entry = entries.constFind(name);
    ok = entry != entries.constEnd();
    return ok ? *entry : QString();
}

// A getter of a store. The baseline reads from a bare map.
template <typename Getter, typename Conversion>
void addGetter(const char *getterName, const QString &name, Getter getter, Conversion conversion)
{
    const Entries entries = someEntries();
    const auto code = [=](benchmark::State &state) {
        DataSafe filled;
        for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
            filled.put(entry.key(), entry.value());
        const AbstractDataSafe *store = &filled;
        benchmark::DoNotOptimize(store); // hosts do not know the class
        repeat(state, [&] {
            bool ok = false;
            benchmark::DoNotOptimize((store->*getter)(name, &ok));
            benchmark::DoNotOptimize(ok);
        });
    };
    const auto baseline = [=](benchmark::State &state) {
        repeat(state, [&] {
            bool ok = false;
            QString text = find(entries, name, ok);
            benchmark::DoNotOptimize(conversion(text, ok));
            benchmark::DoNotOptimize(ok);
        });
    };
    addFigure(getterName, 1.1, code, baseline);
}

// By value, so that no handle is copied.
void walkByHand(QDomElement element)
{
    for (; !element.isNull(); element = element.nextSiblingElement())
        walkByHand(element.firstChildElement());
}

void addWalk()
{
    QDomDocument document;
    document.setContent(readText(QStringLiteral(":/widgets/lorvan/menus.xml")));
    const auto code = [document](benchmark::State &state) {
        DomVisitor visitor;
        repeat(state, [&] { visitor.visit(document.documentElement()); });
    };
    const auto baseline = [document](benchmark::State &state) {
        repeat(state, [&] { walkByHand(document.documentElement()); });
    };
    addFigure("walk over menus.xml", 1.1, code, baseline);
}

void addParser(int entries)
{
    QString text = QStringLiteral("<quendaconfig>\n");
    for (int i = 0; i < entries; ++i)
        text += QStringLiteral("\t<entry name=\"entry%1\">value %1</entry>\n\n").arg(i);
    text += QLatin1String("</quendaconfig>\n");

    const auto code = [text, entries](benchmark::State &state) {
        const auto parse = [&text] {
            AppDataParser parser;
            parser.visit(text);
            benchmark::DoNotOptimize(parser.result().size());
        };
        repeat(state, parse, entries);
    };
    const auto baseline = [text, entries](benchmark::State &state) {
        const auto parse = [&text] {
            QDomDocument document;
            benchmark::DoNotOptimize(document.setContent(text));
        };
        repeat(state, parse, entries);
    };
    addFigure("entry document, each of " + std::to_string(entries), noLimit, code, baseline);
}

} // namespace

void addReadingFigures()
{
    addGetter("getString", QStringLiteral("fileSaveDomain"), &AbstractDataSafe::getString,
              [](QString &text, bool) -> QString & { return text; });
    addGetter("getBool", QStringLiteral("mtmEnabled"), &AbstractDataSafe::getBool,
              [](const QString &text, bool &ok) {
                  const bool isTrue = text == QLatin1String("true");
                  ok = isTrue || text == QLatin1String("false");
                  return isTrue;
              });
    addGetter("getInt", QStringLiteral("maxPieceCount"), &AbstractDataSafe::getInt,
              [](const QString &text, bool &ok) { return static_cast<int>(text.toDouble(&ok)); });
    addGetter(
        "getStringList", QStringLiteral("importFormats"), &AbstractDataSafe::getStringList,
        [](const QString &text, bool) { return text.split(QLatin1Char(' '), Qt::SkipEmptyParts); });

    addWalk();
    for (int entries : {10, 1000, 100000})
        addParser(entries);
}
