#include "engine/webengine/SiteData.h"

#include "base/Files.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

QString markerOf(const QString &profileFolder)
{
    return profileFolder + "/clear-at-start"_L1;
}

/// The names that the engine gives its things; those of other versions of it are listed too.
void removeCookies(const QString &profileFolder)
{
    for (const auto name : {"Cookies"_L1, "Cookies-journal"_L1, "Cookies-wal"_L1})
        QFile::remove(profileFolder + u'/' + name);
}

void removeStorage(const QString &profileFolder)
{
    for (const auto name : {"Local Storage"_L1, "Session Storage"_L1, "IndexedDB"_L1, "databases"_L1, "File System"_L1,
                            "blob_storage"_L1, "Service Worker"_L1, "CacheStorage"_L1, "WebStorage"_L1})
        QDir(profileFolder + u'/' + name).removeRecursively();
}

} // namespace

void removeSiteData(const QString &profileFolder)
{
    removeCookies(profileFolder);
    removeStorage(profileFolder);
}

bool setPending(const QString &profileFolder, Pending pending)
{
    const QString marker = markerOf(profileFolder);
    if (pending == Pending::Nothing)
        return QFile::remove(marker);
    return writeFileWhole(marker, pending == Pending::Everything ? "everything\n" : "storage\n");
}

Pending pending(const QString &profileFolder)
{
    constexpr qint64 kLargestMarker = 100;
    const auto text = readFile(markerOf(profileFolder), kLargestMarker);
    if (!text)
        return Pending::Nothing;
    return text->startsWith("everything") ? Pending::Everything : Pending::Storage;
}

void finishPending(const QString &profileFolder)
{
    const Pending left = pending(profileFolder);
    if (left == Pending::Nothing)
        return;
    if (left == Pending::Everything)
        removeCookies(profileFolder);
    removeStorage(profileFolder);
    setPending(profileFolder, Pending::Nothing);
}

} // namespace engine
