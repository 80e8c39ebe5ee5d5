#include "base/Files.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

std::optional<QByteArray> readFile(const QString &path, qint64 limit)
{
    // Opening a pipe would wait for a writer and a device never ends, so only ordinary files are read.
    if (!QFileInfo(path).isFile())
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > limit)
        return std::nullopt;
    // One byte more tells whether the file has grown above the limit since.
    QByteArray content = file.read(limit + 1);
    if (file.error() != QFileDevice::NoError || content.size() > limit)
        return std::nullopt;
    return content;
}

bool writeFileWhole(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    // Without the flush a full disk goes unseen: commit() does not look at the error of writing its buffer.
    return file.write(content) == content.size() && file.flush() && file.commit();
}

std::optional<QString> keepAside(const QString &path)
{
    // So many damaged files mean that something else is wrong; the next one must not cost a long search.
    constexpr int kMaxKept = 100;
    for (int n = 1; n <= kMaxKept; ++n) {
        const QString kept = n == 1 ? path + u".damaged"_s : path + u".damaged-%1"_s.arg(n);
        if (QFileInfo::exists(kept))
            continue;
        if (QFile::rename(path, kept))
            return kept;
        return std::nullopt;
    }
    return std::nullopt;
}
