#include "CommandLine.h"
#include "PreviewWindow.h"
#include "document/ToolDocument.h"
#include "surface/Picture.h"
#include "surface/Surface.h"

#include <QApplication>
#include <QBuffer>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QImageWriter>
#include <QMenu>
#include <QMenuBar>
#include <QSaveFile>

namespace Quenda::Workbench {

namespace {

// By its code or its name; the first if none is named.
int chooseState(const QVector<HostState> &states, const QString &wanted)
{
    QStringList labels;
    for (int i = 0; i < states.size(); ++i) {
        const HostState &state = states.at(i);
        if (wanted.isEmpty() || maskFromText(wanted) == state.code
            || state.name.compare(wanted, Qt::CaseInsensitive) == 0)
            return i;
        labels += state.label();
    }
    return choose("state", wanted, labels);
}

// By its object name; behind the last if none is named.
int chooseMenu(const QList<QMenu *> &menus, const QString &wanted)
{
    QStringList names;
    for (const QMenu *menu : menus)
        names += menu->objectName();
    return wanted.isEmpty() ? menus.size() : choose("menu", wanted, names);
}

} // namespace

Status previewCommand(const QStringList &places, const QCommandLineParser &options)
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        return fail("preview needs a display; screenshot works without one");
    LoadedPlace loaded;
    if (loadProduct(places.constFirst(), &loaded) == Failed) // the window shows errors
        return Failed;
    useLightStyle();
    PreviewWindow window(loaded.place, options.value(QStringLiteral("editor")));
    window.show();
    QApplication::exec();
    return NoErrors;
}

Status screenshotCommand(const QStringList &placeAndFile, const QCommandLineParser &options)
{
    // A link is followed, so what counts is the suffix of the file that it leads to.
    QFileInfo target(placeAndFile.constLast());
    if (target.isSymLink() && target.exists())
        target.setFile(target.canonicalFilePath());
    const QByteArray format = target.suffix().toLower().toUtf8();
    const QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    if (!formats.contains(format))
        return fail("%1 does not end in the suffix of a picture; use one of %2",
                    quoted(target.filePath()), QString::fromLatin1(formats.join(", ")));
    const QString tools = options.value(QStringLiteral("tools"));
    const int presentation =
        tools.isEmpty()
            ? 0
            : choose("presentation", tools, {QStringLiteral("boxes"), QStringLiteral("bars")});
    if (presentation < 0)
        return Failed;
    LoadedPlace loaded;
    if (const Status status = loadProduct(placeAndFile.constFirst(), &loaded))
        return status;
    const QVector<HostState> states = statesToShow(loaded.place.product);
    const int state = chooseState(states, options.value(QStringLiteral("state")));
    if (state < 0)
        return Failed;
    useLightStyle();
    Surface surface(loaded.documents);
    const auto menus = surface.menuBar()->findChildren<QMenu *>();
    const int menu = chooseMenu(menus, options.value(QStringLiteral("menu")));
    if (menu < 0)
        return Failed;
    surface.showState(states.at(state), static_cast<Presentation>(presentation));
    QBuffer picture;
    QImageWriter writer(&picture, format);
    if (!writer.write(pictureOf(surface, menus.value(menu))))
        return fail("cannot save the picture as %1: %2", format.constData(), writer.errorString());
    // QSaveFile leaves an existing file as it is until all is written. It does not notice by itself
    // when only a part could be written.
    QSaveFile file(target.filePath());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        || file.write(picture.data()) != picture.size() || !file.commit())
        return fail("cannot write %1: %2", placeAndFile.constLast(),
                    file.error() == QFileDevice::NoError ? QStringLiteral("not enough space")
                                                         : file.errorString());
    return NoErrors;
}

} // namespace Quenda::Workbench
