#include "engine/webengine/OwnSite.h"

#include "base/Strings.h"
#include "engine/Address.h"
#include "engine/Engine.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QWebEngineUrlRequestJob>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// The few kinds that the site has. The system's type data base would cost more at start than the whole page.
QByteArray mimeType(const QString &path)
{
    static const QHash<QString, QByteArray> types = {{u"html"_s, "text/html;charset=utf-8"},
                                                     {u"css"_s, "text/css;charset=utf-8"},
                                                     {u"js"_s, "text/javascript;charset=utf-8"},
                                                     {u"svg"_s, "image/svg+xml"},
                                                     {u"png"_s, "image/png"},
                                                     {u"jpg"_s, "image/jpeg"},
                                                     {u"gif"_s, "image/gif"},
                                                     {u"ico"_s, "image/x-icon"},
                                                     {u"txt"_s, "text/plain;charset=utf-8"},
                                                     {u"woff2"_s, "font/woff2"}};
    return types.value(QFileInfo(path).suffix().toLower(), "application/octet-stream"_ba);
}

void answer(QWebEngineUrlRequestJob *job, const QByteArray &type, const QByteArray &content)
{
    auto *body = new QBuffer(job);
    body->setData(content);
    body->open(QIODevice::ReadOnly);
    job->reply(type, body);
}

QByteArray plainPage(const QString &title, const QString &content)
{
    static const QString frame = uR"(<!doctype html><html><head><meta charset="utf-8">
<meta name="viewport" content="width=device-width"><title>%1</title><style>
body{font:15px/1.5 system-ui,sans-serif;color:#24313f;background:#eef1f4;margin:0}
main{max-width:34em;margin:12vh auto 0;padding:28px 34px;background:#fff;border:1px solid #c9d0d8;border-radius:4px}
h1{font-size:21px;font-weight:600;margin:0 0 12px;overflow-wrap:anywhere}p{margin:0 0 14px}
a.go{display:inline-block;padding:6px 16px;color:#fff;background:#2a5d95;border-radius:3px;text-decoration:none}
a.go:hover,a.go:focus{background:#1f4b7c}</style></head><body><main>%2</main></body></html>)"_s;
    return frame.arg(title.toHtmlEscaped(), content).toUtf8();
}

} // namespace

OwnSite::OwnSite(const Engine &engine)
    : m_engine(engine)
{}

void OwnSite::requestStarted(QWebEngineUrlRequestJob *job)
{
    const QUrl url = job->requestUrl();
    if (job->requestMethod() != "GET") {
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
        return;
    }
    if (isWordsPage(url)) {
        answer(job, mimeType(u"x.html"_s), wordsPage(shownAddress(url)));
        return;
    }
    if (url.host() != "www"_L1) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    const QString resource = resourceFor(url.path());
    QFile file(resource);
    if (!resource.isEmpty() && file.open(QIODevice::ReadOnly)) {
        answer(job, mimeType(resource), file.readAll());
        return;
    }
    answer(job, mimeType(u"x.html"_s),
           plainPage(LoadResString(20120),
                     "<h1>%1</h1><p>%2</p><p><a class=go href=\"/index.html\">%3</a></p>"_L1.arg(
                         LoadResString(20120).toHtmlEscaped(), LoadResString(20121).arg(url.path()).toHtmlEscaped(),
                         LoadResString(20122).toHtmlEscaped())));
}

QString OwnSite::resourceFor(const QString &path)
{
    static const QString root = u":/site"_s;
    QString clean = QDir::cleanPath(u'/' + path);
    if (clean.contains("/../"_L1) || clean.endsWith("/.."_L1))
        return {};
    QString found = root;
    for (const QString &name : clean.split(u'/', Qt::SkipEmptyParts)) {
        const QString exact = found + u'/' + name;
        if (QFileInfo::exists(exact)) {
            found = exact;
            continue;
        }
        const QStringList all = QDir(found).entryList();
        const auto similar = std::find_if(all.begin(), all.end(), [&](const QString &candidate) {
            return candidate.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (similar == all.end())
            return {};
        found += u'/' + *similar;
    }
    if (QFileInfo(found).isDir())
        found += "/index.html"_L1;
    return QFileInfo(found).isFile() ? found : QString();
}

QByteArray OwnSite::wordsPage(const QString &words) const
{
    QString content = "<h1>%1</h1><p>%2</p>"_L1.arg(LoadResString(20113).arg(words).toHtmlEscaped(),
                                                    LoadResString(20114).toHtmlEscaped());
    QString search = m_engine.searchAddress();
    if (!search.isEmpty()) {
        search.replace("%s"_L1, QString::fromLatin1(QUrl::toPercentEncoding(words)));
        content += "<p><a class=go href=\"%1\">%2</a></p>"_L1.arg(search.toHtmlEscaped(),
                                                                  LoadResString(20115).toHtmlEscaped());
    }
    return plainPage(LoadResString(20112), content);
}

} // namespace engine
