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
        {QStringLiteral("filePassword"), EntryType::Text, both,
         QStringLiteral("password of the host's document files")},
        {QStringLiteral("fileOpenDomains"), EntryType::List, both,
         QStringLiteral("file domains that the host opens documents of; all: any")},
        {QStringLiteral("fileSaveDomain"), EntryType::Text, both,
         QStringLiteral("file domain that documents are saved under")},
        {QStringLiteral("maxWorkSizeCount"), EntryType::Number, lorvan,
         QStringLiteral("greatest number of work sizes; -1: no limit")},
        {QStringLiteral("maxPieceCount"), EntryType::Number, lorvan,
         QStringLiteral("greatest number of pieces; -1: no limit")},
        {QStringLiteral("importFormats"), EntryType::List, both,
         QStringLiteral("formats offered for import")},
        {QStringLiteral("exportFormats"), EntryType::List, both,
         QStringLiteral("formats offered for export")},
        {QStringLiteral("nativeFormats"), EntryType::List, lorvan,
         QStringLiteral("native formats offered")},
        {QStringLiteral("backCompactStyOpen"), EntryType::Flag, both,
         QStringLiteral("backward-compatible opening of style documents")},
        {QStringLiteral("backCompactStySave"), EntryType::Flag, lorvan,
         QStringLiteral("backward-compatible saving of style documents")},
        {QStringLiteral("backCompactMarOpen"), EntryType::Flag, tesmar,
         QStringLiteral("backward-compatible opening of marker documents")},
        {QStringLiteral("backCompactMarSave"), EntryType::Flag, tesmar,
         QStringLiteral("backward-compatible saving of marker documents")},
        {QStringLiteral("mtmEnabled"), EntryType::Flag, lorvan, QStringLiteral("MTM function")},
        {QStringLiteral("networkPlotEnabled"), EntryType::Flag, both,
         QStringLiteral("plotting over the network")},
        {QStringLiteral("cncEnabled"), EntryType::Flag, lorvan, QStringLiteral("CNC output")},
        {QStringLiteral("clonePieceEnabled"), EntryType::Flag, lorvan,
         QStringLiteral("cloning of pieces")},
        {QStringLiteral("specialTreatFabricEnabled"), EntryType::Flag, tesmar,
         QStringLiteral("special treatment by fabric")},
        {QStringLiteral("specialTreatPieceEnabled"), EntryType::Flag, tesmar,
         QStringLiteral("special treatment by piece")},
        {QStringLiteral("arrangeCutSeqEnabled"), EntryType::Flag, tesmar,
         QStringLiteral("arranging the cutting sequence")},
        {QStringLiteral("optimizeCutEnabled"), EntryType::Flag, tesmar,
         QStringLiteral("optimising the cut")},
        {QStringLiteral("autoMarkerEnabled"), EntryType::Flag, tesmar,
         QStringLiteral("automatic marker making")},
        {QStringLiteral("lockinMarkerEnabled"), EntryType::Flag, tesmar,
         QStringLiteral("lock-in in markers")},
        {QStringLiteral("optimizeEnabled"), EntryType::Flag, tesmar,
         QStringLiteral("optimisation")},
        {QStringLiteral("toolEnabled"), EntryType::Flag, both,
         QStringLiteral("the host's tool function")},
        {Quenda::Help::EntryNames::fileKey(),
         EntryType::Text,
         {},
         QStringLiteral("key of the host's document files")},
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
