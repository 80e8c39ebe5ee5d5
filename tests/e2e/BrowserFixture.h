#pragma once

#include "Surroundings.h"

#include "controls/ComboBox.h"
#include "controls/ListView.h"
#include "controls/TabControl.h"
#include "core/MainCode.h"
#include "core/frmMain.h"
#include "core/state/Document.h"
#include "core/state/SettingsStore.h"
#include "desktop/Paths.h"
#include "documents/frmNavigator.h"
#include "engine/Engine.h"
#include "engine/webengine/WebEngineFactory.h"
#include "support/HomeFolder.h"
#include "support/Recording.h"

#include <QApplication>
#include <QTest>
#include <memory>

/// The whole program in this process: the real main window over the real engine, with a home of its own. Tests work it
/// by mouse and keys and look at what its window shows. It can be started again after end().
class BrowserFixture
{
public:
    BrowserFixture();
    ~BrowserFixture();
    BrowserFixture(const BrowserFixture &) = delete;

    void set(const QString &section, const QString &key, const QString &value);
    /// Starts as in a later run of a user, with a window of ordinary size. False when no window came up.
    bool start(const QString &command = {});
    /// Closes the window as its user does, and ends the engine.
    void end();

    frmMain &main() { return *m_code->mainWindow(); }
    int count() { return main().navigator->ListView1.ListItems().Count(); }
    Document &document(int position) { return main().navigator->document(position); }
    /// What the window shows of a document, in its tab and in the Navigator.
    controls::Tab &tab(int position) { return main().vbalDTabControl1->Tabs(position); }
    QString caption(int position) { return tab(position).Caption(); }
    QString state(int position) { return main().navigator->ListView1.ListItems(position).ListSubItems(1).Text(); }
    QString address() { return main().AddressBar->Text(); }
    /// Empty when tabs, Navigator and documents agree about every position, else what does not.
    QString disorder();

    /// Waits until a document shows a page of this title and loads no longer.
    bool waitForPage(int position, const QString &title);
    /// A key as the desktop sends it to the window.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(main().windowHandle(), key, modifiers);
    }
    /// Types into the address bar and presses Enter.
    void enterAddress(const QString &text);
    void clickTab(int position);
    void clickPage(const QPoint &at = QPoint(60, 60));
    /// The widget of the active page that receives the user's input; another one after some navigations.
    QWidget *page();
    /// A visible button anywhere in the window, by its text without the mnemonic; null when there is none.
    QAbstractButton *button(const QString &text);
    /// Chooses an entry of the main menu; false when it is out of service.
    bool choose(const QString &menuKey);

    const QString &downloadFolder() const { return m_paths.downloadFolder; }
    engine::VisitLog &visits() { return m_engine->visits(); }

    /// Answers file dialogs of the desktop and keeps what they were asked.
    RecordingDialogs dialogs;
    /// Keeps the sounds that were to be heard.
    RecordingSound sound;

private:
    HomeFolder m_home;
    desktop::Paths m_paths;
    std::unique_ptr<SettingsStore> m_store;
    std::unique_ptr<engine::Engine> m_engine;
    RecordingTray m_tray;
    std::unique_ptr<MainCode> m_code;
};

#define BROWSER_TEST_MAIN(Tests)                                                                                       \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        allowRoot();                                                                                                   \
        engine::registerSchemes();                                                                                     \
        QApplication app(argc, argv);                                                                                  \
        QGuiApplication::setQuitOnLastWindowClosed(false);                                                             \
        Tests tests;                                                                                                   \
        return QTest::qExec(&tests, argc, argv);                                                                       \
    }
