#include "blocking/BlackListSearch.h"

#include <algorithm>

namespace {

/// Appends a text in folded case. No character changes its length.
void appendFolded(std::vector<char16_t> &to, QStringView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (unit < 0x80) {
            to.push_back(unit >= u'A' && unit <= u'Z' ? char16_t(unit + (u'a' - u'A')) : unit);
        } else if (QChar::isHighSurrogate(unit) && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            const char32_t folded = QChar::toCaseFolded(QChar::surrogateToUcs4(unit, text[++i].unicode()));
            to.push_back(QChar::highSurrogate(folded));
            to.push_back(QChar::lowSurrogate(folded));
        } else {
            to.push_back(char16_t(QChar::toCaseFolded(char32_t(unit))));
        }
    }
}

/// Whether a place lies inside a character that takes two code units.
bool isInsideCharacter(std::u16string_view text, size_t place)
{
    return place > 0 && QChar::isLowSurrogate(text[place]) && QChar::isHighSurrogate(text[place - 1]);
}

} // namespace

BlackListSearch::BlackListSearch(const QStringList &entries)
{
    size_t units = 0;
    for (const QString &entry : entries)
        units += static_cast<size_t>(entry.size());
    m_text.reserve(units);
    m_entries.reserve(static_cast<size_t>(entries.size()));
    for (const QString &entry : entries) {
        const size_t begin = m_text.size();
        appendFolded(m_text, entry);
        // The room was reserved, so the text stays where it is.
        m_entries.emplace_back(m_text.data() + begin, m_text.size() - begin);
    }

    std::sort(m_entries.begin(), m_entries.end());
    size_t kept = 0;
    for (const std::u16string_view entry : m_entries) {
        if (kept == 0 || !entry.starts_with(m_entries[kept - 1]))
            m_entries[kept++] = entry;
    }
    m_entries.resize(kept);
}

bool BlackListSearch::findsAnyIn(QStringView address) const
{
    if (m_entries.empty())
        return false;
    if (m_entries.front().empty())
        return true;
    std::vector<char16_t> folded;
    folded.reserve(static_cast<size_t>(address.size()));
    appendFolded(folded, address);
    const std::u16string_view text(folded.data(), folded.size());
    for (size_t place = 0; place < text.size(); ++place) {
        if (isInsideCharacter(text, place))
            continue;
        const std::u16string_view rest = text.substr(place);
        const auto after = std::upper_bound(m_entries.begin(), m_entries.end(), rest);
        if (after != m_entries.begin() && rest.starts_with(*std::prev(after)))
            return true;
    }
    return false;
}
