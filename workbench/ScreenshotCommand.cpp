#include "CommandLine.h"
#include "surface/Picture.h"
#include "surface/Surface.h"

#include <QFileInfo>
#include <QImageWriter>
#include <QMenu>
#include <QMenuBar>

namespace Quenda::Workbench {

namespace {

// Refuses a picture that cannot be written before anything is done for it.
Status checkPicture(const QString &path)
{
    const QFileInfo file(path);
    const QFileInfo folder(file.path());
    const QByteArrayList formats = QImageWriter::supportedImageFormats();
    if (!formats.contains(file.suffix().toLower().toUtf8()))
        return fail("cannot write %1: expected one of the suffixes %2", path,
                    QString::fromUtf8(formats.join(", ")));
    if (!folder.isDir()
        || !(file.exists() ? file.isFile() && file.isWritable() : folder.isWritable()))
        return fail("cannot write %1: the folder or the file is not writable", path);
    return NothingWrong;
}

} // namespace

QList<QCommandLineOption> screenshotOptions()
{
    return {{QStringLiteral("state"), QStringLiteral("The state of the host, by its code or name."),
             QStringLiteral("state")},
            {QStringLiteral("menu"), QStringLiteral("Open the menu with this object name."),
             QStringLiteral("name")},
            {QStringLiteral("tools"),
             QStringLiteral("Show the tools in boxes (as without the option) or in bars."),
             QStringLiteral("boxes|bars"), QStringLiteral("boxes")}};
}

Status screenshotCommand(const QStringList &placeAndFile, const QCommandLineParser &parser)
{
    const QString &path = placeAndFile.constLast();
    if (const Status status = checkPicture(path))
        return status;
    const int presentation = choose("presentation", parser.value(QStringLiteral("tools")),
                                    {QStringLiteral("boxes"), QStringLiteral("bars")});
    Status status = NothingWrong;
    const auto loaded =
        presentation < 0 ? std::nullopt : loadCorrectProduct(placeAndFile.constFirst(), &status);
    if (!loaded)
        return status == NothingWrong ? NotDone : status;

    const QVector<HostState> states = statesToShow(loaded->place.product);
    QString stateName = parser.value(QStringLiteral("state"));
    QStringList stateNames;
    for (const HostState &one : states) {
        stateNames += one.label();
        if (stateName.compare(one.name, Qt::CaseInsensitive) == 0
            || maskFromText(stateName) == one.code)
            stateName = one.label();
    }
    const int state = stateName.isEmpty() ? 0 : choose("state", stateName, stateNames);
    useLightStyle();
    Surface surface(loaded->documents);
    const auto menus = surface.menuBar()->findChildren<QMenu *>();
    QStringList menuNames;
    for (const QMenu *menu : menus)
        menuNames += menu->objectName();
    const QString menuName = parser.value(QStringLiteral("menu"));
    const int menu = menuName.isEmpty() ? menus.size() : choose("menu", menuName, menuNames);
    if (state < 0 || menu < 0)
        return NotDone;
    surface.showState(states.at(state), static_cast<Presentation>(presentation));
    QImageWriter writer(path);
    if (!writer.write(pictureOf(surface, menus.value(menu))))
        return fail("cannot write %1: %2", path, writer.errorString());
    return NothingWrong;
}

} // namespace Quenda::Workbench
