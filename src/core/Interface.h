#pragma once

#include <QString>
#include <vector>

class QPainter;
class QRect;
class cMediaProgress;
struct ProcessFlags;

namespace controls {
class ImageList;
class PopupMenu;
class StatusBar;
} // namespace controls

/// Builders of the seven popup menus. Each gives its menu the pictures and adds the items of one table.
void InitMainMenu(controls::PopupMenu &m_cMenu, const controls::ImageList &menuIL);
void InitNewMenu(controls::PopupMenu &m_cNew, const controls::ImageList &menuIL);
void InitNavToolbarMenu(controls::PopupMenu &m_cNavToolbar, const controls::ImageList &menuIL);
void InitSitesToolbarMenu(controls::PopupMenu &m_cSitesToolbar, const controls::ImageList &menuIL);
void InitTabMenu(controls::PopupMenu &m_cTabMenu, const controls::ImageList &menuIL);
void InitRefreshMenu(controls::PopupMenu &m_cRefresh, const controls::ImageList &menuIL);
void InitStopMenu(controls::PopupMenu &m_cStop, const controls::ImageList &menuIL);

/// Item data of the fixed entries of the Window menu.
inline constexpr int kWindowTile = -8001;
inline constexpr int kWindowCascade = -8002;
inline constexpr int kWindowMaximizeAll = -8003;
inline constexpr int kWindowMinimizeAll = -8004;
inline constexpr int kWindowNext = -8005;
inline constexpr int kWindowPrevious = -8006;
inline constexpr int kWindowMore = -8007;

/// A document as the Window menu lists it.
struct WindowLine
{
    /// Position in the collection of forms, which becomes the item data.
    int index = 0;
    QString caption;
    bool active = false;
};

/// Fills the submenu under `key` anew: the fixed entries, then the documents, the active one first. At most ten stand
/// by name, "&More Windows..." is the eleventh. Does nothing when there is no such item.
void BuildWindowMenu(controls::PopupMenu &menu, const QString &key, const std::vector<WindowLine> &forms);

/// Size of the progress bar in the status bar, in device-independent pixels, and of its letters, in points.
inline constexpr int kProgressWidth = 172;
inline constexpr int kProgressHeight = 20;
inline constexpr double kProgressFont = 8.25;

/// Adds the seven panels. `Item6` is painted by drawProgressPanel.
void InitStatusBar(controls::StatusBar &bar, const controls::ImageList &miscIL);
/// Date and time into `Item2`, in the short formats of the system.
void showClock(controls::StatusBar &bar);
/// Paints the load of the active document, which the bar's Tag holds, into `Item6`. `rect` is the panel in pixels.
void drawProgressPanel(QPainter &painter, const QRect &rect, const controls::StatusBar &bar, cMediaProgress &cProgress,
                       const ProcessFlags &flags, bool hasActiveForm);
