#include "CommandLine.h"
#include "PreviewWindow.h"

#include <QApplication>

namespace Quenda::Workbench {

Status previewCommand(const QStringList &places, const QCommandLineParser &)
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        return fail("preview needs a display; screenshot does without");
    const auto place = findProduct(places.constFirst());
    if (!place)
        return NotDone;
    useLightStyle();
    PreviewWindow window(*place);
    window.show();
    return QApplication::exec() == 0 ? NothingWrong : NotDone;
}

} // namespace Quenda::Workbench
