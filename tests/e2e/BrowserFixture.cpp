#include "BrowserFixture.h"

#include "controls/PopupMenu.h"
#include "engine/VisitLog.h"
#include "engine/WebBrowser.h"
#include "support/Wait.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>

using namespace Qt::StringLiterals;

BrowserFixture::BrowserFixture()
    : m_paths(desktop::Paths::below(m_home.path()))
    , m_store(std::make_unique<SettingsStore>(m_paths.settingsFile))
{
    m_tray.available = false;
}

BrowserFixture::~BrowserFixture()
{
    end();
}

void BrowserFixture::set(const QString &section, const QString &key, const QString &value)
{
    m_store->SaveSetting(appTitle(), section, key, value);
}

bool BrowserFixture::start(const QString &command)
{
    set(u"Settings"_s, u"FirstTime"_s, u"False"_s);
    set(u"Settings"_s, u"MainMaximized"_s, u"False"_s);
    set(u"Settings"_s, u"MainWidth"_s, u"13500"_s);
    set(u"Settings"_s, u"MainHeight"_s, u"10500"_s);
    m_engine =
        engine::makeWebEngine({m_paths.profileFolder, m_paths.cacheFolder, m_paths.visitFile, m_paths.downloadFolder});
    m_code = std::make_unique<MainCode>(Ground{m_paths, *m_store, *m_engine, dialogs, m_tray, sound});
    return m_code->Main(command) && QTest::qWaitForWindowActive(&main());
}

void BrowserFixture::end()
{
    if (!m_code)
        return;
    main().close();
    m_code.reset();
    m_engine.reset();
    m_store->sync();
}

QString BrowserFixture::disorder()
{
    const int tabs = main().vbalDTabControl1->Tabs().Count();
    if (tabs != count())
        return u"%1 tabs, %2 lines"_s.arg(tabs).arg(count());
    for (int n = 1; n <= tabs; ++n) {
        if (document(n).position() != n)
            return u"the document of line %1 takes itself for number %2"_s.arg(n).arg(document(n).position());
        const bool isActive = main().ActiveForm() == &document(n);
        if (main().vbalDTabControl1->Tabs(n).Selected() != isActive)
            return u"tab %1 and its document are not selected together"_s.arg(n);
        if (main().navigator->ListView1.ListItems(n).Bold() != isActive)
            return u"line %1 and its document do not stand out together"_s.arg(n);
    }
    return {};
}

bool BrowserFixture::waitForPage(int position, const QString &title)
{
    const bool isThere = waitUntil([&] {
        return count() >= position && document(position).LocationName() == title && state(position) == u"Completed"_s;
    });
    if (!isThere && count() >= position)
        qInfo().noquote() << u"shows %1, %2"_s.arg(document(position).LocationName(), state(position));
    return isThere;
}

void BrowserFixture::enterAddress(const QString &text)
{
    QLineEdit *edit = main().AddressBar->lineEdit();
    QTest::mouseClick(edit, Qt::LeftButton);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
}

void BrowserFixture::clickTab(int position)
{
    controls::TabControl *tabs = main().vbalDTabControl1;
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(position - 1).center());
}

QWidget *BrowserFixture::page()
{
    QWidget *view = main().ActiveForm()->browser()->focusProxy();
    return view ? view->focusProxy() : nullptr;
}

void BrowserFixture::clickPage(const QPoint &at)
{
    QVERIFY(waitUntil([&] { return page() != nullptr; }));
    QTest::mouseClick(page(), Qt::LeftButton, {}, at);
}

QAbstractButton *BrowserFixture::button(const QString &text)
{
    const auto buttons = main().findChildren<QAbstractButton *>();
    for (QAbstractButton *found : buttons)
        if (found->isVisible() && found->text().remove(u'&') == text)
            return found;
    return nullptr;
}

bool BrowserFixture::choose(const QString &menuKey)
{
    controls::PopupMenu &menu = *main().m_cMenu;
    QAction *action = menu.action(menu.IndexForKey(menuKey));
    const bool isEnabled = action->isEnabled();
    action->trigger();
    return isEnabled;
}
