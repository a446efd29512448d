#include "format/Format.h"
#include "SchemaValidator.h"
#include "StringLiterals.h"
#include "check/Check.h"
#include "document/Place.h"

#include <QRegularExpression>
#include <QTest>

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

QString nameOf(const Element &declared)
{
    return (QStringList(QLatin1String(declared.name)) + declared.variants()).join(u' ');
}

// Edits a document in all ways that its declaration allows and forbids: of each kind of element and
// attribute the first, unless another document had it.
class Editor
{
public:
    Editor(const Document &document, std::set<const void *> *seenKinds)
        : format(document.format), content(document.xml.content), xml(document.xml), seen(seenKinds)
    {
        edit({&xml.root, &format->root, nullptr, nullptr});
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
            if (seen->insert(place.element->has(attribute.name)
                                 ? static_cast<const void *>(&attribute)
                                 : attribute.name)
                    .second)
                editAttribute(place, attribute);
        for (const XmlElement &child : place.element->children)
            edit({&child, place.declared->child(child), place.element, place.declared});
    }

    // With the offset of the one finding; -1 where the shape is right.
    void add(const QString &what, int from, int to, const QByteArray &text, int offset)
    {
        QTest::newRow(qPrintable(what))
            << int(format->kind) << content.left(from) + text + content.mid(to) << offset;
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

    int endOfTag(const XmlElement &element) const
    {
        return content.indexOf('>', element.offset) + 1;
    }

    int endOf(const XmlElement &element) const
    {
        const int inside =
            element.children.empty() ? endOfTag(element) : endOf(element.children.back());
        return content.indexOf('>', content.indexOf("</", inside)) + 1;
    }

    void editElement(const Place &place)
    {
        const XmlElement *element = place.element;
        const Element *declared = place.declared;
        const auto isNeeded = [](const Element::Part &part) {
            return part.occurrence == Occurrence::Once;
        };
        const QString what = nameOf(*declared) + u": "_s;
        const QByteArray name = element->name.toUtf8();
        const int start = element->offset;
        const int end = endOf(*element);
        const QByteArray source = content.mid(start, end - start);
        const QByteArray misspelt =
            QByteArray(source).insert(source.size() - 1, 'x').insert(1 + name.size(), 'x');
        add(what + u"misspelt"_s, start, end, misspelt, start);
        const bool isIncomplete =
            (declared->text && !declared->text->allows(QString()))
            || std::any_of(declared->parts.begin(), declared->parts.end(), isNeeded);
        add(what + u"emptied"_s, endOfTag(*element), end, "</" + name + '>',
            isIncomplete ? start : -1);
        if (!place.parent)
            return;
        const auto &siblings = place.parentDeclared->parts;
        const bool isMissed = std::any_of(siblings.begin(), siblings.end(), [&](const auto &part) {
            return isNeeded(part) && part.elements.front() == declared;
        });
        add(what + u"left out"_s, start, end, "", isMissed ? place.parent->offset : -1);
        const XmlElement *leaf = &xml.root; // which holds no elements
        while (!leaf->children.empty())
            leaf = &leaf->children.front();
        add(what + u"in another element"_s, endOfTag(*leaf), endOfTag(*leaf), source,
            endOfTag(*leaf));
    }

    void editText(const Place &place)
    {
        const XmlElement *element = place.element;
        const Element *declared = place.declared;
        const QString what = nameOf(*declared) + u": "_s;
        const int start = endOfTag(*element);
        if (!declared->text)
            add(what + u"text"_s, start, start, "stray", start);
        else if (element->children.empty())
            forEachValue(*declared->text, [&](const QString &value, bool isRight) {
                const int blanks = value.indexOf(QRegularExpression(u"\\S"_s));
                add(what + value, start, content.indexOf("</", start), value.toUtf8(),
                    isRight      ? -1
                    : blanks < 0 ? element->offset
                                 : start + blanks);
            });
    }

    void editAttribute(const Place &place, const Attribute &attribute)
    {
        const auto &[element, declared, parent, _] = place;
        const QByteArray name = attribute.name;
        const QString what = nameOf(*declared) + u" @"_s + QLatin1String(name) + u": "_s;
        // One that is not there is put behind the name.
        const bool isThere = element->has(attribute.name);
        const int start = isThere ? element->offsetOf(attribute.name)
                                  : element->offset + 1 + element->name.size();
        const int end = isThere ? content.indexOf('"', content.indexOf('"', start) + 1) + 1 : start;
        const QByteArray blank = isThere ? "" : " ";
        forEachValue(attribute.value, [&](const QString &value, bool isRight) {
            add(what + value, start, end, blank + name + "=\"" + value.toUtf8() + '"',
                isRight ? -1 : start + blank.size());
        });
        if (!isThere)
            return;
        const QByteArray source = content.mid(start, end - start);
        // Without the one that tells it from others, the element is unknown.
        const bool isVariant = parent && !declared->variants().isEmpty()
                               && &attribute == &declared->attributes.front();
        add(what + u"misspelt"_s, start, end, QByteArray(source).insert(name.size(), 'x'),
            isVariant ? element->offset : start);
        const bool isMissed = attribute.occurrence == Occurrence::Once;
        add(what + u"left out"_s, start, end, "", isMissed ? element->offset : -1);
        add(what + u"doubled"_s, end, end, ' ' + source, end + 1);
        if (parent && !parent->has(attribute.name)) {
            const int behind = parent->offset + 1 + parent->name.size();
            add(what + u"in the parent"_s, behind, behind, ' ' + source, behind + 1);
        }
    }

    // Of each kind one more, where its part ends.
    void addChildren(const Place &place)
    {
        int end = endOfTag(*place.element);
        auto child = place.element->children.begin();
        for (const Element::Part &part : place.declared->parts) {
            const auto start = child;
            while (child != place.element->children.end()
                   && std::count(part.elements.begin(), part.elements.end(),
                                 place.declared->child(*child)))
                end = endOf(*child++);
            const bool isRight = child == start || part.occurrence == Occurrence::AnyNumber;
            for (const Element *one : part.elements)
                add(nameOf(*place.declared) + u": one more "_s + nameOf(*one), end, end,
                    leastOf(*one), isRight ? -1 : end);
        }
    }

    const Format *format;
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
            for (const Document &document : Place::find(product, &error).value().read()) {
                // Without empty tags, which would be a case of their own.
                const QString content =
                    QString::fromUtf8(document.xml.content)
                        .replace(QRegularExpression(u"<([a-z]+)([^<>]*)/>"_s), u"<\\1\\2></\\1>"_s);
                Editor({document.format, {}, XmlDocument::fromBytes(content.toUtf8())}, &seen);
            }
        }
    }

    void edits()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, offset);
        QFETCH(int, kind);
        const Document edited {allFormats().at(kind), {}, XmlDocument::fromBytes(content)};
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
            QCOMPARE(validator.accepts(*edited.format, content), shape.list.isEmpty());
    }

private:
    SchemaValidator validator;
};

QTEST_GUILESS_MAIN(FormatTest)
#include "FormatTest.moc"
