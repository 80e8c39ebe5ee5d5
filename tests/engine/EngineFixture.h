#pragma once

#include "engine/Engine.h"
#include "engine/VisitLog.h"
#include "engine/WebBrowser.h"
#include "engine/webengine/WebEngineFactory.h"
#include "support/HomeFolder.h"
#include "support/LoopbackSite.h"

#include <QStringList>
#include <QTest>

/// A browser in a window of its own that writes down everything it reports.
class RecordedBrowser : public engine::BrowserEvents, public engine::WBMessages
{
public:
    /// Opens a page of the site at once, when one is named.
    RecordedBrowser(engine::Engine &engine, const LoopbackSite &site, const QString &path = {});

    /// One line an event: "navigate /a", "frame /b", "progress" (any number of them in a row), "end", "title T",
    /// "lock 6", "location /a#b", "window", "closing". The site's own addresses stand without their host.
    QStringList events;
    QStringList statuses;
    std::vector<engine::PageMessage> messages;
    std::function<bool(const QString &url)> refuses;
    /// Gives what takes a window that the page asks for. One that has been shown before brings the engine down now and
    /// then (a pure virtual call of its compositor), so it is best made here, as the program does.
    std::function<engine::WebBrowser *()> takesWindow;

    int count(const QString &event) const { return static_cast<int>(events.count(event)); }
    bool waitForEnd(int times = 1) const;
    /// Loads and waits for the end.
    bool open(const QString &url);
    void click(const QPoint &at = QPoint(20, 20));
    /// The button of a notice or box over the page, by its text without the mnemonic.
    bool press(const QString &caption);

    engine::WebBrowser &operator*() { return *m_browser; }
    engine::WebBrowser *operator->() { return m_browser; }

    void WebBro_BeforeNavigate2(const QString &URL, bool isMainFrame, bool &Cancel) override;
    void WebBro_NewWindow2(engine::WebBrowser *&ppDisp, bool &Cancel) override;
    void WebBro_ProgressChange(int Progress, int ProgressMax) override;
    void WebBro_SetSecureLockIcon(int icon) override { events << QStringLiteral("lock %1").arg(icon); }
    void WebBro_StatusTextChange(const QString &text) override { statuses << text; }
    void WebBro_TitleChange(const QString &sTitle) override { events << QStringLiteral("title ") + sTitle; }
    void WebBro_WindowClosing(bool, bool &) override { events << QStringLiteral("closing"); }
    void WebBro_LocationChange(const QString &URL) override { events << QStringLiteral("location ") + local(URL); }
    void WBMessages_ShowMessage(engine::PageMessage message) override { messages.push_back(std::move(message)); }
    void WBMessages_ShowHelp() override {}

private:
    QString local(const QString &url) const { return url.startsWith(m_host) ? url.mid(m_host.size()) : url; }

    QString m_host;
    QWidget m_window;
    engine::WebBrowser *m_browser;
};

/// One engine for all tests of a program, made anew for none of them.
struct TestEngine
{
    HomeFolder folder;
    std::unique_ptr<engine::Engine> engine;

    TestEngine();
    engine::EngineConfig config() const;
};

/// Ends the page processes of this program as a fault would.
int killRenderers();

/// Runs the tests with the engine's schemes registered; a line that the engine or Qt writes as a warning fails them.
template <typename Tests>
int runEngineTests(int argc, char **argv)
{
    engine::registerSchemes();
    QApplication app(argc, argv);
    Tests tests;
    return QTest::qExec(&tests, argc, argv);
}

#define ENGINE_TEST_MAIN(Tests)                                                                                        \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        return runEngineTests<Tests>(argc, argv);                                                                      \
    }
