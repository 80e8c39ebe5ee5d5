#pragma once

class FormKeys;
class frmNavigator;
class MainWindow;
class SiteBlocker;
struct ProcessFlags;
struct Settings;

namespace controls {
class BandContainer;
class ComboBox;
class MdiFrame;
class StatusBar;
class TabControl;
} // namespace controls
namespace desktop {
class Dialogs;
class Sound;
struct Paths;
} // namespace desktop
namespace engine {
class Engine;
}

/// What every document stands on: the main window, the values of the process and the controls that all documents share.
/// frmMain builds the one object; it outlives every document.
struct DocumentContext
{
    MainWindow &frmMain;
    Settings &settings;
    ProcessFlags &flags;
    engine::Engine &engine;
    desktop::Dialogs &dialogs;
    const desktop::Paths &paths;
    controls::MdiFrame &mdi;
    controls::TabControl &vbalDTabControl1;
    controls::ComboBox &AddressBar;
    controls::StatusBar &vbalStatusBar1;
    controls::BandContainer &cReBar1;
    frmNavigator &navigator;
    SiteBlocker &siteBlocker;
    desktop::Sound &sound;
    FormKeys &formKeys;
    /// Number of calls from the page engine that have not returned yet; see EngineCall.
    int engineCalls = 0;
};

/// Marks, while it lives, that the page engine waits for the return of one of our handlers. All tabs stand still then
/// and the engine must not be entered again, so nobody may run an event loop.
class EngineCall
{
public:
    explicit EngineCall(DocumentContext &context)
        : m_context(context)
    {
        ++m_context.engineCalls;
    }
    ~EngineCall() { --m_context.engineCalls; }
    EngineCall(const EngineCall &) = delete;
    EngineCall &operator=(const EngineCall &) = delete;

private:
    DocumentContext &m_context;
};

/// Lets pending events through; nothing inside an engine call. Whatever the caller holds may be gone afterwards, except
/// forms: those are deleted later. Key presses and clicks wait, so that no command meets a half-made document.
void DoEvents(const DocumentContext &context);
