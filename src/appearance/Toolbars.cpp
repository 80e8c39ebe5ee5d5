#include "appearance/Toolbars.h"

#include "base/Strings.h"
#include "base/step.h"
#include "controls/BandContainer.h"
#include "controls/PopupMenu.h"
#include "controls/ToolBar.h"
#include "core/state/Settings.h"
#include "core/state/SettingsStore.h"
#include "core/state/SettingsTable.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargeCell = 24;
constexpr int kSmallCell = 16;
/// Least height of a toolbar's band once its captions have been switched.
constexpr int kBandMinHeight = 24;

constexpr int kPlain = controls::kButtonAutoSize;
constexpr int kDropDown = controls::kButtonAutoSize | controls::kButtonDropDown;

struct ButtonLine
{
    const char16_t *key;
    /// String of both caption and tooltip.
    int string;
    int glyph;
    int style;
};

constexpr ButtonLine kToolbar1[] = {
    {u"New", 1101, 0, kDropDown},     {u"Back", 1102, 3, kDropDown},
    {u"Forward", 1103, 4, kDropDown}, {u"Refresh", 1104, 5, kDropDown},
    {u"Stop", 1105, 6, kDropDown},    {u"Home", 1106, 8, kPlain},
    {u"Home2", 1129, 9, kPlain},      {u"", 0, -1, controls::kButtonSeparator},
    {u"Mail", 1113, 1, kPlain},       {u"Search", 1114, 2, kPlain},
    {u"News", 1115, 7, kPlain},
};

/// Stands as button 0 for good; the custom links come behind it and hide it.
constexpr ButtonLine kToolbar2[] = {{u"hack", 1101, 7, kPlain}};

void addButtons(controls::ToolBar &toolbar, std::span<const ButtonLine> lines)
{
    for (const ButtonLine &line : lines) {
        const QString text = line.string ? LoadResString(line.string) : QString();
        toolbar.AddButton(text, line.glyph, text, line.style, QString::fromUtf16(line.key));
    }
}

} // namespace

Toolbars::Toolbars(controls::ToolBar &toolbar1, controls::ToolBar &toolbar2, controls::BandContainer &bands,
                   SettingsStore &store, const Settings &settings)
    : Toolbar1(toolbar1)
    , Toolbar2(toolbar2)
    , cReBar1(bands)
    , m_store(store)
    , m_settings(settings)
{}

bool Toolbars::stored(const QString &key) const
{
    bool value = false;
    for (const WindowKey &each : windowKeys()) {
        if (key == QLatin1String(each.key)) {
            const QString text =
                m_store.GetSetting(appTitle(), u"Settings"_s, key, QString::fromLatin1(each.defaultText));
            step([&] { value = toBoolean(text); });
        }
    }
    return value;
}

void Toolbars::BuildToolbars()
{
    m_largeBitmap = m_settings.ToolbarLargeBitmap;
    m_smallBitmap = m_settings.ToolbarSmallBitmap;

    create(Toolbar1, u"Toolbar1"_s);
    addButtons(Toolbar1, kToolbar1);
    SetToolbarText(Toolbar1, u"Toolbar1"_s, stored(u"Toolbar1ShowText"_s));

    create(Toolbar2, u"Toolbar2"_s);
    addButtons(Toolbar2, kToolbar2);
    SetToolbarText(Toolbar2, u"Toolbar2"_s, stored(u"Toolbar2ShowText"_s));
}

void Toolbars::create(controls::ToolBar &toolbar, const QString &bandKey)
{
    const bool large = stored(bandKey + u"LargeIcons"_s);
    toolbar.setImageFile(large ? m_largeBitmap : m_smallBitmap);
    toolbar.CreateToolbar(large ? kLargeCell : kSmallCell, stored(bandKey + u"TextAlignRight"_s),
                          stored(bandKey + u"ShowText"_s));
}

void Toolbars::SetToolbarText(controls::ToolBar &toolbar, const QString &bandKey, bool show)
{
    for (int i = 0; i < toolbar.ButtonCount(); ++i)
        toolbar.setButtonTextVisible(toolbar.ButtonKey(i), show);
    toolbar.RefreshButtons();
    // While the toolbars are being built there are no bands yet.
    const int index = cReBar1.BandIndexForKey(bandKey);
    if (index >= 0)
        fitBand(toolbar, index);
}

void Toolbars::SetToolbarTextAlign(controls::ToolBar &toolbar, const QString &bandKey, bool right)
{
    toolbar.setTextAlignRight(right);
    const int index = cReBar1.BandIndexForKey(bandKey);
    if (index >= 0)
        fitBand(toolbar, index);
}

void Toolbars::fitBand(controls::ToolBar &toolbar, int bandIndex)
{
    cReBar1.SetBandChildSize(bandIndex, toolbar.ToolbarWidth(), toolbar.ToolbarHeight());
    cReBar1.setBandMinHeight(bandIndex, kBandMinHeight);
    cReBar1.RecalculateLayout();
}

void Toolbars::SetToolbarIconSize(controls::ToolBar &toolbar, int bandIndex, bool large)
{
    const int cell = large ? kLargeCell : kSmallCell;
    toolbar.setImageFile(large ? m_largeBitmap : m_smallBitmap);
    toolbar.SetImageSize(cell);
    cReBar1.setBandMinHeight(bandIndex, cell);
    cReBar1.SetBandChildSize(bandIndex, toolbar.ToolbarWidth(), toolbar.ToolbarHeight());
    cReBar1.RecalculateLayout();
}

void Toolbars::PrepareToolbarMenu(controls::PopupMenu &menu, controls::ToolBar &toolbar, const QString &bandKey)
{
    const bool right = toolbar.TextAlignRight();
    menu.setChecked(menu.IndexForKey(u"mnuTBLargeIcons"_s), stored(bandKey + u"LargeIcons"_s));
    menu.setChecked(menu.IndexForKey(u"mnuTBShowText"_s), stored(bandKey + u"ShowText"_s));
    menu.setRadioChecked(menu.IndexForKey(u"mnuTBTextAlignRight"_s), right);
    menu.setRadioChecked(menu.IndexForKey(u"mnuTBTextAlignBottom"_s), !right);
    // Button 1, because button 0 of the sites toolbar is a place holder. Without any link there is nothing to align.
    menu.setEnabled(menu.IndexForKey(u"mnuTBTextAlign"_s), toolbar.ButtonCount() > 1 && toolbar.ButtonTextVisible(1));
}
