#include "Program.h"
#include "Surroundings.h"

#include "desktop/instance/Instance.h"
#include "support/Wait.h"

#include <QRegularExpression>
#include <csignal>

using namespace Qt::StringLiterals;

Program::Program(const QString &home)
    : m_home(home)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"CORVANE_HOME"_s, home);
    environment.insert(u"QT_LOGGING_RULES"_s, u"*.debug=false;qt.webenginecontext.info=false"_s);
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
}

Program::~Program()
{
    if (!isRunning())
        return;
    m_process.kill();
    m_process.waitForFinished();
}

bool Program::start(const QStringList &arguments)
{
    m_process.start(QStringLiteral(PROGRAM_FOLDER "/corvane"), arguments);
    return m_process.waitForStarted();
}

bool Program::waitForWindow() const
{
    const std::string folder = (m_home + u"/run"_s).toStdString();
    return waitUntil([&] { return !instance::FindRunningInstance(folder).empty(); }, kPatience);
}

int Program::waitForEnd(int milliseconds)
{
    // The loopback site answers meanwhile.
    const bool hasEnded = waitUntil([&] { return !isRunning(); }, milliseconds);
    return hasEnded && m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

int Program::end(int signal, int milliseconds)
{
    ::kill(id(), signal);
    return waitForEnd(milliseconds);
}

QStringList Program::complaints()
{
    static const QRegularExpression usual(
        u"^\\s*$|This plugin does not support|Sandboxing disabled by user|No suitable graphics backend"_s);
    QStringList lines = QString::fromUtf8(m_process.readAll()).split(u'\n');
    lines.removeIf([](const QString &line) { return usual.match(line).hasMatch(); });
    return lines;
}
