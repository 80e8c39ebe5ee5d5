// What a fill costs on a page of 1,000 inputs in ten frames, beyond what putting the same values in costs by itself: a
// script of the page that knows all values sets them and sends the same events. Both are taken in turn, and told in two
// ways. "Own code" is what our scripts take by their clock and the program's main thread by its processor time, each
// less the same of the page's script. "All" is the processor time of the program's main thread and of those of the page
// processes, so that what the engine does for us (hit tests, messages, compiling) counts as well.
// Then what pages without inputs pay: the load of a page of 100 frames against the same load in an engine page without
// anything of ours, and a fill of it against doing nothing.

#include "core/state/SettingsStore.h"
#include "engine/EngineFixture.h"
#include "engine/PageFacets.h"
#include "engine/webengine/PageChannel.h"
#include "engine/webengine/fill/Script.h"
#include "forms/FieldTable.h"
#include "forms/FormStore.h"
#include "support/Wait.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineView>
#include <algorithm>
#include <ctime>
#include <functional>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRuns = 5, kFrames = 10, kInputs = 100, kEmpty = 100;
/// After so many milliseconds the last look of a fill is over, or a load of many frames.
constexpr int kFillMs = 4000;

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Milliseconds that the main thread of this program has run.
double programTime()
{
    timespec own{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &own);
    return static_cast<double>(own.tv_sec) * 1e3 + static_cast<double>(own.tv_nsec) / 1e6;
}

/// The same of this program and of its page processes together.
double processorTime()
{
    double total = programTime();
    for (const QString &process : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        const QString folder = u"/proc/%1/"_s.arg(process);
        const QByteArray state = read(folder + u"stat"_s);
        const bool isOurs = state.mid(state.lastIndexOf(')') + 2).split(' ').value(2).toInt() == getpgrp();
        if (isOurs && read(folder + u"cmdline"_s).contains("QtWebEngineProcess"))
            total += read(folder + u"schedstat"_s).split(' ').value(0).toDouble() / 1e6;
    }
    return total;
}

/// Every input has something that belongs into it; every tenth one is a list of months.
QByteArray form()
{
    const QByteArrayList names{"billing_first_name", "billing_last_name", "customer[email]",
                               "billing_address_1",  "billing_city",      "postcode",
                               "txtHomePhone",       "card_number",       "shipping_last_name"};
    QByteArray rows;
    for (int i = 0; i < kInputs; ++i) {
        const QByteArray id = "f" + QByteArray::number(i);
        rows += "<tr><td><label for=" + id + ">Enter it here, please</label></td><td>";
        if (i % 10 == 9)
            rows += "<select name=card_exp_month id=" + id + "><option>Month<option>" +
                    QByteArrayList{"01", "02", "03", "04", "05", "06", "07", "08", "09", "10", "11", "12"}.join(
                        "<option>") +
                    "</select>";
        else
            rows += "<input name='" + names[i % 10] + "' id=" + id + " placeholder='something'>";
        rows += "</td></tr>";
    }
    return "<form><table>" + rows + "</table></form>";
}

const QByteArray kBareFill = R"(<script>
    addEventListener('hashchange', () => {
        const start = performance.now();
        let count = 0;
        for (let i = 0; i < frames.length; ++i) {
            for (const input of frames[i].document.querySelectorAll('input,select')) {
                const send = event => input.dispatchEvent(event);
                const key = { key: 'Unidentified', bubbles: true, composed: true, cancelable: true };
                const changed = () => {
                    send(new InputEvent('input', { bubbles: true, composed: true, inputType: 'insertReplacementText' }));
                    send(new Event('change', { bubbles: true }));
                };
                ++count;
                if (input.type === 'select-one') {
                    input.selectedIndex = 3;
                    changed();
                    continue;
                }
                send(new KeyboardEvent('keydown', key));
                input.value = 'a text of its own';
                changed();
                send(new KeyboardEvent('keyup', key));
                send(new FocusEvent('blur', { composed: true }));
                send(new FocusEvent('focusout', { bubbles: true, composed: true }));
            }
        }
        globalThis.spent = performance.now() - start;
        document.title = count + ' fields filled';
    });
</script>)";

/// Takes the time of every step of a fill in the page.
const QString kClock = uR"(
    globalThis.spent = 0;
    for (const name of ['begin', 'step']) {
        const call = corvaneFill[name];
        corvaneFill[name] = (...given) => {
            const start = performance.now();
            const asked = call(...given);
            spent += performance.now() - start;
            return asked;
        };
    })"_s;

QVariant valueOf(QWebEnginePage &page, const QString &script, quint32 world)
{
    std::optional<QVariant> value;
    page.runJavaScript(script, world, [&value](const QVariant &given) { value = given; });
    if (!waitUntil([&value] { return value.has_value(); }))
        qFatal("the page does not answer");
    return *value;
}

/// Lets everything go on for so many milliseconds, without looking in between as waitUntil() does.
void rest(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// The time that something takes, with all that follows from it until the last look of a fill would be over.
double costOf(
    const std::function<void()> &begin, const std::function<bool()> &isDone = [] { return true; })
{
    const double before = processorTime();
    begin();
    rest(kFillMs);
    if (!isDone())
        qFatal("the page did not do what it should");
    return processorTime() - before;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char **argv)
{
    setpgid(0, 0);
    engine::registerSchemes();
    QApplication app(argc, argv);
    QTemporaryDir folder;
    SettingsStore settings(folder.filePath(u"settings.ini"_s));
    FormKeys keys(folder.path());
    const auto record = std::make_shared<FormStore>(keys);
    FormValues values;
    values.firstname = u"Ada"_s;
    values.lastname = u"Lovelace"_s;
    values.mail = u"ada@example.org"_s;
    values.address1 = u"12 Main Street"_s;
    values.City = u"London"_s;
    values.ZipCode = u"12345"_s;
    values.phone = u"+44 20 7946 0000"_s;
    values.CardNumber = u"4111111111111111"_s;
    values.ExpMonth = 3;
    BuildFormFields(values, *record, settings, folder.filePath(u"form.bin"_s));

    TestEngine test;
    LoopbackSite site;
    site.page("/form", "Form", form());
    site.page("/ten", "Ten",
              kBareFill + QByteArray("<iframe src=/form width=500 height=3000></iframe>").repeated(kFrames));
    RecordedBrowser browser(*test.engine, site);
    const QString all = u"%1 fields filled"_s.arg(kFrames * kInputs);
    QWebEnginePage &page = *browser->window()->findChild<QWebEngineView *>()->page();
    std::vector<double> own, bare, ownScripts, bareScripts, ownProgram, bareProgram;
    for (int i = 0; i < 2 * kRuns; ++i) {
        if (!browser.open(site.address(u"/ten"_s)))
            return 1;
        rest(1500);
        browser.statuses.clear();
        browser.events.clear();
        if (i % 2 != 0)
            valueOf(page, engine::fillScript() + kClock, engine::PageChannel::kWorld);
        const double before = programTime();
        if (i % 2 == 0) {
            bare.push_back(costOf([&] { browser->Navigate2(site.address(u"/ten#fill"_s)); },
                                  [&] { return browser.events.contains("title "_L1 + all); }));
            bareProgram.push_back(programTime() - before);
            bareScripts.push_back(valueOf(page, u"spent"_s, QWebEngineScript::MainWorld).toDouble());
        } else {
            own.push_back(costOf([&] { browser->formFacet()->fill(record, false); },
                                 [&] { return browser.statuses.contains(all); }));
            ownProgram.push_back(programTime() - before);
            ownScripts.push_back(valueOf(page, u"spent"_s, engine::PageChannel::kWorld).toDouble());
        }
    }
    qInfo("1,000 inputs, ms, medians of %d", kRuns);
    // What the machine does besides comes and goes, so each fill stands against the bare run just before it.
    const auto report = [](const char *what, const std::vector<double> &fill, const std::vector<double> &plain) {
        std::vector<double> more;
        std::ranges::transform(fill, plain, std::back_inserter(more), std::minus());
        qInfo("%8s: fill %.1f, bare %.1f, own %.1f", what, median(fill), median(plain), median(more));
        return median(more);
    };
    const double scripts = report("scripts", ownScripts, bareScripts);
    const double program = report("program", ownProgram, bareProgram);
    qInfo("own code: %.1f", scripts + program);
    report("all", own, bare);
    if (app.arguments().contains("--fill-only"_L1))
        return 0;

    site.page("/none", "None", "<p>no inputs</p>");
    site.page("/hundred", "Hundred", QByteArray("<iframe src=/none width=50 height=30></iframe>").repeated(kEmpty));
    const QUrl hundred(site.address(u"/hundred"_s));
    QWebEngineProfile profile;
    QWebEngineView view;
    view.setPage(new QWebEnginePage(&profile, &view));
    view.resize(browser->window()->size());
    view.show();
    bool isLoaded = false;
    QObject::connect(&view, &QWebEngineView::loadFinished, [&] { isLoaded = true; });
    std::vector<double> loaded, bareLoaded, filled, idle;
    for (int i = 0; i <= kRuns; ++i) {
        isLoaded = false;
        browser.events.clear();
        const double engineLoad = costOf([&] { view.load(hundred); }, [&] { return isLoaded; });
        const double ourLoad =
            costOf([&] { browser->Navigate2(hundred.toString()); }, [&] { return browser.events.contains(u"end"_s); });
        const double ourFill = costOf([&] { browser->formFacet()->fill(record, false); });
        const double nothing = costOf([] {});
        // The first time the processes of the pages start.
        if (i == 0)
            continue;
        bareLoaded.push_back(engineLoad);
        loaded.push_back(ourLoad);
        filled.push_back(ourFill);
        idle.push_back(nothing);
    }
    const auto each = [](double total) { return total / kEmpty; };
    qInfo("frames without inputs, ms a frame: load %.2f, bare %.2f, own %.2f; fill %.2f, nothing %.2f, own %.2f",
          each(median(loaded)), each(median(bareLoaded)), each(median(loaded) - median(bareLoaded)),
          each(median(filled)), each(median(idle)), each(median(filled) - median(idle)));
    return 0;
}
