#include "Products.h"

#include <Help/EntryNames.h>

#include <algorithm>

namespace EntryNames = Quenda::Help::EntryNames;

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
        {EntryNames::filePassword(), EntryType::Text, both,
         QStringLiteral("password of the host's document files")},
        {EntryNames::fileOpenDomains(), EntryType::List, both,
         QStringLiteral("domains of the files that the host opens; \"all\" means every domain")},
        {EntryNames::fileSaveDomain(), EntryType::Text, both,
         QStringLiteral("domain of the files that the host saves")},
        {EntryNames::maxWorkSizeCount(), EntryType::Number, lorvan,
         QStringLiteral("greatest number of work sizes; -1 means no limit")},
        {EntryNames::maxPieceCount(), EntryType::Number, lorvan,
         QStringLiteral("greatest number of pieces; -1 means no limit")},
        {EntryNames::importFormats(), EntryType::List, both,
         QStringLiteral("formats offered for import")},
        {EntryNames::exportFormats(), EntryType::List, both,
         QStringLiteral("formats offered for export")},
        {EntryNames::nativeFormats(), EntryType::List, lorvan,
         QStringLiteral("native formats offered")},
        {EntryNames::backCompactStyOpen(), EntryType::Flag, both,
         QStringLiteral("backward-compatible opening of style documents")},
        {EntryNames::backCompactStySave(), EntryType::Flag, lorvan,
         QStringLiteral("backward-compatible saving of style documents")},
        {EntryNames::backCompactMarOpen(), EntryType::Flag, tesmar,
         QStringLiteral("backward-compatible opening of marker documents")},
        {EntryNames::backCompactMarSave(), EntryType::Flag, tesmar,
         QStringLiteral("backward-compatible saving of marker documents")},
        {EntryNames::mtmEnabled(), EntryType::Flag, lorvan, QStringLiteral("MTM function")},
        {EntryNames::networkPlotEnabled(), EntryType::Flag, both,
         QStringLiteral("plotting over the network")},
        {EntryNames::cncEnabled(), EntryType::Flag, lorvan, QStringLiteral("CNC output")},
        {EntryNames::clonePieceEnabled(), EntryType::Flag, lorvan,
         QStringLiteral("cloning of pieces")},
        {EntryNames::specialTreatFabricEnabled(), EntryType::Flag, tesmar,
         QStringLiteral("special treatment by fabric")},
        {EntryNames::specialTreatPieceEnabled(), EntryType::Flag, tesmar,
         QStringLiteral("special treatment by piece")},
        {EntryNames::arrangeCutSeqEnabled(), EntryType::Flag, tesmar,
         QStringLiteral("arranging the cutting sequence")},
        {EntryNames::optimizeCutEnabled(), EntryType::Flag, tesmar,
         QStringLiteral("optimising the cut")},
        {EntryNames::autoMarkerEnabled(), EntryType::Flag, tesmar,
         QStringLiteral("automatic marker making")},
        {EntryNames::lockinMarkerEnabled(), EntryType::Flag, tesmar,
         QStringLiteral("lock-in in markers")},
        {EntryNames::optimizeEnabled(), EntryType::Flag, tesmar, QStringLiteral("optimisation")},
        {EntryNames::toolEnabled(), EntryType::Flag, both,
         QStringLiteral("the host's tool function")},
        {EntryNames::fileKey(),
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
