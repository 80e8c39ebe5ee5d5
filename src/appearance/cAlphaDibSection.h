#pragma once

#include <QImage>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QPainter;

/// Raster operation that copies the source.
inline constexpr int32_t SRCCOPY = 13369376;

/// A 32-bit drawing surface whose pixel bytes can be read and written directly: 4 bytes a pixel in the order blue,
/// green, red, alpha, rows bottom-up (row 0 is the bottom line of the picture), `Width` x 4 bytes a row without
/// padding.
///
/// Sizes are pixels. A negative width or height of the copy operations means the whole width or height.
class cAlphaDibSection
{
public:
    /// Rows of bytes over the pixels: addressed by byte in the row and by row; throws ControlError outside of them.
    class ByteView
    {
    public:
        ByteView(uint8_t *bits, int bytesPerRow, int rows)
            : m_bits(bits)
            , m_bytesPerRow(bytesPerRow)
            , m_rows(rows)
        {}
        uint8_t &operator()(int byteInRow, int row) const;

    private:
        uint8_t *m_bits;
        int m_bytesPerRow;
        int m_rows;
    };

    /// The surface's memory context: what is painted through it lands in the surface, and every pixel that a painting
    /// touches gets the alpha 0.
    class Context
    {
    public:
        explicit operator bool() const { return m_surface != nullptr; }
        void paint(const std::function<void(QPainter &)> &painting) const;

    private:
        friend class cAlphaDibSection;
        explicit Context(cAlphaDibSection *surface)
            : m_surface(surface)
        {}
        cAlphaDibSection *m_surface;
    };

    cAlphaDibSection() = default;
    cAlphaDibSection(const cAlphaDibSection &) = delete;
    cAlphaDibSection &operator=(const cAlphaDibSection &) = delete;

    /// The second way to copy out of the surface, which knows no raster operation. Survives a successful Create.
    bool UseDrawDib() const { return m_useDrawDib; }
    void setUseDrawDib(bool on) { m_useDrawDib = on; }

    /// Fills the header for a picture of this size and makes its bytes, all 0. False for a size that no picture can
    /// have or that does not fit into memory.
    bool CreateDIB(int width, int height);
    void CreateFromPicture(const QImage &picture);
    /// Takes size and content of a bitmap. Its alpha comes along.
    void CreateFromHBitmap(const QImage &bitmap);
    /// A new section in place of the present one, also with the same size. When it fails the object is empty.
    bool Create(int width, int height);
    int32_t BytesPerScanLine() const { return m_header.biWidth * 4; }
    int32_t Width() const { return m_header.biWidth; }
    int32_t Height() const { return m_header.biHeight; }
    /// Copies a source into this surface at 0, 0. `raster` is any ternary raster operation; the pattern is white.
    void LoadPictureBlt(const QImage &source, int sourceX = 0, int sourceY = 0, int width = -1, int height = -1,
                        int32_t raster = SRCCOPY);
    void LoadPictureBlt(const cAlphaDibSection &source, int sourceX = 0, int sourceY = 0, int width = -1,
                        int height = -1, int32_t raster = SRCCOPY);
    /// Writes a bitmap file whose pixels start at 58. Throws RuntimeError 17 when the file cannot be opened; false when
    /// it cannot be written, and then what was written stays.
    bool SavePicture(const QString &fileName) const;
    void PaintPicture(cAlphaDibSection &target, int x, int y, int width = -1, int height = -1, int sourceX = 0,
                      int sourceY = 0, int32_t raster = SRCCOPY) const;
    /// The same onto a painter, opaque. Only what the surface holds is copied.
    void PaintPicture(QPainter &target, int x, int y, int width = -1, int height = -1, int sourceX = 0,
                      int sourceY = 0) const;
    /// Blends over a target with premultiplied pixels:
    /// result = source x constant / 255 + target x (1 - source alpha x constant / 255 / 255).
    void AlphaPaintPicture(cAlphaDibSection &target, int x, int y, int width = -1, int height = -1, int sourceX = 0,
                           int sourceY = 0, uint8_t constantAlpha = 255) const;
    /// Blends source over target with one constant alpha, in plain arithmetic, alpha bytes left alone. x in pixels and
    /// y in rows of the memory say where in the target. `width` counts bytes; -1 means the row length of the narrower
    /// object (the target's when both are equal); a height of -1 the smaller height. Throws ControlError outside the
    /// target.
    static void CodeAlphaBlend(cAlphaDibSection &target, cAlphaDibSection &source, int x, int y, int width, int height,
                               uint8_t alpha);
    Context hdc() { return Context(m_bits.empty() ? nullptr : this); }
    /// Identity of the present section, null while the object is empty.
    const void *hDib() const { return m_bits.empty() ? nullptr : m_bits.data(); }
    uint8_t *DIBSectionBitsPtr() { return m_bits.empty() ? nullptr : m_bits.data(); }
    ByteView bytes() { return ByteView(m_bits.data(), BytesPerScanLine(), Height()); }
    /// Sets all four bytes of every pixel to 0.
    void Clear();
    /// Noise with a random alpha, the colours premultiplied by it; `gray` gives all three colours one value.
    void RandomiseBits(bool gray);
    void ClearUp();
    /// A new, bilinearly resampled surface, null when it cannot be made. Note the order: height, then width. The alpha
    /// of a picture of another size stays 0.
    std::unique_ptr<cAlphaDibSection> Resample(int newHeight, int newWidth) const;

    /// The picture with its top line first.
    QImage toImage() const;

private:
    struct Header
    {
        int32_t biSize = 0;
        int32_t biWidth = 0;
        int32_t biHeight = 0;
        int16_t biPlanes = 0;
        int16_t biBitCount = 0;
        int32_t biCompression = 0;
        int32_t biSizeImage = 0;
        int32_t biXPelsPerMeter = 0;
        int32_t biYPelsPerMeter = 0;
        int32_t biClrUsed = 0;
        int32_t biClrImportant = 0;
    };
    static_assert(sizeof(Header) == 40);

    uint32_t *line(int top);
    const uint32_t *line(int top) const;
    void takeBack(const QImage &painted);

    Header m_header;
    std::vector<uint8_t> m_bits;
    bool m_useDrawDib = false;
};
