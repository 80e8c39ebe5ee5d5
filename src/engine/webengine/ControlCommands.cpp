#include "base/step.h"
#include "engine/webengine/WebBrowserControl.h"

#include <QWebEngineSettings>
#include <array>

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

} // namespace engine
