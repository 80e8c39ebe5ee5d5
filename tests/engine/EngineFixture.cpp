#include "EngineFixture.h"
#include "support/Wait.h"

#include <QAbstractButton>
#include <QDir>
#include <QVBoxLayout>

#include <csignal>

using namespace Qt::StringLiterals;

RecordedBrowser::RecordedBrowser(engine::Engine &engine, const LoopbackSite &site, const QString &path)
    : m_host(site.address(QString()))
    , m_browser(engine.createBrowser(&m_window))
{
    auto *all = new QVBoxLayout(&m_window);
    all->setContentsMargins({});
    all->addWidget(m_browser);
    m_window.resize(500, 400);
    m_window.show();
    m_browser->setEventSink(this);
    m_browser->setMessageSink(this);
    if (!path.isEmpty())
        QVERIFY2(open(site.address(path)), qPrintable(path));
}

bool RecordedBrowser::waitForEnd(int times) const
{
    return waitUntil([&] { return count(u"end"_s) >= times; });
}

bool RecordedBrowser::open(const QString &url)
{
    const int before = count(u"end"_s);
    m_browser->Navigate2(url);
    return waitForEnd(before + 1);
}

void RecordedBrowser::click(const QPoint &at)
{
    // The page receives what its innermost widget receives; it is another one after each change of process.
    QWidget *view = m_browser->focusProxy();
    QVERIFY(waitUntil([&] { return view->focusProxy() != nullptr; }, 5000));
    QTest::mouseClick(view->focusProxy(), Qt::LeftButton, {}, at);
}

bool RecordedBrowser::press(const QString &caption)
{
    QAbstractButton *found = nullptr;
    const bool isThere = waitUntil([&] {
        for (QAbstractButton *button : m_window.findChildren<QAbstractButton *>())
            if (button->isVisible() && button->text().remove(u'&') == caption)
                found = button;
        return found != nullptr;
    });
    if (isThere)
        found->click();
    return isThere;
}

void RecordedBrowser::WebBro_BeforeNavigate2(const QString &URL, bool isMainFrame, bool &Cancel)
{
    events << (isMainFrame ? u"navigate "_s : u"frame "_s) + local(URL);
    if (refuses && refuses(URL))
        Cancel = true;
}

void RecordedBrowser::WebBro_NewWindow2(engine::WebBrowser *&ppDisp, bool &Cancel)
{
    events << u"window"_s;
    if (takesWindow)
        ppDisp = takesWindow();
    Cancel = !ppDisp;
}

void RecordedBrowser::WebBro_ProgressChange(int, int ProgressMax)
{
    if (ProgressMax == 0)
        events << u"end"_s;
    else if (events.isEmpty() || events.last() != u"progress"_s)
        events << u"progress"_s;
}

TestEngine::TestEngine()
    : engine(engine::makeWebEngine(config()))
{}

engine::EngineConfig TestEngine::config() const
{
    return {folder.filePath(u"profile"_s), folder.filePath(u"cache"_s), folder.filePath(u"visits.db"_s),
            folder.filePath(u"downloads"_s)};
}

namespace {

QByteArray read(int process, const char *file)
{
    QFile source(u"/proc/%1/%2"_s.arg(process).arg(QLatin1StringView(file)));
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

int parentOf(int process)
{
    return read(process, "stat").split(' ').value(3).toInt();
}

} // namespace

/// Page processes are copies of the "zygote" that the program has started, and keep its command line.
int killRenderers()
{
    int killed = 0;
    for (const QString &name : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        const int parent = parentOf(name.toInt());
        if (parentOf(parent) == QCoreApplication::applicationPid() && read(parent, "cmdline").contains("--type=zygote"))
            killed += ::kill(name.toInt(), SIGKILL) == 0;
    }
    return killed;
}
