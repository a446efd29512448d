#include "CommandLine.h"
#include "PreviewWindow.h"

#include <QApplication>

namespace Quenda::Workbench {

Status previewCommand(const QStringList &places, const QCommandLineParser &)
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        return fail("preview needs a display; screenshot does without");
    QString error;
    const auto place = Place::find(places.constFirst(), Place::Wanted::Product, &error);
    if (!place)
        return failWith(error);
    useLightStyle();
    PreviewWindow window(*place);
    window.show();
    return QApplication::exec() == 0 ? NothingWrong : NotDone;
}

} // namespace Quenda::Workbench
