#include "Products.h"
#include "tools/Tools.h"

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
            isReadable &= !message.startsWith(u"Could not parse stylesheet"_s);
        });
    QToolButton button;
    button.setStyleSheet(text);
    qInstallMessageHandler(previous);
    return isReadable;
}

QString hexadecimal(quint32 mask)
{
    return compose("0x%1", QString::number(mask, 16));
}

QString modeText(const XmlElement &element)
{
    return element.has(u"mode") ? compose("mode \"%1\"", element.value(u"mode"))
                                : compose("no mode");
}

class ToolChecker
{
public:
    ToolChecker(const XmlElement &checkedRoot, const Product *product, Findings &collected)
        : root(checkedRoot),
          states(product ? product->states : QVector<HostState>()),
          findings(collected)
    {
    }

    void check()
    {
        checkUnique(root);
        checkReferences();
        for (const XmlElement &part : root.children) {
            if (part.is(u"module"))
                continue;
            if (part.children.empty())
                findings.warning(part.offset, "<%1> is empty; add what it shows", part.name);
            checkUnique(part);
            checkGroups(part);
            checkCells(part);
            checkModes(part);
            checkOverlap(part);
            if (!isStyleSheet(part.value(u"button-style")))
                findings.error(part.offsetOf(u"button-style"),
                               "Qt cannot read this style sheet; look for a missing \";\", \"{\" "
                               "or \"}\"");
        }
    }

private:
    // Children of one name and one module differ in their ids.
    void checkUnique(const XmlElement &parent)
    {
        Duplicates ids(findings, "rename one, or keep only one");
        for (const XmlElement &child : parent.children)
            if (child.has(u"id"))
                ids.check(child.offsetOf(u"id"),
                          compose("%1 \"%2\"", child.name, child.value(u"id")),
                          child.value(u"xlink:href"));
    }

    // A module that several miss is reported once.
    void checkReferences()
    {
        QStringList references; // to the modules so far
        QSet<QString> missed;
        for (const XmlElement &part : root.children) {
            if (part.is(u"module"))
                references += u'#' + part.value(u"id");
            for (const XmlElement &item : part.children) {
                const QString reference = item.value(u"xlink:href");
                if (item.is(u"separator") || references.contains(reference)
                    || missed.contains(reference))
                    continue;
                missed.insert(reference);
                const int offset = item.offsetOf(u"xlink:href");
                if (const XmlElement *later = moduleOf(item, root))
                    findings.error(
                        offset, "module \"%1\" is declared only in line %2; move it before line %3",
                        later->value(u"id"), findings.lineOf(*later), findings.lineOf(part));
                else
                    findings.error(
                        offset, "there is no module for \"%1\"; %2", reference,
                        didYouMean(
                            reference, references,
                            compose("add <module id=\"%1\" path=\"%LIBRARY%/%1\"/> before line %2",
                                    reference.mid(1), findings.lineOf(part))));
            }
        }
    }

    // The first tool of a group is where the others belong.
    void checkGroups(const XmlElement &box)
    {
        QMap<QString, const XmlElement *> last; // of each group
        const XmlElement *previous = nullptr;
        for (const XmlElement &item : box.children) {
            const QString group = item.value(u"group");
            const XmlElement *before = last.value(group);
            if (item.has(u"group") && before && before != previous)
                findings.error(item.offsetOf(u"group"),
                               "tool \"%1\" is apart from its group \"%2\", which ends in line "
                               "%3; move one to the other",
                               item.value(u"id"), group, findings.lineOf(*before));
            else if (item.has(u"group"))
                last.insert(group, &item);
            previous = &item;
        }
    }

    void checkCells(const XmlElement &box)
    {
        std::vector<const XmlElement *> keys;
        for (const XmlElement &key : box.children) {
            if (!key.is(u"key"))
                continue;
            if (!keypadGrid.contains(cellsOf(key)))
                findings.error(key.offset,
                               "key \"%1\" does not fit into the grid of %2 rows and %3 columns; "
                               "move it, or make it smaller",
                               key.value(u"id"), keypadGrid.height(), keypadGrid.width());
            for (const XmlElement *other : keys)
                if (cellsOf(key).intersects(cellsOf(*other)))
                    findings.error(
                        key.offset,
                        "key \"%1\" covers a cell of key \"%2\" in line %3; move one of them",
                        key.value(u"id"), other->value(u"id"), findings.lineOf(*other));
            keys.push_back(&key);
        }
    }

    // Returns the names of the states in which a mask is available.
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
        if (!checkMode(box, box))
            return;
        QSet<quint32> wrong; // for all that have one mask, as the cause may be the box's own
        for (const XmlElement &item : box.children) {
            if (wrong.contains(modeOf(item)) || !checkMode(item, box) || states.isEmpty()
                || !statesIn(modeOf(box) & modeOf(item)).isEmpty())
                continue;
            wrong.insert(modeOf(item));
            findings.error(
                item.offsetOf(u"mode"),
                "%1 and the box's %2 in line %3 have no state in common: this is for %4, the "
                "box for %5; change one of them",
                modeText(item), modeText(box), findings.lineOf(box), listed(statesIn(modeOf(item))),
                listed(statesIn(modeOf(box))));
        }
    }

    // Returns whether the element's own mask is right, in a box or as one.
    bool checkMode(const XmlElement &element, const XmlElement &box)
    {
        const quint32 mode = modeOf(element);
        const int offset = element.offsetOf(u"mode");
        if (!element.has(u"mode"))
            return true;
        if (!maskFromText(element.value(u"mode"))) {
            findings.error(offset, "%1 has more than 32 bits; write a smaller one",
                           modeText(element));
            return false;
        }
        if (!states.isEmpty() && statesIn(mode).isEmpty()) {
            const HostState &example = stateFor(box.name);
            findings.error(offset,
                           "no state of the host matches %1; include all bits of one, such as %2 "
                           "for \"%3\"",
                           modeText(element), hexadecimal(example.code), example.name);
            return false;
        }
        quint32 known = 0;
        for (const HostState &state : states)
            known |= state.code;
        if (!states.isEmpty() && (mode & ~known))
            findings.warning(offset, "no state of the host has the bits %1 of %2; write \"%3\"",
                             hexadecimal(mode & ~known), modeText(element),
                             hexadecimal(mode & known));
        return true;
    }

    // Returns the first state without a box of this kind: a mask for no state may be meant for it.
    const HostState &stateFor(const QString &kind) const
    {
        const auto found = std::find_if(states.begin(), states.end(), [&](const HostState &state) {
            return std::none_of(root.children.begin(), root.children.end(), [&](const auto &part) {
                return part.name == kind && isAvailable(modeOf(part), state.code);
            });
        });
        return found == states.end() ? states.constFirst() : *found;
    }

    // Finds a second tool box in one state, or a second tool bar that users cannot distinguish.
    void checkOverlap(const XmlElement &box)
    {
        for (const XmlElement &other : root.children) {
            const QStringList both = statesIn(modeOf(box) & modeOf(other));
            if (other.offset >= box.offset || other.name != box.name || both.isEmpty()
                || other.value(u"title") != box.value(u"title"))
                continue;
            return findings.warning(box.offset,
                                    "this <%1> has %2, the one in line %3 has %4: both are shown "
                                    "for %5; change one of them",
                                    box.name, modeText(box), findings.lineOf(other),
                                    modeText(other), listed(both));
        }
    }

    const XmlElement &root;
    const QVector<HostState> states; // none of an unknown product
    Findings &findings;
};

void checkTools(const Document &document, const Product *product, Findings &findings)
{
    ToolChecker(document.xml.root, product, findings).check();
}

} // namespace

const Format &toolFormat()
{
    static const Format format("tools.xml", "tools", Prolog::None, checkTools);
    return format;
}

} // namespace Quenda::Workbench
