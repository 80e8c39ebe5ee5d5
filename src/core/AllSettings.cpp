#include "core/AllSettings.h"

#include "base/Strings.h"
#include "base/step.h"
#include "base/units.h"
#include "blocking/PopupKiller.h"
#include "blocking/SiteBlocker.h"
#include "controls/BandContainer.h"
#include "controls/ComboBox.h"
#include "controls/PopupMenu.h"
#include "controls/StatusBar.h"
#include "core/state/SettingsStore.h"
#include "core/state/SettingsTable.h"
#include "desktop/Paths.h"
#include "desktop/TrayIcon.h"
#include "documents/AddressBarRules.h"
#include "documents/frmNavigator.h"

#include <QAbstractButton>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The last address is written while the counter stands at this number, so that one more survives.
constexpr int kLastAddress = 50;

/// The bands that can be hidden, with their keys in the store and their menu entries.
struct BandKey
{
    const char *settingKey;
    const char16_t *band;
    const char16_t *menuKey;
};
constexpr BandKey kBands[] = {
    {"BrowseToolbarVisible", u"Toolbar1", u"mnuViewBrowseToolbar"},
    {"SitesToolbarVisible", u"Toolbar2", u"mnuViewSitesToolbar"},
    {"AddressBarVisible", u"Addressbar", u"mnuViewAddressBar"},
    {"TabsBarVisible", u"Tabbar", u"mnuViewTabsBar"},
};

QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

QString settingsSection()
{
    return u"Settings"_s;
}

/// Text of a key that belongs to a window; `own` is the default of a key that has none in the table.
QString windowText(const SettingsStore &store, const char *key, const QString &own = {})
{
    const auto keys = windowKeys();
    const auto found = std::find_if(keys.begin(), keys.end(),
                                    [&](const WindowKey &entry) { return std::string_view(entry.key) == key; });
    const bool hasDefault = found != keys.end() && found->defaultText;
    return store.GetSetting(appTitle(), settingsSection(), latin1(key), hasDefault ? latin1(found->defaultText) : own);
}

/// False for a text that does not convert.
bool windowFlag(const SettingsStore &store, const char *key)
{
    bool value = false;
    step([&] { value = toBoolean(windowText(store, key)); });
    return value;
}

void saveText(SettingsStore &store, const QString &key, const QString &value)
{
    store.SaveSetting(appTitle(), settingsSection(), key, value);
}

void saveBoolean(SettingsStore &store, const char *key, bool value)
{
    saveText(store, latin1(key), fromBoolean(value));
}

/// Keys of a window's left, top, width and height, in twips.
struct GeometryKeys
{
    const char *left;
    const char *top;
    const char *width;
    const char *height;
};
constexpr GeometryKeys kMain{"MainLeft", "MainTop", "MainWidth", "MainHeight"};
constexpr GeometryKeys kNavigator{"NavigatorLeft", "NavigatorTop", "NavigatorWidth", "NavigatorHeight"};

/// The main window in twips: the place of its frame and the size inside it, so that what was stored comes back as it
/// was. No number that a file may hold makes a window that the desktop refuses.
struct MainGeometry
{
    QWidget &window;

    static int place(double twips) { return toPixels(std::clamp(twips, -kLimit, kLimit)); }
    static int size(double twips) { return toPixels(std::clamp(twips, 0.0, kLimit)); }
    double Left() const { return toTwips(window.x()); }
    void setLeft(double twips) { window.move(place(twips), window.y()); }
    double Top() const { return toTwips(window.y()); }
    void setTop(double twips) { window.move(window.x(), place(twips)); }
    double Width() const { return toTwips(window.width()); }
    void setWidth(double twips) { window.resize(size(twips), window.height()); }
    double Height() const { return toTwips(window.height()); }
    void setHeight(double twips) { window.resize(window.width(), size(twips)); }

    static constexpr double kLimit = 480000;
};

template <typename Window>
void loadGeometry(const SettingsStore &store, const GeometryKeys &keys, Window &&window)
{
    const auto twips = [&](const char *key, double own) {
        return static_cast<double>(toSingle(windowText(store, key, QString::number(own))));
    };
    step([&] { window.setLeft(twips(keys.left, window.Left())); });
    step([&] { window.setTop(twips(keys.top, window.Top())); });
    step([&] { window.setWidth(twips(keys.width, window.Width())); });
    step([&] { window.setHeight(twips(keys.height, window.Height())); });
}

template <typename Window>
void saveGeometry(SettingsStore &store, const GeometryKeys &keys, Window &&window)
{
    const auto save = [&](const char *key, double twips) { saveText(store, latin1(key), QString::number(twips)); };
    save(keys.left, window.Left());
    save(keys.top, window.Top());
    save(keys.width, window.Width());
    save(keys.height, window.Height());
}

void setChecked(controls::PopupMenu &menu, const QString &key, bool checked)
{
    menu.setChecked(menu.IndexForKey(key), checked);
}

void loadWindows(const SettingsTargets &to)
{
    loadGeometry(to.store, kMain, MainGeometry{to.frmMain});
    to.settings.MainMaximized = windowFlag(to.store, "MainMaximized");
    if (to.settings.MainMaximized)
        to.frmMain.setWindowState(Qt::WindowMaximized);
    loadGeometry(to.store, kNavigator, to.navigator);
    to.navigator.setVisible(windowFlag(to.store, "NavigatorVisible"));
    step([&] { setChecked(to.m_cMenu, u"mnuViewNavigator"_s, to.navigator.Visible()); });
}

void loadBands(const SettingsTargets &to)
{
    for (const BandKey &key : kBands) {
        const bool visible = windowFlag(to.store, key.settingKey);
        step([&] { to.cReBar1.setBandVisible(to.cReBar1.BandIndexForKey(QString::fromUtf16(key.band)), visible); });
        step([&] { setChecked(to.m_cMenu, QString::fromUtf16(key.menuKey), visible); });
    }
}

void loadAddressList(const SettingsTargets &to)
{
    to.AddressBar.setImageList(&to.miscIL);
    int count = 0;
    step([&] { count = toInteger(windowText(to.store, "HistoryCount")); });
    for (int n = 1; n <= count; ++n) {
        const QString address = to.store.GetSetting(appTitle(), settingsSection(), u"HistorySite%1"_s.arg(n), u"0"_s);
        step([&] { to.AddressBar.InsertItem(0, address, AddressBarRules::kAddressIcon); });
    }
}

/// Reads a section key by key; the check mark of a key's menu entry follows at once.
void loadSection(const SettingsTargets &to, const char *section)
{
    for (const SettingKey &key : settingKeys(section)) {
        step([&] { readKey(to.store, to.paths, key, to.settings); });
        if (!key.menuKey)
            continue;
        step([&] {
            const bool value = to.settings.*std::get<bool Settings::*>(key.field);
            setChecked(to.m_cMenu, latin1(key.menuKey), value);
        });
    }
}

void loadCustomLinks(const SettingsTargets &to)
{
    loadSection(to, "CustomLinks");
    Settings::Links &links = to.settings.CustomLinks;
    const int last = std::min<int>(links.Count, static_cast<int>(links.Names.size()) - 1);
    for (int n = 1; n <= last; ++n) {
        links.Names[n] = to.store.GetSetting(appTitle(), u"CustomLinks"_s, u"CustomLinksName%1"_s.arg(n));
        links.URLs[n] = to.store.GetSetting(appTitle(), u"CustomLinks"_s, u"CustomLinksURL%1"_s.arg(n));
    }
}

void saveAddressList(const SettingsTargets &from)
{
    int counter = 0;
    for (int i = from.AddressBar.ListCount() - 1; i >= 0; --i) {
        const QString address = from.AddressBar.List(i);
        if (address.isEmpty() || counter > kLastAddress)
            continue;
        ++counter;
        saveText(from.store, u"HistorySite%1"_s.arg(counter), address);
    }
    saveText(from.store, u"HistoryCount"_s, QString::number(counter));
}

void saveSection(const SettingsTargets &from, const char *section)
{
    for (const SettingKey &key : settingKeys(section))
        writeKey(from.store, key, from.settings);
}

void saveCustomLinks(const SettingsTargets &from)
{
    saveSection(from, "CustomLinks");
    const Settings::Links &links = from.settings.CustomLinks;
    const int last = std::min<int>(links.Count, static_cast<int>(links.Names.size()) - 1);
    for (int n = 1; n <= last; ++n) {
        from.store.SaveSetting(appTitle(), u"CustomLinks"_s, u"CustomLinksName%1"_s.arg(n), links.Names[n]);
        from.store.SaveSetting(appTitle(), u"CustomLinks"_s, u"CustomLinksURL%1"_s.arg(n), links.URLs[n]);
    }
}

} // namespace

void LoadSkinSettings(SettingsStore &store, const desktop::Paths &paths, Settings &settings)
{
    for (const SettingKey &key : settingKeys("Skins"))
        step([&] { readKey(store, paths, key, settings); });
}

void LoadAllSettings(const SettingsTargets &to)
{
    loadWindows(to);
    loadBands(to);
    loadAddressList(to);
    to.vbalStatusBar1.setVisible(windowFlag(to.store, "StatusBarVisible"));
    step([&] { setChecked(to.m_cMenu, u"mnuViewStatusBar"_s, !to.vbalStatusBar1.isHidden()); });
    to.goNew.setChecked(windowFlag(to.store, "GoNew"));
    loadSection(to, "General");
    if (to.settings.MinimizeToTray)
        step([&] { to.tray.AddTrayIcon(LoadResString(102)); });
    loadSection(to, "History");
    loadSection(to, "Sites");
    loadSection(to, "Sidebar");
    loadCustomLinks(to);
    to.g_sNextSkin = to.settings.CurrentSkin;
    loadSection(to, "Control");
    loadSection(to, "Content");
    loadSection(to, "Forms");
    step([&] { readKey(to.store, to.paths, settingKeys("Popup").front(), to.settings); });
    step([&] { to.vbalStatusBar1.setPanelIcon(u"Item4"_s, popupKillerIcon(to.settings.PopupKillerEnable)); });
    for (const SettingKey &key : settingKeys("Popup").subspan(1))
        step([&] { readKey(to.store, to.paths, key, to.settings); });
    to.siteBlocker.ReadBlackList();
}

void SaveAllSettings(const SettingsTargets &from)
{
    saveBoolean(from.store, "NavigatorVisible", from.navigator.Visible());
    for (const BandKey &key : kBands) {
        const int band = from.cReBar1.BandIndexForKey(QString::fromUtf16(key.band));
        saveBoolean(from.store, key.settingKey, from.cReBar1.BandVisible(band));
    }
    saveAddressList(from);
    saveBoolean(from.store, "GoNew", from.goNew.isChecked());
    saveBoolean(from.store, "StatusBarVisible", !from.vbalStatusBar1.isHidden());
    const bool isMinimized = from.frmMain.isMinimized();
    if (!isMinimized) {
        saveGeometry(from.store, kMain, MainGeometry{from.frmMain});
        saveGeometry(from.store, kNavigator, from.navigator);
    }
    // A minimised window is in no other state, whatever it would come back to.
    saveBoolean(from.store, "MainMaximized", from.frmMain.isMaximized() && !isMinimized);

    for (const char *section : {"General", "History", "Sites", "Sidebar"})
        saveSection(from, section);
    saveCustomLinks(from);
    // The choice for the next run is what is stored; the skin of this run stays in memory.
    const QString currentSkin = std::exchange(from.settings.CurrentSkin, from.g_sNextSkin);
    saveSection(from, "Skins");
    from.settings.CurrentSkin = currentSkin;
    for (const char *section : {"Control", "Content", "Forms", "Popup"})
        saveSection(from, section);
    from.siteBlocker.WriteBlackList();
}
