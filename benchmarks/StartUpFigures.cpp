#include "Figures.h"

#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <QuendaCore/ConnectorImpl.h>
#include <QuendaCore/RuntimeConfig.h>

#include <QDomDocument>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#ifdef BENCHMARK_KCONFIG
#include <KConfig>
#include <KConfigGroup>
#endif

#include <memory>

using Quenda::ConnectorImpl;
using Quenda::Help::Controller;

namespace {

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

// Reads the tool and the menu document, and then the entries with the given function.
template <typename Entries>
Body reading(const QString &product, Entries entries)
{
    return [=](benchmark::State &state) {
        const QString tools = path(product, "tools");
        const QString menus = path(product, "menus");
        repeat(state, [&] {
            benchmark::DoNotOptimize(readText(tools));
            benchmark::DoNotOptimize(readText(menus));
            entries();
        });
    };
}

QMap<QString, QString> readEntries(const QString &path)
{
    const QString name = QStringLiteral("name");
    const Quenda::RuntimeConfig config(path);
    QMap<QString, QString> entries;
    for (QDomElement entry = config.content().documentElement().firstChildElement();
         !entry.isNull(); entry = entry.nextSiblingElement())
        entries.insert(entry.attribute(name), entry.text());
    return entries;
}

Body baseline(const QString &product)
{
    return reading(product, [entries = path(product, "confs")] {
        benchmark::DoNotOptimize(readEntries(entries));
    });
}

void addStartUp(const QString &product)
{
    const auto code = [product](benchmark::State &state) {
        ConnectorImpl connector(product);
        repeat(state, [] { Controller::instance()->startUp(); });
    };
    addFigure("startUp " + product.toStdString(), 1.05, code, baseline(product));
}

// A product's entries as INI files: more of them than QSettings caches.
class IniFiles
{
public:
    explicit IniFiles(const QString &product)
    {
        const QMap<QString, QString> entries = readEntries(path(product, "confs"));
        for (int i = 0; i < copies; ++i) {
            QSettings file(folder.filePath(QString::number(i)), QSettings::IniFormat);
            for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
                file.setValue(entry.key(), entry.value());
        }
    }

    QString next()
    {
        last = (last + 1) % copies;
        return folder.filePath(QString::number(last));
    }

private:
    static constexpr int copies = 50;
    QTemporaryDir folder;
    int last = 0;
};

// Alternatives for the same job.
void addOthers(const QString &product)
{
    const auto files = std::make_shared<IniFiles>(product);
    const auto settings = [files] {
        const QSettings entries(files->next(), QSettings::IniFormat);
        const QStringList names = entries.allKeys();
        for (const QString &name : names)
            benchmark::DoNotOptimize(entries.value(name).toString());
    };
    addFigure("startUp " + product.toStdString() + ", QSettings instead", noLimit,
              reading(product, settings), baseline(product));
#ifdef BENCHMARK_KCONFIG
    const auto kconfig = [files] {
        const KConfig entries(files->next(), KConfig::SimpleConfig);
        benchmark::DoNotOptimize(entries.group("General").entryMap());
    };
    addFigure("startUp " + product.toStdString() + ", KConfig instead", noLimit,
              reading(product, kconfig), baseline(product));
#endif
}

} // namespace

void addStartUpFigures()
{
    addStartUp(QStringLiteral("lorvan"));
    addStartUp(QStringLiteral("tesmar"));
    addOthers(QStringLiteral("lorvan"));
}
