#include "check/Check.h"

#include "check/Rules.h"
#include "format/Format.h"

#include <QDomDocument>
#include <QRegularExpression>

#include <tuple>

namespace Quenda::Workbench {

namespace {

// Applications read entry and tool documents with QDomDocument, which sees some constructs
// otherwise than an XML parser has to.
void checkAgreement(const XmlElement &element, const QDomElement &dom, Findings &findings)
{
    const auto compare = [&findings](int offset, const QString &own, const QString &other) {
        if (own != other)
            findings.error(offset,
                           "\"%1\" is read differently by applications, as \"%2\"; expected plain "
                           "text without line breaks",
                           own, other);
    };
    for (const XmlAttribute &attribute : element.attributes) {
        QString other = dom.attribute(attribute.name);
        if (attribute.name == QLatin1String("button-style")) // where white space is of no account
            other.replace(QRegularExpression(QStringLiteral("\\r\\n|[\\t\\n\\r]")),
                          QStringLiteral(" "));
        compare(attribute.offset, attribute.value, other);
    }
    if (element.children.empty())
        compare(element.offsetOfText(), element.text, dom.text());
    QDomElement child = dom.firstChildElement();
    for (const XmlElement &own : element.children) {
        checkAgreement(own, child, findings);
        child = child.nextSiblingElement();
    }
}

void checkMeaning(const Document &document, const QString &product, Findings &findings)
{
    if (document.format->kind == DocumentKind::Menus)
        return checkMenus(document, findings);
    QDomDocument dom;
    QString message;
    if (!dom.setContent(QString::fromUtf8(document.xml.content), &message))
        return findings.error(document.xml.root.offset, "applications cannot read it: %1", message);
    checkAgreement(document.xml.root, dom.documentElement(), findings);
    if (document.format->kind == DocumentKind::Entries)
        checkEntries(document, product, findings);
    else
        checkTools(document, product, findings);
}

} // namespace

QVector<Finding> checkDocument(const Document &document, const QString &product)
{
    Findings findings(document);
    if (document.xml.error.text.isEmpty()) {
        checkProlog(document, findings);
        checkShape(document, findings);
        if (findings.list.isEmpty())
            checkMeaning(document, product, findings);
    } else {
        findings.add(Finding::Error, document.xml.error.offset, document.xml.error.text);
    }
    std::stable_sort(findings.list.begin(), findings.list.end(),
                     [](const Finding &a, const Finding &b) {
                         return std::tie(a.position.line, a.position.column)
                                < std::tie(b.position.line, b.position.column);
                     });
    return findings.list;
}

QVector<Finding> checkDocuments(const Documents &documents, const QString &product)
{
    QVector<Finding> findings;
    for (const Document &document : documents)
        findings += checkDocument(document, product);
    return findings;
}

bool hasErrors(const QVector<Finding> &findings)
{
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding &f) { return f.severity == Finding::Error; });
}

} // namespace Quenda::Workbench
