#include "core/Interface.h"

#include "appearance/cMediaProgress.h"
#include "base/Strings.h"
#include "controls/ImageList.h"
#include "controls/StatusBar.h"
#include "core/state/ProcessFlags.h"

#include <QDateTime>
#include <QFont>
#include <QLocale>
#include <QPainter>
#include <cmath>

using namespace Qt::StringLiterals;
using controls::StatusBar;

namespace {

/// The renderer gets the panel's right and bottom edge as width and height, the right edge moved out by this much, so
/// that the surface is never cut before the panel ends.
constexpr int kBeyondPanel = 100;

/// Gives the bar as many pixels as the screen has for its size, so that it is sharp at every scale.
void fitToScreen(cMediaProgress &cProgress, double ratio)
{
    const int width = qRound(kProgressWidth * ratio);
    if (cProgress.Width() == width)
        return;
    QFont font = cProgress.Font();
    font.setPointSizeF(kProgressFont * ratio);
    cProgress.setFont(font);
    cProgress.setHeight(qRound(kProgressHeight * ratio));
    cProgress.setWidth(width);
}

/// The plain bar of a platform that is not of the NT family: a filled part and the percentage over it.
void drawPlainProgress(QPainter &painter, const QRect &rect, int p)
{
    if (p == 0)
        return;
    constexpr int kRightRoom = 20;
    const int left = rect.left();
    const int room = rect.width() - kRightRoom;
    const int filled = static_cast<int>(std::nearbyint(room * p / 100.0 + left + 5)) - left;
    painter.setPen(Qt::black);
    painter.setBrush(QColor(204, 204, 255));
    painter.drawRect(left, rect.top() + 1, filled - 1, rect.height() - 3);
    const QRect text(left, rect.top() + 1, room, rect.height() - 2);
    painter.drawText(text, Qt::AlignCenter | Qt::TextSingleLine, p == 100 ? LoadResString(20052) : u"%1%"_s.arg(p));
}

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
    if (!flags.IsNT) {
        drawPlainProgress(painter, rect, p);
        return;
    }
    const bool idle = flags.IsXP && p == 0;
    if (idle && !hasActiveForm)
        return;
    if (idle)
        p = 100;
    const double ratio = painter.device()->devicePixelRatioF();
    fitToScreen(cProgress, ratio);
    const bool complete = p == 100;
    cProgress.setShowPercentage(!complete);
    cProgress.setText(LoadResString(complete ? 20052 : 20053));
    cProgress.setValue(p);
    painter.translate(rect.topLeft());
    painter.scale(1 / ratio, 1 / ratio);
    cProgress.Draw(painter, 0, 0, qRound((rect.left() + rect.width() + kBeyondPanel) * ratio),
                   qRound((rect.top() + rect.height()) * ratio), 255);
}
