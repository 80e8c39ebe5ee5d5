#include "controls/ImageList.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QPixmap>

namespace controls {

namespace {
Q_LOGGING_CATEGORY(log, "corvane.controls")
} // namespace

int ImageList::add(const QString &svgFile)
{
    // QIcon reads and renders the file when a picture is first asked for, and once more for each other pixel ratio.
    QIcon icon;
    if (QFileInfo(svgFile).isReadable())
        icon.addFile(svgFile, QSize(m_size, m_size));
    else
        qCInfo(log) << "no picture in" << svgFile;
    m_icons.push_back(icon);
    return count() - 1;
}

QIcon ImageList::icon(int index) const
{
    return index >= 0 && index < count() ? m_icons[static_cast<size_t>(index)] : QIcon();
}

QPixmap ImageList::pixmap(int index, qreal devicePixelRatio) const
{
    return icon(index).pixmap(QSize(m_size, m_size), devicePixelRatio);
}

} // namespace controls
