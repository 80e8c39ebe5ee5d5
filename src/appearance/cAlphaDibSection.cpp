#include "appearance/cAlphaDibSection.h"

#include "base/RuntimeError.h"

#include <QCoreApplication>
#include <QFile>
#include <QPainter>
#include <QRandomGenerator>
#include <QTime>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <new>

namespace {

/// Nearest integer, ties to the even one (the default rounding mode of the processor).
int roundEven(double value)
{
    return static_cast<int>(std::nearbyint(value));
}

/// A ternary raster operation on whole pixels: bit n of the operation's code is the result for pattern, source and
/// destination bits that spell n. The pattern is white.
uint32_t rasterOperation(int32_t raster, uint32_t source, uint32_t destination)
{
    const auto code = static_cast<uint32_t>(raster) >> 16;
    uint32_t result = 0;
    for (uint32_t n = 4; n < 8; ++n) {
        if ((code >> n & 1u) == 0)
            continue;
        result |= ((n & 2u) ? source : ~source) & ((n & 1u) ? destination : ~destination);
    }
    return result;
}

/// One copy rectangle, cut so that it lies inside both pictures.
struct Cut
{
    int x, y, sourceX, sourceY, width, height;

    Cut(QPoint at, QPoint from, QSize wanted, QSize target, QSize source)
    {
        const int left = std::max({0, -at.x(), -from.x()});
        const int top = std::max({0, -at.y(), -from.y()});
        x = at.x() + left;
        y = at.y() + top;
        sourceX = from.x() + left;
        sourceY = from.y() + top;
        width = std::min({wanted.width() - left, target.width() - x, source.width() - sourceX});
        height = std::min({wanted.height() - top, target.height() - y, source.height() - sourceY});
    }
    bool isEmpty() const { return width <= 0 || height <= 0; }
};

} // namespace

uint8_t &cAlphaDibSection::ByteView::operator()(int byteInRow, int row) const
{
    if (byteInRow < 0 || byteInRow >= m_bytesPerRow || row < 0 || row >= m_rows)
        throw ControlError("pixel outside the surface");
    return m_bits[static_cast<size_t>(row) * static_cast<size_t>(m_bytesPerRow) + static_cast<size_t>(byteInRow)];
}

void cAlphaDibSection::Context::paint(const std::function<void(QPainter &)> &painting) const
{
    if (!m_surface)
        return;
    // The painter marks what it touches: it writes opaque pixels over a copy whose alpha is 0 everywhere.
    QImage copy(m_surface->Width(), m_surface->Height(), QImage::Format_RGB32);
    for (int y = 0; y < copy.height(); ++y) {
        auto *to = reinterpret_cast<uint32_t *>(copy.scanLine(y));
        const uint32_t *from = m_surface->line(y);
        std::transform(from, from + copy.width(), to, [](uint32_t pixel) { return pixel & 0x00ffffffu; });
    }
    QPainter painter(&copy);
    painting(painter);
    painter.end();
    m_surface->takeBack(copy);
}

void cAlphaDibSection::takeBack(const QImage &painted)
{
    for (int y = 0; y < painted.height(); ++y) {
        const auto *from = reinterpret_cast<const uint32_t *>(painted.constScanLine(y));
        uint32_t *to = line(y);
        for (int x = 0; x < painted.width(); ++x) {
            if (from[x] & 0xff000000u)
                to[x] = from[x] & 0x00ffffffu;
        }
    }
}

uint32_t *cAlphaDibSection::line(int top)
{
    const auto row = static_cast<size_t>(Height() - 1 - top);
    return reinterpret_cast<uint32_t *>(m_bits.data() + row * static_cast<size_t>(BytesPerScanLine()));
}

const uint32_t *cAlphaDibSection::line(int top) const
{
    return const_cast<cAlphaDibSection *>(this)->line(top);
}

bool cAlphaDibSection::CreateDIB(int width, int height)
{
    // 2^15 pixels an edge keep every size below in 32 bits.
    constexpr int kLargestEdge = 32767;
    if (width <= 0 || height <= 0 || width > kLargestEdge || height > kLargestEdge)
        return false;
    try {
        m_bits.assign(static_cast<size_t>(width) * static_cast<size_t>(height) * 4, 0);
    } catch (const std::bad_alloc &) {
        return false;
    }
    m_header = Header();
    m_header.biSize = sizeof(Header);
    m_header.biWidth = width;
    m_header.biHeight = height;
    m_header.biPlanes = 1;
    m_header.biBitCount = 32;
    m_header.biSizeImage = static_cast<int32_t>(m_bits.size());
    return true;
}

void cAlphaDibSection::CreateFromPicture(const QImage &picture)
{
    CreateFromHBitmap(picture);
}

void cAlphaDibSection::CreateFromHBitmap(const QImage &bitmap)
{
    if (Create(bitmap.width(), bitmap.height()))
        LoadPictureBlt(bitmap);
}

bool cAlphaDibSection::Create(int width, int height)
{
    const bool useDrawDib = m_useDrawDib;
    ClearUp();
    if (!CreateDIB(width, height))
        return false;
    m_useDrawDib = useDrawDib;
    return true;
}

void cAlphaDibSection::LoadPictureBlt(const QImage &source, int sourceX, int sourceY, int width, int height,
                                      int32_t raster)
{
    const QImage pixels = source.convertToFormat(QImage::Format_ARGB32);
    const QSize wanted(width < 0 ? Width() : width, height < 0 ? Height() : height);
    const Cut cut({0, 0}, {sourceX, sourceY}, wanted, {Width(), Height()}, pixels.size());
    if (cut.isEmpty())
        return;
    for (int y = 0; y < cut.height; ++y) {
        const auto *from = reinterpret_cast<const uint32_t *>(pixels.constScanLine(cut.sourceY + y)) + cut.sourceX;
        uint32_t *to = line(cut.y + y) + cut.x;
        std::transform(from, from + cut.width, to, to,
                       [raster](uint32_t s, uint32_t d) { return rasterOperation(raster, s, d); });
    }
}

void cAlphaDibSection::LoadPictureBlt(const cAlphaDibSection &source, int sourceX, int sourceY, int width, int height,
                                      int32_t raster)
{
    LoadPictureBlt(source.toImage(), sourceX, sourceY, width, height, raster);
}

void cAlphaDibSection::PaintPicture(cAlphaDibSection &target, int x, int y, int width, int height, int sourceX,
                                    int sourceY, int32_t raster) const
{
    const int32_t operation = m_useDrawDib ? SRCCOPY : raster;
    const QSize wanted(width < 0 ? Width() : width, height < 0 ? Height() : height);
    const Cut cut({x, y}, {sourceX, sourceY}, wanted, {target.Width(), target.Height()}, {Width(), Height()});
    for (int row = 0; !cut.isEmpty() && row < cut.height; ++row) {
        const uint32_t *from = line(cut.sourceY + row) + cut.sourceX;
        uint32_t *to = target.line(cut.y + row) + cut.x;
        std::transform(from, from + cut.width, to, to,
                       [operation](uint32_t s, uint32_t d) { return rasterOperation(operation, s, d); });
    }
}

void cAlphaDibSection::PaintPicture(QPainter &target, int x, int y, int width, int height, int sourceX,
                                    int sourceY) const
{
    const QRect wanted(sourceX, sourceY, width < 0 ? Width() : width, height < 0 ? Height() : height);
    const QRect held = wanted.intersected(QRect(0, 0, Width(), Height()));
    if (held.isEmpty())
        return;
    target.drawImage(QPoint(x, y) + held.topLeft() - wanted.topLeft(), toImage().convertToFormat(QImage::Format_RGB32),
                     held);
}

void cAlphaDibSection::AlphaPaintPicture(cAlphaDibSection &target, int x, int y, int width, int height, int sourceX,
                                         int sourceY, uint8_t constantAlpha) const
{
    const QSize wanted(width < 0 ? Width() : width, height < 0 ? Height() : height);
    const Cut cut({x, y}, {sourceX, sourceY}, wanted, {target.Width(), target.Height()}, {Width(), Height()});
    const double constant = constantAlpha / 255.0;
    for (int row = 0; !cut.isEmpty() && row < cut.height; ++row) {
        const auto *from = reinterpret_cast<const uint8_t *>(line(cut.sourceY + row) + cut.sourceX);
        auto *to = reinterpret_cast<uint8_t *>(target.line(cut.y + row) + cut.x);
        for (int pixel = 0; pixel < cut.width; ++pixel, from += 4, to += 4) {
            const double keep = 1 - from[3] * constant / 255.0;
            for (int byte = 0; byte < 4; ++byte)
                to[byte] = static_cast<uint8_t>(std::min(255, roundEven(from[byte] * constant + to[byte] * keep)));
        }
    }
}

void cAlphaDibSection::CodeAlphaBlend(cAlphaDibSection &target, cAlphaDibSection &source, int x, int y, int width,
                                      int height, uint8_t alpha)
{
    if (width == -1)
        width = (source.Width() < target.Width() ? source : target).BytesPerScanLine();
    if (height == -1)
        height = std::min(target.Height(), source.Height());
    const ByteView to = target.bytes();
    const ByteView from = source.bytes();
    const double keep = 1 - alpha / 255.0;
    for (int column = 0; column <= width - 4; column += 4) {
        for (int row = 0; row < height; ++row) {
            for (int byte = 0; byte < 3; ++byte) {
                uint8_t &d = to(column + 4 * x + byte, row + y);
                const int product = from(column + byte, row) * alpha;
                d = static_cast<uint8_t>(roundEven(keep * d + product / 255.0));
            }
        }
    }
}

bool cAlphaDibSection::SavePicture(const QString &fileName) const
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Truncate))
        throw RuntimeError(17, QCoreApplication::applicationName() + QStringLiteral(".cDIBSection"),
                           file.errorString());
    constexpr uint32_t kHeaders = 14 + sizeof(Header) + 4;
    const uint32_t size = static_cast<uint32_t>(m_header.biSizeImage) + kHeaders;
    std::array<char, 14> fileHeader{'B', 'M'};
    std::memcpy(fileHeader.data() + 2, &size, 4);
    std::memcpy(fileHeader.data() + 10, &kHeaders, 4);
    std::array<char, sizeof(Header) + 4> information{};
    std::memcpy(information.data(), &m_header, sizeof(Header));

    const auto good = [&file](const char *bytes, size_t count) {
        return file.write(bytes, static_cast<qint64>(count)) == static_cast<qint64>(count);
    };
    return good(fileHeader.data(), fileHeader.size()) && good(information.data(), information.size()) &&
           good(reinterpret_cast<const char *>(m_bits.data()), m_bits.size()) && file.flush();
}

void cAlphaDibSection::Clear()
{
    std::fill(m_bits.begin(), m_bits.end(), uint8_t{0});
}

void cAlphaDibSection::RandomiseBits(bool gray)
{
    QRandomGenerator random(static_cast<quint32>(QTime::currentTime().msecsSinceStartOfDay()));
    const auto byte = [&random] { return roundEven(random.generateDouble() * 255); };
    for (size_t pixel = 0; pixel + 3 < m_bits.size(); pixel += 4) {
        const int value = gray ? byte() : 0;
        const int alpha = byte();
        m_bits[pixel + 3] = static_cast<uint8_t>(alpha);
        for (size_t colour = 0; colour < 3; ++colour) {
            const double light = gray ? value : random.generateDouble() * 255;
            m_bits[pixel + colour] = static_cast<uint8_t>(roundEven(light * alpha / 255.0));
        }
    }
}

void cAlphaDibSection::ClearUp()
{
    m_bits.clear();
    m_bits.shrink_to_fit();
    m_header = Header();
    m_useDrawDib = false;
}

std::unique_ptr<cAlphaDibSection> cAlphaDibSection::Resample(int newHeight, int newWidth) const
{
    auto result = std::make_unique<cAlphaDibSection>();
    if (!result->Create(newWidth, newHeight))
        return nullptr;
    if (newWidth == Width() && newHeight == Height()) {
        result->LoadPictureBlt(*this);
        return result;
    }
    const float xScale = static_cast<float>(Width() - 1) / static_cast<float>(newWidth);
    const float yScale = static_cast<float>(Height() - 1) / static_cast<float>(newHeight);
    const auto at = [this](int column, int row, int byte) -> double {
        // A picture one pixel wide or high has no second partner.
        const int x = std::min(column, Width() - 1);
        const int y = std::min(row, Height() - 1);
        return m_bits[static_cast<size_t>(y) * static_cast<size_t>(BytesPerScanLine()) +
                      static_cast<size_t>(x * 4 + byte)];
    };
    const ByteView to = result->bytes();
    for (int y = 0; y < newHeight; ++y) {
        const float sourceY = yScale * static_cast<float>(y);
        const int iy = static_cast<int>(sourceY);
        const double fy = sourceY - static_cast<float>(iy);
        for (int x = 0; x < newWidth; ++x) {
            const float sourceX = xScale * static_cast<float>(x);
            const int ix = static_cast<int>(sourceX);
            const double fx = sourceX - static_cast<float>(ix);
            for (int byte = 0; byte < 3; ++byte) {
                const int a = roundEven((1 - fy) * at(ix, iy, byte) + fy * at(ix, iy + 1, byte));
                const int b = roundEven((1 - fy) * at(ix + 1, iy, byte) + fy * at(ix + 1, iy + 1, byte));
                to(x * 4 + byte, y) = static_cast<uint8_t>(std::clamp(roundEven((1 - fx) * a + fx * b), 0, 255));
            }
        }
    }
    return result;
}

QImage cAlphaDibSection::toImage() const
{
    if (m_bits.empty())
        return {};
    QImage image(Width(), Height(), QImage::Format_ARGB32);
    for (int y = 0; y < Height(); ++y)
        std::memcpy(image.scanLine(y), line(y), static_cast<size_t>(BytesPerScanLine()));
    return image;
}
