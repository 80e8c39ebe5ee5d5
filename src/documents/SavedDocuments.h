#pragma once

class MainWindow;
class SettingsStore;
class frmNavigator;
struct Settings;

/// The addresses of the open documents in tab order, kept in the settings store from one start to the next.
class SavedDocuments
{
public:
    SavedDocuments(SettingsStore &store, const Settings &settings, frmNavigator &navigator, MainWindow &frmMain);

    /// Runs at every finished load: it only writes to the store's memory. Keys beyond the count stay in the store,
    /// unread.
    void SaveAllDocuments();
    /// Opens the saved documents in addition to those that are open; the last one ends up active. A number without an
    /// address opens the first home page.
    void LoadAllDocuments();
    /// Number of saved documents, 0 when the stored text is no number.
    int count() const;

private:
    SettingsStore &m_store;
    const Settings &m_settings;
    frmNavigator &m_navigator;
    MainWindow &m_frmMain;
};
