#pragma once

#include "controls/PopupMenu.h"
#include "controls/ToolBar.h"
#include "core/MainCode.h"
#include "core/frmMain.h"
#include "core/frmMainCommands.h"
#include "core/state/Document.h"
#include "support/DocumentFixture.h"

#include <QTest>
#include <memory>

/// The whole program over a scripted engine, with a home of its own. It can be started and closed many times.
class MainFixture
{
public:
    MainFixture()
        : paths(desktop::Paths::below(folder.path()))
        , store(paths.settingsFile)
    {}

    /// A start that opens no document, unless the test stores something else.
    void seedQuietStart()
    {
        set(u"Settings", u"FirstTime", u"False");
        set(u"Settings", u"MainMaximized", u"False");
    }
    void set(QStringView section, QStringView key, const QString &value)
    {
        store.SaveSetting(appTitle(), section.toString(), key.toString(), value);
    }
    void set(QStringView section, QStringView key, QStringView value) { set(section, key, value.toString()); }
    QString get(QStringView section, QStringView key) const
    {
        return store.GetSetting(appTitle(), section.toString(), key.toString(), QStringLiteral("(absent)"));
    }

    bool start(const QString &command = {})
    {
        trace.clear();
        code.reset();
        code = std::make_unique<MainCode>(Ground{paths, store, engine, dialogs, tray, sound},
                                          [this](const QString &step) { trace += step; });
        return code->Main(command);
    }
    bool startQuietly(const QString &command = {})
    {
        seedQuietStart();
        return start(command);
    }
    void close()
    {
        trace.clear();
        main().close();
    }
    frmMain &main() { return *code->mainWindow(); }
    bool isChecked(const QString &menuKey) { return main().m_cMenu->Checked(main().m_cMenu->IndexForKey(menuKey)); }
    Settings &settings() { return code->settings; }
    /// What the browsers were told to open, in the order of their making.
    QStringList opened() const
    {
        QStringList addresses;
        for (const QPointer<ScriptedBrowser> &browser : engine.browsers)
            if (browser)
                for (const QString &call : browser->calls)
                    if (call.startsWith(QStringLiteral("Navigate2")))
                        addresses += call.mid(10);
        return addresses;
    }

    QTemporaryDir folder;
    desktop::Paths paths;
    SettingsStore store;
    ScriptedEngine engine;
    RecordingDialogs dialogs;
    RecordingTray tray;
    RecordingSound sound;
    QStringList trace;
    std::unique_ptr<MainCode> code;
};

/// The same, started already, with a document when an address is named.
struct StartedMain : MainFixture
{
    explicit StartedMain(const QString &command = {}) { QVERIFY(startQuietly(command)); }
};
