#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

/// The whole content of a file, or nothing when it cannot be opened or read, or is larger than `limit` bytes.
std::optional<QByteArray> readFile(const QString &path, qint64 limit = 64 * 1024 * 1024);

/// Writes a file whole to a temporary name beside it and renames it over the old one, readable by its owner only
/// (0600). Returns false, with the old file left as it was, when anything fails.
bool writeFileWhole(const QString &path, const QByteArray &content);

/// Renames a file that could not be understood to `path` + ".damaged" (".damaged-2", ...) so that nothing overwrites
/// it. Returns the new name, or nothing when the file is not there or cannot be moved.
std::optional<QString> keepAside(const QString &path);
