#include "engine/webengine/SiteData.h"

#include "base/Files.h"

#include <QDir>
#include <QFile>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// The words of the marker.
constexpr std::array kWords = {std::pair{"temporary-files", SiteData::Kind::TemporaryFiles},
                               std::pair{"cookies", SiteData::Kind::Cookies},
                               std::pair{"storage", SiteData::Kind::Storage}};

} // namespace

SiteData::SiteData(const QString &profileFolder, const QString &cacheFolder)
    : m_profileFolder(profileFolder)
    , m_cacheFolder(cacheFolder)
    , m_marker(profileFolder + "/clear-at-start"_L1)
{}

/// The names are those that the engine gives its things; those of other versions of it are listed too.
void SiteData::remove(Kinds kinds) const
{
    if (kinds.testFlag(Kind::TemporaryFiles)) {
        for (const auto name : {"Cache"_L1, "Code Cache"_L1})
            QDir(m_cacheFolder + u'/' + name).removeRecursively();
    }
    if (kinds.testFlag(Kind::Cookies)) {
        for (const auto name : {"Cookies"_L1, "Cookies-journal"_L1, "Cookies-wal"_L1})
            QFile::remove(m_profileFolder + u'/' + name);
    }
    if (kinds.testFlag(Kind::Storage)) {
        for (const auto name :
             {"Local Storage"_L1, "Session Storage"_L1, "IndexedDB"_L1, "databases"_L1, "File System"_L1,
              "blob_storage"_L1, "Service Worker"_L1, "CacheStorage"_L1, "WebStorage"_L1})
            QDir(m_profileFolder + u'/' + name).removeRecursively();
    }
}

SiteData::Kinds SiteData::pending() const
{
    constexpr qint64 kLargestMarker = 1000;
    const QByteArray text = readFile(m_marker, kLargestMarker).value_or(QByteArray());
    Kinds kinds;
    for (const auto &[word, kind] : kWords)
        kinds.setFlag(kind, text.contains(word));
    return kinds;
}

void SiteData::setPending(Kinds kinds) const
{
    if (kinds == Kinds()) {
        QFile::remove(m_marker);
        return;
    }
    QByteArray text;
    for (const auto &[word, kind] : kWords) {
        if (kinds.testFlag(kind))
            text += QByteArray(word) + '\n';
    }
    writeFileWhole(m_marker, text);
}

void SiteData::finishPending() const
{
    const Kinds kinds = pending();
    if (kinds == Kinds())
        return;
    remove(kinds);
    setPending({});
}

} // namespace engine
