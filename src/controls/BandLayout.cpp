#include "controls/BandLayout.h"

#include <algorithm>

namespace controls {

void BandRows::append(int band, bool newRow)
{
    if (newRow || m_rows.empty())
        m_rows.emplace_back();
    m_rows.back().push_back(band);
}

int BandRows::userWidth(int band) const
{
    const auto index = static_cast<size_t>(band);
    return index < m_userWidths.size() ? m_userWidths[index] : 0;
}

void BandRows::setUserWidth(int band, int width)
{
    const auto index = static_cast<size_t>(band);
    if (index >= m_userWidths.size())
        m_userWidths.resize(index + 1);
    m_userWidths[index] = width;
}

int BandRows::layOut(std::vector<BandNeed> &needs, int width)
{
    m_lines.clear();
    m_laidRows.clear();
    int y = 0;
    for (size_t place = 0; place < m_rows.size(); ++place) {
        Row row{place, 0, 0, {}};
        int height = 0;
        for (const int band : m_rows[place]) {
            const BandNeed &need = needs[static_cast<size_t>(band)];
            if (!need.visible)
                continue;
            row.visible.push_back(band);
            height = std::max(height, need.height);
        }
        if (row.visible.empty())
            continue;
        if (!m_laidRows.empty()) {
            m_lines.push_back(y);
            y += kLine;
        }
        row.top = y;
        row.bottom = y + height;
        layOutRow(row, needs, width, height);
        y += height;
        m_laidRows.push_back(std::move(row));
    }
    m_laid = needs;
    return y;
}

void BandRows::layOutRow(Row &row, std::vector<BandNeed> &needs, int width, int height) const
{
    const auto need = [&needs](int band) -> BandNeed & { return needs[static_cast<size_t>(band)]; };
    int total = 0;
    for (const int band : row.visible) {
        BandNeed &each = need(band);
        const int user = userWidth(band);
        const int wanted = each.fixedSize ? each.width : std::max(each.minWidth, user > 0 ? user : each.width);
        each.rect = QRect(0, row.top, wanted, height);
        total += wanted;
    }
    // The free room goes to the last movable band; where room lacks, it is taken from the right.
    int missing = total - width;
    for (auto it = row.visible.rbegin(); it != row.visible.rend() && missing != 0; ++it) {
        BandNeed &each = need(*it);
        if (each.fixedSize)
            continue;
        const int taken = std::min(missing, each.rect.width() - each.minWidth);
        each.rect.setWidth(each.rect.width() - taken);
        missing -= taken;
    }
    int x = 0;
    for (const int band : row.visible) {
        need(band).rect.moveLeft(x);
        x += need(band).rect.width();
    }
}

const BandRows::Row *BandRows::rowOf(int band) const
{
    for (const Row &row : m_laidRows) {
        if (std::find(row.visible.begin(), row.visible.end(), band) != row.visible.end())
            return &row;
    }
    return nullptr;
}

void BandRows::takeOut(int band)
{
    for (std::vector<int> &row : m_rows)
        std::erase(row, band);
}

bool BandRows::drag(int band, QPoint mouse, int left)
{
    const Row *own = rowOf(band);
    if (!own)
        return false;
    const auto target = std::find_if(m_laidRows.begin(), m_laidRows.end(), [&mouse](const Row &row) {
        return mouse.y() >= row.top && mouse.y() < row.bottom;
    });
    if (target == m_laidRows.end() || &*target == own)
        return dragInRow(*own, band, mouse.x(), left);

    // Before the first band whose middle the mouse has not passed; bands of fixed size keep the right end.
    int before = -1;
    for (const int other : target->visible) {
        const BandNeed &need = m_laid[static_cast<size_t>(other)];
        const bool last = other == target->visible.back();
        if (mouse.x() < need.rect.center().x() || (last && need.fixedSize)) {
            before = other;
            break;
        }
    }
    takeOut(band);
    std::vector<int> &row = m_rows[target->place];
    row.insert(before < 0 ? row.end() : std::find(row.begin(), row.end(), before), band);
    std::erase_if(m_rows, [](const std::vector<int> &each) { return each.empty(); });
    // A width that was given in other company is no use here, neither for the band nor for those it joins.
    setUserWidth(band, 0);
    return true;
}

bool BandRows::dragInRow(const Row &row, int band, int mouseX, int left)
{
    const auto laid = [this](int index) -> const BandNeed & { return m_laid[static_cast<size_t>(index)]; };
    const auto self = std::find(row.visible.begin(), row.visible.end(), band);
    std::vector<int> &places = m_rows[row.place];
    const auto swapWith = [&](int other) {
        std::iter_swap(std::find(places.begin(), places.end(), band), std::find(places.begin(), places.end(), other));
        return true;
    };
    if (self + 1 != row.visible.end()) {
        const int next = *(self + 1);
        if (!laid(next).fixedSize && mouseX > laid(next).rect.center().x())
            return swapWith(next);
    }
    if (self == row.visible.begin() || laid(*(self - 1)).fixedSize)
        return false;
    const int previous = *(self - 1);
    const QRect previousRect = laid(previous).rect;
    const QRect ownRect = laid(band).rect;
    if (mouseX <= previousRect.left() + std::min(7, previousRect.width() / 2))
        return swapWith(previous);
    const int border =
        std::clamp(left, previousRect.left() + laid(previous).minWidth,
                   std::max(previousRect.left() + laid(previous).minWidth, ownRect.right() + 1 - laid(band).minWidth));
    if (border == ownRect.left())
        return false;
    setUserWidth(previous, border - previousRect.left());
    setUserWidth(band, ownRect.right() + 1 - border);
    return true;
}

bool BandRows::moveToNewRow(int band, bool top)
{
    const Row *own = rowOf(band);
    const Row &edge = top ? m_laidRows.front() : m_laidRows.back();
    if (!own || (own == &edge && own->visible.size() == 1))
        return false;
    takeOut(band);
    std::erase_if(m_rows, [](const std::vector<int> &each) { return each.empty(); });
    m_rows.insert(top ? m_rows.begin() : m_rows.end(), {band});
    setUserWidth(band, 0);
    return true;
}

} // namespace controls
