// Clicks and menus of the two toolbars.

#include "core/frmMainCommands.h"

#include "core/frmMain.h"

#include "appearance/Toolbars.h"
#include "base/step.h"
#include "controls/PopupMenu.h"
#include "controls/Texts.h"
#include "controls/ToolBar.h"
#include "core/state/Document.h"
#include "core/state/SettingsStore.h"
#include "engine/WBCustomizer.h"

#include <QCursor>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

/// Bands of the two toolbars.
constexpr int kBandOfToolbar1 = 2;
constexpr int kBandOfToolbar2 = 3;
/// The button whose caption stands for all: the first one of Toolbar2 is never seen.
constexpr int kTextButton = 1;
/// Characters of a page's title that its line in a history list shows.
constexpr int kTitleLimit = 60;

} // namespace

void Commands::Toolbar1_ButtonClick(int button)
{
    if (button >= 0) {
        run(m_main.Toolbar1->ButtonKey(button));
        return;
    }
    m_menuOfSites = false;
    m_main.toolbars().PrepareToolbarMenu(*m_main.m_cNavToolbar, *m_main.Toolbar1, menuBand());
    m_main.m_cNavToolbar->ShowPopupMenu(QCursor::pos().x(), QCursor::pos().y());
}

void Commands::Toolbar2_ButtonClick(int button)
{
    if (button >= 0)
        return;
    m_menuOfSites = true;
    m_main.toolbars().PrepareToolbarMenu(*m_main.m_cSitesToolbar, *m_main.Toolbar2, menuBand());
    m_main.m_cSitesToolbar->ShowPopupMenu(QCursor::pos().x(), QCursor::pos().y());
}

void Commands::Toolbar1_DropDownPress(int button)
{
    const controls::ToolBar &toolbar = *m_main.Toolbar1;
    const QString key = toolbar.ButtonKey(button);
    const QPoint left = toolbar.mapToGlobal(QPoint(toolbar.ButtonLeft(key), 0));
    const int bottom = left.y() + toolbar.height();
    if (key == u"New"_s)
        m_main.m_cNew->ShowPopupMenu(left.x(), bottom);
    else if (key == u"Refresh"_s)
        m_main.m_cRefresh->ShowPopupMenu(left.x(), bottom);
    else if (key == u"Stop"_s)
        m_main.m_cStop->ShowPopupMenu(left.x(), bottom);
    else if (key == u"Back"_s || key == u"Forward"_s)
        ShowHistoryMenu(key == u"Back"_s, left + QPoint(0, toolbar.ButtonBottom(key)));
}

/// Lists the pages behind or before the active document's page. A pick is a new navigation to its address.
void Commands::ShowHistoryMenu(bool isBack, const QPoint &at)
{
    Document *document = active();
    const engine::WBCustomizer *custom = document ? document->customWB() : nullptr;
    const int count = !custom ? 0 : isBack ? custom->BackCount() : custom->ForwardCount();
    if (count == 0)
        return;
    auto *menu = new QMenu(&m_main);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int i = 1; i <= count; ++i) {
        step([&] {
            QString title;
            QString address;
            custom->GetHistoryElement(isBack, i, title, address);
            const QString name = controls::drawableLine(title.isEmpty() ? address : title, kTitleLimit);
            QAction *line = menu->addAction(QString(name).replace(u'&', u"&&"_s));
            connect(line, &QAction::triggered, this, [this, address] {
                if (Document *shown = active())
                    step([&] { shown->NavigateDoc(address); });
            });
        });
    }
    menu->popup(at);
}

void Commands::siteButton(const QString &address, void (Commands::*sameTabForm)())
{
    if (settings().ControlNavNew)
        m_main.LoadNewDoc(address);
    else
        (this->*sameTabForm)();
}

void Commands::buttonHome()
{
    siteButton(settings().SitesHome1, &Commands::Home1);
}

void Commands::buttonHome2()
{
    siteButton(settings().SitesHome2, &Commands::mnuNavigateHome2);
}

void Commands::buttonMail()
{
    siteButton(settings().SitesMail, &Commands::mnuNavigateMail);
}

void Commands::buttonSearch()
{
    siteButton(settings().SitesSearch, &Commands::mnuNavigateSearch);
}

void Commands::buttonNews()
{
    siteButton(settings().SitesNews, &Commands::mnuNavigateNews);
}

controls::ToolBar &Commands::menuToolbar() const
{
    return m_menuOfSites ? *m_main.Toolbar2 : *m_main.Toolbar1;
}

controls::PopupMenu &Commands::toolbarMenu() const
{
    return m_menuOfSites ? *m_main.m_cSitesToolbar : *m_main.m_cNavToolbar;
}

QString Commands::menuBand() const
{
    return m_menuOfSites ? u"Toolbar2"_s : u"Toolbar1"_s;
}

void Commands::storeLook(const char *what, bool value)
{
    m_main.mainCode().ground().store.SaveSetting(appTitle(), u"Settings"_s, menuBand() + QString::fromLatin1(what),
                                                 fromBoolean(value));
}

void Commands::mnuTBLargeIcons()
{
    controls::PopupMenu &menu = toolbarMenu();
    const bool large = !menu.Checked(menu.IndexForKey(u"mnuTBLargeIcons"_s));
    storeLook("LargeIcons", large);
    m_main.toolbars().SetToolbarIconSize(menuToolbar(), m_menuOfSites ? kBandOfToolbar2 : kBandOfToolbar1, large);
}

void Commands::mnuTBShowText()
{
    controls::PopupMenu &menu = toolbarMenu();
    const bool show = !menu.Checked(menu.IndexForKey(u"mnuTBShowText"_s));
    m_main.toolbars().SetToolbarText(menuToolbar(), menuBand(), show);
    step([&] { storeLook("ShowText", menuToolbar().ButtonTextVisible(kTextButton)); });
}

void Commands::setTextAlign(bool right)
{
    m_main.toolbars().SetToolbarTextAlign(menuToolbar(), menuBand(), right);
    storeLook("TextAlignRight", menuToolbar().TextAlignRight());
}

void Commands::mnuTBTextAlignRight()
{
    setTextAlign(true);
}

void Commands::mnuTBTextAlignBottom()
{
    setTextAlign(false);
}
