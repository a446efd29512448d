#include "check/Check.h"

#include "check/Rules.h"
#include "format/Format.h"

#include <QDomDocument>

#include <tuple>

namespace Quenda::Workbench {

namespace {

// The library reads entries with QDomDocument, which takes some texts for others. The other
// documents are read by hosts, with readers of their own.
void checkAgreement(const Document &document, Findings &findings)
{
    QDomDocument dom;
    dom.setContent(document.xml.text);
    QDomElement domEntry = dom.documentElement().firstChildElement();
    for (const XmlElement &entry : document.xml.root.children) {
        for (const auto &[offset, own, other] :
             {std::tuple(entry.offsetOf("name"), entry.value("name"),
                         domEntry.attribute(QStringLiteral("name"))),
              std::tuple(entry.offsetOfText(), entry.text, domEntry.text())})
            if (own != other)
                findings.error(offset,
                               "the library reads \"%1\" as \"%2\"; write plain text on one "
                               "line",
                               own, other);
        domEntry = domEntry.nextSiblingElement();
    }
}

void checkMeaning(const Document &document, const QString &product, Findings &findings)
{
    switch (document.format->kind) {
    case DocumentKind::Entries:
        checkAgreement(document, findings);
        return checkEntries(document, product, findings);
    case DocumentKind::Tools:
        return checkTools(document, product, findings);
    case DocumentKind::Menus:
        return checkMenus(document, findings);
    }
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
