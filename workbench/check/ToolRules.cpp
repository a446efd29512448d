#include "Products.h"
#include "check/Rules.h"
#include "document/ToolDocument.h"

#include <QSet>
#include <QToolButton>

namespace Quenda::Workbench {

namespace {

// Qt says only in a message that it cannot read one.
bool isStyleSheet(const QString &text)
{
    static bool isReadable = true;
    isReadable = true;
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &message) {
            isReadable &= !message.startsWith(QLatin1String("Could not parse stylesheet"));
        });
    QToolButton button;
    button.setStyleSheet(text);
    button.ensurePolished();
    qInstallMessageHandler(previous);
    return isReadable;
}

// The cells of a keypad.
constexpr QRect keypadGrid(0, 0, 4, 5);

class ToolChecker
{
public:
    ToolChecker(const Document &checked, const QString &product, Findings &collected)
        : document(checked),
          root(checked.xml.root),
          states(findProduct(product) ? findProduct(product)->states : QVector<HostState>()),
          findings(collected)
    {
    }

    void check()
    {
        checkUnique(root, "module");
        checkUnique(root, "toolbar");
        checkReferences();
        for (const XmlElement &part : root.children) {
            if (part.is("module"))
                continue;
            checkItems(part);
            checkModes(part);
            checkOverlap(part);
            if (!isStyleSheet(part.value("button-style")))
                findings.error(part.offsetOf("button-style"),
                               "a style sheet that Qt cannot read; expected Qt's syntax for one");
        }
    }

private:
    int lineOf(const XmlElement &element) const
    {
        return positionOf(document.xml.content, element.offset).line;
    }

    // Children of one name and one module are told apart by their ids.
    void checkUnique(const XmlElement &parent, const char *name)
    {
        QSet<QString> seen;
        for (const XmlElement &child : parent.children) {
            if (!child.is(name))
                continue;
            const QString key = child.value("xlink:href") + QLatin1Char('\n') + child.value("id");
            if (seen.contains(key))
                findings.error(child.offsetOf("id"), "<%1> \"%2\" stands twice; expected once",
                               name, child.value("id"));
            seen.insert(key);
        }
    }

    // A module that several miss is reported once.
    void checkReferences()
    {
        QStringList modules;
        QSet<QString> missed;
        for (const XmlElement &part : root.children) {
            if (part.is("module"))
                modules += QLatin1Char('#') + part.value("id");
            for (const XmlElement &item : part.children) {
                const QString reference = item.value("xlink:href");
                if (item.is("separator") || modules.contains(reference)
                    || missed.contains(reference))
                    continue;
                missed.insert(reference);
                const XmlElement *later = moduleOf(item, root);
                const QString expected =
                    later ? compose("it in front of this, not in line %1", lineOf(*later))
                    : modules.isEmpty() ? compose("a <module>")
                                        : listed(modules);
                findings.error(item.offsetOf("xlink:href"),
                               "\"xlink:href\" is \"%1\", which is no module so far; expected %2%3",
                               reference, expected, suggestion(reference, modules));
            }
        }
    }

    void checkItems(const XmlElement &box)
    {
        if (box.children.empty())
            findings.warning(box.offset, "<%1> holds nothing; expected tools", box.name);
        checkUnique(box, "tool");
        checkUnique(box, "key");
        QSet<QString> groups;
        QString previous;
        for (const XmlElement &item : box.children) {
            const QString group = item.value("group");
            if (!group.isEmpty() && group != previous && groups.contains(group))
                findings.error(item.offsetOf("group"),
                               "tool \"%1\" stands apart from its group \"%2\"; expected beside it",
                               item.value("id"), group);
            groups.insert(group);
            previous = group;
            if (item.is("key"))
                checkCells(item, box);
        }
    }

    void checkCells(const XmlElement &key, const XmlElement &keypad)
    {
        if (!keypadGrid.contains(cellsOf(key)))
            findings.error(key.offset,
                           "key \"%1\" leaves the grid; expected within %2 rows and %3 columns",
                           key.value("id"), keypadGrid.height(), keypadGrid.width());
        for (const XmlElement &other : keypad.children)
            if (other.offset < key.offset && cellsOf(key).intersects(cellsOf(other)))
                findings.error(key.offset,
                               "key \"%1\" lies on top of key \"%2\"; expected free cells",
                               key.value("id"), other.value("id"));
    }

    // Null when no state meets the mask, or none is known.
    const HostState *firstState(quint32 mode) const
    {
        const auto found = std::find_if(states.begin(), states.end(), [mode](const HostState &s) {
            return isAvailable(mode, s.code);
        });
        return found == states.end() ? nullptr : &*found;
    }

    void checkModes(const XmlElement &box)
    {
        if (states.isEmpty() || !checkMode(box, ~quint32(0), ""))
            return;
        QSet<quint32> wrong; // for all that have one mask, as the cause may be the box's own
        for (const XmlElement &item : box.children)
            if (!wrong.contains(modeOf(item)) && !checkMode(item, modeOf(box), " in this box"))
                wrong.insert(modeOf(item));
    }

    // Whether a state meets the element's mask in its box.
    bool checkMode(const XmlElement &element, quint32 boxMode, const char *where)
    {
        if (!firstState(modeOf(element) & boxMode)) {
            findings.error(element.offsetOf("mode"),
                           "no state meets \"mode\" \"%1\"%2; expected all bits of one at least",
                           element.value("mode"), where);
            return false;
        }
        quint32 unknown = element.has("mode") ? modeOf(element) : 0;
        for (const HostState &state : states)
            unknown &= ~state.code;
        if (unknown)
            findings.warning(element.offsetOf("mode"),
                             "\"mode\" \"%1\" has bits of no state, 0x%2; expected bits of states",
                             element.value("mode"), QString::number(unknown, 16));
        return true;
    }

    // A second tool box in one state, or a second tool bar that users cannot tell from the first.
    void checkOverlap(const XmlElement &box)
    {
        for (const XmlElement &other : root.children) {
            const HostState *state = firstState(modeOf(box) & modeOf(other));
            if (other.offset >= box.offset || other.name != box.name || !state
                || other.value("title") != box.value("title"))
                continue;
            const QString title = compose(" titled \"%1\"", box.value("title"));
            return findings.warning(
                box.offset, "a second <%1>%2 in the state \"%3\"; expected one, as in line %4",
                box.name, box.has("title") ? title : QString(), state->name, lineOf(other));
        }
    }

    const Document &document;
    const XmlElement &root;
    const QVector<HostState> states;
    Findings &findings;
};

} // namespace

void checkTools(const Document &document, const QString &product, Findings &findings)
{
    ToolChecker(document, product, findings).check();
}

} // namespace Quenda::Workbench
