#include "support/ScriptedBrowser.h"

#include "base/step.h"

using namespace Qt::StringLiterals;

ScriptedBrowser::ScriptedBrowser(QWidget *parent)
    : WebBrowser(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void ScriptedBrowser::record(const QString &operation, const QString &arguments)
{
    calls += arguments.isEmpty() ? operation : operation + u' ' + arguments;
    if (failing.contains(operation))
        throw ControlError("scripted failure");
}

void ScriptedBrowser::fill(std::shared_ptr<const engine::FormRecord> record, bool locked)
{
    QString name;
    bool isProtected = false;
    record->GetFormField(u"name"_s, name, isProtected);
    this->record(u"fill"_s, (locked ? u"locked "_s : u"open "_s) + name);
}

void ScriptedBrowser::Navigate2(const QString &url)
{
    record(u"Navigate2"_s, url);
    if (address.isEmpty())
        address = url;
}

QVariant ScriptedBrowser::ExecWB(int cmdid, int cmdexecopt, const QVariant &invar)
{
    record(u"ExecWB"_s, u"%1 %2 %3"_s.arg(cmdid).arg(cmdexecopt).arg(invar.toString()).trimmed());
    return execResult;
}

void ScriptedBrowser::Exec(int command, int option, int value)
{
    record(u"Exec"_s, u"%1 %2 %3"_s.arg(command).arg(option).arg(value));
}

void ScriptedBrowser::setAmbientProperty(int dispid, const QVariant &value)
{
    record(u"ambient"_s, u"%1 %2"_s.arg(dispid).arg(value.toString()));
    ambient.insert(dispid, value);
}

engine::BrowserEvents &ScriptedBrowser::events() const
{
    if (!eventSink())
        qFatal("nobody listens to this browser");
    return *eventSink();
}

bool ScriptedBrowser::beforeNavigate(const QString &url)
{
    bool cancel = false;
    events().WebBro_BeforeNavigate2(url, true, cancel);
    return cancel;
}

void ScriptedBrowser::load(const QString &url, const QString &newTitle)
{
    beforeNavigate(url);
    events().WebBro_ProgressChange(50, 100);
    address = url;
    title = newTitle;
    events().WebBro_TitleChange(newTitle);
    events().WebBro_ProgressChange(0, 0);
}

engine::WebBrowser *ScriptedEngine::createBrowser(QWidget *parent)
{
    auto *browser = new ScriptedBrowser(parent);
    browser->failing = failing;
    browsers += browser;
    return browser;
}

engine::VisitLog &ScriptedEngine::visits()
{
    if (!m_visits)
        m_visits = std::make_unique<engine::VisitLog>(m_folder.filePath(u"visits.db"_s));
    return *m_visits;
}
