#pragma once

#include "core/state/Settings.h"

#include <QString>
#include <span>
#include <variant>

namespace desktop {
struct Paths;
}
class SettingsStore;

/// One key of the store that fills one value of the Settings record.
struct SettingKey
{
    using Field = std::variant<bool Settings::*, int16_t Settings::*, int32_t Settings::*, QString Settings::*,
                               int16_t Settings::Links::*>;
    const char *section;
    const char *key;
    /// As the store would hold it. "App.Path" at the start stands for the program folder.
    const char *defaultText;
    Field field;
    /// Menu entry whose check mark follows the value; null for none.
    const char *menuKey = nullptr;
    /// A stored empty text counts as the default.
    bool emptyIsDefault = false;
};

/// The keys of a section in table order. Sections: "General", "History", "Sites", "Sidebar", "CustomLinks" (the count
/// only), "Skins", "Control", "Content", "Forms", "Popup". Empty for any other name.
std::span<const SettingKey> settingKeys(const char *section);

/// Default of a key with "App.Path" replaced.
QString defaultOf(const SettingKey &key, const desktop::Paths &paths);
/// Reads one key into its value; throws ControlError when the stored text does not convert.
void readKey(const SettingsStore &store, const desktop::Paths &paths, const SettingKey &key, Settings &settings);
void writeKey(SettingsStore &store, const SettingKey &key, const Settings &settings);

/// Keys of section "Settings" that belong to a window or a control rather than to a value in memory: type and default.
/// Texts that are counted have a number behind their name (HistorySite1, Document1, CustomLinksName1, ...) and belong
/// to the routines that count them.
struct WindowKey
{
    enum class Type { Boolean, Integer, Single, Text };
    const char *key;
    Type type;
    /// Null: the default is the window's own value at that moment.
    const char *defaultText;
};
std::span<const WindowKey> windowKeys();
