#pragma once

#include <QIcon>
#include <QString>
#include <vector>

namespace controls {

/// Pictures of one size, found by their index from 0. Built from SVG files of the resources, so each is sharp at any
/// device pixel ratio.
class ImageList
{
public:
    /// `size` is the edge of a picture in device-independent pixels.
    explicit ImageList(int size)
        : m_size(size)
    {}

    /// Appends a picture; a file that cannot be read gives an empty picture and keeps the numbering. Rendered lazily,
    /// at first use.
    int add(const QString &svgFile);
    int size() const { return m_size; }
    int count() const { return static_cast<int>(m_icons.size()); }
    /// A null icon for an index outside the list (-1 means no picture).
    QIcon icon(int index) const;
    QPixmap pixmap(int index, qreal devicePixelRatio) const;

private:
    int m_size;
    std::vector<QIcon> m_icons;
};

} // namespace controls
