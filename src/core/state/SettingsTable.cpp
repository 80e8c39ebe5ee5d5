#include "core/state/SettingsTable.h"

#include "core/state/SettingsStore.h"
#include "desktop/Paths.h"

#include <algorithm>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

using S = Settings;

constexpr char kProgramFolder[] = "App.Path";

/// Every key whose value stays in memory while the program runs, sections and keys in the order in which they are
/// written.
constexpr SettingKey kSettingKeys[] = {
    {"General", "SaveDocumentOnExit", "True", &S::SaveDocumentOnExit},
    {"General", "LoadAction", "2", &S::LoadAction},
    {"General", "MinimizeToTray", "True", &S::MinimizeToTray},
    {"General", "TrayPassword", "", &S::TrayPassword},
    {"General", "CheckIfDefault", "True", &S::CheckIfDefault},

    {"History", "CleanAddress", "False", &S::CleanAddress},
    {"History", "CleanSearch", "False", &S::CleanSearch},
    {"History", "CleanCookies", "False", &S::CleanCookies},
    {"History", "CleanHistory", "False", &S::CleanHistory},
    {"History", "CleanTemp", "False", &S::CleanTemp},

    {"Sites", "SitesHome1", "https://www.yahoo.com/", &S::SitesHome1},
    {"Sites", "SitesHome2", "corvane://www/index.html", &S::SitesHome2},
    {"Sites", "SitesSearch", "https://www.google.com/", &S::SitesSearch},
    {"Sites", "SitesNews", "https://www.cnn.com/", &S::SitesNews},
    {"Sites", "SitesMail", "https://mail.yahoo.com/?.intl=us", &S::SitesMail},

    {"Sidebar", "EnableSidebar", "True", &S::EnableSidebar},
    {"Sidebar", "QNFontName", "Arial", &S::QNFontName, nullptr, true},
    {"Sidebar", "QNFontSize", "12", &S::QNFontSize},
    {"Sidebar", "QNColor", "&H00FF6666", &S::QNColor},
    {"Sidebar", "QNBold", "False", &S::QNBold},
    {"Sidebar", "QNItalic", "False", &S::QNItalic},
    {"Sidebar", "QNUnderline", "False", &S::QNUnderline},
    {"Sidebar", "FavRefresh", "10", &S::FavRefresh},
    {"Sidebar", "HistRefresh", "10", &S::HistRefresh},

    {"CustomLinks", "CustomLinksCount", "-1", &S::Links::Count},

    {"Skins", "CurrentSkin", "silverXP", &S::CurrentSkin},
    {"Skins", "ToolbarLargeBitmap", "App.Path/nav_24h.bmp", &S::ToolbarLargeBitmap},
    {"Skins", "ToolbarSmallBitmap", "App.Path/nav_16h.bmp", &S::ToolbarSmallBitmap},

    {"Control", "ControlNavNew", "False", &S::ControlNavNew},
    {"Control", "ControlSitesNew", "True", &S::ControlSitesNew},
    {"Control", "ControlFavNew", "False", &S::ControlFavNew},
    {"Control", "ControlHistNew", "False", &S::ControlHistNew},
    {"Control", "ControlLeft", "0", &S::ControlLeft},
    {"Control", "ControlShiftLeft", "4", &S::ControlShiftLeft},
    {"Control", "ControlRight", "1", &S::ControlRight},
    {"Control", "ControlShiftRight", "3", &S::ControlShiftRight},
    {"Control", "ControlDouble", "2", &S::ControlDouble},

    {"Content", "EnableImages", "True", &S::EnableImages, "mnuContentImage"},
    {"Content", "EnableSound", "True", &S::EnableSound, "mnuContentSound"},
    {"Content", "EnableVideo", "True", &S::EnableVideo, "mnuContentVideo"},
    {"Content", "EnableScripts", "True", &S::EnableScripts, "mnuContentScripts"},
    {"Content", "EnableJava", "True", &S::EnableJava, "mnuContentJava"},
    {"Content", "EnableActiveXDL", "True", &S::EnableActiveXDL, "mnuContentDLACTX"},
    {"Content", "EnableActiveXRUN", "True", &S::EnableActiveXRUN, "mnuContentRUNACTX"},
    {"Content", "EnableFlash", "True", &S::EnableFlash, "mnuContentFlash"},
    {"Content", "SuppressErrors", "False", &S::SuppressErrors, "mnuContentSuppressErrors"},
    {"Content", "SuppressScriptErrors", "False", &S::SuppressScriptErrors, "mnuContentSuppressScriptErrors"},

    {"Forms", "AutoFormFill", "False", &S::AutoFormFill, "mnuContentAutoFill"},
    {"Forms", "ProtectCreditInfo", "False", &S::ProtectCreditInfo},
    {"Forms", "CreditInfoPassword", "", &S::CreditInfoPassword},

    {"Popup", "PopupKillerEnable", "True", &S::PopupKillerEnable},
    {"Popup", "PopupCtrlEnable", "True", &S::PopupCtrlEnable},
    {"Popup", "PopupPlaySound", "True", &S::PopupPlaySound},
    {"Popup", "PopupSoundFile", "App.Path/popup.wav", &S::PopupSoundFile},
};

using Type = WindowKey::Type;

constexpr WindowKey kWindowKeys[] = {
    {"MainLeft", Type::Single, "1000"},
    {"MainTop", Type::Single, "1000"},
    {"MainWidth", Type::Single, "6500"},
    {"MainHeight", Type::Single, "6500"},
    {"MainMaximized", Type::Boolean, "True"},
    {"NavigatorLeft", Type::Single, nullptr},
    {"NavigatorTop", Type::Single, nullptr},
    {"NavigatorWidth", Type::Single, nullptr},
    {"NavigatorHeight", Type::Single, nullptr},
    {"NavigatorVisible", Type::Boolean, "False"},
    {"BrowseToolbarVisible", Type::Boolean, "True"},
    {"SitesToolbarVisible", Type::Boolean, "True"},
    {"AddressBarVisible", Type::Boolean, "True"},
    {"TabsBarVisible", Type::Boolean, "True"},
    {"StatusBarVisible", Type::Boolean, "True"},
    {"GoNew", Type::Boolean, "False"},
    {"HistoryCount", Type::Integer, "0"},
    {"Toolbar1LargeIcons", Type::Boolean, "True"},
    {"Toolbar1ShowText", Type::Boolean, "True"},
    {"Toolbar1TextAlignRight", Type::Boolean, "True"},
    {"Toolbar2LargeIcons", Type::Boolean, "False"},
    {"Toolbar2ShowText", Type::Boolean, "True"},
    {"Toolbar2TextAlignRight", Type::Boolean, "True"},
    {"FirstTime", Type::Boolean, "True"},
    {"FileAssociationSetDefault", Type::Boolean, "True"},
    {"DocumentCount", Type::Integer, "0"},
    {"QSearchLeft", Type::Single, nullptr},
    {"QSearchTop", Type::Single, nullptr},
    {"QSearchTypesListIndex", Type::Integer, "0"},
    {"QSearchSearchListCount", Type::Integer, "0"},
};

QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

void convert(const QString &text, bool &value)
{
    value = toBoolean(text);
}

void convert(const QString &text, int16_t &value)
{
    value = toInteger(text);
}

void convert(const QString &text, int32_t &value)
{
    value = toLong(text);
}

void convert(const QString &text, QString &value)
{
    value = text;
}

QString stored(bool value)
{
    return fromBoolean(value);
}

QString stored(int32_t value)
{
    return QString::number(value);
}

QString stored(const QString &value)
{
    return value;
}

/// Calls `visitor` with the value that a key fills.
template <typename Record, typename Visitor>
void withValue(const SettingKey &key, Record &settings, Visitor &&visitor)
{
    std::visit(
        [&](auto field) {
            if constexpr (std::is_same_v<decltype(field), int16_t Settings::Links::*>)
                visitor(settings.CustomLinks.*field);
            else
                visitor(settings.*field);
        },
        key.field);
}

} // namespace

std::span<const SettingKey> settingKeys(const char *section)
{
    const auto isOf = [name = std::string_view(section)](const SettingKey &key) { return key.section == name; };
    const auto first = std::find_if(std::begin(kSettingKeys), std::end(kSettingKeys), isOf);
    return {first, std::find_if_not(first, std::end(kSettingKeys), isOf)};
}

QString defaultOf(const SettingKey &key, const desktop::Paths &paths)
{
    QString text = latin1(key.defaultText);
    const QString folder = latin1(kProgramFolder);
    return text.startsWith(folder) ? text.replace(0, folder.size(), paths.programFolder) : text;
}

void readKey(const SettingsStore &store, const desktop::Paths &paths, const SettingKey &key, Settings &settings)
{
    const QString defaultText = defaultOf(key, paths);
    QString text = store.GetSetting(appTitle(), latin1(key.section), latin1(key.key), defaultText);
    if (text.isEmpty() && key.emptyIsDefault)
        text = defaultText;
    withValue(key, settings, [&](auto &value) { convert(text, value); });
}

void writeKey(SettingsStore &store, const SettingKey &key, const Settings &settings)
{
    withValue(key, settings, [&](const auto &value) {
        store.SaveSetting(appTitle(), latin1(key.section), latin1(key.key), stored(value));
    });
}

std::span<const WindowKey> windowKeys()
{
    return kWindowKeys;
}
