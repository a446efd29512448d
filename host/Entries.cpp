#include "Entries.h"

#include <Help/EntryNames.h>

const QVector<KnownEntry> &knownEntries()
{
    static const QVector<KnownEntry> entries {
        {QStringLiteral("filePassword"), EntryType::Text},
        {QStringLiteral("fileOpenDomains"), EntryType::List},
        {QStringLiteral("fileSaveDomain"), EntryType::Text},
        {QStringLiteral("maxWorkSizeCount"), EntryType::Number},
        {QStringLiteral("maxPieceCount"), EntryType::Number},
        {QStringLiteral("importFormats"), EntryType::List},
        {QStringLiteral("exportFormats"), EntryType::List},
        {QStringLiteral("nativeFormats"), EntryType::List},
        {QStringLiteral("backCompactStyOpen"), EntryType::Flag},
        {QStringLiteral("backCompactStySave"), EntryType::Flag},
        {QStringLiteral("backCompactMarOpen"), EntryType::Flag},
        {QStringLiteral("backCompactMarSave"), EntryType::Flag},
        {QStringLiteral("mtmEnabled"), EntryType::Flag},
        {QStringLiteral("networkPlotEnabled"), EntryType::Flag},
        {QStringLiteral("cncEnabled"), EntryType::Flag},
        {QStringLiteral("clonePieceEnabled"), EntryType::Flag},
        {QStringLiteral("specialTreatFabricEnabled"), EntryType::Flag},
        {QStringLiteral("specialTreatPieceEnabled"), EntryType::Flag},
        {QStringLiteral("arrangeCutSeqEnabled"), EntryType::Flag},
        {QStringLiteral("optimizeCutEnabled"), EntryType::Flag},
        {QStringLiteral("autoMarkerEnabled"), EntryType::Flag},
        {QStringLiteral("lockinMarkerEnabled"), EntryType::Flag},
        {QStringLiteral("optimizeEnabled"), EntryType::Flag},
        {QStringLiteral("toolEnabled"), EntryType::Flag},
        {Quenda::Help::EntryNames::fileKey(), EntryType::Text},
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
