#include "check/Rules.h"
#include "document/HostState.h"
#include "document/ToolDocument.h"

#include <QRect>
#include <QSet>

#include <algorithm>

namespace {

// The cells of a keypad.
constexpr QRect keypadGrid(0, 0, 4, 5);

const QString libraryFolder = QStringLiteral("%LIBRARY%/");

struct NumberRule
{
    const char *attribute;
    int least;
    int most;
};

constexpr NumberRule numberRules[] {
    {"columns", 1, 100}, {"margin", 0, 1000},  {"spacing", 0, 1000},    {"row", 0, 1000},
    {"column", 0, 1000}, {"rowSpan", 1, 1000}, {"columnSpan", 1, 1000},
};

int lineOf(const Document &document, const XmlElement &element)
{
    return positionOf(document.xml.text, element.offset).line;
}

class ToolChecker
{
public:
    ToolChecker(const Document &checked, const QString &product, Findings &collected)
        : document(checked),
          tools(ToolDocument::read(checked.xml)),
          states(hostStates(product)),
          findings(collected)
    {
        for (const HostState &state : qAsConst(states))
            knownBits |= state.code;
    }

    void check()
    {
        checkModules();
        for (const ToolDocument::Box &box : qAsConst(tools.toolBoxes)) {
            checkStyle(*box.xml);
            checkBox(box);
        }
        for (const ToolDocument::Box &bar : qAsConst(tools.toolBars))
            checkBox(bar);
        for (const ToolDocument::Keypad &pad : qAsConst(tools.keypads))
            checkKeypad(pad);
        checkBarIds();
        checkOverlap(tools.toolBoxes);
        checkOverlap(tools.toolBars);
        checkReferences(document.xml.root);
    }

private:
    void checkModules()
    {
        QSet<QString> ids;
        for (const ToolDocument::Module &module : qAsConst(tools.modules)) {
            checkName(*module.xml, "id", findings);
            checkUnique(ids, *module.xml, QStringLiteral("module"), module.id);
            const QString name = module.path.mid(libraryFolder.size());
            if (module.xml->has("path")
                && (!module.path.startsWith(libraryFolder) || name.trimmed().isEmpty()
                    || name != name.trimmed()))
                findings.error(module.xml->offsetOf("path"),
                               "\"path\" is %1; expected \"%LIBRARY%/\" and a library's name",
                               quoted(module.path));
        }
    }

    // All users in the order of the document; a module that one of them misses is reported once.
    void checkReferences(const XmlElement &parent)
    {
        for (const XmlElement &element : parent.children) {
            checkReferences(element);
            const XmlAttribute *reference = element.find("xlink:href");
            if (!reference)
                continue;
            const QString id = reference->value.mid(1);
            const auto module =
                std::find_if(tools.modules.cbegin(), tools.modules.cend(),
                             [&id](const ToolDocument::Module &m) { return m.id == id; });
            const bool isReference = reference->value.startsWith(QLatin1Char('#'));
            if (isReference && reported.contains(id))
                continue;
            if (!isReference || module == tools.modules.cend()) {
                QStringList ids;
                for (const ToolDocument::Module &one : qAsConst(tools.modules))
                    ids += QLatin1Char('#') + one.id;
                findings.error(reference->offset,
                               "\"xlink:href\" is %1, which is no module; expected: %2",
                               quoted(reference->value), listed(ids));
            } else if (module->xml->offset > element.offset) {
                findings.error(
                    reference->offset,
                    "module \"%1\" stands later, in line %2; expected before its first use", id,
                    lineOf(document, *module->xml));
            } else {
                continue;
            }
            if (isReference)
                reported.insert(id);
        }
    }

    bool checkNumbers(const XmlElement &element)
    {
        const int before = findings.list.size();
        for (const auto &[attribute, least, most] : numberRules) {
            const auto number = numberFromText(element.value(attribute));
            if (element.has(attribute) && (!number || *number < least || *number > most))
                findings.error(
                    element.offsetOf(attribute), "\"%1\" is %2; expected a number in %3 to %4",
                    QLatin1String(attribute), quoted(element.value(attribute)), least, most);
        }
        return findings.list.size() == before;
    }

    void checkStyle(const XmlElement &element)
    {
        checkNumbers(element);
        const QString complaint = styleSheetComplaint(element.value("button-style"));
        if (!complaint.isEmpty())
            findings.error(element.offsetOf("button-style"),
                           "the style sheet does not work: %1; expected Qt's style sheet syntax",
                           complaint);
    }

    // The element's mask within its box's. Whether a state meets it, as far as it is known.
    bool checkMode(const XmlElement &element, quint32 boxMode)
    {
        if (!element.has("mode"))
            return true;
        const QString text = quoted(element.value("mode"));
        const int place = element.offsetOf("mode");
        const auto own = maskFromText(element.value("mode"));
        const quint32 mode = own.value_or(0) & boxMode;
        if (!own) {
            findings.error(place, "\"mode\" is %1; expected a number such as 17 or 0x11", text);
            return false;
        }
        if (!states.isEmpty()
            && std::none_of(states.begin(), states.end(),
                            [mode](const HostState &s) { return isAvailable(mode, s.code); })) {
            findings.error(place, "no state meets \"mode\" %1%2; expected all bits of one at least",
                           text, boxMode == everyState ? "" : " in this box");
            return false;
        }
        if (!states.isEmpty() && (*own & ~knownBits))
            findings.warning(place, "\"mode\" %1 has bits of no state, 0x%2", text,
                             QString::number(*own & ~knownBits, 16));
        return true;
    }

    void checkUnique(QSet<QString> &seen, const XmlElement &element, const QString &what,
                     const QString &id, const QString &key = QString())
    {
        const QString &name = key.isNull() ? id : key;
        if (!id.isEmpty() && seen.contains(name))
            findings.error(element.offsetOf("id"), "%1 %2 stands twice; expected once", what,
                           quoted(id));
        seen.insert(name);
    }

    void checkBox(const ToolDocument::Box &box)
    {
        // Items are not blamed for their box.
        const quint32 boxMode = checkMode(*box.xml, everyState) ? box.mode : everyState;
        if (box.items.isEmpty())
            findings.warning(box.xml->offset, "<%1> holds nothing; expected tools", box.xml->name);
        QSet<QString> ids;
        QSet<QString> groups;
        QString previousGroup;
        for (const ToolDocument::Item &item : box.items) {
            checkMode(*item.xml, boxMode);
            if (!item.isSeparator) {
                checkName(*item.xml, "id", findings);
                checkUnique(ids, *item.xml, QStringLiteral("tool"), item.id,
                            item.module + QLatin1Char('#') + item.id);
                checkName(*item.xml, "group", findings);
                if (!item.group.isEmpty() && item.group != previousGroup
                    && groups.contains(item.group))
                    findings.error(item.xml->offsetOf("group"),
                                   "tool %1 stands apart from its group %2; expected beside it",
                                   quoted(item.id), quoted(item.group));
            }
            groups.insert(item.group);
            previousGroup = item.group;
        }
    }

    void checkBarIds()
    {
        QSet<QString> ids;
        for (const ToolDocument::Box &bar : qAsConst(tools.toolBars)) {
            checkName(*bar.xml, "id", findings);
            checkName(*bar.xml, "title", findings);
            checkUnique(ids, *bar.xml, QStringLiteral("tool bar"), bar.id);
        }
    }

    // Two tool boxes in one state, or two tool bars that users cannot tell apart.
    void checkOverlap(const QVector<ToolDocument::Box> &boxes)
    {
        for (auto box = boxes.begin(); box != boxes.end(); ++box)
            for (auto other = boxes.begin(); other != box; ++other) {
                const auto state = std::find_if(states.begin(), states.end(), [&](const auto &s) {
                    return isAvailable(box->mode & other->mode, s.code);
                });
                if (state == states.end() || box->title != other->title)
                    continue;
                findings.warning(
                    box->xml->offset,
                    "a second <%1>%2 in the state \"%3\"; the first is in line %4", box->xml->name,
                    box->isToolBar ? QLatin1String(" titled ") + quoted(box->title) : QString(),
                    state->name, lineOf(document, *other->xml));
                break;
            }
    }

    void checkKeypad(const ToolDocument::Keypad &pad)
    {
        checkStyle(*pad.xml);
        if (pad.keys.isEmpty())
            findings.warning(pad.xml->offset, "<keypad> holds nothing; expected keys");
        QSet<QString> ids;
        QVector<std::pair<QString, QRect>> placed;
        for (const ToolDocument::Key &key : pad.keys) {
            checkName(*key.xml, "id", findings);
            checkUnique(ids, *key.xml, QStringLiteral("key"), key.id,
                        key.module + QLatin1Char('#') + key.id);
            if (!checkNumbers(*key.xml) || !key.xml->has("row") || !key.xml->has("column")
                || !key.xml->has("rowSpan") || !key.xml->has("columnSpan"))
                continue;
            const QRect cells(key.column, key.row, key.columnSpan, key.rowSpan);
            if (!keypadGrid.contains(cells))
                findings.error(key.xml->offset,
                               "key %1 leaves the grid; expected within %2 rows and %3 columns, "
                               "counted from 0",
                               quoted(key.id), keypadGrid.height(), keypadGrid.width());
            for (const auto &[other, otherCells] : qAsConst(placed))
                if (cells.intersects(otherCells))
                    findings.error(key.xml->offset,
                                   "key %1 lies on top of key %2; expected free cells",
                                   quoted(key.id), quoted(other));
            placed.append({key.id, cells});
        }
    }

    const Document &document;
    const ToolDocument tools;
    const QVector<HostState> states;
    quint32 knownBits = 0;
    QSet<QString> reported; // modules that were missed
    Findings &findings;
};

} // namespace

void checkTools(const Document &document, const QString &product, Findings &findings)
{
    ToolChecker(document, product, findings).check();
}
