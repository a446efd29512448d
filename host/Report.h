#pragma once

#include <QString>

namespace Quenda::Help {
class AbstractDataSafe;
}

/**
 * The configuration of @p product as text: a table of the entries and a table of the documents. If
 * the text of an entry does not convert to the entry's type, the table contains the text, and the
 * logger receives a warning.
 */
QString configurationReport(const QString &product, const Quenda::Help::AbstractDataSafe &store);
