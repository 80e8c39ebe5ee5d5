#include "engine/PageSetup.h"

#include "base/Files.h"

#include <QDir>
#include <QHash>
#include <QLocale>
#include <QPageSize>
#include <QRectF>
#include <QStandardPaths>
#include <utility>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

constexpr double kStandardMargin = 15;
/// Millimeters of the sheet that have to be left.
constexpr double kLeastRoom = 20;
/// Everything that the file can hold fits many times.
constexpr qint64 kLargestFile = 4096;

QPageSize sizeByKey(const QString &key)
{
    for (int id = 0; id <= QPageSize::LastPageSize; ++id) {
        const auto size = static_cast<QPageSize::PageSizeId>(id);
        if (size != QPageSize::Custom && QPageSize::key(size) == key)
            return QPageSize(size);
    }
    return {};
}

/// Four numbers: left, top, right, bottom.
bool readMargins(const QByteArray &value, QMarginsF &margins)
{
    const QList<QByteArray> parts = value.simplified().split(' ');
    if (parts.size() != 4)
        return false;
    double numbers[4];
    for (int i = 0; i < 4; ++i) {
        bool isNumber = false;
        const double number = parts[i].toDouble(&isNumber);
        if (!isNumber || !(number >= 0 && number <= PageSetup::kLargestMargin))
            return false;
        numbers[i] = number;
    }
    margins = {numbers[0], numbers[1], numbers[2], numbers[3]};
    return true;
}

} // namespace

QPageLayout PageSetup::standardLayout()
{
    const bool isMetric = QLocale().measurementSystem() == QLocale::MetricSystem;
    return {QPageSize(isMetric ? QPageSize::A4 : QPageSize::Letter), QPageLayout::Portrait,
            QMarginsF(kStandardMargin, kStandardMargin, kStandardMargin, kStandardMargin), QPageLayout::Millimeter};
}

bool PageSetup::isPrintable() const
{
    const QRectF room = layout.paintRect(QPageLayout::Millimeter);
    return room.width() >= kLeastRoom && room.height() >= kLeastRoom;
}

QByteArray PageSetup::toText() const
{
    const QMarginsF m = layout.margins(QPageLayout::Millimeter);
    QByteArray text = "paper=" + layout.pageSize().key().toLatin1() + '\n';
    text += layout.orientation() == QPageLayout::Landscape ? "orientation=landscape\n" : "orientation=portrait\n";
    text += "margins=";
    for (const double side : {m.left(), m.top(), m.right(), m.bottom()})
        text += QByteArray::number(side, 'f', 2) + ' ';
    text.back() = '\n';
    text += background ? "background=1\n" : "background=0\n";
    return text;
}

PageSetup PageSetup::fromText(const QByteArray &text)
{
    QHash<QByteArray, QByteArray> values;
    for (const QByteArray &line : text.split('\n')) {
        if (const qsizetype equals = line.indexOf('='); equals > 0)
            values.insert(line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
    }
    PageSetup setup;
    if (const QPageSize size = sizeByKey(QString::fromLatin1(values.value("paper"))); size.isValid())
        setup.layout.setPageSize(size);
    if (values.value("orientation") == "landscape")
        setup.layout.setOrientation(QPageLayout::Landscape);
    const QMarginsF standard = setup.layout.margins();
    QMarginsF margins;
    if (readMargins(values.value("margins"), margins) && (!setup.layout.setMargins(margins) || !setup.isPrintable()))
        setup.layout.setMargins(standard);
    setup.background = values.value("background") == "1";
    return setup;
}

const PageSetup &PageMemory::setup()
{
    if (!std::exchange(m_read, true)) {
        if (const auto text = readFile(m_file, kLargestFile))
            m_setup = PageSetup::fromText(*text);
    }
    return m_setup;
}

void PageMemory::setSetup(const PageSetup &setup)
{
    m_read = true;
    m_setup = setup;
    if (!m_file.isEmpty())
        writeFileWhole(m_file, setup.toText());
}

QString PageMemory::folder() const
{
    if (!m_folder.isEmpty())
        return m_folder;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

} // namespace engine
