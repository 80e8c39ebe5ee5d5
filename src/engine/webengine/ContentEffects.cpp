#include "engine/webengine/ContentEffects.h"

#include "engine/webengine/ContentScripts.h"
#include "engine/webengine/PageChannel.h"

#include <QUrlQuery>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestJob>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

PartKind kindOf(QWebEngineUrlRequestInfo::ResourceType type)
{
    switch (type) {
    case QWebEngineUrlRequestInfo::ResourceTypeImage:
    case QWebEngineUrlRequestInfo::ResourceTypeFavicon:
        return PartKind::Image;
    case QWebEngineUrlRequestInfo::ResourceTypeMedia:
        return PartKind::Media;
    case QWebEngineUrlRequestInfo::ResourceTypeObject:
    case QWebEngineUrlRequestInfo::ResourceTypePluginResource:
        return PartKind::Plugin;
    default:
        return PartKind::Other;
    }
}

} // namespace

ContentEffects::ContentEffects(QWebEnginePage &page, PageChannel &channel, std::function<void(State)> tell)
    : m_page(page)
    , m_channel(channel)
    , m_tell(std::move(tell))
{
    apply();
}

ContentEffects::~ContentEffects()
{
    m_channel.endListening(m_token);
    m_channel.endListening(m_openToken);
    m_page.setUrlRequestInterceptor(nullptr);
}

void ContentEffects::begin()
{
    m_page.setUrlRequestInterceptor(this);
    m_isFlashBlocked = false;
    m_waiting.clear();
    if (std::exchange(m_holds, m_wanted) != m_wanted)
        apply();
}

void ContentEffects::apply()
{
    const bool hasVideo = m_holds & DLCTL_VIDEOS;
    const bool hasPlugins = !(m_holds & DLCTL_NO_RUNACTIVEXCTLS);
    const bool hasJava = !(m_holds & DLCTL_NO_JAVA);
    QWebEngineSettings *settings = m_page.settings();
    settings->setAttribute(QWebEngineSettings::AutoLoadImages, m_holds & DLCTL_DLIMAGES);
    settings->setAttribute(QWebEngineSettings::JavascriptEnabled, !(m_holds & DLCTL_NO_SCRIPTS));
    settings->setAttribute(QWebEngineSettings::PluginsEnabled, hasPlugins);
    settings->setAttribute(QWebEngineSettings::PdfViewerEnabled, hasPlugins);
    m_page.setAudioMuted(!(m_holds & DLCTL_BGSOUNDS));

    m_channel.endListening(m_token);
    m_channel.endListening(m_openToken);
    m_token = m_channel.listen([this](QWebEngineUrlRequestJob *job) { asked(job); });
    m_openToken = m_channel.listen([](QWebEngineUrlRequestJob *job) { PageChannel::answer(job, {}); });
    PageChannel::setScript(m_page, u"content"_s, contentScript({m_token, hasVideo, hasPlugins}), PageChannel::kWorld);
    PageChannel::setScript(m_page, u"video"_s, hasVideo ? QString() : videoScript(m_openToken),
                           QWebEngineScript::MainWorld);
    PageChannel::setScript(m_page, u"java"_s, hasJava ? QString() : javaScript(m_openToken),
                           QWebEngineScript::MainWorld);
}

void ContentEffects::interceptRequest(QWebEngineUrlRequestInfo &info)
{
    if (info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame)
        m_sendsForm = info.requestMethod() == "POST";
    if (m_holds != kAllContent && isPartRefused(m_holds, kindOf(info.resourceType()), info.requestUrl()))
        info.block(true);
}

void ContentEffects::asked(QWebEngineUrlRequestJob *job)
{
    const QString about = job->requestUrl().path();
    if (about != "/flash"_L1) {
        PageChannel::answer(job, {});
        if (about == "/counts"_L1)
            return;
        // Word of the page before may come late.
        const QString address = PageChannel::value(QUrlQuery(job->requestUrl()), u"u"_s);
        if (address != m_page.url().toString(QUrl::FullyEncoded).left(address.size()))
            return;
        m_tell(about == "/loaded"_L1 ? State::Loaded : State::Read);
    } else if (m_isFlashBlocked) {
        PageChannel::answer(job, "block");
    } else {
        std::erase_if(m_waiting, [](const auto &waiting) { return !waiting; });
        m_waiting.emplace_back(job);
    }
}

void ContentEffects::blockFlash()
{
    if (std::exchange(m_isFlashBlocked, true))
        return;
    for (const auto &job : std::exchange(m_waiting, {})) {
        if (job)
            PageChannel::answer(job, "block");
    }
    // Local files cannot reach the channel. In a window that a page has written itself the engine would break down.
    if (m_page.url().isLocalFile())
        m_page.runJavaScript(blockFlashScript(), PageChannel::kWorld);
}

bool ContentEffects::isMuted() const
{
    return m_page.isAudioMuted();
}

} // namespace engine
