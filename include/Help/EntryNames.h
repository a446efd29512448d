#pragma once

#include <QString>

/**
 * The names of the entries that hosts read. With these functions, the compiler finds a typing
 * error; in a text, it would read as a missing entry.
 *
 * The comments say what an entry is for and which getter reads it. For getBool(), the entry says
 * whether the function is on. If a comment names a product, the other product does not have the
 * entry: the getter sets its flag to false, and the host uses a default of its own.
 */
namespace Quenda::Help::EntryNames {

/** The text of the tool document: tool boxes, keypad and tool bars. For getString(). */
inline QString toolDocument()
{
    return QStringLiteral("widgetConfig");
}

/** The text of the menu document, for QUiLoader. For getString(). */
inline QString menuDocument()
{
    return QStringLiteral("menubar");
}

/** The key of the host's document files; the same text for every product. For getString(). */
inline QString fileKey()
{
    return QStringLiteral("quenda_file_key");
}

/** The password of the host's document files. Both products leave it empty. For getString(). */
inline QString filePassword()
{
    return QStringLiteral("filePassword");
}

/** The domains of the files that the host opens; "all" means every domain. For getStringList(). */
inline QString fileOpenDomains()
{
    return QStringLiteral("fileOpenDomains");
}

/** The domain of the files that the host saves. For getString(). */
inline QString fileSaveDomain()
{
    return QStringLiteral("fileSaveDomain");
}

/** The greatest number of work sizes; -1 means no limit. For getInt(), in lorvan only. */
inline QString maxWorkSizeCount()
{
    return QStringLiteral("maxWorkSizeCount");
}

/** The greatest number of pieces; -1 means no limit. For getInt(), in lorvan only. */
inline QString maxPieceCount()
{
    return QStringLiteral("maxPieceCount");
}

/** The formats that the host offers for import; "all" means every format. For getStringList(). */
inline QString importFormats()
{
    return QStringLiteral("importFormats");
}

/** The formats that the host offers for export; "all" means every format. For getStringList(). */
inline QString exportFormats()
{
    return QStringLiteral("exportFormats");
}

/**
 * The native formats that the host offers; "all" means every format. For getStringList(), in
 * lorvan only.
 */
inline QString nativeFormats()
{
    return QStringLiteral("nativeFormats");
}

/** Whether the host opens style documents in a backward-compatible way. For getBool(). */
inline QString backCompactStyOpen()
{
    return QStringLiteral("backCompactStyOpen");
}

/**
 * Whether the host saves style documents in a backward-compatible way. For getBool(), in lorvan
 * only.
 */
inline QString backCompactStySave()
{
    return QStringLiteral("backCompactStySave");
}

/**
 * Whether the host opens marker documents in a backward-compatible way. For getBool(), in tesmar
 * only.
 */
inline QString backCompactMarOpen()
{
    return QStringLiteral("backCompactMarOpen");
}

/**
 * Whether the host saves marker documents in a backward-compatible way. For getBool(), in tesmar
 * only.
 */
inline QString backCompactMarSave()
{
    return QStringLiteral("backCompactMarSave");
}

/** The MTM function. For getBool(), in lorvan only. */
inline QString mtmEnabled()
{
    return QStringLiteral("mtmEnabled");
}

/** Plotting over the network. For getBool(). */
inline QString networkPlotEnabled()
{
    return QStringLiteral("networkPlotEnabled");
}

/** CNC output. For getBool(), in lorvan only. */
inline QString cncEnabled()
{
    return QStringLiteral("cncEnabled");
}

/** Cloning of pieces. For getBool(), in lorvan only. */
inline QString clonePieceEnabled()
{
    return QStringLiteral("clonePieceEnabled");
}

/** Special treatment by fabric. For getBool(), in tesmar only. */
inline QString specialTreatFabricEnabled()
{
    return QStringLiteral("specialTreatFabricEnabled");
}

/** Special treatment by piece. For getBool(), in tesmar only. */
inline QString specialTreatPieceEnabled()
{
    return QStringLiteral("specialTreatPieceEnabled");
}

/** Arranging the cutting sequence. For getBool(), in tesmar only. */
inline QString arrangeCutSeqEnabled()
{
    return QStringLiteral("arrangeCutSeqEnabled");
}

/** Optimising the cut. For getBool(), in tesmar only. */
inline QString optimizeCutEnabled()
{
    return QStringLiteral("optimizeCutEnabled");
}

/** Automatic marker making. For getBool(), in tesmar only. */
inline QString autoMarkerEnabled()
{
    return QStringLiteral("autoMarkerEnabled");
}

/** Lock-in in markers. For getBool(), in tesmar only. */
inline QString lockinMarkerEnabled()
{
    return QStringLiteral("lockinMarkerEnabled");
}

/** Optimisation. For getBool(), in tesmar only. */
inline QString optimizeEnabled()
{
    return QStringLiteral("optimizeEnabled");
}

/** The host's tool function. For getBool(). */
inline QString toolEnabled()
{
    return QStringLiteral("toolEnabled");
}

} // namespace Quenda::Help::EntryNames
