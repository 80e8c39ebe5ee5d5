#pragma once

#include "engine/Engine.h"
#include "engine/PageSetup.h"
#include "engine/VisitLog.h"
#include "engine/webengine/ClickWatch.h"
#include "engine/webengine/Downloads.h"
#include "engine/webengine/OwnSite.h"
#include "engine/webengine/PageChannel.h"
#include "engine/webengine/ProfileFolder.h"
#include "engine/webengine/ProfileSettings.h"
#include "engine/webengine/WebEngineFactory.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QWebEngineProfile>

namespace engine {

class Page;
struct PrintDebt;
class WebBrowserControl;

/// What all browsers share: one profile, the channel to the pages, the user's exceptions and passwords of this run.
class WebEngine final : public QObject, public Engine
{
    Q_OBJECT
public:
    explicit WebEngine(const EngineConfig &config);
    ~WebEngine() override;

    void warmUp() override;
    WebBrowser *createBrowser(QWidget *parent) override;
    VisitLog &visits() override { return m_visits; }

    QWebEngineProfile &profile();
    PageChannel &channel() { return m_channel; }
    PageMemory &pageMemory() { return m_pageMemory; }
    ProfileSettings &settings() { return m_settings; }

    /// Keeps the page of a document that goes, until the engine has answered what it owes.
    void keepUntilPaid(std::shared_ptr<Page> page, PrintDebt &debt);

    /// Hosts whose certificate the user has accepted in spite of its faults, until the program ends.
    bool isExcepted(const QString &host) const { return m_excepted.contains(host); }
    void except(const QString &host) { m_excepted.insert(host); }

    struct Credentials
    {
        QString user;
        QString password;
    };
    /// What the user has given for a site and the part of it ("realm") that asks; kept in memory only. By keyOf().
    QHash<QString, Credentials> &credentials() { return m_credentials; }
    static QString keyOf(const QUrl &url, const QString &realm);

signals:
    /// No document that has gone has left its page behind.
    void pagesGone();

private:
    void startDownload(QWebEngineDownloadRequest *download);
    void loadPagesAgain();

    EngineConfig m_config;
    VisitLog m_visits;
    PageMemory m_pageMemory;
    ProfileSettings m_settings;
    PageChannel m_channel;
    OwnSite m_site;
    ClickWatch m_clicks;
    std::optional<ProfileFolder> m_folder;
    std::unique_ptr<QWebEngineProfile> m_profile;
    std::unique_ptr<Downloads> m_downloads;
    std::vector<QPointer<WebBrowserControl>> m_browsers;
    std::vector<std::shared_ptr<Page>> m_pagesLeft;
    QSet<QString> m_excepted;
    QHash<QString, Credentials> m_credentials;
};

} // namespace engine
