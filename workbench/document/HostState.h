#pragma once

#include <QString>
#include <QVector>

namespace Quenda::Workbench {

/** A state that the host of a product can be in. */
struct HostState
{
    quint32 code; ///< The availability code, which masks of the tool document are compared with.
    QString name; ///< As the comments of the product's tool document call it.

    QString label() const { return QStringLiteral("%1 (0x%2)").arg(name).arg(code, 0, 16); }
};

/** All states of the host of @p product, an id in lower case; none for a product unknown here. */
QVector<HostState> hostStates(const QString &product);

} // namespace Quenda::Workbench
