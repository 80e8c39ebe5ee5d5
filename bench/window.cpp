// What the main window's own work costs for each event: keys, menus, tabs, the progress bar, the address list. No
// engine.

#include "core/MainFixture.h"

#include "appearance/cMediaProgress.h"
#include "core/KeyboardHook.h"
#include "core/state/ProcessFlags.h"
#include "documents/AddressCompletion.h"

#include <QMenu>
#include <QWindow>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

/// A started program with so many documents.
void open(MainFixture &fixture, int documents)
{
    fixture.seedQuietStart();
    fixture.start();
    for (int n = 1; n <= documents; ++n) {
        fixture.main().LoadNewDoc(u"http://site%1.example/"_s.arg(n));
        fixture.engine.browsers.last()->load(u"http://site%1.example/"_s.arg(n), u"The title of page %1"_s.arg(n));
    }
    QCoreApplication::processEvents();
}

/// One drawing of the progress bar of the status bar; each write of a property is one.
void progressBar(benchmark::State &state)
{
    cMediaProgress progress;
    progress.setMax(100);
    progress.setText(u"Loading"_s);
    progress.setWidth(172);
    int percent = 0;
    for ([[maybe_unused]] auto iteration : state)
        progress.setValue(percent = percent % 99 + 1);
}
BENCHMARK(progressBar)->Unit(benchmark::kMicrosecond);

/// A key event on its way to its window, without the hook and with it; the difference is the hook's.
void keyEvent(benchmark::State &state)
{
    ProcessFlags flags;
    flags.ShortcutsEnabled = true;
    KeyboardHook hook(flags, {});
    if (state.range(0) != 0)
        hook.install();
    QWindow window;
    for ([[maybe_unused]] auto iteration : state) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::ControlModifier, u"a"_s);
        QCoreApplication::sendEvent(&window, &press);
    }
    if (flags.CtrlDown != (state.range(0) != 0))
        state.SkipWithError("the hook saw another number of keys than it should");
}
BENCHMARK(keyEvent)->ArgName("hook")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// The Window menu from its rebuilding to its picture.
void windowMenu(benchmark::State &state)
{
    MainFixture fixture;
    open(fixture, static_cast<int>(state.range(0)));
    controls::PopupMenu &menu = *fixture.main().m_cMenu;
    QMenu &window = *menu.action(menu.IndexForKey(u"mnuWindow"_s))->menu();
    for ([[maybe_unused]] auto iteration : state) {
        window.popup({100, 100});
        QCoreApplication::processEvents();
        state.PauseTiming();
        if (window.actions().last()->text() != u"&More Windows..."_s)
            state.SkipWithError("not the menu of many documents");
        window.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(windowMenu)->ArgName("documents")->Arg(200)->Iterations(100)->Unit(benchmark::kMillisecond);

/// One press of Ctrl+Tab to the next document and everything that it leaves to the event loop.
void stepThroughTabs(benchmark::State &state)
{
    MainFixture fixture;
    const int documents = static_cast<int>(state.range(0));
    open(fixture, documents);
    frmMain &main = fixture.main();
    int position = documents;
    for ([[maybe_unused]] auto iteration : state) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::ControlModifier);
        QCoreApplication::sendEvent(main.windowHandle(), &press);
        QCoreApplication::processEvents();
        position = position % documents + 1;
        if (!main.ActiveForm() || main.ActiveForm()->position() != position) {
            state.SkipWithError("a press was dropped");
            break;
        }
    }
}
BENCHMARK(stepThroughTabs)->ArgName("documents")->Arg(50)->Iterations(50)->Unit(benchmark::kMillisecond);

void fillAddresses(controls::ComboBox &bar, int count)
{
    for (int n = 0; n < count; ++n)
        bar.InsertItem(0, u"http://www.site%1.example/a/rather/long/path/to/a/page.html"_s.arg(n));
}

/// The drop-down list of the address bar, opened and painted.
void addressListOpens(benchmark::State &state)
{
    MainFixture fixture;
    open(fixture, 1);
    controls::ComboBox &bar = *fixture.main().AddressBar;
    fillAddresses(bar, static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto iteration : state) {
        bar.showPopup();
        QCoreApplication::processEvents();
        state.PauseTiming();
        bar.hidePopup();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(addressListOpens)->ArgName("entries")->Arg(50)->Arg(10000)->Iterations(50)->Unit(benchmark::kMillisecond);

/// What a rest in typing looks up, for a word that no entry has.
void addressCompletion(benchmark::State &state)
{
    MainFixture fixture;
    open(fixture, 1);
    controls::ComboBox &bar = *fixture.main().AddressBar;
    fillAddresses(bar, static_cast<int>(state.range(0)));
    const AddressCompletion completion(bar, nullptr, nullptr);
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(completion.suggestions(u"elsewhere"_s));
}
BENCHMARK(addressCompletion)->ArgName("entries")->Arg(50)->Arg(10000)->Unit(benchmark::kMillisecond);

/// The whole close, in which the list is stored.
void windowCloses(benchmark::State &state)
{
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        MainFixture fixture;
        open(fixture, 1);
        fillAddresses(*fixture.main().AddressBar, static_cast<int>(state.range(0)));
        state.ResumeTiming();
        fixture.close();
        state.PauseTiming();
        if (fixture.get(u"Settings", u"HistoryCount").toInt() < 50)
            state.SkipWithError("the list was not stored");
        fixture.code.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(windowCloses)->ArgName("entries")->Arg(50)->Arg(10000)->Iterations(10)->Unit(benchmark::kMillisecond);

} // namespace
