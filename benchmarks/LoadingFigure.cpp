#include "Figures.h"

#include <QProcess>

namespace {

// Each time in a new process, because a second loading in the same process is faster.
Body loading(const QString &library)
{
    return [library](benchmark::State &state) {
        for ([[maybe_unused]] auto step : state) {
            QProcess process;
            process.start(QStringLiteral(LOAD_LIBRARY), {library});
            process.waitForFinished();
            bool ok = false;
            const double seconds = process.readAllStandardOutput().trimmed().toDouble(&ok);
            if (!ok || process.exitCode() != 0) {
                state.SkipWithError("the library was not loaded");
                break;
            }
            state.SetIterationTime(seconds);
        }
        state.SetItemsProcessed(state.iterations());
    };
}

} // namespace

void addLoadingFigure()
{
    addFigure("loading the library", noLimit, loading(QStringLiteral(QUENDA_HELP)),
              loading(QStringLiteral(EMPTY_LIBRARY)),
              [](benchmark::internal::Benchmark *one) { one->UseManualTime()->Iterations(20); });
}
