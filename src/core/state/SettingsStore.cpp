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
    auto *file = qobject_cast<QFileDevice *>(&device);
    // Without the flush a full disk goes unseen: what is still in the buffer fails after the last look at the error.
    return device.write(content) == content.size() && (!file || file->flush());
}

/// QSettings' own INI format takes a comma for a list and a backslash for an escape in values typed by hand.
QSettings::Format settingsFormat()
{
    static const QSettings::Format format =
        QSettings::registerFormat(u"corvane-ini"_s, readDevice, writeDevice, Qt::CaseSensitive);
    return format;
}

/// The file as QSettings may open it: there, moved aside when it could not be opened, and closed to other users, which
/// it then stays.
QString prepared(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        QDir().mkpath(info.path());
        QFile(path).open(QIODevice::WriteOnly | QIODevice::NewOnly);
    } else if (!info.isFile() || !info.isReadable()) {
        replaceByEmptyFile(path);
    }
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
    QString file;
    std::unique_ptr<QSettings> settings;
};

SettingsStore::SettingsStore(const QString &file)
    : d(new Private{prepared(file), std::make_unique<QSettings>(file, settingsFormat())})
{}

SettingsStore::~SettingsStore() = default;

QString SettingsStore::GetSetting(const QString &appName, const QString &section, const QString &key,
                                  const QString &defaultValue) const
{
    return d->settings->value(fullKey(appName, section, key), defaultValue).toString();
}

void SettingsStore::SaveSetting(const QString &appName, const QString &section, const QString &key,
                                const QString &value)
{
    d->settings->setValue(fullKey(appName, section, key), value);
}

bool SettingsStore::sync()
{
    // QSettings never forgets an error. A new one on the same file shares the changes that are not written yet.
    if (d->settings->status() != QSettings::NoError)
        d->settings = std::make_unique<QSettings>(d->file, settingsFormat());
    d->settings->sync();
    return d->settings->status() == QSettings::NoError;
}
