#pragma once

#include <QObject>
#include <cstdint>

class Document;
class MainWindow;
struct Settings;
namespace controls {
class ListView;
class MdiFrame;
class PopupMenu;
class Tab;
class TabControl;
} // namespace controls

/// What TabAction does to a document; the numbers are stored and stand for the lines of the lists in the options.
enum class TabActionNumber : int16_t {
    Activate = 0,
    Close = 1,
    ToggleShrink = 2,
    ShowMenu = 3,
    Refresh = 4,
    Duplicate = 5,
};

/// The rules of the tab strip: what a click, a double click and the close button do, the tab menu, and the shrinking.
class TabStrip : public QObject
{
    Q_OBJECT
public:
    struct Parts
    {
        MainWindow &frmMain;
        const Settings &settings;
        controls::MdiFrame &mdi;
        controls::ListView &ListView1;
        controls::TabControl &vbalDTabControl1;
        controls::PopupMenu &m_cTabMenu;
        controls::PopupMenu &m_cNew;
    };
    explicit TabStrip(const Parts &parts, QObject *parent = nullptr);

    /// `iButton` 1 is the left button, anything else counts as the right one; any bit of `Shift` counts as Shift.
    void vbalDTabControl1_TabClick(controls::Tab &theTab, int iButton, int Shift, double x, double y);
    void vbalDTabControl1_TabDoubleClick(controls::Tab &theTab);
    /// The close button: the control has removed the tab already.
    void vbalDTabControl1_TabClose(controls::Tab &theTab, bool &cancel);
    void vbalDTabControl1_BarClick(int iButton, int Shift, double x, double y);
    void m_cTabMenu_Click(int ItemNumber);

    /// Ctrl+Tab: selects the next (or previous) tab, round the end, and runs the left click rule on it. Does nothing
    /// with fewer than two tabs.
    void stepThroughTabs(bool backwards);

    void ShrinkAll();
    void ShrinkActive();
    void ShrinkAllbutActive();
    void ResetAll();
    void ToggleActiveTab();

    /// Sets the check marks of the auto-refresh entries of a menu from the active document.
    void markAutoRefresh(controls::PopupMenu &menu) const;

signals:
    /// The tab menu's entries that other rooms serve: auto-refresh and adding to the favorites, by their key.
    void tabMenuCommand(const QString &key);

private:
    void TabAction(Document &document, controls::Tab &theTab, int action, double x, double y);
    void setShrunk(int n, bool shrunk);
    Document &documentAt(int n) const;

    Parts m_parts;
};
