#pragma once

#include <QtGlobal>

namespace Quenda {

/**
 * @ingroup stand_in
 * How severe a record is; the values are fixed.
 */
enum class LogLevel : qint32 {
    Fatal = 1,
    Error = 2,
    Warning = 3,
    Info = 4,
    Debug = 5,
};

} // namespace Quenda
