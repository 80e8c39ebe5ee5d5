#include "base/Strings.h"

#include "base/StringTable.h"
#include "base/step.h"

#include <QFile>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The text between the quotes of a line's second half, or nothing when the line is not in that form.
std::optional<QByteArray> unquoted(QByteArrayView quoted)
{
    if (quoted.size() < 2 || quoted.front() != '"' || quoted.back() != '"')
        return std::nullopt;
    quoted = quoted.sliced(1, quoted.size() - 2);
    QByteArray text;
    text.reserve(quoted.size());
    for (qsizetype i = 0; i < quoted.size(); ++i) {
        char c = quoted[i];
        if (c == '"')
            return std::nullopt;
        if (c == '\\') {
            if (++i == quoted.size())
                return std::nullopt;
            c = quoted[i];
            if (c == 't')
                c = '\t';
            else if (c != '"' && c != '\\')
                return std::nullopt;
        }
        text += c;
    }
    return text;
}

QHash<int, QString> programStrings()
{
    QFile file(u":/strings/strings.txt"_s);
    return file.open(QIODevice::ReadOnly) ? parseStringTable(file.readAll()) : QHash<int, QString>();
}

} // namespace

QHash<int, QString> parseStringTable(QByteArrayView utf8)
{
    QHash<int, QString> table;
    table.reserve(512);
    while (!utf8.isEmpty()) {
        const qsizetype end = utf8.indexOf('\n');
        QByteArrayView line = end < 0 ? utf8 : utf8.first(end);
        utf8 = end < 0 ? QByteArrayView() : utf8.sliced(end + 1);
        if (line.endsWith('\r'))
            line.chop(1);
        const qsizetype blank = line.indexOf(' ');
        if (blank <= 0)
            continue;
        bool isNumber = false;
        const int id = line.first(blank).toInt(&isNumber);
        if (!isNumber || table.contains(id))
            continue;
        const auto text = unquoted(line.sliced(blank + 1));
        if (text && !text->isEmpty())
            table.insert(id, QString::fromUtf8(*text));
    }
    return table;
}

QString LoadResString(int id)
{
    static const QHash<int, QString> strings = programStrings();
    const auto found = strings.constFind(id);
    if (found == strings.cend())
        throw ControlError("no string " + std::to_string(id));
    return *found;
}
