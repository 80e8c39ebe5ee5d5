// Renders a toolbar strip: square cells side by side, one for each SVG file, into a bitmap file with an alpha channel.
// Used by the build: render_strips <output.bmp> <cell size> <file.svg>...

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QtEndian>
#include <cstdio>

namespace {

/// Qt writes no alpha channel into a bitmap file, but it reads one from a file with a header of version 4.
QByteArray bitmapFile(const QImage &image)
{
    constexpr int kFileHeader = 14;
    constexpr int kInfoHeader = 108;
    constexpr quint32 kBitFields = 3;
    QByteArray bytes;
    const auto put16 = [&bytes](quint16 value) {
        value = qToLittleEndian(value);
        bytes.append(reinterpret_cast<const char *>(&value), sizeof value);
    };
    const auto put32 = [&bytes](quint32 value) {
        value = qToLittleEndian(value);
        bytes.append(reinterpret_cast<const char *>(&value), sizeof value);
    };
    const auto pixelBytes = static_cast<quint32>(image.width() * image.height() * 4);
    bytes.append("BM");
    put32(kFileHeader + kInfoHeader + pixelBytes);
    put32(0);
    put32(kFileHeader + kInfoHeader);
    put32(kInfoHeader);
    put32(static_cast<quint32>(image.width()));
    put32(static_cast<quint32>(image.height()));
    put16(1);
    put16(32);
    put32(kBitFields);
    put32(pixelBytes);
    put32(2835); // 72 dots per inch, in dots per metre
    put32(2835);
    put32(0);
    put32(0);
    for (const quint32 mask : {0x00ff0000U, 0x0000ff00U, 0x000000ffU, 0xff000000U})
        put32(mask);
    bytes.append("BGRs", 4);
    bytes.append(kFileHeader + kInfoHeader - bytes.size(), '\0');
    for (int y = image.height() - 1; y >= 0; --y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            put32(line[x]);
    }
    return bytes;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 4) {
        std::fprintf(stderr, "usage: render_strips <output.bmp> <cell size> <file.svg>...\n");
        return 2;
    }
    const int cell = QByteArray(argv[2]).toInt();
    QImage strip(cell * (argc - 3), cell, QImage::Format_ARGB32);
    strip.fill(Qt::transparent);
    {
        QPainter painter(&strip);
        for (int i = 3; i < argc; ++i) {
            QSvgRenderer svg(QFile::decodeName(argv[i]));
            if (!svg.isValid()) {
                std::fprintf(stderr, "render_strips: cannot read %s\n", argv[i]);
                return 1;
            }
            svg.render(&painter, QRectF((i - 3) * cell, 0, cell, cell));
        }
    }
    const QByteArray bytes = bitmapFile(strip);
    QFile file(QFile::decodeName(argv[1]));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        std::fprintf(stderr, "render_strips: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
