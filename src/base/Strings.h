#pragma once

#include <QString>

class QWidget;

/// The string of an id from the program's string table (resources/strings/strings.txt). Throws ControlError for an
/// absent id.
QString LoadResString(int id);

/// Replaces the numbers that a form definition holds by their strings. Called first in the load of every form.
///
/// A form of ours carries a number in the dynamic property "Tag" (kTag) of the window or control, or as its text, as
/// the table of the program's form definitions says:
///   - window: kTag, any number but -1;
///   - QLabel: its text is the id;
///   - QAction/QMenu in the form: its text is the id;
///   - QTabWidget/QTabBar: per tab, tab data (QTabBar::tabData) is the id of the caption and the tooltip is an id;
///   - QToolBar: text and tooltip of each button that is no separator;
///   - QTreeWidget: header item, data(column, kTagRole);
///   - lines, timers and image lists: nothing;
///   - everything else: kTag above 0 gives the caption, a tooltip above 0 the tooltip.
/// A number without a string, or a text that is no number, leaves the thing unchanged.
void LocalizeForm(QWidget *form);

/// Name of the dynamic property that stands for a control's Tag.
inline constexpr char kTag[] = "Tag";
/// Item data role that holds the Tag of a column header.
inline constexpr int kTagRole = 0x0100 + 1;
