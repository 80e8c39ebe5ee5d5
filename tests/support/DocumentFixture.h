#pragma once

#include "blocking/SiteBlocker.h"
#include "controls/BandContainer.h"
#include "controls/ComboBox.h"
#include "controls/ListView.h"
#include "controls/MdiFrame.h"
#include "controls/StatusBar.h"
#include "controls/TabControl.h"
#include "core/state/MainWindow.h"
#include "core/state/ProcessFlags.h"
#include "core/state/Settings.h"
#include "core/state/SettingsStore.h"
#include "desktop/Paths.h"
#include "documents/DocumentContext.h"
#include "documents/DocumentOpener.h"
#include "documents/SavedDocuments.h"
#include "documents/frmDocument.h"
#include "documents/frmNavigator.h"
#include "forms/FormKey.h"
#include "support/Recording.h"
#include "support/ScriptedBrowser.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QWidget>

/// A main window that does what documents ask of it and no more, and records it.
class FakeMainWindow : public MainWindow
{
public:
    using MainWindow::LoadNewDoc;
    Document *ActiveForm() const override { return qobject_cast<Document *>(mdi->activeForm()); }
    void LoadNewDoc(QString &url) override;
    void ModifyMenu() override { calls += QStringLiteral("ModifyMenu"); }
    void SaveAllDocuments() override;
    void LoadAllDocuments() override;
    void mnuContentFlash() override { calls += QStringLiteral("mnuContentFlash"); }
    bool g_Focus() const override { return focusInAddressBar; }
    void setMenuChecked(const QString &key, bool checked) override { menuChecks[key] = checked; }
    void ShowOptions() override { calls += QStringLiteral("ShowOptions"); }

    QStringList calls;
    /// Addresses that LoadNewDoc was called with.
    QStringList opened;
    QHash<QString, bool> menuChecks;
    bool focusInAddressBar = false;
    controls::MdiFrame *mdi = nullptr;
    DocumentOpener *opener = nullptr;
    SavedDocuments *saved = nullptr;
};

/// Everything that documents stand on, with a scripted engine: the shared controls in a window of their own, and every
/// content choice allowed.
class DocumentFixture
{
public:
    DocumentFixture();
    ~DocumentFixture();
    DocumentFixture(const DocumentFixture &) = delete;

    /// Opens an address by LoadNewDoc and gives its document, the active one.
    frmDocument &open(const QString &url);
    frmDocument &document(int position) { return static_cast<frmDocument &>(navigator.document(position)); }
    /// The browser that was made last.
    ScriptedBrowser &lastBrowser() { return *engine.browsers.last(); }
    static ScriptedBrowser &browserOf(const frmDocument &document)
    {
        return *qobject_cast<ScriptedBrowser *>(document.browser());
    }
    controls::ListItem &line(int n) { return navigator.ListView1.ListItems(n); }
    controls::Tab &tab(int n) { return tabs.Tabs(n); }
    int count() { return navigator.ListView1.ListItems().Count(); }
    /// The text that the register shows as the state of a document.
    QString status(int n) { return line(n).ListSubItems(1).Text(); }
    /// Empty when register, tabs and documents agree at every position, else what does not.
    QString disorder();
    /// Deletes the forms that are closed.
    static void deleteClosed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QTemporaryDir folder;
    FakeMainWindow main;
    Settings settings;
    ProcessFlags flags;
    ScriptedEngine engine;
    RecordingDialogs dialogs;
    desktop::Paths paths;
    SettingsStore store;
    QWidget window;
    controls::MdiFrame mdi;
    controls::TabControl tabs;
    controls::ComboBox addressBar;
    controls::StatusBar statusBar;
    controls::BandContainer bands;
    frmNavigator navigator;
    SiteBlocker siteBlocker;
    RecordingSound sound;
    FormKeys formKeys;
    DocumentContext context;
    DocumentOpener opener;
    SavedDocuments saved;
};
