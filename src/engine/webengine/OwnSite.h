#pragma once

#include <QWebEngineUrlSchemeHandler>

namespace engine {

class Engine;

/// The program's own site under "corvane:": corvane://www/... comes from the resources, corvane://words/ is the page
/// that says that something is no address. Everything else is not there.
class OwnSite : public QWebEngineUrlSchemeHandler
{
    Q_OBJECT
public:
    static constexpr char kScheme[] = "corvane";

    explicit OwnSite(const Engine &engine);
    void requestStarted(QWebEngineUrlRequestJob *job) override;

    /// Path of the resource that answers `path`, or empty. A folder gives its index.html; letters in the wrong case are
    /// forgiven when nothing has the exact name.
    static QString resourceFor(const QString &path);

private:
    QByteArray wordsPage(const QString &words) const;
    const Engine &m_engine;
};

} // namespace engine
