#include "Entries.h"

#include <Help/EntryNames.h>

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
