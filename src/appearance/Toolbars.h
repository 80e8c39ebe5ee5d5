#pragma once

#include <QString>

namespace controls {
class BandContainer;
class PopupMenu;
class ToolBar;
} // namespace controls
class SettingsStore;
struct Settings;

/// The two toolbars: what stands on them and how it looks. What a click does is the main window's.
class Toolbars
{
public:
    Toolbars(controls::ToolBar &toolbar1, controls::ToolBar &toolbar2, controls::BandContainer &bands,
             SettingsStore &store, const Settings &settings);

    /// Fills both toolbars and gives them the looks of the stored settings. The strips of this moment serve the whole
    /// run.
    void BuildToolbars();
    /// Shows or hides all captions.
    void SetToolbarText(controls::ToolBar &toolbar, const QString &bandKey, bool show);
    /// Captions beside the glyphs (True) or below them.
    void SetToolbarTextAlign(controls::ToolBar &toolbar, const QString &bandKey, bool right);
    /// Glyphs of 24 (True) or 16 pixels, at once. Throws ControlError for a band that does not exist.
    void SetToolbarIconSize(controls::ToolBar &toolbar, int bandIndex, bool large);
    /// Sets the marks of a toolbar's popup menu. `bandKey` is "Toolbar1" or "Toolbar2".
    void PrepareToolbarMenu(controls::PopupMenu &menu, controls::ToolBar &toolbar, const QString &bandKey);

private:
    /// A value such as "Toolbar1LargeIcons" of the section "Settings", which is written when the user changes it.
    bool stored(const QString &key) const;
    void create(controls::ToolBar &toolbar, const QString &bandKey);
    void fitBand(controls::ToolBar &toolbar, int bandIndex);

    controls::ToolBar &Toolbar1;
    controls::ToolBar &Toolbar2;
    controls::BandContainer &cReBar1;
    SettingsStore &m_store;
    const Settings &m_settings;
    QString m_largeBitmap;
    QString m_smallBitmap;
};
