#include "engine/webengine/WebEngine.h"

#include "engine/webengine/WebBrowserControl.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>
#include <QWebEngineSettings>

using namespace Qt::StringLiterals;

namespace engine {

namespace {
/// How long the end of the program waits for what pages still owe. They answer within a few milliseconds.
constexpr int kLastAnswersMs = 2000;
} // namespace

WebEngine::WebEngine(const EngineConfig &config)
    : m_config(config)
    , m_visits(config.visitFile)
    , m_pageMemory(QFileInfo(config.visitFile).dir().filePath(u"page-setup"_s))
    , m_settings({config.profileFolder.isEmpty() ? QString() : config.profileFolder + "/engine.ini"_L1,
                  config.downloadFolder, m_visits,
                  [this](const QString &folder) {
                      if (m_downloads)
                          m_downloads->setFolder(folder);
                  },
                  [this] { return m_downloads && m_downloads->isBusy(); }, [this] { loadPagesAgain(); }})
    , m_site(*this)
{}

WebEngine::~WebEngine()
{
    // Pages have to go before their profile. What a form should have deleted by now loses its page here.
    for (const auto &browser : m_browsers) {
        if (browser)
            browser->shutDown();
    }
    if (!m_pagesLeft.empty()) {
        QEventLoop loop;
        connect(this, &WebEngine::pagesGone, &loop, &QEventLoop::quit);
        QTimer::singleShot(kLastAnswersMs, &loop, &QEventLoop::quit);
        loop.exec();
        m_pagesLeft.clear();
    }
    // Running downloads report to what is about to go.
    m_downloads.reset();
    m_settings.detach();
    m_profile.reset();
    m_settings.finishFolders();
}

void WebEngine::warmUp()
{
    profile();
}

QWebEngineProfile &WebEngine::profile()
{
    if (m_profile)
        return *m_profile;
    m_folder = ProfileFolder::take(m_config.profileFolder);
    const QString cache = m_folder && m_folder->number() > 1
                              ? u"%1-%2"_s.arg(m_config.cacheFolder).arg(m_folder->number())
                              : m_config.cacheFolder;
    m_settings.prepareFolders(m_folder ? m_folder->path() : QString(), cache);
    if (m_folder) {
        makePrivateFolder(cache);
        m_profile = std::make_unique<QWebEngineProfile>(u"Corvane"_s);
        m_profile->setPersistentStoragePath(m_folder->path());
        m_profile->setCachePath(cache);
    } else {
        // No folder to write to: everything works and nothing is kept.
        m_profile = std::make_unique<QWebEngineProfile>();
    }
    m_settings.attach(*m_profile);
    m_profile->installUrlSchemeHandler(OwnSite::kScheme, &m_site);
    m_profile->installUrlSchemeHandler(PageChannel::kScheme, &m_channel);

    QWebEngineSettings *settings = m_profile->settings();
    settings->setAttribute(QWebEngineSettings::PluginsEnabled, true);
    settings->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, true);
    settings->setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);

    m_downloads =
        std::make_unique<Downloads>(m_settings.downloadFolder(), [this](QWebEnginePage *page, const QString &text) {
            for (const auto &browser : m_browsers) {
                if (page && browser && browser->isShowing(page))
                    browser->tellStatus(text);
            }
        });
    connect(m_profile.get(), &QWebEngineProfile::downloadRequested, this, &WebEngine::startDownload);
    return *m_profile;
}

/// A page that is being saved is a download too, and its document's own affair.
void WebEngine::startDownload(QWebEngineDownloadRequest *download)
{
    for (const auto &browser : m_browsers) {
        if (browser && browser->takesDownload(*download))
            return;
    }
    // One that nobody accepts ends by itself.
    const bool isNew = !m_downloads->isRunning(download->id());
    for (const auto &browser : m_browsers) {
        if (isNew && browser && browser->isShowing(download->page()) && !browser->allowsDownload(*download))
            return;
    }
    m_downloads->start(download);
}

WebBrowser *WebEngine::createBrowser(QWidget *parent)
{
    std::erase_if(m_browsers, [](const auto &browser) { return !browser; });
    auto *browser = new WebBrowserControl(*this, parent);
    m_browsers.push_back(browser);
    connect(browser, &WebBrowser::optionsRequested, this,
            [this, browser] { m_settings.showDialog(browser->window()); });
    return browser;
}

void WebEngine::keepUntilPaid(std::shared_ptr<Page> page, PrintDebt &debt)
{
    debt.onPaid = [engine = QPointer<WebEngine>(this), page = page.get()] {
        if (!engine)
            return;
        // Never from inside a call of the page itself.
        QTimer::singleShot(0, engine, [engine, page] {
            std::erase_if(engine->m_pagesLeft, [page](const auto &one) { return one.get() == page; });
            if (engine->m_pagesLeft.empty())
                emit engine->pagesGone();
        });
    };
    m_pagesLeft.push_back(std::move(page));
}

void WebEngine::loadPagesAgain()
{
    for (const auto &browser : m_browsers) {
        if (browser)
            browser->loadAgain();
    }
}

QString WebEngine::keyOf(const QUrl &url, const QString &realm)
{
    return url.toString(QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment | QUrl::RemoveUserInfo |
                        QUrl::StripTrailingSlash) +
           u'\n' + realm;
}

} // namespace engine
