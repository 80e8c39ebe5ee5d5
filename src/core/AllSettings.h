#pragma once

#include <QString>

class QAbstractButton;
class QWidget;
class SettingsStore;
class SiteBlocker;
class frmNavigator;
struct Settings;

namespace controls {
class BandContainer;
class ComboBox;
class ImageList;
class PopupMenu;
class StatusBar;
} // namespace controls
namespace desktop {
class TrayIcon;
struct Paths;
} // namespace desktop

/// What the two routines below read and write.
struct SettingsTargets
{
    SettingsStore &store;
    const desktop::Paths &paths;
    Settings &settings;
    QWidget &frmMain;
    frmNavigator &navigator;
    controls::BandContainer &cReBar1;
    controls::PopupMenu &m_cMenu;
    controls::ComboBox &AddressBar;
    const controls::ImageList &miscIL;
    controls::StatusBar &vbalStatusBar1;
    QAbstractButton &goNew;
    desktop::TrayIcon &tray;
    QString &g_sNextSkin;
    SiteBlocker &siteBlocker;
};

/// Reads all keys and the black list, in their order, and applies them to the controls. An error costs its own
/// statement only: a text that does not convert leaves its value as it was.
void LoadAllSettings(const SettingsTargets &to);
/// Writes all keys and the black list, in their order. A minimised main window keeps the stored geometry of both
/// windows.
void SaveAllSettings(const SettingsTargets &from);
/// The skin keys, which are needed before the rest is read.
void LoadSkinSettings(SettingsStore &store, const desktop::Paths &paths, Settings &settings);
