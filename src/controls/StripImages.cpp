#include "controls/StripImages.h"

#include <QBitmap>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>

namespace controls {

namespace {

/// Largest edge of a cell and largest number of cells that are believed.
constexpr int kMaxCell = 512;
constexpr int kMaxCells = 256;

QImage readStrip(const QString &path)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    if (size.isEmpty() || size.height() > kMaxCell || size.width() > kMaxCells * size.height())
        return {};
    const QImage strip = reader.read();
    if (strip.isNull() || strip.hasAlphaChannel())
        return strip;
    QImage cut = strip.convertToFormat(QImage::Format_ARGB32);
    const QRgb background = cut.pixel(0, 0);
    for (int y = 0; y < cut.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(cut.scanLine(y));
        std::replace(line, line + cut.width(), background, qRgba(0, 0, 0, 0));
    }
    return cut;
}

} // namespace

void StripImages::load(const QString &path)
{
    m_icons.clear();
    if (path.isEmpty())
        return;
    const QImage strip = readStrip(path);
    if (strip.isNull())
        return;
    const QFileInfo file(path);
    const QImage twice =
        readStrip(QStringLiteral("%1/%2@2x.%3").arg(file.path(), file.completeBaseName(), file.suffix()));
    const int cell = strip.height();
    for (int x = 0; x + cell <= strip.width(); x += cell) {
        QIcon icon(QPixmap::fromImage(strip.copy(x, 0, cell, cell)));
        if (twice.size() == strip.size() * 2) {
            QPixmap sharp = QPixmap::fromImage(twice.copy(2 * x, 0, 2 * cell, 2 * cell));
            sharp.setDevicePixelRatio(2);
            icon.addPixmap(sharp);
        }
        m_icons.push_back(icon);
    }
}

QIcon StripImages::icon(int index) const
{
    const auto i = static_cast<size_t>(index);
    return index >= 0 && i < m_icons.size() ? m_icons[i] : QIcon();
}

} // namespace controls
