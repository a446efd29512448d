#pragma once

#include <QtGlobal>

namespace Quenda {

/**
 * @ingroup stand_in
 * The severity of a record. The values never change.
 */
enum class LogLevel : qint32 {
    Fatal = 1,
    Error = 2,
    Warning = 3,
    Info = 4,
    Debug = 5,
};

} // namespace Quenda
