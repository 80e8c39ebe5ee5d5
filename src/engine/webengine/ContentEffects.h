#pragma once

#include "engine/ContentControl.h"
#include "engine/PageFacets.h"

#include <QPointer>
#include <QWebEngineUrlRequestInterceptor>
#include <functional>
#include <vector>

class QWebEnginePage;
class QWebEngineUrlRequestJob;

namespace engine {

class PageChannel;

/// Makes the download control value of one browser hold for its page and all frames of that, and keeps Flash away. A
/// value holds from the next load of the page itself on, so that one page is never half of each.
class ContentEffects : public QWebEngineUrlRequestInterceptor, public ContentFacet
{
    Q_OBJECT
public:
    /// How far the document of the page itself has come; while it has only been read, parts and frames go on loading.
    enum class State { Read, Loaded };
    ContentEffects(QWebEnginePage &page, PageChannel &channel, std::function<void(State)> tell);
    ~ContentEffects() override;

    /// What holds from the next load on; DLCTL_...
    void setControl(int32_t value) { m_wanted = value; }
    /// A load of the page itself begins, or the page takes over a window. A window that was taken over has lost what
    /// was set for its requests, so this has to come after that.
    void begin();
    /// Refuses the request or lets it go on. Called for every request of the page.
    void interceptRequest(QWebEngineUrlRequestInfo &info) override;

    void blockFlash() override;
    int32_t control() const override { return m_holds; }
    bool isMuted() const override;
    /// The last request for the page itself carries what a form sends.
    bool sendsForm() const { return m_sendsForm; }

private:
    void asked(QWebEngineUrlRequestJob *job);
    void apply();

    QWebEnginePage &m_page;
    PageChannel &m_channel;
    std::function<void(State)> m_tell;
    /// Of the scripts that count; one that the page may know, and one that it must not.
    QString m_token;
    QString m_openToken;
    int32_t m_wanted = kAllContent;
    int32_t m_holds = kAllContent;
    bool m_isFlashBlocked = false;
    bool m_sendsForm = false;
    /// Frames with Flash that wait for the end of the load.
    std::vector<QPointer<QWebEngineUrlRequestJob>> m_waiting;
};

} // namespace engine
