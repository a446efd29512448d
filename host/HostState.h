#pragma once

#include <QString>
#include <QVector>

/** A state that a host can be in. */
struct HostState
{
    quint32 code; ///< The availability code, which masks of the tool document are compared with.
    QString name;
};

/** All states of the host of @p product, in any letter case; none for a product unknown here. */
QVector<HostState> hostStates(const QString &product);
