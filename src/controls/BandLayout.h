#pragma once

#include <QRect>
#include <vector>

namespace controls {

/// What a band needs in all, and where it is put.
struct BandNeed
{
    bool visible = true;
    bool fixedSize = false;
    int width = 0;
    int minWidth = 0;
    int height = 0;
    QRect rect;
};

/// The places of bands in rows, without any widget. Bands are numbers; hidden ones keep their place. Pixels.
class BandRows
{
public:
    /// Height of the line between two rows.
    static constexpr int kLine = 2;

    void append(int band, bool newRow);
    /// Gives every visible band its rectangle and returns the height of all rows. Each band gets the width that it
    /// needs or that the user gave it; the last one of a row that is not of fixed size takes the rest. Where the width
    /// does not do, bands shrink from the right, none below its least width.
    int layOut(std::vector<BandNeed> &needs, int width);
    const std::vector<std::vector<int>> &rows() const { return m_rows; }
    /// Upper edges of the lines between the rows of the last layout.
    const std::vector<int> &lines() const { return m_lines; }

    /// Follows the mouse that holds a band: into another row, past its neighbours, or moving the border to the left
    /// one. `left` is where the band's left edge would be. False when nothing changes.
    bool drag(int band, QPoint mouse, int left);
    /// Above or below all others. False when it stands alone there already.
    bool moveToNewRow(int band, bool top);

private:
    struct Row
    {
        size_t place;
        int top;
        int bottom;
        std::vector<int> visible;
    };
    void layOutRow(Row &row, std::vector<BandNeed> &needs, int width, int height) const;
    const Row *rowOf(int band) const;
    bool dragInRow(const Row &row, int band, int mouseX, int left);
    void takeOut(int band);
    int userWidth(int band) const;
    void setUserWidth(int band, int width);

    std::vector<std::vector<int>> m_rows;
    /// By band; 0 where the user has given none.
    std::vector<int> m_userWidths;
    /// Results of the last layout.
    std::vector<BandNeed> m_laid;
    std::vector<Row> m_laidRows;
    std::vector<int> m_lines;
};

} // namespace controls
