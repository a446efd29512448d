// Fuzzes everything that reads documents. Nothing may crash, positions must be right, and a
// document in which the checker finds no error must be read, built and shown as it is written.

#include "Mutator.h"

#include "SchemaValidator.h"
#include "documents/Place.h"
#include "entries/Entries.h"
#include "menus/Menus.h"
#include "outline/Outline.h"
#include "surface/Surface.h"
#include "tools/Tools.h"

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
    // Messages about the missing desktop, about encodings, which are errors anyway, and about
    // pictures that only the host has.
    const bool isMeant = message.startsWith(QLatin1String("This plugin does not support"))
                         || message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"))
                         || message.startsWith(QLatin1String("codecForName: "))
                         || message.startsWith(QLatin1String("Could not create pixmap from"));
    if (!isMeant)
        fail(QStringLiteral("no message from Qt: ") + message);
}

// Every position is inside the text, and what belongs there is there.
void checkPlaces(const QString &content, const XmlElement &element)
{
    const auto stands = [&content](const QString &text, int offset) {
        return content.midRef(offset).startsWith(text);
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
    const QStringList lines = xml.text.split(QLatin1Char('\n'));
    for (const Finding &finding : findings) {
        const auto &[line, column] = finding.position;
        require(line >= 1 && line <= lines.size() && column >= 1
                    && column <= lines.at(line - 1).size() + 1,
                "the place of the finding:", finding.text);
        // An offset after the end of the text has the position of its end, too.
        require(!xml.error.text.isEmpty() || line < lines.size()
                    || column <= lines.constLast().toUcs4().size(),
                "something at the place of the finding:", finding.text);
    }
}

void checkSchema(const Document &document)
{
    static SchemaValidator validator;
    Findings prolog(document);
    checkProlog(document, prolog);
    if (!prolog.isEmpty()) // no schema checks it, and not every parser accepts it
        return;
    Findings shape(document);
    checkShape(document, shape);
    // A schema does not check the declarations of namespaces either.
    const QVector<Finding> wrong = shape.inOrder();
    const bool isNamespace = std::any_of(wrong.begin(), wrong.end(), [](const Finding &finding) {
        return finding.text.contains(QLatin1String("xmlns"));
    });
    const bool isRight = wrong.isEmpty();
    require(isNamespace
                || validator.accepts(*document.format, document.xml.text.toUtf8()) == isRight,
            "the schema of one mind with the checker, which says:",
            isRight ? QStringLiteral("right") : wrong.constFirst().text);
}

void checkEntries(const XmlDocument &xml)
{
    Quenda::Kit::AppDataParser parser;
    parser.visit(xml.text);
    require(parser.error().isEmpty(), "the application reads entries:", parser.error());
    QMap<QString, QString> entries;
    for (const XmlElement &entry : xml.root.children)
        entries.insert(entry.value(u"name"), entry.text);
    require(parser.result() == entries, "the application reads the same entries");
}

// The properties of a menu or an action have the values of the document.
void checkProperties(const QObject &object, const XmlElement &element)
{
    const XmlElement *visible = propertyOf(element, u"visible"_s);
    const bool isHidden = visible && visible->text == QLatin1String("false");
    for (const XmlElement &property : element.children) {
        const QString name = property.value(u"name");
        if (!property.is(u"property")
            || (isHidden && name == QLatin1String("enabled"))) // Qt disables what it hides
            continue;
        const XmlElement &value = property.children.front();
        const QVariant actual = object.property(qPrintable(name));
        bool isSame = true; // also if it is hard to compare
        if (value.is(u"bool"))
            isSame = actual.toBool() == (value.text == QLatin1String("true"));
        else if (actual.userType() == QMetaType::QKeySequence)
            isSame = actual.value<QKeySequence>() == QKeySequence::fromString(value.text);
        else if (value.is(u"string"))
            // Without a tool tip, Qt shows the text. It drops spaces next to a comment.
            isSame =
                actual.toString().simplified() == value.text.simplified() || value.text.isEmpty();
        require(isSame, "the property", element.value(u"name") + QLatin1Char('.') + name);
    }
}

template <typename Widget>
void checkMenu(const Widget &widget, const XmlElement &menu, const XmlElement &menuBar)
{
    const QString name = menu.value(u"name");
    require(widget.objectName() == name, "the menu", name);
    checkProperties(widget, menu);
    QList<QAction *> actions = widget.actions();
    for (const XmlElement &item : menu.children) {
        if (!item.is(u"addaction"))
            continue;
        require(!actions.isEmpty(), "all items of the menu", name);
        const QAction *action = actions.takeFirst();
        const XmlElement *shown = shownBy(item, menu, menuBar);
        require(action->isSeparator() == !shown, "the separators of the menu", name);
        if (action->menu())
            checkMenu(*action->menu(), *shown, menuBar);
        else
            require(!shown || action->objectName() == shown->value(u"name"), "the item",
                    item.value(u"name"));
    }
    require(actions.isEmpty(), "no other item in the menu", name);
}

void checkMenus(const Document &document)
{
    const XmlElement &menuBar = *document.xml.root.child(u"widget");
    const std::unique_ptr<QMenuBar> bar(loadMenuBar(document.xml.text));
    require(bar != nullptr, "a menu bar");
    checkMenu(*bar, menuBar, menuBar);
    for (const XmlElement &action : menuBar.children) {
        if (!action.is(u"action"))
            continue;
        const auto found = bar->findChildren<QObject *>(action.value(u"name"));
        require(found.size() == 1 && found.first()->inherits("QAction"), "the one action",
                action.value(u"name"));
        checkProperties(*found.first(), action);
    }
}

// The tools of a box that are visible in a state, in the order of the document.
QStringList toolsOf(const XmlElement &box, const HostState &state)
{
    QStringList tools;
    for (const XmlElement &item : box.children)
        if (!item.is(u"separator") && isAvailable(modeOf(box) & modeOf(item), state.code))
            tools += item.value(u"id");
    return tools;
}

// A lone "&" would be a mnemonic.
QString idOf(const QToolButton &button)
{
    return button.text().replace(u"&&"_s, u"&"_s);
}

QStringList toolsOf(const QDockWidget &dock)
{
    const auto buttons = dock.findChildren<QToolButton *>();
    QStringList tools;
    for (const QToolButton *button : buttons)
        if (button->isVisibleTo(&dock)) {
            require(!button->size().isEmpty(), "room for the tool", button->text());
            tools += idOf(*button);
        }
    return tools;
}

// The user can open those that do not fit.
QStringList toolsOf(const QToolBar &bar)
{
    const auto actions = bar.actions();
    QStringList tools;
    for (QAction *action : actions)
        if (!action->isSeparator() && action->isVisible())
            tools += idOf(static_cast<const QToolButton &>(*bar.widgetForAction(action)));
    return tools;
}

void checkTools(Document document, const HostState &state)
{
    static const Document noMenus =
        menuFormat().parse({}, "<ui version=\"4.0\"><class>menubar</class>"
                               "<widget class=\"QMenuBar\" name=\"menubar\"/></ui>");
    // A style sheet may define a button that is too large for the memory.
    for (XmlElement &box : document.xml.root.children)
        for (XmlAttribute &attribute : box.attributes)
            if (attribute.name == QLatin1String("button-style"))
                attribute.value.clear();
    Surface surface({document, noMenus});
    surface.show();
    QList<QDockWidget *> docks = surface.findChildren<QDockWidget *>();
    QList<QToolBar *> bars = surface.findChildren<QToolBar *>();
    for (const XmlElement &box : document.xml.root.children) {
        if (box.is(u"module"))
            continue;
        const bool isBar = box.is(u"toolbar");
        require(isBar ? !bars.isEmpty() : !docks.isEmpty(), "a panel for each box");
        surface.showState(state, isBar ? Presentation::ToolBars : Presentation::ToolBoxes);
        QCoreApplication::processEvents();
        const QStringList tools = isBar ? toolsOf(*bars.takeFirst()) : toolsOf(*docks.takeFirst());
        if (isAvailable(modeOf(box), state.code))
            require(tools == toolsOf(box, state),
                    "the tools of the box:", toolsOf(box, state).join(QLatin1Char(' ')));
    }
    require(docks.isEmpty() && bars.isEmpty(), "no other panel");
}

// Checks a document in which the checker found no error.
void checkCorrect(const Documents &documents, const HostState &state)
{
    outlineOf(documents);
    const Document &document = documents.front();
    if (document.format == &entryFormat())
        checkEntries(document.xml);
    else if (document.format == &toolFormat())
        checkTools(document, state);
    else
        checkMenus(document);
}

} // namespace

// Fontconfig does not free its data at the end.
extern "C" const char *__lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libfontconfig.so\n";
}

// NOLINTNEXTLINE(readability-non-const-parameter): Qt's constructor changes it.
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(failAtMessage);
    static const auto *application = new QApplication(*argc, *argv); // its destructor leaks
    Q_UNUSED(application)
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // One product and one state for each input, chosen by its size; all would take too long.
    const auto index = static_cast<int>(size % (knownProducts().size() + 1));
    const QString product = knownProducts().value(index).id;
    const QVector<HostState> states = statesToShow(product);
    const HostState &state = states.at(static_cast<int>(size / 3) % states.size());

    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const Format &format = bytes.contains("<ui")      ? menuFormat()
                           : bytes.contains("<entry") ? entryFormat()
                                                      : toolFormat();
    const Documents documents {format.parse({}, bytes)};
    const Document &document = documents.front();
    if (document.xml.error.text.isEmpty()) {
        checkPlaces(document.xml.text, document.xml.root);
        checkSchema(document);
    }
    const QVector<Finding> findings = checkDocuments(documents, product);
    checkPlaces(document.xml, findings);
    if (!hasErrors(findings)) {
        rememberCorrect(bytes);
        checkCorrect(documents, state);
    }
    return 0;
}
