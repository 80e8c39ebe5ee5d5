// What single events cost with many documents open, without an engine.

#include "support/DocumentFixture.h"

#include <QApplication>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDocuments = 200;

/// Opens documents until there are `kDocuments`, and lets everything happen that waits for the event loop.
void fill(DocumentFixture &fixture)
{
    while (fixture.count() < kDocuments) {
        const QString address = u"http://site%1.example/"_s.arg(fixture.count());
        fixture.open(address);
        fixture.lastBrowser().load(address, u"The title of a page at %1"_s.arg(address));
    }
    DocumentFixture::deleteClosed();
    QCoreApplication::processEvents();
}

/// One progress event of the document at a position; the percentage is another one each time. The second argument tells
/// whether what it leaves to the event loop (painting) counts as well.
void progressChange(benchmark::State &state)
{
    DocumentFixture fixture;
    fill(fixture);
    const int position = static_cast<int>(state.range(0));
    ScriptedBrowser &browser = DocumentFixture::browserOf(fixture.document(position));
    const bool withPainting = state.range(1) != 0;
    browser.beforeNavigate(browser.address);
    int percent = 0;
    for ([[maybe_unused]] auto iteration : state) {
        percent = percent % 99 + 1;
        browser.events().WebBro_ProgressChange(percent, 100);
        if (withPainting)
            QCoreApplication::processEvents();
    }
    if (fixture.status(position) != u"%1%"_s.arg(percent))
        state.SkipWithError("the Navigator does not show the progress");
}
BENCHMARK(progressChange)
    ->ArgNames({"position", "painting"})
    ->Args({kDocuments, 0})
    ->Args({1, 0})
    ->Args({kDocuments, 1})
    ->Args({1, 1})
    ->Unit(benchmark::kMicrosecond);

/// Closing the first document: every other one moves up by one position. Its form is deleted within the time.
void closeFirst(benchmark::State &state)
{
    DocumentFixture fixture;
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        fill(fixture);
        state.ResumeTiming();
        fixture.document(1).Unload();
        DocumentFixture::deleteClosed();
    }
    if (const QString disorder = fixture.disorder(); !disorder.isEmpty())
        state.SkipWithError(qPrintable(disorder));
}
BENCHMARK(closeFirst)->Iterations(50)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
