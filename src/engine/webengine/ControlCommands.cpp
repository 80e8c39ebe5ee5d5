#include "base/Strings.h"
#include "base/step.h"
#include "engine/webengine/WebBrowserControl.h"
#include "engine/webengine/WebEngine.h"

#include <QKeyEvent>
#include <QWebEngineDownloadRequest>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <array>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// The five text sizes as factors of the engine's own font sizes. Fonts and not the zoom: the layout keeps its width.
constexpr std::array<double, 5> kTextSizes = {0.75, 0.88, 1.0, 1.25, 1.5};
/// The engine's own sizes in pixels.
constexpr int kDefaultFont = 16;
constexpr int kDefaultFixedFont = 13;

} // namespace

QVariant WebBrowserControl::ExecWB(int cmdid, int, const QVariant &invar)
{
    if (cmdid == OLECMDID_ZOOM)
        return textSize(invar);
    if (m_tools && m_tools->run(cmdid))
        return {};
    throw ControlError("unknown command");
}

void WebBrowserControl::Exec(int command, int, int)
{
    switch (command) {
    case IDM_SELECTALL:
        m_page->triggerAction(QWebEnginePage::SelectAll);
        return;
    case IDM_VIEWSOURCE:
        m_page->triggerAction(QWebEnginePage::ViewSource);
        return;
    case IDM_OPTIONS:
        emit optionsRequested();
        return;
    default:
        throw ControlError("unknown command");
    }
}

/// Sets the text size unless `value` is no value; gives the size that holds then.
QVariant WebBrowserControl::textSize(const QVariant &value)
{
    if (!value.isNull()) {
        bool isNumber = false;
        const int size = value.toInt(&isNumber);
        if (!isNumber || size < 0 || size >= static_cast<int>(kTextSizes.size()))
            throw ControlError("no such text size");
        m_textSize = size;
        QWebEngineSettings *settings = m_page->settings();
        settings->setFontSize(QWebEngineSettings::DefaultFontSize, qRound(kDefaultFont * kTextSizes[size]));
        settings->setFontSize(QWebEngineSettings::DefaultFixedFontSize, qRound(kDefaultFixedFont * kTextSizes[size]));
    }
    return m_textSize;
}

// --- the page's tools ---

void WebBrowserControl::makeTools()
{
    m_tools = std::make_unique<PageTools>(
        *this, *m_page, m_engine.pageMemory(), [this](PageInfo &info) { describe(info); },
        [this](const QString &text) { tellStatus(text); });
    connect(m_tools.get(), &PageTools::roomChanged, this, &WebBrowserControl::layOut);
}

void WebBrowserControl::makeFill()
{
    PageFill::Surroundings around;
    around.isExcepted = [this](const QString &host) { return m_engine.isExcepted(host); };
    around.isLoadEnd = [this] { return m_reportsEnd; };
    around.tell = [this](const QString &text) { tellStatus(text); };
    m_fill = std::make_unique<PageFill>(m_engine.channel(), *m_page, std::move(around));
}

void WebBrowserControl::describe(PageInfo &info) const
{
    info.title = LocationName();
    info.address = LocationURL();
    if (info.url.scheme() != "https"_L1 || m_isErrorPage)
        return;
    info.security = m_engine.isExcepted(info.url.host()) ? PageInfo::Security::Excepted : PageInfo::Security::Secure;
}

void WebBrowserControl::setFullScreen(bool on)
{
    if (on == FullScreen() || !m_view)
        return;
    if (on) {
        m_fullScreen = new FullScreenWindow(*this, *m_view, [this](QKeyEvent &event) { keyPressEvent(&event); });
        connect(m_fullScreen, &FullScreenWindow::leaveRequested, this, [this] { setFullScreen(false); });
        return;
    }
    std::exchange(m_fullScreen, nullptr)->giveBack();
    layOut();
    m_view->setFocus();
    // Where the page had asked for it, it learns that it is over.
    m_page->triggerAction(QWebEnginePage::ExitFullScreen);
}

void WebBrowserControl::leaveFullScreen()
{
    // Not from inside a call of the engine.
    if (m_fullScreen)
        QTimer::singleShot(0, this, [this] { setFullScreen(false); });
}

void WebBrowserControl::layOut()
{
    if (m_fullScreen && m_tools && m_tools->hasFindBar())
        leaveFullScreen();
    if (m_view && m_tools && !m_fullScreen)
        m_view->setGeometry(m_tools->layOut(rect()));
}

/// Keys that the page has not used come back to here.
void WebBrowserControl::keyPressEvent(QKeyEvent *event)
{
    if (!m_tools || !m_tools->keyPressed(*event))
        WebBrowser::keyPressEvent(event);
}

bool WebBrowserControl::takesDownload(QWebEngineDownloadRequest &download)
{
    return m_tools && m_tools->takes(download);
}

bool WebBrowserControl::allowsDownload(const QWebEngineDownloadRequest &download)
{
    const int32_t control = m_content ? m_content->control() : kAllContent;
    // Without plug-ins nothing shows a PDF document, and those in frames would all be saved unasked.
    const bool standsIn = (control & DLCTL_NO_RUNACTIVEXCTLS) && download.mimeType() == "application/pdf"_L1;
    if (!(control & DLCTL_NO_DLACTIVEXCTLS) && !standsIn)
        return true;
    if (m_downloads.isGranted(download.url(), now()))
        return true;
    tellStatus(LoadResString(20955).arg(download.downloadFileName()));
    return false;
}

PrintFacet *WebBrowserControl::printFacet()
{
    return m_tools ? &m_tools->print() : nullptr;
}

SaveFacet *WebBrowserControl::saveFacet()
{
    return m_tools ? &m_tools->save() : nullptr;
}

FindFacet *WebBrowserControl::findFacet()
{
    return m_tools.get();
}

InfoFacet *WebBrowserControl::infoFacet()
{
    return m_tools ? &m_tools->info() : nullptr;
}

} // namespace engine
