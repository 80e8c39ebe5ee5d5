#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>

namespace engine {

class WebBrowser;

/// What a browser reports to the form that owns it. All calls come on the UI thread, some of them from inside a call
/// into the page engine: nothing here may start an event loop.
class BrowserEvents
{
public:
    virtual ~BrowserEvents() = default;

    /// A navigation of the page or of one of its frames is about to begin. Setting `Cancel` refuses it.
    virtual void WebBro_BeforeNavigate2(const QString &URL, bool isMainFrame, bool &Cancel) = 0;
    /// The page asks for a window. The handler either sets `Cancel` or puts a browser into `ppDisp` that takes the
    /// window (its opener relation is kept); it must decide before it returns.
    virtual void WebBro_NewWindow2(WebBrowser *&ppDisp, bool &Cancel) = 0;
    /// Load progress. `Progress` is -1 or 0 to `ProgressMax`; `ProgressMax` 0 ends the load.
    virtual void WebBro_ProgressChange(int Progress, int ProgressMax) = 0;
    /// 0 for an insecure page, 6 (secureLockIconSecure128Bit) for an https page without a certificate error.
    virtual void WebBro_SetSecureLockIcon(int SecureLockIcon) = 0;
    virtual void WebBro_StatusTextChange(const QString &text) = 0;
    virtual void WebBro_TitleChange(const QString &sTitle) = 0;
    /// The page closes its window. Only windows that a script opened report it.
    virtual void WebBro_WindowClosing(bool IsChildWindow, bool &Cancel) = 0;
    /// The address changed without a load (a jump inside the page, pushState). Not for loads.
    virtual void WebBro_LocationChange(const QString &URL) = 0;
};

/// Buttons of a message box, with the numbers of the style word.
enum class MessageButtons {
    Ok = 0,
    OkCancel = 1,
};

/// A message box that a page asks for.
struct PageMessage
{
    /// Plain text.
    QString Prompt;
    MessageButtons buttons = MessageButtons::Ok;
    QString title;
    QString HelpFile;
    int Context = 0;
    /// Origin of the frame that asks, such as "http://127.0.0.1:8080"; empty when it has none.
    QString origin;
    /// A prompt: the box has an input line that starts with `defaultText`.
    bool wantsText = false;
    QString defaultText;
    /// Goes when the page no longer waits for the answer (it was left, closed or ended): the box is to close then.
    QPointer<QObject> asker;
    /// Called exactly once: whether the user accepted, and the text of the input line.
    std::function<void(bool accepted, const QString &text)> reply;
};

/// The callback through which the control hands over the message boxes and help requests of a page.
class WBMessages
{
public:
    virtual ~WBMessages() = default;
    /// Shows the message without a modal loop and answers through `message.reply`, at once or later.
    virtual void WBMessages_ShowMessage(PageMessage message) = 0;
    virtual void WBMessages_ShowHelp() = 0;
};

} // namespace engine
