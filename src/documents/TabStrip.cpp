#include "documents/TabStrip.h"

#include "base/step.h"
#include "controls/ListView.h"
#include "controls/MdiFrame.h"
#include "controls/PopupMenu.h"
#include "controls/TabControl.h"
#include "core/state/Document.h"
#include "core/state/MainWindow.h"
#include "core/state/Settings.h"

#include <QCursor>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

/// The tag of a shrunk tab; a normal one has none.
const QString kShrunk = u"1"_s;

void showAtCursor(controls::PopupMenu &menu)
{
    const QPoint at = QCursor::pos();
    menu.ShowPopupMenu(at.x(), at.y());
}

} // namespace

TabStrip::TabStrip(const Parts &parts, QObject *parent)
    : QObject(parent)
    , m_parts(parts)
{
    const auto &tabs = m_parts.vbalDTabControl1;
    connect(&tabs, &controls::TabControl::tabClick, this, &TabStrip::vbalDTabControl1_TabClick);
    connect(&tabs, &controls::TabControl::tabDoubleClick, this, &TabStrip::vbalDTabControl1_TabDoubleClick);
    connect(&tabs, &controls::TabControl::tabClose, this, &TabStrip::vbalDTabControl1_TabClose);
    connect(&tabs, &controls::TabControl::barClick, this, &TabStrip::vbalDTabControl1_BarClick);
    connect(&m_parts.m_cTabMenu, &controls::PopupMenu::Click, this, &TabStrip::m_cTabMenu_Click);
}

Document &TabStrip::documentAt(int n) const
{
    auto *document = qobject_cast<Document *>(m_parts.ListView1.ListItems(n).Tag());
    if (!document)
        throw ControlError("the line has no document");
    return *document;
}

void TabStrip::vbalDTabControl1_TabClick(controls::Tab &theTab, int iButton, int Shift, double x, double y)
{
    QPointer<Document> document;
    step([&] { document = &documentAt(theTab.Index()); });
    if (m_parts.vbalDTabControl1.Tag().toInt() != 0 || !document)
        return; // the program selects the tab itself
    step([&] { TabAction(*document, theTab, 0, x, y); });

    const Settings &settings = m_parts.settings;
    int action = 0;
    if (iButton == 1)
        action = Shift == 0 ? settings.ControlLeft : settings.ControlShiftLeft;
    else
        action = Shift == 0 ? settings.ControlRight : settings.ControlShiftRight;
    if (action != 0 && document)
        step([&] { TabAction(*document, theTab, action, x, y); });
}

void TabStrip::vbalDTabControl1_TabDoubleClick(controls::Tab &theTab)
{
    step([&] { TabAction(documentAt(theTab.Index()), theTab, m_parts.settings.ControlDouble, 0, 0); });
}

void TabStrip::vbalDTabControl1_TabClose(controls::Tab & /*theTab*/, bool & /*cancel*/)
{
    // The close button belongs to the selected tab, whose document is the active one.
    if (Document *document = m_parts.frmMain.ActiveForm()) {
        document->setTabAlreadyDeleted(true);
        document->Unload();
    }
}

void TabStrip::vbalDTabControl1_BarClick(int iButton, int Shift, double x, double y)
{
    if (iButton == 1 && Shift == 2 && x == -1.0 && y == -1.0)
        m_parts.frmMain.LoadNewDoc(m_parts.settings.SitesHome1);
    else if (iButton == 2)
        showAtCursor(m_parts.m_cNew);
}

void TabStrip::TabAction(Document &document, controls::Tab &theTab, int action, double /*x*/, double /*y*/)
{
    switch (static_cast<TabActionNumber>(action)) {
    case TabActionNumber::Activate:
        m_parts.mdi.activateForm(&document);
        break;
    case TabActionNumber::Close:
        document.Unload();
        break;
    case TabActionNumber::ToggleShrink:
        theTab.setTag(theTab.Tag().isEmpty() ? kShrunk : QString());
        document.ModifyTabCaption(theTab, document.LocationName());
        break;
    case TabActionNumber::ShowMenu:
        markAutoRefresh(m_parts.m_cTabMenu);
        showAtCursor(m_parts.m_cTabMenu);
        break;
    case TabActionNumber::Refresh:
        document.RefreshDoc();
        break;
    case TabActionNumber::Duplicate:
        m_parts.frmMain.LoadNewDoc(document.LocationURL());
        break;
    }
}

void TabStrip::markAutoRefresh(controls::PopupMenu &menu) const
{
    const auto mark = [&menu](const QString &key, bool checked) {
        step([&] { menu.setChecked(menu.IndexForKey(key), checked); });
    };
    for (const QString &key : {u"mnuTabAutoRefresh1"_s, u"mnuTabAutoRefresh2"_s, u"mnuTabAutoRefresh5"_s,
                               u"mnuTabAutoRefreshCustom"_s, u"mnuTabAutoRefreshStop"_s})
        mark(key, false);
    const Document *document = m_parts.frmMain.ActiveForm();
    if (!document)
        return;
    const std::optional<int> seconds = document->autoRefreshInterval();
    if (!seconds)
        mark(u"mnuTabAutoRefreshStop"_s, true);
    else if (*seconds == 60)
        mark(u"mnuTabAutoRefresh1"_s, true);
    else if (*seconds == 120)
        mark(u"mnuTabAutoRefresh2"_s, true);
    else if (*seconds == 300)
        mark(u"mnuTabAutoRefresh5"_s, true);
    else
        mark(u"mnuTabAutoRefreshCustom"_s, true);
}

void TabStrip::m_cTabMenu_Click(int ItemNumber)
{
    const QString key = m_parts.m_cTabMenu.ItemKey(ItemNumber);
    Document *document = m_parts.frmMain.ActiveForm();
    if (key.startsWith("mnuTabAutoRefresh"_L1) || key == "mnuTabAdd2Fav"_L1)
        emit tabMenuCommand(key);
    else if (!document)
        return;
    else if (key == "mnuTabRefresh"_L1)
        document->RefreshDoc();
    else if (key == "mnuTabClose"_L1)
        document->Unload();
    else if (key == "mnuTabToggleShrink"_L1)
        ToggleActiveTab();
    else if (key == "mnuTabDuplicate"_L1)
        m_parts.frmMain.LoadNewDoc(document->LocationURL());
}

void TabStrip::stepThroughTabs(bool backwards)
{
    controls::TabControl &tabs = m_parts.vbalDTabControl1;
    const int count = tabs.Tabs().Count();
    if (count <= 1)
        return;
    const controls::Tab *selected = tabs.SelectedTab();
    const int from = selected ? selected->Index() : 1;
    const int to = backwards ? (from == 1 ? count : from - 1) : (from == count ? 1 : from + 1);
    controls::Tab &theTab = tabs.Tabs(to);
    theTab.setSelected(true);
    vbalDTabControl1_TabClick(theTab, 1, 0, 0, 0);
}

void TabStrip::setShrunk(int n, bool shrunk)
{
    step([&] {
        controls::Tab &tab = m_parts.vbalDTabControl1.Tabs(n);
        tab.setTag(shrunk ? kShrunk : QString());
        Document &document = documentAt(n);
        document.ModifyTabCaption(tab, document.LocationName());
    });
}

void TabStrip::ShrinkAll()
{
    for (int n = 1; n <= m_parts.vbalDTabControl1.Tabs().Count(); ++n)
        setShrunk(n, true);
}

void TabStrip::ShrinkActive()
{
    if (const controls::Tab *tab = m_parts.vbalDTabControl1.SelectedTab())
        setShrunk(tab->Index(), true);
}

void TabStrip::ShrinkAllbutActive()
{
    for (int n = 1; n <= m_parts.vbalDTabControl1.Tabs().Count(); ++n) {
        if (!m_parts.vbalDTabControl1.Tabs(n).Selected())
            setShrunk(n, true);
    }
}

void TabStrip::ResetAll()
{
    for (int n = 1; n <= m_parts.vbalDTabControl1.Tabs().Count(); ++n)
        setShrunk(n, false);
}

void TabStrip::ToggleActiveTab()
{
    if (const controls::Tab *tab = m_parts.vbalDTabControl1.SelectedTab())
        setShrunk(tab->Index(), tab->Tag().isEmpty());
}
