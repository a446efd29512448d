#include "check/Rules.h"
#include "document/HostState.h"
#include "document/ToolDocument.h"

namespace Quenda::Workbench {

namespace {

// The cells of a keypad.
constexpr QRect keypadGrid(0, 0, 4, 5);

class ToolChecker
{
public:
    ToolChecker(const Document &checked, const QString &product, Findings &collected)
        : document(checked),
          tools(ToolDocument::read(checked.xml)),
          states(hostStates(product)),
          findings(collected)
    {
    }

    void check()
    {
        QSet<QString> ids;
        for (const XmlElement *module : tools.modules)
            checkUnique(ids, *module, "module", module->value("id"));
        const auto gridBoxes = tools.toolBoxes + tools.keypads;
        for (const ToolDocument::Box &box : gridBoxes) {
            checkStyleSheet(box.buttonStyle, box.xml->offsetOf("button-style"), findings);
            checkBox(box);
        }
        for (const ToolDocument::Box &pad : tools.keypads)
            checkCells(pad);
        ids.clear();
        for (const ToolDocument::Box &bar : tools.toolBars) {
            checkUnique(ids, *bar.xml, "tool bar", bar.id);
            checkBox(bar);
        }
        checkOverlap(tools.toolBoxes);
        checkOverlap(tools.toolBars);
        checkReferences(document.xml.root);
    }

private:
    int lineOf(const XmlElement &element) const
    {
        return positionOf(document.xml.content, element.offset).line;
    }

    void checkUnique(QSet<QString> &seen, const XmlElement &element, const char *what,
                     const QString &key)
    {
        const QString id = element.value("id");
        if (!id.isEmpty() && seen.contains(key))
            findings.error(element.offsetOf("id"), "%1 \"%2\" stands twice; expected once", what,
                           id);
        seen.insert(key);
    }

    // All users in the order of the document; a module that one of them misses is reported once.
    void checkReferences(const XmlElement &parent)
    {
        for (const XmlElement &element : parent.children) {
            checkReferences(element);
            const XmlAttribute *reference = element.find("xlink:href");
            if (!reference || reported.contains(reference->value))
                continue;
            const bool isReference = reference->value.startsWith(QLatin1Char('#'));
            const XmlElement *module =
                isReference ? tools.module(reference->value.mid(1)) : nullptr;
            if (module && module->offset < element.offset)
                continue;
            if (isReference)
                reported.insert(reference->value);
            if (isReference && !module && hasWrongModule())
                continue;
            if (module) {
                findings.error(
                    reference->offset,
                    "module \"%1\" stands later, in line %2; expected before its first use",
                    module->value("id"), lineOf(*module));
                continue;
            }
            QStringList ids;
            for (const XmlElement *one : tools.modules)
                ids += QLatin1Char('#') + one->value("id");
            findings.error(
                reference->offset, "\"xlink:href\" is \"%1\", which is no module; expected: %2",
                reference->value, ids.isEmpty() ? QStringLiteral("a <module>") : listed(ids));
        }
    }

    // Whether a module that is missed may be there, but is wrong.
    bool hasWrongModule() const
    {
        const auto &parts = document.xml.root.children;
        return std::any_of(parts.begin(), parts.end(), [this](const XmlElement &part) {
            return findings.isWrong(part.offset)
                   || (part.is("module")
                       && (!part.has("id") || findings.isWrong(part.offsetOf("id"))));
        });
    }

    // Null when no state meets the mask, or none is known.
    const HostState *firstState(quint32 mode) const
    {
        const auto found = std::find_if(states.begin(), states.end(), [mode](const HostState &s) {
            return isAvailable(mode, s.code);
        });
        return found == states.end() ? nullptr : &*found;
    }

    // The element's mask within its box's.
    void checkMode(const XmlElement &element, quint32 mode, quint32 boxMode)
    {
        const int place = element.offsetOf("mode");
        if (!element.has("mode") || findings.isWrong(place) || states.isEmpty())
            return;
        quint32 unknownBits = mode;
        for (const HostState &state : states)
            unknownBits &= ~state.code;
        if (!firstState(mode & boxMode))
            findings.error(place,
                           "no state meets \"mode\" \"%1\"%2; expected all bits of one at "
                           "least",
                           element.value("mode"), boxMode == everyState ? "" : " in this box");
        else if (unknownBits)
            findings.warning(place, "\"mode\" \"%1\" has bits of no state, 0x%2",
                             element.value("mode"), QString::number(unknownBits, 16));
    }

    void checkBox(const ToolDocument::Box &box)
    {
        checkMode(*box.xml, box.mode, everyState);
        // Items are not blamed for their box.
        quint32 boxMode = findings.isWrong(box.xml->offsetOf("mode")) ? everyState : box.mode;
        const char *content = box.xml->is("keypad") ? "keys" : "tools";
        if (box.items.isEmpty())
            findings.warning(box.xml->offset, "<%1> holds nothing; expected %2", box.xml->name,
                             content);
        QSet<QString> ids;
        QSet<QString> groups;
        QString previousGroup;
        for (const ToolDocument::Item &item : box.items) {
            checkMode(*item.xml, item.mode, boxMode);
            if (findings.isWrong(item.xml->offsetOf("mode")))
                boxMode = everyState; // the others may have the same cause
            if (!item.isSeparator)
                checkUnique(ids, *item.xml, item.xml->is("key") ? "key" : "tool",
                            item.module + QLatin1Char('#') + item.id);
            if (!item.group.isEmpty() && item.group != previousGroup && groups.contains(item.group))
                findings.error(item.xml->offsetOf("group"),
                               "tool \"%1\" stands apart from its group \"%2\"; expected beside it",
                               item.id, item.group);
            groups.insert(item.group);
            previousGroup = item.group;
        }
    }

    // Two tool boxes in one state, or two tool bars that users cannot tell apart.
    void checkOverlap(const QVector<ToolDocument::Box> &boxes)
    {
        for (auto box = boxes.begin(); box != boxes.end(); ++box)
            for (auto other = boxes.begin(); other != box; ++other) {
                const HostState *state = firstState(box->mode & other->mode);
                if (!state || box->title != other->title
                    || findings.isWrong(box->xml->offsetOf("id")))
                    continue;
                const QString title = compose(" titled \"%1\"", box->title);
                findings.warning(box->xml->offset,
                                 "a second <%1>%2 in the state \"%3\"; the first is in line %4",
                                 box->xml->name, box->xml->is("toolbar") ? title : QString(),
                                 state->name, lineOf(*other->xml));
                break;
            }
    }

    void checkCells(const ToolDocument::Box &pad)
    {
        QVector<ToolDocument::Item> placed;
        for (const ToolDocument::Item &key : pad.items) {
            const char *const numbers[] {"row", "column", "rowSpan", "columnSpan"};
            if (!std::all_of(std::begin(numbers), std::end(numbers), [&](const char *number) {
                    return key.xml->has(number) && !findings.isWrong(key.xml->offsetOf(number));
                }))
                continue;
            if (findings.isWrong(key.xml->offsetOf("id")))
                continue;
            if (!keypadGrid.contains(key.cells))
                findings.error(key.xml->offset,
                               "key \"%1\" leaves the grid; expected within %2 rows and %3 "
                               "columns, counted from 0",
                               key.id, keypadGrid.height(), keypadGrid.width());
            for (const ToolDocument::Item &other : qAsConst(placed))
                if (key.cells.intersects(other.cells) && !findings.isWrong(key.xml->offset))
                    findings.error(key.xml->offset,
                                   "key \"%1\" lies on top of key \"%2\"; expected free cells",
                                   key.id, other.id);
            placed.append(key);
        }
    }

    const Document &document;
    const ToolDocument tools;
    const QVector<HostState> states;
    QSet<QString> reported; // references to modules that were missed
    Findings &findings;
};

} // namespace

void checkTools(const Document &document, const QString &product, Findings &findings)
{
    ToolChecker(document, product, findings).check();
}

} // namespace Quenda::Workbench
