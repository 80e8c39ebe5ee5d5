#pragma once

#include <QAbstractButton>

namespace controls {

/// A small flat button with a drawn sign of one-pixel lines, sharp at any device pixel ratio.
class GlyphButton : public QAbstractButton
{
    Q_OBJECT
public:
    enum class Glyph {
        Close,    ///< a diagonal cross
        Minimise, ///< a bar at the foot
        Restore,  ///< two overlapping windows
    };

    /// `name` is the accessible name and the tooltip. `edge` is the length of a side in device-independent pixels.
    GlyphButton(Glyph glyph, const QString &name, int edge, QWidget *parent = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Glyph m_glyph;
    int m_edge;
};

} // namespace controls
