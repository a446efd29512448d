#pragma once

#include <QFile>

/** What is in a file, without which the test cannot go on. */
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}
