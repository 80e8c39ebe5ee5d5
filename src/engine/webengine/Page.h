#pragma once

#include <QWebEnginePage>

namespace engine {

/// The engine's page with the questions that it asks through virtual functions passed on. None of them may be answered
/// by starting an event loop: all pages would stand still.
class Page : public QWebEnginePage
{
    Q_OBJECT
public:
    class Host
    {
    public:
        virtual ~Host() = default;
        /// False refuses the navigation.
        virtual bool navigationRequested(const QUrl &url, QWebEnginePage::NavigationType type, bool isMainFrame) = 0;
        virtual void alertRequested(const QUrl &origin, const QString &message) = 0;
        /// An exception that no script of the page has caught.
        virtual void scriptFailed() = 0;
    };

    Page(QWebEngineProfile &profile, Host &host);
    /// The host goes before the page does: nobody is asked or told any more.
    void leaveHost() { m_host = nullptr; }

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    void javaScriptAlert(const QUrl &securityOrigin, const QString &message) override;
    bool javaScriptConfirm(const QUrl &securityOrigin, const QString &message) override;
    bool javaScriptPrompt(const QUrl &securityOrigin, const QString &message, const QString &defaultValue,
                          QString *result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString &message, int line,
                                  const QString &source) override;

private:
    void refusePermissions();

    Host *m_host;
};

} // namespace engine
