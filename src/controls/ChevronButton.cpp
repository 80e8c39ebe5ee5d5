#include "controls/ChevronButton.h"

#include "controls/FlatLook.h"

#include <QPainter>

namespace controls {

ChevronButton::ChevronButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::TabFocus);
}

void ChevronButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    paintFlatPanel(painter, rect(), palette(), isDown(), underMouse() || hasFocus());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1.2, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    const QPointF middle(width() / 2.0, height() / 2.0);
    for (const double dx : {-3.5, 0.5}) {
        const QPointF tip(middle.x() + dx + 3, middle.y());
        painter.drawPolyline(QPolygonF{tip + QPointF(-3, -3), tip, tip + QPointF(-3, 3)});
    }
}

void ChevronButton::enterEvent(QEnterEvent *event)
{
    update();
    QAbstractButton::enterEvent(event);
}

void ChevronButton::leaveEvent(QEvent *event)
{
    update();
    QAbstractButton::leaveEvent(event);
}

} // namespace controls
