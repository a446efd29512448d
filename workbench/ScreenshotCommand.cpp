#include "CommandLine.h"
#include "surface/Picture.h"
#include "surface/Surface.h"

#include <QFileInfo>
#include <QImageWriter>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace {

// The state with this code or name; null, after saying which there are, when there is none.
const HostState *findState(const QVector<HostState> &states, const QString &wanted)
{
    const auto code = maskFromText(wanted);
    QStringList known;
    for (const HostState &state : states) {
        if (state.name == wanted || code == state.code)
            return &state;
        known +=
            QStringLiteral("0x%1 (%2)").arg(state.code, 2, 16, QLatin1Char('0')).arg(state.name);
    }
    fail(QStringLiteral("there is no state \"%1\"; there are: %2")
             .arg(wanted, known.join(QLatin1String(", "))));
    return nullptr;
}

const QMenu *findMenu(const Surface &surface, const QString &wanted)
{
    QStringList known;
    const auto menus = surface.menuBar()->findChildren<QMenu *>();
    for (const QMenu *menu : menus) {
        if (menu->objectName() == wanted)
            return menu;
        known += menu->objectName();
    }
    fail(QStringLiteral("there is no menu \"%1\"; there are: %2")
             .arg(wanted, known.join(QLatin1String(", "))));
    return nullptr;
}

// Refuses a picture that cannot be written before anything is done for it.
std::optional<Status> whyNotWritten(const QString &path)
{
    const QByteArrayList formats = QImageWriter::supportedImageFormats();
    if (!formats.contains(QFileInfo(path).suffix().toLower().toUtf8()))
        return fail(QStringLiteral("cannot write %1: expected one of the suffixes %2")
                        .arg(path, QString::fromUtf8(formats.join(", "))));
    const QFileInfo folder(QFileInfo(path).path());
    const QFileInfo file(path);
    if (!folder.isDir()
        || !(file.exists() ? file.isFile() && file.isWritable() : folder.isWritable()))
        return fail(
            QStringLiteral("cannot write %1: the folder or the file is not writable").arg(path));
    return std::nullopt;
}

} // namespace

int screenshotCommand(const QStringList &arguments)
{
    const QCommandLineOption state(QStringLiteral("state"),
                                   QStringLiteral("The state of the host, by its code or name."),
                                   QStringLiteral("state"));
    const QCommandLineOption menu(QStringLiteral("menu"),
                                  QStringLiteral("Open the menu with this object name."),
                                  QStringLiteral("name"));
    const QCommandLineOption tools(QStringLiteral("tools"),
                                   QStringLiteral("Show the tools in boxes (as without the option) "
                                                  "or in bars."),
                                   QStringLiteral("boxes|bars"), QStringLiteral("boxes"));
    QCommandLineParser parser;
    parser.addOptions({state, menu, tools});
    if (const auto status =
            parse(parser, arguments, {"screenshot", "PLACE FILE", 2, 2},
                  "Saves the working surface as a picture, without a display. The picture is as "
                  "large as the\nstate needs, and the file's suffix chooses its format."))
        return *status;

    const QString presentation = parser.value(tools);
    if (presentation != QLatin1String("boxes") && presentation != QLatin1String("bars"))
        return fail(
            QStringLiteral("there are no tools \"%1\"; there are: boxes, bars").arg(presentation));
    const QString path = placesOf(parser).constLast();
    if (const auto status = whyNotWritten(path))
        return *status;
    const auto loaded = LoadedPlace::load(placesOf(parser).constFirst());
    if (!loaded)
        return NotDone;
    if (const auto status = loaded->whyNotBuilt())
        return *status;

    const QVector<HostState> states = statesToShow(loaded->place.product);
    const HostState *shown =
        parser.isSet(state) ? findState(states, parser.value(state)) : &states.constFirst();
    if (!shown)
        return NotDone;
    useLightStyle();
    Surface surface(loaded->documents.at(1), loaded->documents.at(2));
    const QMenu *open = parser.isSet(menu) ? findMenu(surface, parser.value(menu)) : nullptr;
    if (parser.isSet(menu) && !open)
        return NotDone;
    surface.showState(*shown, presentation == QLatin1String("bars") ? Presentation::ToolBars
                                                                    : Presentation::ToolBoxes);
    QImageWriter writer(path);
    if (!writer.write(pictureOf(surface, open)))
        return fail(QStringLiteral("cannot write %1: %2").arg(path, writer.errorString()));
    return NothingWrong;
}
