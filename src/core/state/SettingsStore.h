#pragma once

#include <QString>
#include <memory>

/// The per-user store: application name / section / key / text value, in one INI file (0600, written whole). Keys that
/// the program does not know survive. A file that cannot be read counts as empty and is kept aside before it is
/// overwritten; a file that cannot be written loses the change and nothing else.
class SettingsStore
{
public:
    explicit SettingsStore(const QString &file);
    ~SettingsStore();
    SettingsStore(const SettingsStore &) = delete;
    SettingsStore &operator=(const SettingsStore &) = delete;

    /// The stored text, or `defaultValue` when the key is absent.
    QString GetSetting(const QString &appName, const QString &section, const QString &key,
                       const QString &defaultValue = {}) const;
    void SaveSetting(const QString &appName, const QString &section, const QString &key, const QString &value);
    /// Writes what is still in memory to the file. Also done a moment after SaveSetting and in the destructor. False
    /// when the file could not be written.
    bool sync();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// App.Title, the application name of every key.
inline QString appTitle()
{
    return QStringLiteral("Corvane");
}

/// Conversions of stored texts. Each throws ControlError for a text that does not convert.
bool toBoolean(const QString &text);
/// Rounded to the even neighbour at .5; outside -32768 to 32767 it does not convert.
int16_t toInteger(const QString &text);
/// "&H..." is hexadecimal.
int32_t toLong(const QString &text);
float toSingle(const QString &text);
QString fromBoolean(bool value);
