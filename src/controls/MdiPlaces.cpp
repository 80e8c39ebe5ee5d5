// Where the children of an MDI frame stand.

#include "controls/MdiChild.h"
#include "controls/MdiFrame.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <cmath>

namespace controls {

/// Puts one child where the present state wants it. One call, one change of geometry.
void MdiFrame::place(MdiChild *child)
{
    if (child->isMinimized())
        return;
    const QRect room = viewport()->rect();
    if (!child->normalPlace.isValid() && !m_maximised)
        child->normalPlace = cascadePlace(m_cascadeStep++);
    const QRect wanted = m_maximised ? room.marginsAdded(child->contentsMargins()) : child->normalPlace;
    if (child->geometry() != wanted)
        child->setGeometry(wanted);
}

/// The room has changed: the child that fills it follows, tiles are laid again, and others are kept where their title
/// bars can be reached.
void MdiFrame::placeAll()
{
    const QScopedValueRollback working(m_working, m_working + 1);
    if (m_maximised) {
        if (m_active)
            place(m_active);
        return;
    }
    if (m_tiled) {
        tile();
        return;
    }
    constexpr int kReach = 80;
    const QRect room = viewport()->rect();
    for (MdiChild *child : m_children) {
        if (child->isMinimized())
            continue;
        const QPoint kept(std::clamp(child->x(), kReach - child->width(), std::max(0, room.width() - kReach)),
                          std::clamp(child->y(), 0, std::max(0, room.height() - kReach / 2)));
        if (kept != child->pos())
            child->move(kept);
    }
}

/// Two thirds of the frame, each a title bar lower and further right than the one before, and from the top again when
/// the frame ends.
QRect MdiFrame::cascadePlace(int step) const
{
    const QSize room = viewport()->size();
    const QSize size(std::max(200, room.width() * 2 / 3), std::max(120, room.height() * 2 / 3));
    const int offset = m_children.empty() ? 24 : std::max(16, m_children.front()->contentsMargins().top());
    const int steps = std::max(1, std::min(room.width() - size.width(), room.height() - size.height()) / offset + 1);
    return {QPoint(step % steps, step % steps) * offset, size};
}

void MdiFrame::Arrange(int how)
{
    setMaximised(false);
    const QScopedValueRollback working(m_working, m_working + 1);
    if (how == vbTileHorizontal)
        tile();
    else
        cascade();
    m_tiled = how == vbTileHorizontal;
}

void MdiFrame::cascade()
{
    // In the order of use, so that the active one lies on top.
    std::vector<MdiChild *> order = m_children;
    std::sort(order.begin(), order.end(),
              [](const MdiChild *a, const MdiChild *b) { return a->lastUsed < b->lastUsed; });
    m_cascadeStep = 0;
    for (MdiChild *child : order) {
        if (child->isMinimized())
            continue;
        child->normalPlace = cascadePlace(m_cascadeStep++);
        place(child);
        child->raise();
    }
}

/// Up to three children stand one above the other; more of them in as many columns as the square root says, the last
/// columns taking one more where the number does not divide.
void MdiFrame::tile()
{
    std::vector<MdiChild *> tiles;
    bool minimised = false;
    for (MdiChild *child : m_children) {
        if (child->isMinimized())
            minimised = true;
        else
            tiles.push_back(child);
    }
    if (tiles.empty())
        return;
    QRect room = viewport()->rect();
    if (minimised) {
        for (const MdiChild *child : m_children) {
            if (child->isMinimized())
                room.setBottom(std::min(room.bottom(), child->y() - 1));
        }
        if (room.height() < viewport()->height() / 2)
            room = viewport()->rect(); // so many minimised ones that nothing else would be seen
    }
    const int count = static_cast<int>(tiles.size());
    const int columns = static_cast<int>(std::sqrt(static_cast<double>(count)));
    const int longer = count % columns;
    int index = 0;
    for (int column = 0; column < columns; ++column) {
        const int rows = count / columns + (column >= columns - longer ? 1 : 0);
        const int left = room.width() * column / columns;
        const int right = room.width() * (column + 1) / columns;
        for (int row = 0; row < rows; ++row, ++index) {
            const int top = room.height() * row / rows;
            const int bottom = room.height() * (row + 1) / rows;
            MdiChild *child = tiles[static_cast<size_t>(index)];
            child->normalPlace = QRect(room.left() + left, room.top() + top, right - left, bottom - top);
            place(child);
        }
    }
}

} // namespace controls
