#include "forms/DatePattern.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kLongest = 200;
constexpr qsizetype kLongestMark = 3;

bool isMark(QChar character)
{
    return QStringView(u" /.-_|").contains(character);
}

/// What a letter of a pattern stands for. "J" is a day where the year is written "A" (French), else a year.
QChar meaningOf(QChar letter, bool isFrench)
{
    switch (letter.toUpper().unicode()) {
    case u'D':
    case u'T':
    case u'G':
        return u'D';
    case u'M':
        return u'M';
    case u'Y':
    case u'A':
        return u'Y';
    case u'J':
        return isFrench ? u'D' : u'Y';
    default:
        return {};
    }
}

} // namespace

bool DatePattern::has(QChar what) const
{
    return std::ranges::any_of(m_parts, [&](const Part &part) { return part.what == what; });
}

/// A month and something else, each once; single letters without marks between them are a word.
bool DatePattern::isDate() const
{
    constexpr size_t kMost = 3;
    if (m_parts.size() < 2 || m_parts.size() > kMost || !has(u'M'))
        return false;
    for (size_t i = 0; i < m_parts.size(); ++i) {
        const Part &part = m_parts[i];
        if (part.width > 4 || (part.what != u'Y' && part.width > 2) || (part.what == u'Y' && part.width == 1))
            return false;
        if (i > 0 && part.mark.isEmpty() && (part.width < 2 || m_parts[i - 1].width < 2))
            return false;
        if (std::ranges::count(m_parts, part.what, &Part::what) > 1)
            return false;
    }
    return true;
}

std::optional<DatePattern> DatePattern::in(const QString &text)
{
    const QStringView all = QStringView(text).first(std::min(text.size(), kLongest));
    qsizetype at = 0;
    while (at < all.size()) {
        if (!all[at].isLetter()) {
            ++at;
            continue;
        }
        // A stretch of single letters that repeat, with marks between them, as long as it may be a pattern.
        DatePattern pattern;
        QString mark;
        qsizetype end = at;
        qsizetype wordEnd = at;
        const bool isFrench = all.sliced(at).contains(u"AA"_s, Qt::CaseInsensitive);
        while (end < all.size() && mark.size() <= kLongestMark) {
            if (isMark(all[end])) {
                mark += all[end++];
                continue;
            }
            const QChar what = meaningOf(all[end], isFrench);
            if (what.isNull())
                break;
            const qsizetype begin = end;
            while (end < all.size() && all[end].toUpper() == all[begin].toUpper())
                ++end;
            pattern.m_parts.push_back({mark, what, static_cast<int>(end - begin)});
            mark.clear();
            wordEnd = end;
        }
        const bool endsInWord = wordEnd < all.size() && all[wordEnd].isLetterOrNumber();
        if (!endsInWord && pattern.isDate())
            return pattern;
        while (at < all.size() && all[at].isLetter())
            ++at;
    }
    return {};
}

DatePattern DatePattern::of(QStringView pattern)
{
    return in(pattern.toString()).value();
}

QString DatePattern::write(int day, int month, int year) const
{
    constexpr int kCentury = 100;
    QString text;
    for (const Part &part : m_parts) {
        text += part.mark;
        const bool isShortYear = part.what == u'Y' && part.width < 3;
        const int number = part.what == u'D' ? day : part.what == u'M' ? month : isShortYear ? year % kCentury : year;
        text += u"%1"_s.arg(number, isShortYear ? 2 : part.width, 10, QChar(u'0'));
    }
    return text;
}
