#pragma once

#include "HostState.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/** Something that is wrong, or odd, in a document. */
struct Finding
{
    enum Severity {
        Fault, ///< Would surface in a running application.
        Remark, ///< Works, but may not be meant.
    };

    Severity severity;
    int line; ///< From 1; 0 where no line can be told.
    QString text; ///< What is wrong and what is expected.
};

enum class DocumentKind { Entries, Tools, Menus };

/** The kind of the document in the file @p path: by its usual name, otherwise by its contents. */
DocumentKind documentKind(const QString &path, const QByteArray &content);

/**
 * Everything that can be found in the document without a running application, in the order of the
 * lines. A document that is not well-formed has just that one fault.
 *
 * @param states  The states in which the document's host can be, which masks have to meet.
 */
QVector<Finding> checkDocument(DocumentKind kind, const QByteArray &content,
                               const QVector<HostState> &states);
