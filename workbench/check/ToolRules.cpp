#include "Products.h"
#include "check/Rules.h"
#include "document/ToolDocument.h"
#include "format/Format.h"

#include <QSet>
#include <QToolButton>

namespace Quenda::Workbench {

namespace {

// Qt says only in a message that it cannot read one.
bool isStyleSheet(const QString &text)
{
    static bool isReadable;
    isReadable = true;
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &message) {
            isReadable &= !message.startsWith(QLatin1String("Could not parse stylesheet"));
        });
    QToolButton button;
    button.setStyleSheet(text);
    qInstallMessageHandler(previous);
    return isReadable;
}

// The mask of an element as written and, where that differs, in hexadecimal.
QString modeText(const XmlElement &element)
{
    if (!element.has("mode"))
        return compose("no mode");
    const QString written = element.value("mode");
    const QString hexadecimal = compose("0x%1", QString::number(modeOf(element), 16));
    return written.startsWith(QLatin1String("0x"))
               ? compose("mode \"%1\"", written)
               : compose("mode \"%1\" (%2)", written, hexadecimal);
}

class ToolChecker
{
public:
    ToolChecker(const Document &checked, const QString &product, Findings &collected)
        : root(checked.xml.root),
          declaredRoot(checked.format->root),
          states(findProduct(product) ? findProduct(product)->states : QVector<HostState>()),
          findings(collected)
    {
    }

    void check()
    {
        checkUnique(root, {"module", "toolbar"});
        checkReferences();
        for (const XmlElement &part : root.children) {
            if (part.is("module"))
                continue;
            if (part.children.empty())
                findings.warning(part.offset, "<%1> is empty; add tools, or remove it", part.name);
            checkUnique(part, {"tool", "key"});
            checkGroups(part);
            checkCells(part);
            checkModes(part);
            checkOverlap(part);
            for (const Attribute &attribute : declaredRoot.child(part)->attributes)
                if (attribute.value.isStyleSheet && !isStyleSheet(part.value(attribute.name)))
                    findings.error(
                        part.offsetOf(attribute.name),
                        "Qt cannot read this style sheet; look for a missing \";\", \"{\" "
                        "or \"}\"");
        }
    }

private:
    // Children of one name and one module differ in their ids.
    void checkUnique(const XmlElement &parent, const std::vector<const char *> &names)
    {
        Definitions definitions(findings);
        for (const XmlElement &child : parent.children)
            for (const char *name : names)
                if (child.is(name))
                    definitions.add(child.offsetOf("id"),
                                    compose("%1 \"%2\"", name, child.value("id")),
                                    child.value("xlink:href"));
    }

    // A module that several miss is reported once.
    void checkReferences()
    {
        QStringList modules;
        QSet<QString> missed;
        for (const XmlElement &part : root.children) {
            if (part.is("module"))
                modules += referenceTo(part);
            for (const XmlElement &item : part.children) {
                const QString reference = item.value("xlink:href");
                if (item.is("separator") || modules.contains(reference)
                    || missed.contains(reference))
                    continue;
                missed.insert(reference);
                const int offset = item.offsetOf("xlink:href");
                if (const XmlElement *later = moduleOf(item, root))
                    findings.error(
                        offset,
                        "module \"%1\" is declared only in line %2; move that before line %3",
                        later->value("id"), findings.lineOf(*later), findings.lineOf(part));
                else
                    findings.error(
                        offset, "there is no module for \"%1\"; %2", reference,
                        didYouMean(
                            nearest(reference, modules),
                            compose("add <module id=\"%1\" path=\"%LIBRARY%/...\"/> before line %2",
                                    reference.mid(1), findings.lineOf(part))));
            }
        }
    }

    // Of a group that is torn apart, the largest piece is the group.
    void checkGroups(const XmlElement &box)
    {
        using Run = std::vector<const XmlElement *>;
        QMap<QString, std::vector<Run>> groups;
        QString previous;
        for (const XmlElement &item : box.children) {
            std::vector<Run> &runs = groups[item.value("group")];
            if (runs.empty() || item.value("group") != previous)
                runs.emplace_back();
            runs.back().push_back(&item);
            previous = item.value("group");
        }
        groups.remove(QString());
        for (const std::vector<Run> &runs : qAsConst(groups)) {
            const auto group =
                std::max_element(runs.begin(), runs.end(),
                                 [](const Run &a, const Run &b) { return a.size() < b.size(); });
            for (auto run = runs.begin(); run != runs.end(); ++run)
                for (const XmlElement *tool : *run)
                    if (run != group)
                        findings.error(
                            tool->offsetOf("group"),
                            "tool \"%1\" is apart from its group \"%2\", %3; move it there",
                            tool->value("id"), tool->value("group"), linesOf(*group));
        }
    }

    QString linesOf(const std::vector<const XmlElement *> &tools) const
    {
        const int first = findings.lineOf(*tools.front());
        return tools.size() == 1
                   ? compose("which is in line %1", first)
                   : compose("from line %1 to line %2", first, findings.lineOf(*tools.back()));
    }

    void checkCells(const XmlElement &box)
    {
        std::vector<const XmlElement *> keys;
        for (const XmlElement &key : box.children) {
            if (!key.is("key"))
                continue;
            if (!keypadGrid.contains(cellsOf(key)))
                findings.error(key.offset,
                               "key \"%1\" leaves the grid of %2 rows and %3 columns; move it, or "
                               "make it smaller",
                               key.value("id"), keypadGrid.height(), keypadGrid.width());
            for (const XmlElement *other : keys)
                if (cellsOf(key).intersects(cellsOf(*other)))
                    findings.error(
                        key.offset,
                        "key \"%1\" covers a cell of key \"%2\" in line %3; move one of them",
                        key.value("id"), other->value("id"), findings.lineOf(*other));
            keys.push_back(&key);
        }
    }

    // The names of the states in which a mask is available.
    QStringList statesIn(quint32 mode) const
    {
        QStringList names;
        for (const HostState &state : states)
            if (isAvailable(mode, state.code))
                names += quoted(state.name);
        return names;
    }

    void checkModes(const XmlElement &box)
    {
        if (states.isEmpty() || !checkMode(box))
            return;
        QSet<quint32> wrong; // for all that have one mask, as the cause may be the box's own
        for (const XmlElement &item : box.children) {
            if (wrong.contains(modeOf(item)) || !checkMode(item)
                || !statesIn(modeOf(box) & modeOf(item)).isEmpty())
                continue;
            wrong.insert(modeOf(item));
            findings.error(
                item.offsetOf("mode"),
                "%1 and the box's %2 in line %3 have no state in common: this is for %4, the "
                "box for %5; change one of them",
                modeText(item), modeText(box), findings.lineOf(box), listed(statesIn(modeOf(item))),
                listed(statesIn(modeOf(box))));
        }
    }

    // Whether there is a state in which the element's own mask is available.
    bool checkMode(const XmlElement &element)
    {
        if (statesIn(modeOf(element)).isEmpty()) {
            const auto near = std::find_if(states.begin(), states.end(),
                                           [mode = modeOf(element)](const HostState &state) {
                                               return (mode & state.code) != 0;
                                           });
            const HostState &example = near == states.end() ? states.constFirst() : *near;
            findings.error(
                element.offsetOf("mode"),
                "%1 is for no state of the host; include all bits of one, such as 0x%2 for "
                "\"%3\"",
                modeText(element), QString::number(example.code, 16), example.name);
            return false;
        }
        quint32 unknown = element.has("mode") ? modeOf(element) : 0;
        for (const HostState &state : states)
            unknown &= ~state.code;
        if (unknown)
            findings.warning(element.offsetOf("mode"),
                             "%1 has bits that no state of the host has, 0x%2; remove them",
                             modeText(element), QString::number(unknown, 16));
        return true;
    }

    // A second tool box in one state, or a second tool bar that users cannot tell from the first.
    void checkOverlap(const XmlElement &box)
    {
        for (const XmlElement &other : root.children) {
            const QStringList both = statesIn(modeOf(box) & modeOf(other));
            if (other.offset >= box.offset || other.name != box.name || both.isEmpty()
                || other.value("title") != box.value("title"))
                continue;
            return findings.warning(box.offset,
                                    "this <%1> has %2, the one in line %3 has %4: both are shown "
                                    "for %5; change one of them",
                                    box.name, modeText(box), findings.lineOf(other),
                                    modeText(other), listed(both));
        }
    }

    const XmlElement &root;
    const Element &declaredRoot;
    const QVector<HostState> states;
    Findings &findings;
};

} // namespace

void checkTools(const Document &document, const QString &product, Findings &findings)
{
    ToolChecker(document, product, findings).check();
}

} // namespace Quenda::Workbench
