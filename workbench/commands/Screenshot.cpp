#include "commands/CommandLine.h"
#include "surface/Picture.h"
#include "surface/Surface.h"
#include "tools/Tools.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QMenu>
#include <QMenuBar>
#include <QSaveFile>

namespace Quenda::Workbench {

namespace {

// Finds a state by its code or its name; the first if none is named.
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

// Finds a menu by its object name; the index behind the last one if none is named.
int chooseMenu(const QList<QMenu *> &menus, const QString &wanted)
{
    QStringList names;
    for (const QMenu *menu : menus)
        names += menu->objectName();
    return wanted.isEmpty() ? menus.size() : choose("menu", wanted, names);
}

// QSaveFile leaves an existing file as it is until all is written. It does not notice by itself
// when only a part could be written.
Status save(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(bytes) == bytes.size()
        && file.commit())
        return NoErrors;
    return fail("cannot write %1: %2", path,
                file.error() == QFileDevice::NoError ? u"not enough space"_s : file.errorString());
}

Status screenshot(const Command &command, const QStringList &arguments)
{
    CommandLine line(command);
    line.add("state", "state", "Code or name of the host's state; by default the first.");
    line.add("menu", "name", "Object name of a menu to open.");
    line.add("tools", "boxes|bars", "Shows the tools in boxes, the default, or in bars.");
    if (const auto status = line.parse(arguments))
        return *status;
    // A link is followed, so what counts is the suffix of the file that it leads to.
    QFileInfo target(line.values().constLast());
    if (target.isSymLink() && target.exists())
        target.setFile(target.canonicalFilePath());
    const QByteArray format = target.suffix().toLower().toUtf8();
    const QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    if (!formats.contains(format))
        return fail("%1 does not end in the suffix of a picture; use one of %2",
                    quoted(target.filePath()), QString::fromLatin1(formats.join(", ")));
    const QString tools = line.value(u"tools"_s);
    const int presentation =
        tools.isEmpty() ? 0 : choose("presentation", tools, {u"boxes"_s, u"bars"_s});
    if (presentation < 0)
        return Failed;
    LoadedPlace loaded;
    if (const Status status = loadProduct(line.values().constFirst(), &loaded))
        return status;
    const QVector<HostState> states = statesToShow(loaded.place.product);
    const int state = chooseState(states, line.value(u"state"_s));
    if (state < 0)
        return Failed;
    useLightStyle();
    Surface surface(loaded.documents);
    const auto menus = surface.menuBar()->findChildren<QMenu *>();
    const int menu = chooseMenu(menus, line.value(u"menu"_s));
    if (menu < 0)
        return Failed;
    surface.showState(states.at(state), static_cast<Presentation>(presentation));
    QBuffer picture;
    QImageWriter writer(&picture, format);
    if (!writer.write(pictureOf(surface, menus.value(menu))))
        return fail("cannot save the picture as %1: %2", format.constData(), writer.errorString());
    return save(target.filePath(), picture.data());
}

} // namespace

const Command screenshotCommand {
    "screenshot", "PLACE FILE",
    "saves a picture of the working surface in the format of the file's suffix", screenshot};

} // namespace Quenda::Workbench
