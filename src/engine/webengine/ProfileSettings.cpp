#include "engine/webengine/ProfileSettings.h"

#include "engine/VisitLog.h"
#include "engine/webengine/UnwrittenCookies.h"

#include <QDir>
#include <QNetworkProxy>
#include <QWebEngineCookieStore>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

constexpr SiteData::Kinds kOfSites = SiteData::Kind::Cookies | SiteData::Kind::Storage;

constexpr int kMegabyte = 1024 * 1024;
/// Bytes of a cache that has no room for anything.
constexpr int kNoRoom = 1;
/// What the engine allows a cache in memory at most, if it decides.
constexpr int kLargeInMemory = 50 * kMegabyte;

/// Asks every site not to track the user.
class TrackingRefusal : public QWebEngineUrlRequestInterceptor
{
public:
    void interceptRequest(QWebEngineUrlRequestInfo &info) override
    {
        info.setHttpHeader("DNT", "1");
        info.setHttpHeader("Sec-GPC", "1");
    }
};

} // namespace

ProfileSettings::ProfileSettings(Surroundings surroundings)
    : m_surroundings(std::move(surroundings))
{
    // The engine writes cookies every half minute.
    m_settling.setInterval(60'000);
    m_settling.setSingleShot(true);
    m_settling.callOnTimeout(&m_settling, [this] { settle(); });
}

ProfileSettings::~ProfileSettings()
{
    delete m_dialog;
}

void ProfileSettings::prepareFolders(const QString &profileFolder, const QString &cacheFolder)
{
    if (!std::exchange(m_isLoaded, true))
        m_settings = EngineSettings::load(m_surroundings.file);
    applyProxy();
    if (profileFolder.isEmpty())
        return;
    m_siteData.emplace(profileFolder, cacheFolder);
    if (m_settings.cache == EngineSettings::Cache::None)
        m_siteData->remove(SiteData::Kind::TemporaryFiles);
    if (m_settings.forgetAtExit)
        m_siteData->remove(kOfSites);
    m_siteData->finishPending();
}

void ProfileSettings::attach(QWebEngineProfile &profile)
{
    m_profile = &profile;
    m_ownAgent = profile.httpUserAgent();
    // First, as it makes the network part start anew, and no page must wait for anything then.
    setCache();
    m_unwrittenCookies = std::make_unique<UnwrittenCookies>(*profile.cookieStore());
    applyCookies();
    applyRequests();
}

void ProfileSettings::detach()
{
    delete m_dialog;
    m_settling.stop();
    m_probe.reset();
    m_unwrittenCookies.reset();
    if (m_profile)
        m_profile->setUrlRequestInterceptor(nullptr);
    m_profile = nullptr;
}

void ProfileSettings::finishFolders()
{
    if (!m_siteData)
        return;
    if (m_settings.forgetAtExit)
        m_siteData->remove(kOfSites);
    settle();
}

/// The engine has written that cookies are gone, and those that come later are to stay, whatever ends the program. It
/// has also let go of its old cache.
void ProfileSettings::settle() const
{
    if (!m_siteData)
        return;
    SiteData::Kinds done = m_siteData->pending() & ~SiteData::Kinds(SiteData::Kind::Storage);
    // Downloads may have kept the old cache in use.
    if (m_profile && m_profile->httpCacheType() == QWebEngineProfile::DiskHttpCache)
        done.setFlag(SiteData::Kind::TemporaryFiles, false);
    if (done == SiteData::Kinds())
        return;
    m_siteData->remove(done & SiteData::Kind::TemporaryFiles);
    m_siteData->dropPending(done);
}

QString ProfileSettings::downloadFolder() const
{
    return m_settings.downloadFolder.isEmpty() ? m_surroundings.systemDownloadFolder : m_settings.downloadFolder;
}

void ProfileSettings::showDialog(QWidget *window)
{
    if (m_dialog) {
        m_dialog->raise();
        m_dialog->activateWindow();
        return;
    }
    m_dialog = new InternetOptions(*this, window);
    m_dialog->open();
}

bool ProfileSettings::apply(const EngineSettings &settings)
{
    const EngineSettings old = std::exchange(m_settings, settings);
    // These cost the engine something, so only what is new is set. The cache has to wait for the next start: no page
    // that is open could load anything more.
    if (std::tie(old.proxy, old.proxyType, old.proxyHost, old.proxyPort) !=
        std::tie(settings.proxy, settings.proxyType, settings.proxyHost, settings.proxyPort)) {
        applyProxy();
        followProxy();
    }
    if (old.cookies != settings.cookies)
        applyCookies();
    applyRequests();
    m_surroundings.setDownloadFolder(downloadFolder());
    return settings.store(m_surroundings.file);
}

/// For the engine and for everything else that connects to a server.
void ProfileSettings::applyProxy() const
{
    if (m_settings.proxy == EngineSettings::Proxy::System) {
        QNetworkProxy::setApplicationProxy(QNetworkProxy());
        QNetworkProxyFactory::setUseSystemConfiguration(true);
        return;
    }
    QNetworkProxy proxy(QNetworkProxy::NoProxy);
    if (m_settings.proxy == EngineSettings::Proxy::Manual) {
        QString host = m_settings.proxyHost;
        host.remove(u'[').remove(u']');
        // Without the user's name: the engine would send it with an empty password and not ask.
        proxy = QNetworkProxy(m_settings.proxyType == EngineSettings::ProxyType::Socks5 ? QNetworkProxy::Socks5Proxy
                                                                                        : QNetworkProxy::HttpProxy,
                              host, m_settings.proxyPort);
    }
    QNetworkProxy::setApplicationProxy(proxy);
}

/// The engine looks for another proxy server when it makes a request, and uses it from the next request on. So a page
/// of nobody asks for a port that the engine itself refuses, without connecting to anything.
void ProfileSettings::followProxy()
{
    m_probe = std::make_unique<QWebEnginePage>(m_profile);
    m_probe->settings()->setAttribute(QWebEngineSettings::ErrorPageEnabled, false);
    // Not from inside a call of the page itself.
    QObject::connect(m_probe.get(), &QWebEnginePage::loadFinished, m_probe.get(),
                     [this] { QTimer::singleShot(0, m_probe.get(), [this] { m_probe.reset(); }); });
    m_probe->load(QUrl(u"http://127.0.0.1:1/"_s));
}

/// The engine's own way to have no cache empties the old one first. Once that is done, after an untold time, everything
/// that loads by then is cut off and never ends. So a cache without room stands for none.
void ProfileSettings::setCache()
{
    switch (m_settings.cache) {
    case EngineSettings::Cache::None:
        m_profile->setHttpCacheMaximumSize(kNoRoom);
        m_profile->setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
        return;
    case EngineSettings::Cache::Limited:
        m_profile->setHttpCacheMaximumSize(m_settings.cacheMegabytes * kMegabyte);
        return;
    case EngineSettings::Cache::Automatic:
        return;
    }
}

void ProfileSettings::applyCookies()
{
    using Cookies = EngineSettings::Cookies;
    QWebEngineCookieStore *store = m_profile->cookieStore();
    switch (m_settings.cookies) {
    case Cookies::All:
        store->setCookieFilter(nullptr);
        return;
    case Cookies::NoThirdParties:
        store->setCookieFilter([](const QWebEngineCookieStore::FilterRequest &request) { return !request.thirdParty; });
        return;
    case Cookies::None:
        store->setCookieFilter([](const QWebEngineCookieStore::FilterRequest &) { return false; });
        return;
    }
}

/// What every request carries.
void ProfileSettings::applyRequests()
{
    const QString languages =
        acceptedLanguages(m_settings.languages.isEmpty() ? systemLanguages() : m_settings.languages);
    if (m_profile->httpAcceptLanguage() != languages)
        m_profile->setHttpAcceptLanguage(languages);

    using Agent = EngineSettings::Agent;
    const QString agent = m_settings.agent == Agent::Old      ? QString(EngineSettings::kOldAgent)
                          : m_settings.agent == Agent::Custom ? m_settings.customAgent
                                                              : m_ownAgent;
    if (m_profile->httpUserAgent() != agent)
        m_profile->setHttpUserAgent(agent);

    if (m_settings.doNotTrack == (m_marker != nullptr))
        return;
    auto marker = m_settings.doNotTrack ? std::make_unique<TrackingRefusal>() : nullptr;
    m_profile->setUrlRequestInterceptor(marker.get());
    m_marker = std::move(marker);
}

/// Clearing a cache that is in use cuts all pages off, at a moment that the engine does not tell. So the profile gets
/// another cache at once, in memory and until the program ends, which cuts them off here and now. The old one is
/// removed when nothing uses it any more. Whether pages have been cut off.
bool ProfileSettings::emptyCache()
{
    if (m_siteData)
        m_siteData->addPending(SiteData::Kind::TemporaryFiles);
    m_settling.start();
    // The engine takes a download that is cut off for a whole one: then the cache goes when the program ends.
    if (m_surroundings.isDownloading())
        return false;
    // Without a folder the engine keeps to its first cache, which goes with the program.
    const int size = m_profile->httpCacheMaximumSize();
    if (m_profile->isOffTheRecord() || size == kNoRoom)
        return false;
    if (m_profile->httpCacheType() == QWebEngineProfile::DiskHttpCache)
        m_profile->setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
    else // One of another size is another one, if only by a byte.
        m_profile->setHttpCacheMaximumSize(size > 0 ? size - 1 : kLargeInMemory);
    return true;
}

void ProfileSettings::forgetCookies()
{
    m_unwrittenCookies->forget();
    if (m_siteData)
        m_siteData->addPending(kOfSites);
    m_settling.start();
    m_profile->cookieStore()->deleteAllCookies();
}

void ProfileSettings::clear(Traces traces)
{
    if (traces.testFlag(Trace::Cookies))
        forgetCookies();
    if (traces.testFlag(Trace::TemporaryFiles) && emptyCache()) {
        // What is new in the network part has read the cookies before it was written that they are gone.
        if (traces.testFlag(Trace::Cookies))
            forgetCookies();
        m_unwrittenCookies->restore();
        m_surroundings.loadPagesAgain();
    }
    if (traces.testFlag(Trace::History)) {
        m_profile->clearAllVisitedLinks();
        m_surroundings.visits.clear();
    }
}

} // namespace engine
