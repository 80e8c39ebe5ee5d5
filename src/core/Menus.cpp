#include "core/Interface.h"

#include "base/Strings.h"
#include "controls/ImageList.h"
#include "controls/PopupMenu.h"
#include "controls/Texts.h"

#include <span>

using namespace Qt::StringLiterals;

namespace {

enum class Mark { None, Check, Radio };

/// One line of a menu table. Without a string it is a separator; without a parent it stands at the top level.
struct MenuLine
{
    const char16_t *key;
    int string = 0;
    int icon = -1;
    const char16_t *parent = nullptr;
    Mark mark = Mark::None;
};

constexpr MenuLine kMainMenu[] = {
    {u"mnuFile", 1000},
    {u"mnuFileNew", 1001, 4, u"mnuFile"},
    {u"mnuFileOpen", 1002, 0, u"mnuFile"},
    {u"mnuFileClose", 1003, -1, u"mnuFile"},
    {u"mnuFileBar0", 0, -1, u"mnuFile"},
    {u"mnuFileSaveAs", 1005, 5, u"mnuFile"},
    {u"mnuFileBar1", 0, -1, u"mnuFile"},
    {u"mnuFileProperties", 1007, -1, u"mnuFile"},
    {u"mnuFileBar2", 0, -1, u"mnuFile"},
    {u"mnuFilePageSetup", 1008, -1, u"mnuFile"},
    {u"mnuFilePrintPreview", 1067, -1, u"mnuFile"},
    {u"mnuFilePrint", 1010, 13, u"mnuFile"},
    {u"mnuFileBar3", 0, -1, u"mnuFile"},
    {u"mnuFileExit", 1012, -1, u"mnuFile"},

    {u"mnuEdit", 1013},
    {u"mnuEditCut", 1015, 7, u"mnuEdit"},
    {u"mnuEditCopy", 1016, 6, u"mnuEdit"},
    {u"mnuEditPaste", 1017, 8, u"mnuEdit"},
    {u"mnuEditBar0", 0, -1, u"mnuEdit"},
    {u"mnuEditIncFont", 1068, 15, u"mnuEdit"},
    {u"mnuEditDecFont", 1069, 16, u"mnuEdit"},
    {u"mnuEditResetFont", 1070, -1, u"mnuEdit"},
    {u"mnuEditBar1", 0, -1, u"mnuEdit"},
    {u"mnuEditSelectAll", 1071, -1, u"mnuEdit"},
    {u"mnuEditBar2", 0, -1, u"mnuEdit"},
    {u"mnuEditFind", 1072, 3, u"mnuEdit"},

    {u"mnuView", 1019},
    {u"mnuViewBrowseToolbar", 1073, -1, u"mnuView", Mark::Check},
    {u"mnuViewSitesToolbar", 1074, -1, u"mnuView", Mark::Check},
    {u"mnuViewAddressBar", 1075, -1, u"mnuView", Mark::Check},
    {u"mnuViewTabsBar", 1076, -1, u"mnuView", Mark::Check},
    {u"mnuViewStatusBar", 1021, -1, u"mnuView", Mark::Check},
    {u"mnuViewNavigator", 1077, -1, u"mnuView", Mark::Check},
    {u"mnuToolbars", 1135, -1, u"mnuView"},
    {u"mnuAlignTop", 1138, -1, u"mnuToolbars", Mark::Radio},
    {u"mnuAlignBottom", 1139, -1, u"mnuToolbars"},
    {u"mnuViewBar0", 0, -1, u"mnuView"},
    {u"mnuViewFav", 1078, 21, u"mnuView"},
    {u"mnuViewAddToFav", 1079, -1, u"mnuView"},
    {u"mnuViewOrgFav", 1080, -1, u"mnuView"},
    {u"mnuViewBar1", 0, -1, u"mnuView"},
    {u"mnuViewHistory", 1159, 22, u"mnuView"},
    {u"mnuViewBar2", 0, -1, u"mnuView"},
    {u"mnuViewTabs", 1081, -1, u"mnuView"},
    {u"mnuViewTabsShrinkAll", 1082, -1, u"mnuViewTabs"},
    {u"mnuViewTabsShrinkActive", 1160, -1, u"mnuViewTabs"},
    {u"mnuViewTabsShrinkAllbutActive", 1083, -1, u"mnuViewTabs"},
    {u"mnuViewTabsResetAll", 1084, -1, u"mnuViewTabs"},
    {u"mnuViewBar3", 0, -1, u"mnuView"},
    {u"mnuViewQSearch", 1085, 3, u"mnuView"},
    {u"mnuViewBar4", 0, -1, u"mnuView"},
    {u"mnuViewSource", 1086, 14, u"mnuView"},
    {u"mnuViewBar5", 0, -1, u"mnuView"},
    {u"mnuViewInternetOptions", 1128, 1, u"mnuView"},
    {u"mnuViewOptions", 1023, 1, u"mnuView"},

    {u"mnuNavigate1", 1087},
    {u"mnuNavigateBack", 1088, 9, u"mnuNavigate1"},
    {u"mnuNavigateForward", 1089, 10, u"mnuNavigate1"},
    {u"mnuNavigateStop", 1090, 12, u"mnuNavigate1"},
    {u"mnuNavigateRefresh", 1091, -1, u"mnuNavigate1"},
    {u"mnuTabAutoRefresh", 6005, 27, u"mnuNavigate1"},
    {u"mnuTabAutoRefresh1", 6006, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabAutoRefresh2", 6007, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabAutoRefresh5", 6008, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabAutoRefreshCustom", 6009, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabBar1", 0, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabAutoRefreshStop", 6010, -1, u"mnuTabAutoRefresh"},
    {u"mnuNavigateBar0", 0, -1, u"mnuNavigate1"},
    {u"mnuNavigateHome1", 1092, 2, u"mnuNavigate1"},
    {u"mnuNavigateHome2", 1093, 19, u"mnuNavigate1"},
    {u"mnuNavigatorBar1", 0, -1, u"mnuNavigate1"},
    {u"mnuNavigateMail", 1094, 20, u"mnuNavigate1"},
    {u"mnuNavigateSearch", 1095, 17, u"mnuNavigate1"},
    {u"mnuNavigateNews", 1096, 18, u"mnuNavigate1"},

    {u"mnuContent", 1131},
    {u"mnuContentAutoFill", 1133, -1, u"mnuContent", Mark::Check},
    {u"mnuContentFillForm", 1132, 23, u"mnuContent"},
    {u"mnuContentFormData", 1134, -1, u"mnuContent"},
    {u"mnuContentBar0", 0, -1, u"mnuContent"},
    {u"mnuContentImage", 1158, -1, u"mnuContent"},
    {u"mnuContentSound", 1155, -1, u"mnuContent"},
    {u"mnuContentVideo", 1156, -1, u"mnuContent"},
    {u"mnuContentScripts", 1154, -1, u"mnuContent"},
    {u"mnuContentJava", 1166, -1, u"mnuContent"},
    {u"mnuContentDLACTX", 1164, -1, u"mnuContent"},
    {u"mnuContentRUNACTX", 1165, -1, u"mnuContent"},
    {u"mnuContentFlash", 1157, -1, u"mnuContent"},
    {u"mnuContentBar1", 0, -1, u"mnuContent"},
    {u"mnuContentSuppressErrors", 1168, -1, u"mnuContent"},
    {u"mnuContentSuppressScriptErrors", 1169, -1, u"mnuContent"},

    {u"mnuWindow", 1025},

    {u"mnuHelp", 1031},
    {u"mnuHelpOnTheWeb", 1097, 32, u"mnuHelp"},
    {u"mnuHelpContents", 1098, -1, u"mnuHelp"},
    {u"mnuHelpQuickTour", 1170, -1, u"mnuHelp"},
    {u"mnuHelpBar0", 0, -1, u"mnuHelp"},
    {u"mnuHelpReportBug", 1171, 31, u"mnuHelp"},
    {u"mnuHelpBar1", 0, -1, u"mnuHelp"},
    {u"mnuHelpAbout", 1034, 28, u"mnuHelp"},
};

constexpr MenuLine kNewMenu[] = {
    {u"mnuNewHome1", 1092, 2},   {u"mnuNewHome2", 1093, 19},     {u"mnuNewBar0"}, {u"mnuNewBlank", 1099, 29},
    {u"mnuNewCurrent", 1100},    {u"mnuNewClipboard", 1167, 30}, {u"mnuNewBar0"}, {u"mnuNewEmail", 1149, 20},
    {u"mnuNewSearch", 1150, 17}, {u"mnuNewNews", 1151, 18},
};

constexpr MenuLine kToolbarMenu[] = {
    {u"mnuTBLargeIcons", 8500},
    {u"mnuTBShowText", 8501},
    {u"mnuTBTextAlign", 8502},
    {u"mnuTBTextAlignRight", 8503, -1, u"mnuTBTextAlign"},
    {u"mnuTBTextAlignBottom", 8504, -1, u"mnuTBTextAlign"},
};

/// Stands behind the lines that both toolbars have.
constexpr MenuLine kSitesToolbarMenu[] = {
    {u"mnuCustomSitesToolbar", 8505},
    {u"mnuImportIELinks", 8506},
};

constexpr MenuLine kTabMenu[] = {
    {u"mnuTabRefresh", 6000, 11},
    {u"mnuTabClose", 6001},
    {u"mnuTabToggleShrink", 6002},
    {u"mnuTabDuplicate", 6003},
    {u"mnuTabBar0"},
    {u"mnuTabAutoRefresh", 6005, 27},
    {u"mnuTabAutoRefresh1", 6006, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabAutoRefresh2", 6007, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabAutoRefresh5", 6008, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabAutoRefreshCustom", 6009, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabBar1", 0, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabAutoRefreshStop", 6010, -1, u"mnuTabAutoRefresh"},
    {u"mnuTabBar2"},
    {u"mnuTabAdd2Fav", 1079, 21},
    {u"mnuTabBar3"},
    {u"mnuTabCancel", 6004},
};

constexpr MenuLine kRefreshMenu[] = {{u"mnuNavigateRefreshAll", 1152}};
constexpr MenuLine kStopMenu[] = {{u"mnuNavigateStopAll", 1153}};

void addLines(controls::PopupMenu &menu, std::span<const MenuLine> lines)
{
    for (const MenuLine &line : lines) {
        const int parent = line.parent ? menu.IndexForKey(QString::fromUtf16(line.parent)) : 0;
        const QString caption = line.string ? LoadResString(line.string) : u"-"_s;
        const int item = menu.AddItem(caption, QString(), 0, parent, line.icon, line.mark == Mark::Check, true,
                                      QString::fromUtf16(line.key));
        if (line.mark == Mark::Radio)
            menu.setRadioChecked(item, true);
    }
}

/// A caption longer than this is cut in the Window menu.
constexpr int kCaptionLength = 32;
/// Line of the Window menu that stands for all further documents.
constexpr int kMoreLine = 11;

QString shortCaption(const QString &caption)
{
    const QString line = controls::drawableLine(caption.left(kCaptionLength), kCaptionLength);
    return caption.size() > kCaptionLength ? line + u"..."_s : line;
}

/// The active document first, the others in their order.
std::vector<WindowLine> activeFirst(const std::vector<WindowLine> &forms)
{
    std::vector<WindowLine> lines;
    for (const bool active : {true, false})
        for (const WindowLine &form : forms)
            if (form.active == active)
                lines.push_back(form);
    return lines;
}

} // namespace

void InitMainMenu(controls::PopupMenu &m_cMenu, const controls::ImageList &menuIL)
{
    m_cMenu.setImageList(&menuIL);
    addLines(m_cMenu, kMainMenu);
    // The placeholder makes the entry a submenu; its first opening replaces it.
    m_cMenu.AddItem(u"<WindowMenu>"_s, QString(), 0, m_cMenu.IndexForKey(u"mnuWindow"_s), -1, false, true,
                    u"mnuWin(0)"_s);
}

void InitNewMenu(controls::PopupMenu &m_cNew, const controls::ImageList &menuIL)
{
    m_cNew.setImageList(&menuIL);
    addLines(m_cNew, kNewMenu);
}

void InitNavToolbarMenu(controls::PopupMenu &m_cNavToolbar, const controls::ImageList &menuIL)
{
    m_cNavToolbar.setImageList(&menuIL);
    addLines(m_cNavToolbar, kToolbarMenu);
}

void InitSitesToolbarMenu(controls::PopupMenu &m_cSitesToolbar, const controls::ImageList &menuIL)
{
    m_cSitesToolbar.setImageList(&menuIL);
    addLines(m_cSitesToolbar, kToolbarMenu);
    addLines(m_cSitesToolbar, kSitesToolbarMenu);
}

void InitTabMenu(controls::PopupMenu &m_cTabMenu, const controls::ImageList &menuIL)
{
    m_cTabMenu.setImageList(&menuIL);
    addLines(m_cTabMenu, kTabMenu);
}

void InitRefreshMenu(controls::PopupMenu &m_cRefresh, const controls::ImageList &menuIL)
{
    m_cRefresh.setImageList(&menuIL);
    addLines(m_cRefresh, kRefreshMenu);
}

void InitStopMenu(controls::PopupMenu &m_cStop, const controls::ImageList &menuIL)
{
    m_cStop.setImageList(&menuIL);
    addLines(m_cStop, kStopMenu);
}

void BuildWindowMenu(controls::PopupMenu &menu, const QString &key, const std::vector<WindowLine> &forms)
{
    const int parent = menu.IndexForKey(key);
    if (parent < 1)
        return;
    menu.ClearSubItems(parent);

    const auto add = [&](int line, const QString &caption, int itemData = 0, int icon = -1, bool enabled = true,
                         bool checked = false) {
        menu.AddItem(caption, QString(), itemData, parent, icon, checked, enabled, u"mnuWin(%1)"_s.arg(line));
    };

    // Out of service until there are skins to choose from.
    const int skin = menu.AddItem(LoadResString(1140), QString(), -8000, parent, -1, false, false, u"mnuSkin"_s);
    menu.AddItem(u"testskin"_s, QString(), 0, skin, -1, false, true, u"mnuSkin1"_s);
    menu.AddItem(u"-"_s, QString(), -1, parent, -1, false, true, u"mnuWinBar0"_s);
    add(0, LoadResString(1141), kWindowTile, 25);
    add(1, LoadResString(1142), kWindowCascade, 26);
    add(2, LoadResString(1143), kWindowMaximizeAll);
    add(3, LoadResString(1144), kWindowMinimizeAll);
    add(4, u"-"_s);

    const bool several = forms.size() >= 2;
    add(5, LoadResString(1145), kWindowNext, -1, several);
    add(6, LoadResString(1146), kWindowPrevious, -1, several);
    if (forms.empty())
        return;
    add(7, u"-"_s);
    const std::vector<WindowLine> lines = activeFirst(forms);
    const int count = std::min(static_cast<int>(lines.size()), kMoreLine);
    for (int i = 1; i <= count; ++i) {
        if (i == kMoreLine) {
            add(i + 7, LoadResString(20051), kWindowMore);
            continue;
        }
        const WindowLine &line = lines[i - 1];
        // The title of a page may hold the sign that marks a letter in a menu.
        const QString caption = shortCaption(line.caption).replace(u'&', u"&&"_s);
        add(i + 7, u"&%1) "_s.arg(i) + caption, line.index, -1, true, i == 1);
    }
}
