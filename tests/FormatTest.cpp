#include "format/Format.h"
#include "SchemaValidator.h"
#include "StringLiterals.h"
#include "check/Check.h"
#include "document/Place.h"

#include <QRegularExpression>
#include <QtTest>

#include <set>

using namespace Quenda::Workbench;

namespace {

// The last right values of a kind and the first wrong ones; of choices, each is right.
struct Limits
{
    QStringList right;
    QStringList wrong;
};

Limits limitsOf(const Value &value)
{
    static const QMap<QString, Limits> limits {
        {u"a name on one line, without blanks at its ends"_s,
         {{u"a"_s, u"a b"_s, u"\u00e9"_s}, {u""_s, u" a"_s, u"a "_s, u"a&#10;b"_s}}},
        {u"a number in 0 to 999"_s, {{u"0"_s, u"999"_s}, {u"-1"_s, u"1000"_s, u"1 "_s}}},
        {u"a number in 1 to 99"_s, {{u"1"_s, u"99"_s}, {u"0"_s, u"100"_s}}},
        {u"a number in 0 to 4"_s, {{u"0"_s, u"4"_s}, {u"-1"_s, u"5"_s}}},
        {u"a number in 0 to 3"_s, {{u"0"_s, u"3"_s}, {u"-1"_s, u"4"_s}}},
        {u"a number in 1 to 5"_s, {{u"1"_s, u"5"_s}, {u"0"_s, u"6"_s}}},
        {u"a number in 1 to 4"_s, {{u"1"_s, u"4"_s}, {u"0"_s, u"5"_s}}},
        {u"a number such as 17 or 0x11"_s,
         {{u"0"_s, u"017"_s, u"999999999"_s, u"0xFFFFFFFF"_s, u"0x00000000f"_s},
          {u""_s, u"0x"_s, u"+17"_s, u"0X11"_s, u"0x100000000"_s, u"9999999999"_s}}},
        {u"\"#\" and a module's id"_s, {{u"#a"_s}, {u"a"_s, u"#"_s, u"# a"_s, u"#a "_s}}},
        {u"\"%LIBRARY%/\" and a library's base name"_s,
         {{u"%LIBRARY%/a"_s},
          {u"%LIBRARY%/"_s, u"a"_s, u"%LIBRARY%/a.so"_s, u"%LIBRARY%/a/b"_s, u"%LIBRARY%/a "_s}}},
        {u"a whole number"_s, {{u"-1"_s, u"999999999"_s}, {u""_s, u"left"_s, u"1.5"_s}}},
        {u"a resource path such as :/images/actions/notch_v.png"_s,
         {{u":/a"_s, u"."_s}, {u""_s, u":/"_s, u"/a"_s, u":/a "_s}}},
    };
    if (value.isAnyText())
        return {{u""_s, u" a "_s}, {}};
    if (value.choices.isEmpty())
        return limits.value(value.expected);
    Limits choices {value.choices, {u""_s}};
    for (const QString &choice : value.choices)
        choices.wrong += {choice + u"x"_s, u" "_s + choice};
    return choices;
}

int endOfTag(const QByteArray &content, const XmlElement &element)
{
    return content.indexOf('>', element.offset) + 1;
}

bool isEmptyTag(const QByteArray &content, const XmlElement &element)
{
    return content.at(endOfTag(content, element) - 2) == '/';
}

int endOf(const QByteArray &content, const XmlElement &element)
{
    const int tagEnd = endOfTag(content, element);
    const int inside = element.children.empty() ? tagEnd : endOf(content, element.children.back());
    return isEmptyTag(content, element) ? tagEnd
                                        : content.indexOf('>', content.indexOf("</", inside)) + 1;
}

// An element with no more than it needs.
QByteArray leastOf(const Element &declared)
{
    QByteArray attributes;
    QByteArray inside;
    for (const Attribute &one : declared.attributes)
        if (one.occurrence == Occurrence::Once)
            attributes += QByteArray(" ") + one.name + "=\""
                          + limitsOf(one.value).right.constFirst().toUtf8() + '"';
    for (const Element::Part &part : declared.parts)
        if (part.occurrence == Occurrence::Once)
            inside += leastOf(*part.elements.front());
    if (declared.text)
        inside += limitsOf(*declared.text).right.constFirst().toUtf8();
    return QByteArray("<") + declared.name + attributes + '>' + inside + "</" + declared.name + '>';
}

bool isNeeded(const Element &parent, const Element &child)
{
    return std::any_of(parent.parts.begin(), parent.parts.end(), [&child](const auto &part) {
        return part.occurrence == Occurrence::Once && part.elements.front() == &child;
    });
}

// Edits a document in all ways that its declaration allows and forbids: of each kind of element and
// attribute the first, unless another document had it.
class Editor
{
public:
    Editor(DocumentKind documentKind, const QByteArray &original, std::set<const void *> *seenKinds)
        : kind(documentKind),
          content(original),
          xml(XmlDocument::fromBytes(original)),
          seen(seenKinds)
    {
        edit({&xml.root, &formatOf(kind).root, nullptr, nullptr});
    }

private:
    struct Place
    {
        const XmlElement *element;
        const Element *declared;
        const XmlElement *parent;
        const Element *parentDeclared;
    };

    void edit(const Place &place)
    {
        if (seen->insert(place.declared).second) {
            editElement(place);
            editText(place);
            addChildren(place);
        }
        for (const Attribute &attribute : place.declared->attributes)
            if (place.element->has(attribute.name) && seen->insert(&attribute).second)
                editAttribute(place, attribute);
            else if (!place.element->has(attribute.name) && seen->insert(attribute.name).second)
                addAttribute(place, attribute);
        for (const XmlElement &child : place.element->children)
            edit({&child, place.declared->child(child), place.element, place.declared});
    }

    // With the offset of the one finding; -1 where the shape is right.
    void add(const QString &what, int from, int to, const QByteArray &text, int offset)
    {
        QTest::newRow(qPrintable(what))
            << int(kind) << content.left(from) + text + content.mid(to) << offset;
    }

    // Inserts a text as the first thing in an element.
    void addInside(const QString &what, const XmlElement &element, const QByteArray &text,
                   int shift)
    {
        const int end = endOfTag(content, element);
        const QByteArray name = element.name.toUtf8();
        if (isEmptyTag(content, element))
            add(what, end - 2, end, '>' + text + "</" + name + '>',
                shift < 0 ? -1 : end - 1 + shift);
        else
            add(what, end, end, text, shift < 0 ? -1 : end + shift);
    }

    static QString nameOf(const Place &place)
    {
        const QStringList names {QLatin1String(place.declared->name)};
        const QString parent = place.parent ? place.parent->name : QString();
        return parent + u" > "_s + (names + place.declared->variants()).join(u' ');
    }

    void editElement(const Place &place)
    {
        const XmlElement &element = *place.element;
        const QByteArray name = element.name.toUtf8();
        const int start = element.offset;
        const int tagEnd = endOfTag(content, element);
        const int end = endOf(content, element);
        QByteArray misspelt = content.mid(start, end - start);
        if (!isEmptyTag(content, element))
            misspelt.insert(misspelt.lastIndexOf("</") + 2 + name.size(), 'x');
        misspelt.insert(1 + name.size(), 'x');
        add(nameOf(place) + u": misspelt"_s, start, end, misspelt, start);

        const bool isIncomplete =
            (place.declared->text && !place.declared->text->allows(QString()))
            || std::any_of(place.declared->parts.begin(), place.declared->parts.end(),
                           [](const auto &part) { return part.occurrence == Occurrence::Once; });
        if (!isEmptyTag(content, element))
            add(nameOf(place) + u": emptied"_s, tagEnd - 1, end, "/>", isIncomplete ? start : -1);
        if (!place.parent)
            return;
        const bool isMissed = isNeeded(*place.parentDeclared, *place.declared);
        add(nameOf(place) + u": left out"_s, start, end, "", isMissed ? place.parent->offset : -1);
        // In the root, or in another child of it, unless that has elements of this name.
        const bool isInRoot = place.parent == &xml.root;
        const Element &root = formatOf(kind).root;
        const XmlElement &target = isInRoot ? xml.root.children.back() : xml.root;
        const std::vector<Element::Part> &parts = isInRoot ? root.child(target)->parts : root.parts;
        const bool isAllowed = std::any_of(parts.begin(), parts.end(), [&](const auto &part) {
            return std::any_of(part.elements.begin(), part.elements.end(),
                               [&](const Element *one) { return element.is(one->name); });
        });
        if (!isAllowed)
            addInside(nameOf(place) + u": elsewhere"_s, target, content.mid(start, end - start), 0);
    }

    void editText(const Place &place)
    {
        const XmlElement &element = *place.element;
        if (!place.declared->text)
            return addInside(nameOf(place) + u": text"_s, element, "stray", 0);
        if (!element.children.empty())
            return;
        QByteArray tag = content.mid(element.offset, endOfTag(content, element) - element.offset);
        tag.replace("/>", ">");
        const auto write = [&](const QString &value, bool isRight) {
            const int blanks = value.indexOf(QRegularExpression(u"\\S"_s));
            const int offset = element.offset + (blanks < 0 ? 0 : tag.size() + blanks);
            add(nameOf(place) + u": "_s + value, element.offset, endOf(content, element),
                tag + value.toUtf8() + "</" + element.name.toUtf8() + '>', isRight ? -1 : offset);
        };
        forEachValue(*place.declared->text, write);
    }

    void editAttribute(const Place &place, const Attribute &attribute)
    {
        const XmlElement &element = *place.element;
        const QByteArray name = attribute.name;
        const QString what = nameOf(place) + u" @"_s + QLatin1String(name);
        const int start = element.offsetOf(attribute.name);
        const int end = content.indexOf('"', content.indexOf('"', start) + 1) + 1;
        const QByteArray source = content.mid(start, end - start);
        // Without the one that tells it from others, the element is unknown.
        const bool isVariant = place.parent && !place.declared->variants().isEmpty()
                               && &attribute == &place.declared->attributes.front();
        const int missed = isVariant ? element.offset : start;
        const bool isMissed = attribute.occurrence == Occurrence::Once;
        add(what + u": left out"_s, start, end, "", isMissed ? element.offset : -1);
        add(what + u": misspelt"_s, start, end, QByteArray(source).insert(name.size(), 'x'),
            missed);
        add(what + u": doubled"_s, end, end, ' ' + source, end + 1);
        forEachValue(attribute.value, [&](const QString &value, bool isRight) {
            add(what + u": "_s + value, start, end, name + "=\"" + value.toUtf8() + '"',
                isRight ? -1 : start);
        });
        if (place.parent && !place.parent->has(attribute.name)) {
            const int behind = place.parent->offset + 1 + place.parent->name.size();
            add(what + u": in the parent"_s, behind, behind, ' ' + source, behind + 1);
        }
    }

    // One that no document has.
    void addAttribute(const Place &place, const Attribute &attribute)
    {
        const int behind = place.element->offset + 1 + place.element->name.size();
        forEachValue(attribute.value, [&](const QString &value, bool isRight) {
            add(nameOf(place) + u" @"_s + QLatin1String(attribute.name) + u" added: "_s + value,
                behind, behind, QByteArray(" ") + attribute.name + "=\"" + value.toUtf8() + '"',
                isRight ? -1 : behind + 1);
        });
    }

    // Of each kind one more, where its part ends.
    void addChildren(const Place &place)
    {
        const std::vector<Element::Part> &parts = place.declared->parts;
        const XmlElement *before = nullptr;
        auto child = place.element->children.begin();
        for (const Element::Part &part : parts) {
            bool isThere = false;
            const auto belongs = [&](const XmlElement &one) {
                return std::count(part.elements.begin(), part.elements.end(),
                                  place.declared->child(one))
                       > 0;
            };
            for (; child != place.element->children.end() && belongs(*child); ++child) {
                before = &*child;
                isThere = true;
            }
            const bool isRight = !isThere || part.occurrence == Occurrence::AnyNumber;
            for (const Element *one : part.elements) {
                const QString what =
                    nameOf(place) + u": one more "_s
                    + (QStringList(QLatin1String(one->name)) + one->variants()).join(u' ');
                const int offset = before ? endOf(content, *before) : 0;
                if (before)
                    add(what, offset, offset, leastOf(*one), isRight ? -1 : offset);
                else
                    addInside(what, *place.element, leastOf(*one), isRight ? -1 : 0);
            }
        }
    }

    template <typename Write>
    static void forEachValue(const Value &value, const Write &write)
    {
        const Limits limits = limitsOf(value);
        if (limits.right.isEmpty())
            qFatal("no limits of %s", qPrintable(value.expected));
        for (const QString &right : limits.right)
            write(right, true);
        for (const QString &wrong : limits.wrong)
            write(wrong, false);
    }

    const DocumentKind kind;
    const QByteArray content;
    const XmlDocument xml;
    std::set<const void *> *seen;
};

} // namespace

// What the declaration of a format allows and forbids is what the checker and the schema let pass
// and report.
class FormatTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void edits_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("offset");
        std::set<const void *> seen;
        for (const QString &product : {u"lorvan"_s, u"tesmar"_s}) {
            QString error;
            for (const Document &document : Place::find(product, &error)->read())
                Editor(document.kind, document.xml.content, &seen);
        }
    }

    void edits()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, offset);
        QFETCH(int, kind);
        const Document edited {
            static_cast<DocumentKind>(kind), {}, XmlDocument::fromBytes(content)};
        Findings shape(edited);
        if (edited.xml.error.text.isEmpty())
            checkShape(edited, shape);
        if (offset >= 0) {
            const QVector<Finding> findings = checkDocument(edited, QString());
            QCOMPARE(findings.size(), 1);
            const Position expected = positionOf(content, offset);
            QCOMPARE(findings.constFirst().position.line, expected.line);
            QCOMPARE(findings.constFirst().position.column, expected.column);
        } else {
            QVERIFY2(shape.list.isEmpty(), qPrintable(shape.list.value(0).line()));
        }
        const bool isNamespace =
            !shape.list.isEmpty() && shape.list.constFirst().text.contains(u"xmlns"_s);
        if (edited.xml.error.text.isEmpty() && !isNamespace)
            QCOMPARE(validator.accepts(edited.kind, content), shape.list.isEmpty());
    }

private:
    SchemaValidator validator;
};

QTEST_MAIN(FormatTest)
#include "FormatTest.moc"
