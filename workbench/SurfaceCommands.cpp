#include "CommandLine.h"
#include "PreviewWindow.h"
#include "document/ToolDocument.h"
#include "surface/Picture.h"
#include "surface/Surface.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFont>
#include <QImageWriter>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>

namespace Quenda::Workbench {

namespace {

bool isOffscreen()
{
    return QGuiApplication::platformName() == QLatin1String("offscreen");
}

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

Status previewCommand(const QStringList &places, const QCommandLineParser &)
{
    if (isOffscreen())
        return fail("preview needs a display; screenshot does without");
    LoadedPlace loaded;
    if (loadProduct(places.constFirst(), &loaded) == NotDone) // the window shows errors
        return NotDone;
    useLightStyle();
    PreviewWindow window(loaded.place);
    window.show();
    return QApplication::exec() == 0 ? NothingWrong : NotDone;
}

Status screenshotCommand(const QStringList &placeAndFile, const QCommandLineParser &options)
{
    const int presentation = choose("presentation", options.value(QStringLiteral("tools")),
                                    {QStringLiteral("boxes"), QStringLiteral("bars")});
    if (presentation < 0)
        return NotDone;
    LoadedPlace loaded;
    if (const Status status = loadProduct(placeAndFile.constFirst(), &loaded))
        return status;
    const QVector<HostState> states = statesToShow(loaded.place.product);
    const int state = chooseState(states, options.value(QStringLiteral("state")));
    if (state < 0)
        return NotDone;
    useLightStyle();
    Surface surface(loaded.documents);
    const auto menus = surface.menuBar()->findChildren<QMenu *>();
    const int menu = chooseMenu(menus, options.value(QStringLiteral("menu")));
    if (menu < 0)
        return NotDone;
    surface.showState(states.at(state), static_cast<Presentation>(presentation));
    QImageWriter writer(placeAndFile.constLast());
    if (!writer.write(pictureOf(surface, menus.value(menu))))
        return fail("cannot write %1: %2", placeAndFile.constLast(), writer.errorString());
    return NothingWrong;
}

} // namespace Quenda::Workbench
