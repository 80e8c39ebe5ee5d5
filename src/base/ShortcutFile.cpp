#include "base/ShortcutFile.h"

#include "base/Files.h"

#include <QDirIterator>
#include <QFileInfo>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Real shortcut files have some hundred bytes; an address may have a few thousand. What is larger is no shortcut.
constexpr qint64 kMaxShortcutSize = 1024 * 1024;

/// Without the characters below 33 at both ends.
QStringView stripped(QStringView line)
{
    const auto isBlank = [](QChar c) { return c.unicode() < 33; };
    const auto first = std::find_if_not(line.cbegin(), line.cend(), isBlank);
    const auto last = std::find_if_not(line.crbegin(), line.crend(), isBlank).base();
    return first < last ? QStringView(first, last) : QStringView();
}

/// The file as the folder spells it; empty when there is none.
QString shortcutFile(const QString &pathWithoutExtension)
{
    for (const QString &extension : {u".url"_s, u".URL"_s}) {
        if (QFileInfo::exists(pathWithoutExtension + extension))
            return pathWithoutExtension + extension;
    }
    const QFileInfo info(pathWithoutExtension);
    const QString name = info.fileName();
    QDirIterator files(info.path(), QDir::Files | QDir::Hidden);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString candidate = files.fileName();
        if (candidate.size() == name.size() + 4 && candidate.startsWith(name) &&
            candidate.endsWith(u".url", Qt::CaseInsensitive))
            return path;
    }
    return {};
}

} // namespace

QString shortcutURLOf(const QByteArray &utf8)
{
    const QString text = QString::fromUtf8(utf8);
    bool inSection = false;
    for (QStringView rest = text; !rest.isEmpty();) {
        const auto lineEnd = std::find_if(rest.cbegin(), rest.cend(), [](QChar c) { return c == u'\n' || c == u'\r'; });
        const QStringView line = stripped(QStringView(rest.cbegin(), lineEnd));
        rest = lineEnd == rest.cend() ? QStringView() : QStringView(lineEnd + 1, rest.cend());
        inSection = inSection || line.contains(u"netshortcut", Qt::CaseInsensitive);
        if (!inSection)
            continue;
        if (const qsizetype key = line.indexOf(u"url=", 0, Qt::CaseInsensitive); key >= 0)
            return line.sliced(key + 4).toString();
    }
    return {};
}

QString ReadShortcutURL(const QString &pathWithoutExtension)
{
    const QString path = shortcutFile(pathWithoutExtension);
    const auto content = path.isEmpty() ? std::nullopt : readFile(path, kMaxShortcutSize);
    return content ? shortcutURLOf(*content) : QString();
}
