#include "core/Interface.h"

#include "appearance/cMediaProgress.h"
#include "base/Strings.h"
#include "controls/ImageList.h"
#include "controls/StatusBar.h"
#include "core/state/ProcessFlags.h"

#include <QDateTime>
#include <QLocale>
#include <QPainter>

using namespace Qt::StringLiterals;
using controls::StatusBar;

namespace {

/// The renderer gets the panel's right and bottom edge as width and height, the right edge moved out by this much, so
/// that the surface is never cut before the panel ends.
constexpr int kBeyondPanel = 100;

} // namespace

void InitStatusBar(StatusBar &bar, const controls::ImageList &miscIL)
{
    constexpr int kIconStyle = StatusBar::kNoBorders | StatusBar::kToolTips;

    bar.setImageList(&miscIL);
    bar.AddPanel(0, QString(), -1, 145, true, u"Item1"_s);
    bar.AddPanel(0, QString(), -1, 145, false, u"Item2"_s);
    bar.AddPanel(kIconStyle, QString(), -1, 16, false, u"Item3"_s);
    bar.AddPanel(kIconStyle, QString(), -1, 16, false, u"Item4"_s);
    bar.AddPanel(kIconStyle, QString(), -1, 16, false, u"Item5"_s);
    bar.AddPanel(StatusBar::kOwnerDraw, QString(), -1, 172, false, u"Item6"_s);
    bar.AddPanel(StatusBar::kNoBorders, QString(), -1, 16, false, u"Item7"_s);

    bar.setPanelIcon(u"Item3"_s, 0);
    bar.setPanelToolTip(u"Item3"_s, LoadResString(1125));
    bar.setPanelToolTip(u"Item4"_s, LoadResString(1126));
    bar.setPanelToolTip(u"Item5"_s, LoadResString(1127));
}

void showClock(StatusBar &bar)
{
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale = QLocale::system();
    const QString text = locale.toString(now.date(), QLocale::ShortFormat) + u"    "_s +
                         locale.toString(now.time(), QLocale::ShortFormat);
    bar.setPanelText(u"Item2"_s, text);
    bar.setPanelToolTip(u"Item2"_s, text);
}

void drawProgressPanel(QPainter &painter, const QRect &rect, const StatusBar &bar, cMediaProgress &cProgress,
                       const ProcessFlags &flags, bool hasActiveForm)
{
    int p = bar.Tag().toInt();
    const bool idle = flags.IsXP && p == 0;
    if (idle && !hasActiveForm)
        return;
    if (idle)
        p = 100;
    const bool complete = p == 100;
    cProgress.setShowPercentage(!complete);
    cProgress.setText(LoadResString(complete ? 20052 : 20053));
    cProgress.setValue(p);
    cProgress.Draw(painter, rect.left(), rect.top(), rect.left() + rect.width() + kBeyondPanel,
                   rect.top() + rect.height(), 255);
}
