#pragma once

#include "engine/Engine.h"
#include "engine/FormRecord.h"
#include "engine/PageFacets.h"
#include "engine/VisitLog.h"
#include "engine/WebBrowser.h"

#include <QPointer>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <memory>

/// A browser without an engine: it records the calls in order and changes nothing by itself; a test raises the events
/// through events(). Whatever a test wants to be read stands in the public values.
class ScriptedBrowser : public engine::WebBrowser, private engine::FormFacet
{
    Q_OBJECT
public:
    explicit ScriptedBrowser(QWidget *parent = nullptr);

    void Navigate2(const QString &url) override;
    void Refresh2(int level) override { record(QStringLiteral("Refresh2"), QString::number(level)); }
    void Stop() override { record(QStringLiteral("Stop")); }
    void GoBack() override { record(QStringLiteral("GoBack")); }
    void GoForward() override { record(QStringLiteral("GoForward")); }
    QVariant ExecWB(int cmdid, int cmdexecopt, const QVariant &invar) override;
    QString LocationURL() const override { return address; }
    QString LocationName() const override { return title.isEmpty() ? address : title; }
    bool Silent() const override { return silent; }
    void setSilent(bool on) override { set(QStringLiteral("Silent"), silent, on); }
    bool RegisterAsBrowser() const override { return registered; }
    void setRegisterAsBrowser(bool on) override { set(QStringLiteral("RegisterAsBrowser"), registered, on); }
    void Exec(int command, int option = 0, int value = 0) override;
    QVariant ambientProperty(int dispid) const override { return ambient.value(dispid); }
    void setAmbientProperty(int dispid, const QVariant &value) override;
    int userClicks() const override { return clicks; }
    void clearUserClicks() override { clicks = 0; }
    std::vector<engine::HistoryEntry> backEntries() const override { return back; }
    std::vector<engine::HistoryEntry> forwardEntries() const override { return forward; }
    void setExposed(bool exposed) override { isExposed = exposed; }
    engine::FormFacet *formFacet() override { return this; }

    /// The form that listens. Fails the program when nobody does: a closed document gets no events.
    engine::BrowserEvents &events() const;
    /// BeforeNavigate2 of the page; true when the form refused it.
    bool beforeNavigate(const QString &url);
    /// A whole load: the navigation, progress, the title, the end.
    void load(const QString &url, const QString &newTitle);

    /// "Navigate2 http://...", "Refresh2 3", "Stop", "fill locked First name", ... in the order of the calls.
    QStringList calls;
    /// Calls that fail with a ControlError, by the name of the operation.
    QStringList failing;
    QString address;
    QString title;
    bool silent = false;
    bool registered = false;
    bool isExposed = true;
    int clicks = 0;
    QHash<int, QVariant> ambient;
    /// What ExecWB gives.
    QVariant execResult;
    std::vector<engine::HistoryEntry> back;
    std::vector<engine::HistoryEntry> forward;

private:
    void fill(std::shared_ptr<const engine::FormRecord> record, bool locked) override;
    void record(const QString &operation, const QString &arguments = {});
    void set(const QString &operation, bool &value, bool on)
    {
        record(operation, on ? QStringLiteral("True") : QStringLiteral("False"));
        value = on;
    }
};

/// Makes scripted browsers and remembers them in the order of their making.
class ScriptedEngine : public engine::Engine
{
public:
    void warmUp() override
    {
        ++warmUps;
        if (onWarmUp)
            onWarmUp();
    }
    engine::WebBrowser *createBrowser(QWidget *parent) override;
    engine::VisitLog &visits() override;

    /// The browsers that still exist have a value, counted from 0.
    QList<QPointer<ScriptedBrowser>> browsers;
    int warmUps = 0;
    std::function<void()> onWarmUp;
    /// Given to each new browser's `failing`.
    QStringList failing;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<engine::VisitLog> m_visits;
};
