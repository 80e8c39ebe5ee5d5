#pragma once

#include "appearance/cAlphaDibSection.h"

#include <QFont>
#include <QString>
#include <cstdint>

class QPainter;

/// Draws a small progress bar into a surface of its own and copies that surface to a painter on request. Every property
/// write draws the surface anew at once; before the first one there is nothing to draw. Sizes are pixels.
class cMediaProgress
{
public:
    cMediaProgress();

    /// The red, green and blue of a colour: 0x00BBGGRR, or 0x80000000 plus the number of a system colour (15 is the
    /// button face). -1 for a colour that does not exist.
    static int32_t TranslateColor(int64_t colour);

    int32_t Width() const { return m_width; }
    /// Throws RuntimeError 425 while AutoSize is on.
    void setWidth(int32_t width);
    int32_t MinWidth() const { return m_minWidth; }
    void setMinWidth(int32_t width);
    int32_t Height() const { return m_height; }
    void setHeight(int32_t height);
    const QFont &Font() const { return m_font; }
    void setFont(const QFont &font);
    /// Kept, and without effect on the drawing.
    int32_t BarColor() const { return m_barColor; }
    void setBarColor(int32_t colour);
    bool AutoSize() const { return m_autoSize; }
    void setAutoSize(bool on);
    bool ShowPercentage() const { return m_showPercentage; }
    void setShowPercentage(bool on);
    const QString &text() const { return m_text; }
    void setText(const QString &text);
    int32_t Min() const { return m_min; }
    void setMin(int32_t min);
    int32_t Max() const { return m_max; }
    void setMax(int32_t max);
    /// 0 to 1.
    float Percent() const { return m_percent; }
    void setPercent(float percent);
    int32_t Value() const { return m_value; }
    /// Percent becomes the value divided by the range; Min is not taken off it.
    void setValue(int32_t value);

    /// Copies the surface to x, y. A width of -1 means Width (with AutoSize at least MinWidth), a height of -1 Height.
    /// Draws with the alpha 255 only.
    void Draw(QPainter &target, int x, int y, int width = -1, int height = -1, int alpha = 255) const;
    void Refresh();

    const cAlphaDibSection &surface() const { return m_surface; }

    /// Hue in sixths of the circle (-1 to 5), saturation and lightness 0 to 1, from and to bytes.
    static void RGBToHLS(int r, int g, int b, float &h, float &s, float &l);
    static void HLSToRGB(float h, float s, float l, int &r, int &g, int &b);

private:
    QString caption() const;
    void fillBar(cAlphaDibSection &surface, int left, int top, int right, int bottom) const;
    void drawCaption(const QString &caption, int left, int top, int right, int bottom);
    void recolour(int barRight);

    cAlphaDibSection m_surface;
    QFont m_font;
    QString m_text;
    int32_t m_width = 100;
    int32_t m_minWidth = 16;
    int32_t m_height = 20;
    int32_t m_barColor = 0x69C85D;
    int32_t m_min = 0;
    int32_t m_max = 0;
    int32_t m_value = 0;
    float m_percent = 0;
    bool m_autoSize = false;
    bool m_showPercentage = true;
};
