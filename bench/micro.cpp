// What single events cost with many documents open, without an engine.

#include "blocking/BlackListSearch.h"
#include "engine/ContentControl.h"
#include "support/DocumentFixture.h"

#include <QApplication>
#include <QRandomGenerator>
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

QString letters(QRandomGenerator &random, int count)
{
    QString text;
    for (; count > 0; --count)
        text += QChar(u'a' + random.bounded(26));
    return text;
}

/// A black list as long as those that are handed around. The argument tells whether all entries begin alike.
QStringList longBlackList(bool alike)
{
    QRandomGenerator random(1);
    const QString begin = alike ? u"http://www."_s : QString();
    QStringList entries;
    for (int i = 0; i < 100'000; ++i)
        entries += begin + letters(random, 20 - static_cast<int>(begin.size()));
    return entries;
}

void blackListBuild(benchmark::State &state)
{
    const QStringList entries = longBlackList(state.range(0) != 0);
    for ([[maybe_unused]] auto iteration : state) {
        BlackListSearch search(entries);
        benchmark::DoNotOptimize(search);
    }
}
BENCHMARK(blackListBuild)->ArgName("alike")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

/// An address of 200 characters that is not on the list, so that no place of it can be left out.
void blackListTest(benchmark::State &state)
{
    const QStringList entries = longBlackList(state.range(0) != 0);
    const BlackListSearch search(entries);
    QRandomGenerator random(2);
    const QString address = u"http://www."_s + letters(random, 189);
    bool found = false;
    for ([[maybe_unused]] auto iteration : state)
        found = search.findsAnyIn(address) || found;
    if (found || !search.findsAnyIn(address + entries.last()))
        state.SkipWithError("the search does not see what is on the list");
}
BENCHMARK(blackListTest)->ArgName("alike")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// What the content policy costs a request of a page in the dearest case: everything is off, and only the address
/// tells. The address comes as text, as the engine hands it over.
void contentPolicy(benchmark::State &state)
{
    const QString address = u"https://www.example.com/"_s + QString(500, u'a') + u".js?q=1"_s;
    const int32_t nothing = engine::DLCTL_NO_SCRIPTS | engine::DLCTL_NO_JAVA | engine::DLCTL_NO_RUNACTIVEXCTLS;
    bool refused = false;
    for ([[maybe_unused]] auto iteration : state)
        refused = engine::isPartRefused(nothing, engine::PartKind::Other, QUrl(address)) || refused;
    if (refused || !engine::isPartRefused(nothing, engine::PartKind::Image, QUrl(address)))
        state.SkipWithError("the policy does not see what is off");
}
BENCHMARK(contentPolicy)->Unit(benchmark::kMicrosecond);

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
