#include "CommandLine.h"
#include "PreviewWindow.h"

#include <QApplication>

int previewCommand(const QStringList &arguments)
{
    QCommandLineParser parser;
    if (const auto status =
            parse(parser, arguments, {"preview", "PLACE", 1, 1},
                  "Shows the working surface in a window, and again whenever a document is saved. "
                  "While a\ndocument is wrong, the last surface stays and the findings stand below "
                  "it; activate one to\nopen the document. F5 reads again, Ctrl+Q ends."))
        return *status;
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        return fail(QStringLiteral("preview needs a display; screenshot does without"));
    QString error;
    const auto place = Place::find(placesOf(parser).constFirst(), &error);
    if (!place)
        return fail(error);
    if (place->files.size() != 3)
        return fail(QStringLiteral("\"%1\" is one document; expected a product's folder or id")
                        .arg(placesOf(parser).constFirst()));
    useLightStyle();
    PreviewWindow window(*place);
    window.show();
    return QApplication::exec();
}
