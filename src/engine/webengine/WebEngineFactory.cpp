#include "engine/webengine/WebEngineFactory.h"

#include "engine/webengine/OwnSite.h"
#include "engine/webengine/PageChannel.h"
#include "engine/webengine/WebEngine.h"

#include <QCoreApplication>
#include <QWebEngineUrlScheme>

namespace engine {

void registerSchemes()
{
    // The engine paints through the application's graphics context, which has to be shared from the beginning.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);

    QWebEngineUrlScheme site(OwnSite::kScheme);
    site.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    site.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::ViewSourceAllowed);
    QWebEngineUrlScheme::registerScheme(site);

    // Pages of every kind reach the channel, also those whose content policy forbids every connection.
    QWebEngineUrlScheme channel(PageChannel::kScheme);
    channel.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    channel.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled |
                     QWebEngineUrlScheme::ContentSecurityPolicyIgnored);
    QWebEngineUrlScheme::registerScheme(channel);
}

std::unique_ptr<Engine> makeWebEngine(const EngineConfig &config)
{
    return std::make_unique<WebEngine>(config);
}

} // namespace engine
