#include "appearance/ShippedFiles.h"

#include "base/Files.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

void installShippedFiles(const QString &programFolder)
{
    const QDir shipped(QStringLiteral(":/shipped"));
    const QDir target(programFolder);
    QDirIterator files(shipped.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString source = files.next();
        const QString name = shipped.relativeFilePath(source);
        if (QFileInfo::exists(target.filePath(name)))
            continue;
        const std::optional<QByteArray> content = readFile(source);
        if (content && target.mkpath(QFileInfo(name).path()))
            writeFileWhole(target.filePath(name), *content);
    }
}
