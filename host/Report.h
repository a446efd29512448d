#pragma once

#include <QString>

namespace Quenda::Help {
class AbstractDataSafe;
}

/**
 * The configuration of @p product for people: a table of the entries and one of the
 * documents. An entry whose text does not convert is shown as it stands, with a warning to the
 * logger.
 */
QString configurationReport(const QString &product, const Quenda::Help::AbstractDataSafe &store);
