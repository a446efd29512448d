// Fuzzes all that reads documents. Nothing may crash, everything stands where it is said to, and a
// document in which the checker finds no error is taken by everyone as it was judged.

#include "Mutator.h"

#include "check/Check.h"
#include "document/EntryDocument.h"
#include "document/MenuDocument.h"
#include "document/ToolDocument.h"
#include "outline/Outline.h"
#include "surface/Surface.h"
#include "surface/ToolBoxGrid.h"

#include <Config/AppDataParser.h>

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QKeySequence>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace Quenda::Workbench;

namespace {

[[noreturn]] void fail(const QString &what)
{
    std::fprintf(stderr, "Broken: %s\n", qUtf8Printable(what));
    std::abort();
}

void require(bool condition, const char *what, const QString &name = QString())
{
    if (!condition)
        fail(QString::fromUtf8(what) + QLatin1Char(' ') + name);
}

void failAtMessage(QtMsgType, const QMessageLogContext &, const QString &message)
{
    // Said of the missing desktop, of odd encodings, which are errors anyway, and of pictures that
    // only the host has.
    const bool isMeant = message.startsWith(QLatin1String("This plugin does not support"))
                         || message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"))
                         || message.startsWith(QLatin1String("codecForName: "))
                         || message.startsWith(QLatin1String("Could not create pixmap from"));
    if (!isMeant)
        fail(QStringLiteral("no message from Qt: ") + message);
}

// Every place within the text, and at what it belongs to.
void checkPlaces(const QByteArray &content, const XmlElement &element)
{
    const auto stands = [&content](const QString &text, int offset) {
        return content.mid(offset).startsWith(text.toUtf8());
    };
    require(stands(QLatin1Char('<') + element.name, element.offset), "the place of the element",
            element.name);
    for (const XmlAttribute &attribute : element.attributes)
        require(attribute.offset > element.offset && stands(attribute.name, attribute.offset),
                "the place of the attribute", attribute.name);
    require(element.textOffset == -1
                || (element.textOffset > element.offset && element.textOffset < content.size()),
            "the place of the text of", element.name);
    for (const XmlElement &child : element.children)
        checkPlaces(content, child);
}

void checkPlaces(const XmlDocument &xml, const QVector<Finding> &findings)
{
    const QStringList lines = QString::fromUtf8(xml.content).split(QLatin1Char('\n'));
    for (const Finding &finding : findings) {
        const auto &[line, column] = finding.position;
        require(line >= 1 && line <= lines.size() && column >= 1
                    && column <= lines.at(line - 1).size() + 1,
                "the place of the finding:", finding.text);
        // An offset beyond the text would be taken for its end, too.
        require(!xml.error.text.isEmpty() || line < lines.size()
                    || column <= lines.constLast().toUcs4().size(),
                "something at the place of the finding:", finding.text);
    }
}

void checkEntries(const XmlDocument &xml)
{
    Quenda::Kit::AppDataParser parser;
    parser.visit(QString::fromUtf8(xml.content));
    require(parser.error().isEmpty(), "the application reads entries:", parser.error());
    const EntryDocument document = EntryDocument::read(xml);
    QMap<QString, QString> entries;
    for (const EntryDocument::Entry &entry : document.entries)
        entries.insert(entry.name, entry.value);
    require(parser.result() == entries, "the application reads the same entries");
}

// The properties of a menu or an action are what the document sets them to.
void checkProperties(const QObject &object, const XmlElement &element)
{
    for (const XmlElement &property : element.children) {
        if (property.name != QLatin1String("property"))
            continue;
        const XmlElement &value = property.children.front();
        const QVariant actual = object.property(qPrintable(property.value("name")));
        bool isSame = true; // or not easily compared, or up to the platform
        if (property.value("name") == QLatin1String("nativeMenuBar"))
            continue;
        if (value.name == QLatin1String("bool"))
            isSame = actual.toBool() == (value.text == QLatin1String("true"));
        else if (actual.userType() == QMetaType::QKeySequence)
            isSame = actual.value<QKeySequence>() == QKeySequence::fromString(value.text);
        else if (value.name == QLatin1String("string"))
            // Without a tool tip, Qt shows the text.
            isSame = actual.toString() == value.text || value.text.isEmpty();
        require(isSame, "the property",
                element.value("name") + QLatin1Char('.') + property.value("name"));
    }
}

template <typename Widget>
void checkMenu(const Widget &widget, const MenuDocument::Menu &menu)
{
    require(widget.objectName() == menu.name, "the menu", menu.name);
    checkProperties(widget, *menu.xml);
    const QList<QAction *> actions = widget.actions();
    require(actions.size() == menu.items.size(), "the number of items of the menu", menu.name);
    for (int i = 0; i < actions.size(); ++i) {
        const MenuDocument::Object &item = menu.items.at(i);
        const QAction *action = actions.at(i);
        const MenuDocument::Menu *subMenu = menu.subMenu(item.name);
        require(action->isSeparator() == item.isSeparator(), "the separators of the menu",
                menu.name);
        require(!action->menu() == !subMenu, "the sub-menus of the menu", menu.name);
        if (subMenu)
            checkMenu(*action->menu(), *subMenu);
        else
            require(item.isSeparator() || action->objectName() == item.name, "the item", item.name);
    }
}

void checkMenus(const Document &document)
{
    const MenuDocument menus = MenuDocument::read(document.xml);
    const std::unique_ptr<QMenuBar> bar(loadMenuBar(document.xml.content));
    require(bar != nullptr, "a menu bar");
    checkMenu(*bar, menus.bar);
    for (const MenuDocument::Object &action : menus.actions) {
        const auto found = bar->findChildren<QObject *>(action.name);
        require(found.size() == 1, "the one object", action.name);
        const bool isAction = action.xml->name == QLatin1String("action");
        require(isAction ? found.first()->inherits("QAction")
                         : found.first()->inherits("QActionGroup"),
                "the action", action.name);
        checkProperties(*found.first(), *action.xml);
    }
}

// The tools of a box that can be seen in a state, in the order in which they are shown.
QStringList toolsOf(const ToolDocument::Box &box, const HostState &state)
{
    QStringList tools;
    for (const ToolDocument::Item &item : box.items)
        if (!item.isSeparator && isAvailable(box.mode & item.mode, state.code))
            tools += item.id;
    return tools;
}

QStringList toolsOf(const QWidget &panel)
{
    const auto buttons = panel.findChildren<QToolButton *>();
    QStringList tools;
    for (const QToolButton *button : buttons)
        if (dynamic_cast<const ToolButton *>(button) && button->isVisibleTo(&panel)) {
            require(!button->size().isEmpty(), "room for the tool", button->text());
            tools += button->text();
        }
    return tools;
}

void checkTools(const Document &document, const HostState &state)
{
    static const Document noMenus {
        DocumentKind::Menus,
        {},
        XmlDocument::fromBytes("<ui version=\"4.0\"><class>menubar</class>"
                               "<widget class=\"QMenuBar\" name=\"menubar\"/></ui>")};
    const ToolDocument tools = ToolDocument::read(document.xml);
    Surface surface({document, noMenus});
    const auto docks = surface.findChildren<QDockWidget *>();
    const auto bars = surface.findChildren<QToolBar *>();
    require(docks.size() == tools.toolBoxes.size() + tools.keypads.size()
                && bars.size() == tools.toolBars.size(),
            "a panel for each box");
    surface.showState(state, Presentation::ToolBoxes);
    surface.show();
    QCoreApplication::processEvents();
    for (int i = 0; i < tools.toolBoxes.size(); ++i)
        require(
            toolsOf(*docks.at(i)) == toolsOf(tools.toolBoxes.at(i), state),
            "the tools of the box:", toolsOf(tools.toolBoxes.at(i), state).join(QLatin1Char(' ')));
    for (int i = 0; i < tools.keypads.size(); ++i)
        require(toolsOf(*docks.at(tools.toolBoxes.size() + i)).size()
                    == tools.keypads.at(i).items.size(),
                "all keys");
    surface.showState(state, Presentation::ToolBars);
    QCoreApplication::processEvents();
    for (int i = 0; i < bars.size(); ++i) {
        const QList<QAction *> actions = bars.at(i)->actions();
        QStringList shown;
        for (QAction *action : actions)
            if (!action->isSeparator() && action->isVisible())
                shown += bars.at(i)->widgetForAction(action)->objectName();
        require(shown == toolsOf(tools.toolBars.at(i), state), "the tools of the bar",
                tools.toolBars.at(i).title);
    }
}

// What holds of a document in which no error was found.
void checkCorrect(const Documents &documents, const HostState &state)
{
    outlineOf(documents);
    switch (documents.front().kind) {
    case DocumentKind::Entries:
        return checkEntries(documents.front().xml);
    case DocumentKind::Tools:
        return checkTools(documents.front(), state);
    case DocumentKind::Menus:
        return checkMenus(documents.front());
    }
}

} // namespace

// What Qt's fonts keep to the end.
extern "C" const char *__lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libfontconfig.so\n";
}

// NOLINTNEXTLINE(readability-non-const-parameter): Qt's constructor changes it.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(failAtMessage);
    static const auto *application = new QApplication(*argc, *argv); // whose end leaks
    Q_UNUSED(application)
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // One product and one state an input, by its size, as all of them would take too long.
    const QString product =
        QStringList {QString(), QStringLiteral("lorvan"), QStringLiteral("tesmar")}.at(size % 3);
    const QVector<HostState> states = statesToShow(product);
    const HostState &state = states.at(static_cast<int>(size / 3) % states.size());

    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const DocumentKind kind = bytes.contains("<ui")      ? DocumentKind::Menus
                              : bytes.contains("<entry") ? DocumentKind::Entries
                                                         : DocumentKind::Tools;
    const Documents documents {{kind, {}, XmlDocument::fromBytes(bytes)}};
    const Document &document = documents.front();
    if (document.xml.error.text.isEmpty())
        checkPlaces(document.xml.content, document.xml.root);
    const QVector<Finding> findings = checkDocument(document, product);
    checkPlaces(document.xml, findings);
    if (!hasErrors(findings)) {
        rememberCorrect(bytes);
        checkCorrect(documents, state);
    }
    return 0;
}
