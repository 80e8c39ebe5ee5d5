#pragma once

#include "engine/EngineSettings.h"
#include "engine/InternetOptions.h"
#include "engine/webengine/SiteData.h"

#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

class QWebEnginePage;
class QWebEngineProfile;
class QWebEngineUrlRequestInterceptor;

namespace engine {

class UnwrittenCookies;
class VisitLog;

/// The user's settings of the engine: reads them, makes them hold for the one profile and the connections of the whole
/// program, shows the dialog and clears what was left behind.
class ProfileSettings final : private OptionsHost
{
public:
    struct Surroundings
    {
        /// Keeps the settings.
        QString file;
        QString systemDownloadFolder;
        VisitLog &visits;
        /// Told where downloads go from now on.
        std::function<void(const QString &folder)> setDownloadFolder;
        std::function<bool()> isDownloading;
        /// Told when nothing that a page waits for will come any more.
        std::function<void()> loadPagesAgain;
    };
    explicit ProfileSettings(Surroundings surroundings);
    ~ProfileSettings() override;

    /// Reads the settings, once. What they decide about a folder is done before an engine opens it: call this first.
    /// The proxy server has to be known by then too. An empty name stands for a profile that keeps nothing.
    void prepareFolders(const QString &profileFolder, const QString &cacheFolder);
    /// From here on the settings hold for `profile`.
    void attach(QWebEngineProfile &profile);
    /// Call it before the profile goes and, once it has gone, `finishFolders`.
    void detach();
    void finishFolders();

    /// Where downloads go.
    QString downloadFolder() const;
    /// The name that a proxy server knows the user by; may be empty.
    const QString &proxyUser() const { return m_settings.proxyUser; }

    /// Opens the dialog over `window`, or brings the one that is open to the front.
    void showDialog(QWidget *window);
    void clear(Traces traces) override;

private:
    const EngineSettings &settings() const override { return m_settings; }
    bool apply(const EngineSettings &settings) override;
    QString ownAgent() const override { return m_ownAgent; }
    QString systemDownloadFolder() const override { return m_surroundings.systemDownloadFolder; }

    void applyProxy() const;
    void followProxy();
    void setCache();
    bool emptyCache();
    void forgetCookies();
    void applyCookies();
    void applyRequests();
    void settle() const;

    Surroundings m_surroundings;
    EngineSettings m_settings;
    bool m_isLoaded = false;
    /// Nothing for a profile that keeps nothing.
    std::optional<SiteData> m_siteData;
    QString m_ownAgent;
    QWebEngineProfile *m_profile = nullptr;
    std::unique_ptr<QWebEngineUrlRequestInterceptor> m_marker;
    std::unique_ptr<UnwrittenCookies> m_unwrittenCookies;
    /// Makes a request that comes to nothing.
    std::unique_ptr<QWebEnginePage> m_probe;
    /// Runs until the engine has done all that it has to do after clearing.
    QTimer m_settling;
    QPointer<InternetOptions> m_dialog;
};

} // namespace engine
