#include "engine/webengine/WebBrowserControl.h"

#include "base/step.h"
#include "engine/Address.h"
#include "engine/webengine/WebEngine.h"

#include <QApplication>
#include <QDesktopServices>
#include <QScopedValueRollback>
#include <QWebEngineHistory>
#include <QWebEngineView>

using namespace Qt::StringLiterals;

namespace engine {

WebBrowserControl::WebBrowserControl(WebEngine &engine, QWidget *parent)
    : WebBrowser(parent)
    , m_engine(engine)
    , m_page(new Page(engine.profile(), *this))
    , m_view(std::make_unique<QWebEngineView>(m_page.get(), this))
    , m_boxes(*this)
    , m_load([this](int progress, int maximum) {
        const QScopedValueRollback<bool> end(m_reportsEnd, maximum == 0);
        if (eventSink())
            eventSink()->WebBro_ProgressChange(progress, maximum);
    })
{
    // Where the page is not painted yet or hidden, its empty background shows instead of a grey flash.
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    m_page->setBackgroundColor(palette().color(QPalette::Base));
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_view.get());
    m_engine.channel().join(*m_page, *this, PageChannel::WindowClose::Ignored);
    m_content = std::make_unique<ContentEffects>(*m_page, m_engine.channel(), [this](ContentEffects::State state) {
        if (state == ContentEffects::State::Read)
            m_load.read();
        else
            m_load.loaded();
    });
    connectPage();
    makeTools();
    makeFill();
}

WebBrowserControl::~WebBrowserControl()
{
    shutDown();
}

void WebBrowserControl::shutDown()
{
    setEventSink(nullptr);
    setMessageSink(nullptr);
    m_boxes.setLeaving(true);
    delete m_fullScreen; // which cannot give the view back to a browser that is going
    m_engine.channel().leave(*this);
    if (m_tools && m_tools->printDebt().isOpen)
        m_engine.keepUntilPaid(m_page, m_tools->printDebt());
    m_tools.reset();
    m_fill.reset();
    m_content.reset();
    m_view.reset();
    if (m_page) {
        m_page->leaveHost();
        m_page->disconnect(this);
    }
    m_page.reset();
}

void WebBrowserControl::resizeEvent(QResizeEvent *event)
{
    WebBrowser::resizeEvent(event);
    layOut();
}

void WebBrowserControl::Navigate2(const QString &url)
{
    const Address address = completeAddress(url);
    if (address.kind == Address::Kind::Elsewhere) {
        // Starting a program may take a while, and nobody expects that of this call.
        QTimer::singleShot(0, this, [address] { QDesktopServices::openUrl(address.url); });
        return;
    }
    const QUrl target = address.kind == Address::Kind::Words ? addressOfWordsPage(url.trimmed()) : address.url;
    m_requested = shownAddress(target);
    m_commandGiven = false;
    leavePage();
    if (!hasNoRequest(target)) {
        m_page->load(target);
        return;
    }
    QTimer::singleShot(0, this, [this, target] {
        const bool isJump = target.hasFragment();
        m_reportedAhead = target;
        if (!reportNavigation(target, true)) {
            m_reportedAhead.clear();
            m_load.finished();
            return;
        }
        if (!isJump)
            m_content->begin();
        m_page->load(target);
        if (isJump)
            m_load.jumped();
    });
}

void WebBrowserControl::Refresh2(int level)
{
    if (!m_hasPage) {
        if (!m_requested.isEmpty())
            Navigate2(m_requested);
        return;
    }
    leavePage();
    m_page->triggerAction(level == REFRESH_COMPLETELY ? QWebEnginePage::ReloadAndBypassCache : QWebEnginePage::Reload);
}

void WebBrowserControl::Stop()
{
    m_boxes.withdraw();
    m_stopAsked = true;
    m_page->triggerAction(QWebEnginePage::Stop);
    m_load.settle();
}

void WebBrowserControl::GoBack()
{
    if (!m_page->history()->canGoBack())
        throw ControlError("no page to go back to");
    leavePage();
    // The page's own action would skip what a page added without the user, and the lists show that.
    m_page->history()->back();
}

void WebBrowserControl::GoForward()
{
    if (!m_page->history()->canGoForward())
        throw ControlError("no page to go forward to");
    leavePage();
    m_page->history()->forward();
}

void WebBrowserControl::loadAgain()
{
    if (!m_load.isLoading() && !LocationURL().startsWith("http"_L1))
        return;
    if (m_content->sendsForm()) {
        // Only the user may send a form once more.
        if (m_load.isLoading())
            Stop();
    } else if (m_isAwaited) {
        leavePage();
        m_page->load(m_mainRequest);
    } else {
        Refresh2(0);
    }
}

/// The user turns away from the page: nothing of it may hold up what comes next.
void WebBrowserControl::leavePage()
{
    m_stopAsked = false;
    m_boxes.setLeaving(true);
    m_windowRequests.reset();
    setWindowsAllowed(true);
}

QString WebBrowserControl::LocationURL() const
{
    if (!m_page || !m_hasPage || m_page->url().isEmpty())
        return m_requested;
    return shownAddress(m_page->url());
}

QString WebBrowserControl::LocationName() const
{
    if (!m_page || !m_hasPage || isStandIn(m_page->title()))
        return LocationURL();
    return m_page->title();
}

/// The entries from the present one in steps of -1 (back) or 1 (forward).
std::vector<HistoryEntry> WebBrowserControl::entries(int step) const
{
    std::vector<HistoryEntry> found;
    const QWebEngineHistory *history = m_page->history();
    for (int at = history->currentItemIndex() + step; at >= 0 && at < history->count(); at += step) {
        const QWebEngineHistoryItem item = history->itemAt(at);
        const QString address = shownAddress(item.url());
        found.push_back({item.title().isEmpty() ? address : item.title(), address});
    }
    return found;
}

std::vector<HistoryEntry> WebBrowserControl::backEntries() const
{
    return entries(-1);
}

std::vector<HistoryEntry> WebBrowserControl::forwardEntries() const
{
    return entries(1);
}

void WebBrowserControl::setExposed(bool exposed)
{
    if (!exposed)
        setFullScreen(false);
    if (m_view->isVisibleTo(this) == exposed)
        return;
    // Hiding takes the focus away from the view, which is to have it back when the document comes to the front again.
    const bool wantedFocus = m_wantsFocus;
    m_view->setVisible(exposed);
    m_wantsFocus = wantedFocus;
    if (!exposed || !wantedFocus)
        return;
    QWidget *focused = QApplication::focusWidget();
    if (!focused || focused == this || isAncestorOf(focused))
        m_view->setFocus();
}

void WebBrowserControl::setAmbientProperty(int dispid, const QVariant &value)
{
    m_ambient.insert(dispid, value);
    if (dispid == DISPID_AMBIENT_DLCONTROL && m_content)
        m_content->setControl(value.toInt());
}

void WebBrowserControl::noteUserAct()
{
    ++m_userClicks;
    m_commandGiven = false;
    m_windowRequests.reset();
    setWindowsAllowed(true);
    m_downloads.acted(now());
}

bool WebBrowserControl::isShowing(const QWebEnginePage *page) const
{
    return m_page.get() == page;
}

void WebBrowserControl::tellStatus(const QString &text)
{
    if (eventSink())
        eventSink()->WebBro_StatusTextChange(text);
}

} // namespace engine
