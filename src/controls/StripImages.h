#pragma once

#include <QIcon>
#include <QString>
#include <vector>

namespace controls {

/// Glyphs of a strip file: square cells side by side, as high as the picture. A file "name@2x.ext" beside it of exactly
/// twice the size serves high-resolution screens. A picture without an alpha channel takes the colour of its top left
/// pixel for the background. A missing file, a broken one and one of absurd size give no glyphs.
class StripImages
{
public:
    void load(const QString &path);
    /// A null icon for a number outside the strip.
    QIcon icon(int index) const;

private:
    std::vector<QIcon> m_icons;
};

} // namespace controls
