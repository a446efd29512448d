#include "commands/CommandLine.h"
#include "preview/PreviewWindow.h"
#include "surface/Picture.h"

#include <QApplication>

namespace Quenda::Workbench {

static Status preview(const Command &command, const QStringList &arguments)
{
    CommandLine line(command);
    line.add("editor", "command",
             "Opens the document of a finding, such as \"code -g {file}:{line}:{column}\"; by "
             "default $QUENDA_EDITOR, or else the desktop's program for XML.");
    if (const auto status = line.parse(arguments))
        return *status;
    if (QGuiApplication::platformName() == u"offscreen")
        return fail("preview needs a display; screenshot works without one");
    LoadedPlace loaded;
    if (loadProduct(line.values().constFirst(), &loaded) == Failed) // the window shows errors
        return Failed;
    useLightStyle();
    PreviewWindow window(loaded.place, line.value(u"editor"_s));
    window.show();
    QApplication::exec();
    return NoErrors;
}

const Command previewCommand {
    "preview", "PLACE",
    "shows the working surface in a window, and updates it after each save; F5 reads the documents "
    "again, Enter on a finding opens its document, and Ctrl+Q closes the window",
    preview};

} // namespace Quenda::Workbench
