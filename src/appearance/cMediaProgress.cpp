#include "appearance/cMediaProgress.h"

#include "base/RuntimeError.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct Colour
{
    int red, green, blue;
};
constexpr Colour kField{204, 204, 255};
constexpr Colour kBarLeft{255, 255, 255};
constexpr Colour kBarRight{106, 106, 181};
/// System colour 15, the button face.
constexpr int64_t kButtonFace = 0x8000000F;

int roundEven(double value)
{
    return static_cast<int>(std::nearbyint(value));
}

QColor fromNumber(int32_t bgr)
{
    return QColor(bgr & 0xff, bgr >> 8 & 0xff, bgr >> 16 & 0xff);
}

} // namespace

cMediaProgress::cMediaProgress()
    : m_font(QStringLiteral("Tahoma"))
{
    m_font.setPointSizeF(8.25);
}

int32_t cMediaProgress::TranslateColor(int64_t colour)
{
    if (colour >= 0 && colour <= 0xffffff)
        return static_cast<int32_t>(colour);
    // The roles behind the numbers 0x80000000 to 0x80000018 of the system's colours, in their order.
    static constexpr std::array kRoles{
        QPalette::Mid,    QPalette::Window,     QPalette::Highlight, QPalette::Mid,         QPalette::Window,
        QPalette::Base,   QPalette::WindowText, QPalette::Text,      QPalette::Text,        QPalette::HighlightedText,
        QPalette::Mid,    QPalette::Mid,        QPalette::Mid,       QPalette::Highlight,   QPalette::HighlightedText,
        QPalette::Button, QPalette::Dark,       QPalette::Dark,      QPalette::ButtonText,  QPalette::Dark,
        QPalette::Light,  QPalette::Shadow,     QPalette::Light,     QPalette::ToolTipText, QPalette::ToolTipBase};
    const int64_t number = colour - 0x80000000LL;
    if (number < 0 || number >= static_cast<int64_t>(kRoles.size()))
        return -1;
    const QColor found = QGuiApplication::palette().color(kRoles[static_cast<size_t>(number)]);
    return found.red() | found.green() << 8 | found.blue() << 16;
}

void cMediaProgress::setWidth(int32_t width)
{
    if (m_autoSize)
        throw RuntimeError(425, QStringLiteral("cMediaProgress"), QStringLiteral("Invalid object use"));
    m_width = width;
    Refresh();
}

void cMediaProgress::setMinWidth(int32_t width)
{
    m_minWidth = width;
    if (m_autoSize)
        Refresh();
}

void cMediaProgress::setHeight(int32_t height)
{
    m_height = height;
    Refresh();
}

void cMediaProgress::setFont(const QFont &font)
{
    m_font = font;
    Refresh();
}

void cMediaProgress::setBarColor(int32_t colour)
{
    m_barColor = colour;
    Refresh();
}

void cMediaProgress::setAutoSize(bool on)
{
    m_autoSize = on;
    Refresh();
}

void cMediaProgress::setShowPercentage(bool on)
{
    m_showPercentage = on;
    Refresh();
}

void cMediaProgress::setText(const QString &text)
{
    m_text = text;
    Refresh();
}

void cMediaProgress::setMin(int32_t min)
{
    m_min = min;
    Refresh();
}

void cMediaProgress::setMax(int32_t max)
{
    m_max = max;
    Refresh();
}

void cMediaProgress::setPercent(float percent)
{
    m_percent = percent;
    Refresh();
}

void cMediaProgress::setValue(int32_t value)
{
    m_value = value;
    const int64_t range = static_cast<int64_t>(m_max) - m_min;
    m_percent = range >= 1 ? static_cast<float>(static_cast<double>(value) / static_cast<double>(range)) : 0.0F;
    Refresh();
}

void cMediaProgress::Draw(QPainter &target, int x, int y, int width, int height, int alpha) const
{
    if (width == -1)
        width = m_autoSize ? std::max(m_width, m_minWidth) : m_width;
    if (height == -1)
        height = m_height;
    if (alpha == 255)
        m_surface.PaintPicture(target, x, y, width, height);
}

QString cMediaProgress::caption() const
{
    if (!m_showPercentage)
        return m_text;
    const QString number = QString::number(std::llround(static_cast<double>(m_percent) * 100)) + QLatin1Char('%');
    return m_text.isEmpty() ? number : m_text + QStringLiteral(" (") + number + QLatin1Char(')');
}

void cMediaProgress::Refresh()
{
    const QString caption = this->caption();
    int width = m_width;
    if (m_autoSize) {
        // Measured in the surface's own font, which the caption is not drawn in.
        const int measured = caption.isEmpty() ? 0 : QFontMetrics(QFont()).horizontalAdvance(caption);
        m_width = measured + 4;
        width = std::max(m_width, m_minWidth);
    }
    if (width > m_surface.Width() || m_height > m_surface.Height()) {
        if (!m_surface.Create(std::max(width, m_surface.Width()), std::max(m_height, m_surface.Height())))
            return;
    }
    const int right = width;
    const int bottom = m_height;
    m_surface.hdc().paint([&](QPainter &painter) {
        painter.fillRect(0, 0, right, bottom, QColor(kField.red, kField.green, kField.blue));
        painter.setPen(fromNumber(TranslateColor(kButtonFace)));
        painter.drawRect(0, 0, right - 1, bottom - 1);
    });

    const int textLeft = 2;
    const int textTop = 2;
    const int textRight = right - 1;
    const int textBottom = bottom - 2;
    const int barRight = roundEven(static_cast<double>(m_percent) * (textRight - textLeft + 1));
    fillBar(m_surface, textLeft, textTop, barRight, textBottom);
    if (!caption.isEmpty())
        drawCaption(caption, textLeft, textTop, textRight, textBottom);
    recolour(barRight);
}

/// A horizontal gradient in 16-bit colour channels, the bytes shifted left by 8. The alpha becomes 0.
void cMediaProgress::fillBar(cAlphaDibSection &surface, int left, int top, int right, int bottom) const
{
    const int width = right - left;
    const int end = std::min(right, surface.Width());
    const auto bytes = surface.bytes();
    for (int x = left; x < end; ++x) {
        const auto channel = [&](int from, int to) {
            return static_cast<uint8_t>(((from << 8) + ((to - from) << 8) * (x - left) / width) >> 8);
        };
        const std::array<uint8_t, 4> pixel{channel(kBarLeft.blue, kBarRight.blue),
                                           channel(kBarLeft.green, kBarRight.green),
                                           channel(kBarLeft.red, kBarRight.red), 0};
        for (int y = std::max(top, 0); y < std::min(bottom, surface.Height()); ++y) {
            for (int byte = 0; byte < 4; ++byte)
                bytes(x * 4 + byte, surface.Height() - 1 - y) = pixel[static_cast<size_t>(byte)];
        }
    }
}

void cMediaProgress::drawCaption(const QString &caption, int left, int top, int right, int bottom)
{
    cAlphaDibSection temporary;
    if (!temporary.Create(right - left, bottom - top))
        return;
    temporary.hdc().paint([&](QPainter &painter) {
        painter.setPen(Qt::white);
        painter.setFont(m_font);
        painter.drawText(QRect(left, top, right - left, bottom - top),
                         Qt::AlignCenter | Qt::TextSingleLine | Qt::TextShowMnemonic, caption);
    });
    // The text's alpha bytes are 0, so it only adds: white adds half of full brightness, black nothing.
    temporary.AlphaPaintPicture(m_surface, 1, 1, -1, -1, 0, 0, 128);
}

void cMediaProgress::recolour(int barRight)
{
    float hue = 0;
    float saturation = 0;
    float lightness = 0;
    RGBToHLS(kField.red, kField.green, kField.blue, hue, saturation, lightness);
    const int bytesPerRow = m_surface.BytesPerScanLine();
    const int rows = m_surface.Height();
    uint8_t *bits = m_surface.DIBSectionBitsPtr();
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x <= bytesPerRow - 4; x += 4) {
            if (y != 0 && y != rows - 1 && x != 0 && x != bytesPerRow - 4 && x >= barRight * 4) {
                x = std::max(x, bytesPerRow - 8); // the rest of the row, but for the border, keeps its colours
                continue;
            }
            uint8_t *pixel = bits + static_cast<ptrdiff_t>(y) * bytesPerRow + x;
            float h = 0;
            float s = 0;
            float l = 0;
            RGBToHLS(pixel[2], pixel[1], pixel[0], h, s, l);
            int red = 0;
            int green = 0;
            int blue = 0;
            HLSToRGB(hue, saturation, lightness * l, red, green, blue);
            pixel[2] = static_cast<uint8_t>(red);
            pixel[1] = static_cast<uint8_t>(green);
            pixel[0] = static_cast<uint8_t>(blue);
        }
    }
}

void cMediaProgress::RGBToHLS(int r, int g, int b, float &h, float &s, float &l)
{
    const float red = static_cast<float>(r) / 255.0F;
    const float green = static_cast<float>(g) / 255.0F;
    const float blue = static_cast<float>(b) / 255.0F;
    const float max = std::max({red, green, blue});
    const float min = std::min({red, green, blue});
    l = (max + min) / 2;
    if (max == min) {
        s = 0;
        h = 0;
        return;
    }
    const float d = max - min;
    s = l <= 0.5F ? d / (max + min) : d / (2 - max - min);
    if (red == max)
        h = (green - blue) / d;
    else if (green == max)
        h = 2 + (blue - red) / d;
    else
        h = 4 + (red - green) / d;
}

void cMediaProgress::HLSToRGB(float h, float s, float l, int &r, int &g, int &b)
{
    float red = l;
    float green = l;
    float blue = l;
    if (s != 0) {
        const float m1 = l > 0.5F ? l - (1 - l) * s : (1 - s) * l;
        const float m2 = 2 * l - m1;
        const float d = m2 - m1;
        if (h < 0)
            red = m2, green = m1, blue = m1 - d * h;
        else if (h < 1)
            red = m2, green = m1 + d * h, blue = m1;
        else if (h < 2)
            red = m1 - d * (h - 2), green = m2, blue = m1;
        else if (h < 3)
            red = m1, green = m2, blue = m1 + d * (h - 2);
        else if (h < 4)
            red = m1, green = m1 - d * (h - 4), blue = m2;
        else
            red = m1 + d * (h - 4), green = m1, blue = m2;
    }
    r = roundEven(static_cast<double>(red) * 255);
    g = roundEven(static_cast<double>(green) * 255);
    b = roundEven(static_cast<double>(blue) * 255);
}
