#include "core/state/SettingsStore.h"

#include "base/Files.h"
#include "core/state/SettingsFormat.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

constexpr QFileDevice::Permissions kOwnerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

/// Far above what the program ever writes; a larger file counts as one that cannot be read.
constexpr qint64 kMaxFileSize = 64 * 1024 * 1024;

/// Moves away what stands in the file's place, so that the next write doesn't destroy it.
void replaceByEmptyFile(const QString &file)
{
    if (keepAside(file))
        writeFileWhole(file, {});
}

bool readDevice(QIODevice &device, QSettings::SettingsMap &map)
{
    auto content = device.size() <= kMaxFileSize ? settingsformat::read(device.readAll()) : std::nullopt;
    if (content) {
        map = std::move(*content);
        return true;
    }
    // QSettings would go on and write over the file.
    if (const auto *file = qobject_cast<QFile *>(&device))
        replaceByEmptyFile(file->fileName());
    map.clear();
    return true;
}

bool writeDevice(QIODevice &device, const QSettings::SettingsMap &map)
{
    const QByteArray content = settingsformat::write(map);
    return device.write(content) == content.size();
}

/// QSettings' own INI format takes a comma for a list and a backslash for an escape in values typed by hand.
QSettings::Format settingsFormat()
{
    static const QSettings::Format format =
        QSettings::registerFormat(u"corvane-ini"_s, readDevice, writeDevice, Qt::CaseSensitive);
    return format;
}

/// The file as QSettings may open it: its folder made, closed to other users, moved aside when it cannot be opened.
QString prepared(const QString &path)
{
    const QFileInfo info(path);
    QDir().mkpath(info.path());
    if (!info.exists())
        return path;
    if (!info.isFile() || !info.isReadable())
        replaceByEmptyFile(path);
    else if (info.permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther))
        QFile::setPermissions(path, kOwnerOnly);
    return path;
}

QString fullKey(const QString &appName, const QString &section, const QString &key)
{
    return appName + u'/' + section + u'/' + key;
}

} // namespace

struct SettingsStore::Private
{
    explicit Private(const QString &file)
        : settings(prepared(file), settingsFormat())
    {}
    QSettings settings;
};

SettingsStore::SettingsStore(const QString &file)
    : d(std::make_unique<Private>(file))
{}

SettingsStore::~SettingsStore() = default;

QString SettingsStore::GetSetting(const QString &appName, const QString &section, const QString &key,
                                  const QString &defaultValue) const
{
    return d->settings.value(fullKey(appName, section, key), defaultValue).toString();
}

void SettingsStore::SaveSetting(const QString &appName, const QString &section, const QString &key,
                                const QString &value)
{
    d->settings.setValue(fullKey(appName, section, key), value);
}

bool SettingsStore::sync()
{
    d->settings.sync();
    return d->settings.status() == QSettings::NoError;
}
