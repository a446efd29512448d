#include "Products.h"

#include <Help/EntryNames.h>

#include <algorithm>

const QVector<Product> &knownProducts()
{
    static const QVector<Product> products {
        {QStringLiteral("lorvan"), // a state is one document bit combined with one view bit
         {
             {0x11, QStringLiteral("style document, grading view")},
             {0x21, QStringLiteral("style document, non-grading view")},
             {0x12, QStringLiteral("base document, grading view")},
             {0x22, QStringLiteral("base document, non-grading view")},
             {0x14, QStringLiteral("frame document, grading view")},
             {0x24, QStringLiteral("frame document, non-grading view")},
             {0x18, QStringLiteral("changeset document, grading view")},
             {0x28, QStringLiteral("changeset document, non-grading view")},
         }},
        {QStringLiteral("tesmar"), // each view has one bit
         {
             {0x01, QStringLiteral("full view")},
             {0x02, QStringLiteral("cut view")},
             {0x04, QStringLiteral("OptiCut view")},
             {0x08, QStringLiteral("tool view")},
             {0x10, QStringLiteral("link piece view")},
             {0x20, QStringLiteral("pattern refreshment")},
         }},
    };
    return products;
}

const Product *findProduct(const QString &id)
{
    const QVector<Product> &products = knownProducts();
    const auto found = std::find_if(products.begin(), products.end(),
                                    [&id](const Product &one) { return one.id == id; });
    return found == products.end() ? nullptr : &*found;
}

const QVector<KnownEntry> &knownEntries()
{
    static const QStringList lorvan {QStringLiteral("lorvan")};
    static const QStringList tesmar {QStringLiteral("tesmar")};
    static const QStringList both = lorvan + tesmar;
    static const QVector<KnownEntry> entries {
        {QStringLiteral("filePassword"), EntryType::Text, both},
        {QStringLiteral("fileOpenDomains"), EntryType::List, both},
        {QStringLiteral("fileSaveDomain"), EntryType::Text, both},
        {QStringLiteral("maxWorkSizeCount"), EntryType::Number, lorvan},
        {QStringLiteral("maxPieceCount"), EntryType::Number, lorvan},
        {QStringLiteral("importFormats"), EntryType::List, both},
        {QStringLiteral("exportFormats"), EntryType::List, both},
        {QStringLiteral("nativeFormats"), EntryType::List, lorvan},
        {QStringLiteral("backCompactStyOpen"), EntryType::Flag, both},
        {QStringLiteral("backCompactStySave"), EntryType::Flag, lorvan},
        {QStringLiteral("backCompactMarOpen"), EntryType::Flag, tesmar},
        {QStringLiteral("backCompactMarSave"), EntryType::Flag, tesmar},
        {QStringLiteral("mtmEnabled"), EntryType::Flag, lorvan},
        {QStringLiteral("networkPlotEnabled"), EntryType::Flag, both},
        {QStringLiteral("cncEnabled"), EntryType::Flag, lorvan},
        {QStringLiteral("clonePieceEnabled"), EntryType::Flag, lorvan},
        {QStringLiteral("specialTreatFabricEnabled"), EntryType::Flag, tesmar},
        {QStringLiteral("specialTreatPieceEnabled"), EntryType::Flag, tesmar},
        {QStringLiteral("arrangeCutSeqEnabled"), EntryType::Flag, tesmar},
        {QStringLiteral("optimizeCutEnabled"), EntryType::Flag, tesmar},
        {QStringLiteral("autoMarkerEnabled"), EntryType::Flag, tesmar},
        {QStringLiteral("lockinMarkerEnabled"), EntryType::Flag, tesmar},
        {QStringLiteral("optimizeEnabled"), EntryType::Flag, tesmar},
        {QStringLiteral("toolEnabled"), EntryType::Flag, both},
        {Quenda::Help::EntryNames::fileKey(), EntryType::Text, {}},
    };
    return entries;
}

QString entryTypeName(EntryType type)
{
    switch (type) {
    case EntryType::Text:
        return QStringLiteral("text");
    case EntryType::List:
        return QStringLiteral("list");
    case EntryType::Flag:
        return QStringLiteral("flag");
    case EntryType::Number:
        return QStringLiteral("number");
    }
    Q_UNREACHABLE();
}
