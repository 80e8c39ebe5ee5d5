#include "core/state/SettingsFormat.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace settingsformat {
namespace {

/// First character of the last part of a map key that stands for a line which is no key; the line is the value.
constexpr QChar kLineMark = u'\u0001';

bool isLoneSurrogate(QStringView text, qsizetype i)
{
    if (text[i].isHighSurrogate())
        return i + 1 == text.size() || !text[i + 1].isLowSurrogate();
    return text[i].isLowSurrogate() && (i == 0 || !text[i - 1].isHighSurrogate());
}

bool needsQuotes(QStringView value)
{
    if (value.isEmpty())
        return false;
    if (value.front() == u'"' || value.front().isSpace() || value.back().isSpace())
        return true;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] < u' ' || isLoneSurrogate(value, i))
            return true;
    }
    return false;
}

QString quoted(QStringView value)
{
    QString result = u"\""_s;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        if (c == u'\n')
            result += u"\\n"_s;
        else if (c == u'\r')
            result += u"\\r"_s;
        else if (c == u'\t')
            result += u"\\t"_s;
        else if (c == u'"' || c == u'\\')
            result += u'\\' + QString(c);
        else if (c < u' ' || isLoneSurrogate(value, i))
            result += u"\\u%1"_s.arg(uint(c.unicode()), 4, 16, QChar(u'0'));
        else
            result += c;
    }
    return result + u'"';
}

/// The character of the escape that begins behind the backslash at `i`; moves `i` to its last character.
std::optional<QChar> unescaped(QStringView text, qsizetype &i)
{
    if (++i >= text.size())
        return std::nullopt;
    switch (text[i].unicode()) {
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    case u'"':
    case u'\\':
        return text[i];
    case u'u': {
        if (i + 4 >= text.size())
            return std::nullopt;
        bool ok = false;
        const ushort code = text.sliced(i + 1, 4).toUShort(&ok, 16);
        i += 4;
        return ok ? std::optional<QChar>(code) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

/// The text inside quotes, or nothing when `value` is not exactly one text in quotes.
std::optional<QString> unquoted(QStringView value)
{
    if (value.size() < 2 || value.front() != u'"' || value.back() != u'"')
        return std::nullopt;
    value = value.sliced(1, value.size() - 2);
    QString result;
    result.reserve(value.size());
    for (qsizetype i = 0; i < value.size(); ++i) {
        QChar c = value[i];
        if (c == u'"')
            return std::nullopt;
        if (c == u'\\') {
            const auto character = unescaped(value, i);
            if (!character)
                return std::nullopt;
            c = *character;
        }
        result += c;
    }
    return result;
}

QString mapKey(const QString &section, QStringView name)
{
    return section.isEmpty() ? name.toString() : section + u'/' + name.toString();
}

/// Whether a name typed by hand can stand as a key: written and read again it must be the same.
bool isName(QStringView name)
{
    return !name.isEmpty() && !QStringView(u";#[\u0001").contains(name.front()) && !name.contains(u'/');
}

} // namespace

std::optional<Map> read(const QByteArray &content)
{
    if (content.contains('\0'))
        return std::nullopt;
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(content);
    if (utf8.hasError())
        return std::nullopt;

    Map map;
    QString section;
    int others = 0;
    for (QStringView line : QStringView(text).split(u'\n')) {
        line = line.trimmed();
        if (line.isEmpty())
            continue;
        const qsizetype equals = line.indexOf(u'=');
        const QStringView name = line.first(qMax<qsizetype>(equals, 0)).trimmed();
        if (line.front() == u'[' && line.back() == u']') {
            section = line.sliced(1, line.size() - 2).trimmed().toString();
        } else if (isName(name)) {
            const QStringView value = line.sliced(equals + 1).trimmed();
            map.insert(mapKey(section, name), unquoted(value).value_or(value.toString()));
        } else {
            map.insert(mapKey(section, kLineMark + u"%1"_s.arg(++others, 6, 10, QChar(u'0'))), line.toString());
        }
    }
    return map;
}

QByteArray write(const Map &map)
{
    QMap<QString, QString> sections;
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
        const qsizetype slash = entry.key().lastIndexOf(u'/');
        const QStringView name = QStringView(entry.key()).sliced(slash + 1);
        const QString value = entry.value().toString();
        QString &lines = sections[entry.key().first(qMax<qsizetype>(slash, 0))];
        if (name.startsWith(kLineMark))
            lines += value + u'\n';
        else
            lines += name.toString() + u'=' + (needsQuotes(value) ? quoted(value) : value) + u'\n';
    }

    QString text;
    for (auto section = sections.cbegin(); section != sections.cend(); ++section) {
        if (!section.key().isEmpty())
            text += (text.isEmpty() ? u"["_s : u"\n["_s) + section.key() + u"]\n"_s;
        text += section.value();
    }
    return text.toUtf8();
}

} // namespace settingsformat
