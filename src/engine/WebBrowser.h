#pragma once

#include "engine/BrowserEvents.h"

#include <QPointer>
#include <QUrl>
#include <QVariant>
#include <QWidget>
#include <vector>

namespace engine {

class ContentFacet;
class FindFacet;
class FormFacet;
class InfoFacet;
class PrintFacet;
class SaveFacet;

/// Ambient properties and standard command numbers that the rules use, by their published values.
inline constexpr int DISPID_AMBIENT_DLCONTROL = -5512;
inline constexpr int DISPID_AMBIENT_USERAGENT = -5513;
inline constexpr int DOCHOSTUIFLAG_THEME = 0x40000;
inline constexpr int REFRESH_COMPLETELY = 3;
inline constexpr int OLECMDID_SAVEAS = 4;
inline constexpr int OLECMDID_PRINT = 6;
inline constexpr int OLECMDID_PRINTPREVIEW = 7;
inline constexpr int OLECMDID_PAGESETUP = 8;
inline constexpr int OLECMDID_PROPERTIES = 10;
inline constexpr int OLECMDID_ZOOM = 19;
inline constexpr int OLECMDEXECOPT_DODEFAULT = 0;
inline constexpr int OLECMDEXECOPT_DONTPROMPTUSER = 2;
inline constexpr int IDM_SELECTALL = 31;
inline constexpr int IDM_OPTIONS = 2135;
inline constexpr int IDM_VIEWSOURCE = 2139;

/// One line of the back or forward list.
struct HistoryEntry
{
    QString title;
    QString address;
};

/// The browser host control of a document: a widget that shows one page, and the browser object inside it. The methods
/// and properties throw ControlError where the browser cannot do what is asked (no forward page, unknown command).
class WebBrowser : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    // --- the browser object ---
    /// Loads an address. Text without a scheme is completed; what is still no address ends on the browser's own error
    /// page. Events come later, never from inside this call.
    virtual void Navigate2(const QString &url) = 0;
    /// Reloads; with REFRESH_COMPLETELY past the cache.
    virtual void Refresh2(int level) = 0;
    virtual void Stop() = 0;
    virtual void GoBack() = 0;
    virtual void GoForward() = 0;
    /// Runs a standard command; gives its out value.
    virtual QVariant ExecWB(int cmdid, int cmdexecopt, const QVariant &invar) = 0;
    /// Before the first page has come: the address that was asked for.
    virtual QString LocationURL() const = 0;
    /// Title of the page, its address while it has none.
    virtual QString LocationName() const = 0;
    virtual bool Silent() const = 0;
    /// True: no message of a page reaches the user, script errors stay out of the status text.
    virtual void setSilent(bool silent) = 0;
    virtual bool RegisterAsBrowser() const = 0;
    virtual void setRegisterAsBrowser(bool on) = 0;

    // --- the host control ---
    /// A command of the page's command set (IDM_...).
    virtual void Exec(int command, int option = 0, int value = 0) = 0;
    virtual QVariant ambientProperty(int dispid) const = 0;
    virtual void setAmbientProperty(int dispid, const QVariant &value) = 0;
    int HostFlags() const { return m_hostFlags; }
    void setHostFlags(int flags) { m_hostFlags = flags; }
    WBMessages *MessageSink() const { return m_messageSink; }
    void setMessageSink(WBMessages *sink) { m_messageSink = sink; }
    BrowserEvents *eventSink() const { return m_eventSink; }
    /// Null ends the reports; a browser that is closing reports nothing more.
    void setEventSink(BrowserEvents *sink) { m_eventSink = sink; }
    /// The document's position as decimal text.
    QString Tag() const { return m_tag; }
    void setTag(const QString &tag) { m_tag = tag; }

    // --- what the page helper needs ---
    /// Number of user actions in the page (a mouse press, Enter or Space that the page received) since the last
    /// clearUserClicks().
    virtual int userClicks() const = 0;
    virtual void clearUserClicks() = 0;
    /// Nearest entry first. Client-side entries that the page made without the user are listed too.
    virtual std::vector<HistoryEntry> backEntries() const = 0;
    virtual std::vector<HistoryEntry> forwardEntries() const = 0;

    /// The page alone fills the screen, until the user or the page leaves that state or the document is covered.
    virtual bool FullScreen() const { return false; }
    virtual void setFullScreen(bool) {}

    /// A covered page costs nothing: false stops its rendering and throttles its timers.
    virtual void setExposed(bool exposed) = 0;

    // --- what the commands need of the page (PageFacets.h); null where a browser does not offer it ---
    virtual PrintFacet *printFacet() { return nullptr; }
    virtual SaveFacet *saveFacet() { return nullptr; }
    virtual FindFacet *findFacet() { return nullptr; }
    virtual InfoFacet *infoFacet() { return nullptr; }
    virtual FormFacet *formFacet() { return nullptr; }
    virtual ContentFacet *contentFacet() { return nullptr; }

signals:
    /// IDM_OPTIONS: the user wants the engine's own settings.
    void optionsRequested();

private:
    int m_hostFlags = 0;
    WBMessages *m_messageSink = nullptr;
    BrowserEvents *m_eventSink = nullptr;
    QString m_tag;
};

} // namespace engine
