#pragma once

#include <QString>

struct KnownEntry;

namespace Quenda::Help {
class AbstractDataSafe;
}

/**
 * The value of an entry in @p store, read as a host reads it. If the text does not convert to the
 * entry's type, the result is the text, and the logger receives a warning. The file key is not
 * shown.
 */
QString shownValue(const Quenda::Help::AbstractDataSafe &store, const KnownEntry &entry);

/**
 * The configuration of @p product as text: a table of the entries and a table of the documents.
 */
QString configurationReport(const QString &product, const Quenda::Help::AbstractDataSafe &store);
