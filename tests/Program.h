#pragma once

#include <QProcess>
#include <QTest>

/** The result of a program. */
struct Outcome
{
    int status = -1;
    QByteArray output;
    QByteArray errors;
};

/** Runs a program. If it does not end by itself, the test ends and names the command line. */
inline void runToItsEnd(QProcess &program, const char *path, const QStringList &arguments)
{
    program.start(QString::fromUtf8(path), arguments);
    if (program.waitForFinished() && program.exitStatus() == QProcess::NormalExit)
        return;
    const QString reason = program.errorString();
    program.kill();
    qFatal("%s %s: %s", path, qPrintable(arguments.join(QLatin1Char(' '))), qPrintable(reason));
}

inline Outcome run(const char *path, const QStringList &arguments)
{
    QProcess program;
    runToItsEnd(program, path, arguments);
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

/** The exit status if the program cannot write to standard output. */
inline int statusWithoutOutput(const char *path, const QStringList &arguments)
{
    QProcess program;
    program.setStandardOutputFile(QStringLiteral("/dev/full"));
    runToItsEnd(program, path, arguments);
    return program.exitCode();
}

/** Adds a row to a table of command lines. The error is a part of the program's one line of errors.
 */
inline void commandLineRow(const char *arguments, int status, const char *output, const char *error)
{
    QTest::newRow(arguments) << status << QByteArray(output) << QByteArray(error);
}

inline void addCommandLineColumns()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArray>("error");
}

/** Runs the program with the row's name as its arguments. */
inline void checkCommandLine(const char *path, const QByteArray &errorStart)
{
    QFETCH(QByteArray, error);
    const QString arguments = QString::fromUtf8(QTest::currentDataTag());
    const Outcome outcome = run(path, arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QTEST(outcome.status, "status");
    QTEST(outcome.output, "output");
    QVERIFY2(outcome.errors.contains(error), outcome.errors.constData());
    QCOMPARE(outcome.errors.startsWith(errorStart), !error.isEmpty());
    QCOMPARE(outcome.errors.count('\n'), error.isEmpty() ? 0 : 1);
}
