#include "core/MainCode.h"

#include "core/frmMain.h"
#include "core/frmSplash.h"
#include "core/state/Document.h"

#include "desktop/InstanceMark.h"
#include "desktop/Paths.h"
#include "engine/Engine.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

MainCode::MainCode(const Ground &ground, LifecycleTrace trace)
    : m_ground(ground)
    , m_trace(std::move(trace))
{}

MainCode::~MainCode() = default;

QString MainCode::commandWithoutQuotes() const
{
    const std::string command = m_command.toStdString();
    const std::string_view text = instance::withoutQuotes(command);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool MainCode::Main(const QString &command)
{
    m_command = command;
    // The program counts as one of the NT family, version 5.1: that gives the finished look of the progress panel.
    flags.IsNT = true;
    flags.IsXP = true;
    flags.OptionsStartPage = 1;
    flags.ShortcutsEnabled = true;
    flags.CreditUnlocked = false;

    trace(u"IsFirstInstance"_s);
    if (!IsFirstInstance(instance::kMutexName)) {
        trace(u"HandOverToFirstInstance"_s);
        HandOverToFirstInstance();
        return false;
    }

    m_frmMain = std::make_unique<frmMain>(*this);
    trace(u"ShowSplash"_s);
    frmSplash splash(flags);
    splash.show();
    QCoreApplication::processEvents();
    // The engine's processes start while the window is built.
    trace(u"WarmUpEngine"_s);
    m_ground.engine.warmUp();
    trace(u"LoadMain"_s);
    m_frmMain->Load();
    QCoreApplication::processEvents();
    if (m_frmMain->isUnloaded())
        return true;
    trace(u"MarkMainWindow"_s);
    MarkMainWindow();
    trace(u"ShowMain"_s);
    m_frmMain->showFirst();
    trace(u"UnloadSplash"_s);
    splash.Unload();
    return true;
}

bool MainCode::IsFirstInstance(const char *mutexName)
{
    return InstanceMutex.held() || InstanceMutex.acquire(m_ground.paths.runtimeFolder.toStdString(), mutexName);
}

void MainCode::HandOverToFirstInstance()
{
    instance::HandOverToFirstInstance(m_ground.paths.runtimeFolder.toStdString(), m_command.toStdString());
}

void MainCode::ReleaseInstanceMutex()
{
    InstanceMutex.release();
}

void MainCode::MarkMainWindow()
{
    m_mark = std::make_unique<desktop::InstanceMark>(
        m_ground.paths.runtimeFolder,
        [this](int32_t cbData, const QByteArray &bytes) { MainWindowProc(cbData, bytes); });
}

void MainCode::MainWindowProc(int32_t cbData, const QByteArray &bytes)
{
    if (!m_subclassed || !m_frmMain || m_frmMain->isUnloaded())
        return;
    if (cbData <= 0)
        return;
    QString text = QString::fromUtf8(bytes.left(cbData));
    // Addresses and captions end at their first NUL: the one zero byte of an empty command line names no site.
    if (const qsizetype end = text.indexOf(QChar(u'\0')); end >= 0)
        text.truncate(end);
    m_frmMain->LoadNewDoc(text);
    if (Document *active = m_frmMain->ActiveForm())
        active->setCaption(text);
    m_frmMain->setWindowStateNormal();
    if (settings.TrayPassword.isEmpty())
        m_frmMain->showFromOutside();
}
