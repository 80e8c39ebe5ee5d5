#include "forms/FieldWords.h"

namespace {

/// From here on (the scripts of East Asia) no blanks part words: every sign is a word.
constexpr char16_t kFirstSignOfEastAsia = 0x2E80;

/// No sign that is written over or under letters has a lower code.
constexpr char16_t kFirstMark = 0x300;

bool isSeparate(QChar character)
{
    return character.unicode() >= kFirstSignOfEastAsia;
}

/// Accents are part of a letter only in scripts where leaving them out keeps the word.
bool hasAccents(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= 0xC0 && code < 0x530) || (code >= 0x1E00 && code < 0x1F00);
}

/// Whether a word ends between two neighbouring letters: "firstName", "HTMLForm" in front of "Form", "line2", "2nd".
bool changesWord(QChar before, QChar here, QChar after)
{
    if (isSeparate(before) || isSeparate(here))
        return true;
    if (before.isDigit() != here.isDigit())
        return true;
    return here.isUpper() && (before.isLower() || (before.isUpper() && after.isLower()));
}

bool isPathMark(QChar character)
{
    return QStringView(u"[].:/$").contains(character);
}

} // namespace

QChar folded(QChar character)
{
    const char16_t code = character.unicode();
    if (code < 0x80)
        return code >= u'A' && code <= u'Z' ? QChar(code | 0x20) : character;
    if (hasAccents(character)) {
        const QString parts = character.decomposition();
        if (!parts.isEmpty())
            return folded(parts.front());
    }
    switch (character.unicode()) {
    case u'ß':
        return u's';
    case u'ø':
    case u'Ø':
        return u'o';
    case u'ł':
    case u'Ł':
        return u'l';
    default:
        return character.toLower();
    }
}

QString foldedLetters(QStringView text)
{
    QString letters;
    letters.reserve(text.size());
    for (const QChar character : text) {
        if (character.isLetterOrNumber())
            letters += folded(character);
    }
    return letters;
}

FieldWords::FieldWords(QStringView text, From from)
{
    // Marks count as well towards what is looked at, so that a text of marks alone ends, too.
    constexpr int kLooks = 4 * kLimit;
    if (from == From::Name)
        text = text.last(std::min<qsizetype>(text.size(), kLimit));
    else
        text = text.first(std::min<qsizetype>(text.size(), kLooks));
    m_letters.reserve(std::min<qsizetype>(text.size(), kLimit));

    bool edge = true;
    QChar before;
    for (qsizetype i = 0; i < text.size() && m_letters.size() < kLimit; ++i) {
        const QChar character = text[i];
        if (character.unicode() >= kFirstMark && character.isMark())
            continue;
        if (!character.isLetterOrNumber()) {
            edge = true;
            if (character == u'#' && from == From::Prose)
                takeWord(u"number");
            if (from == From::Name && isPathMark(character))
                ++m_part;
            else if (from == From::Prose && m_remark < 0 && !m_letters.isEmpty() &&
                     (character == u'(' || character == u'（'))
                m_remark = m_letters.size();
            continue;
        }
        const QChar after = i + 1 < text.size() ? text[i + 1] : QChar();
        take(character, edge || changesWord(before, character, after));
        edge = false;
        before = character;
    }
    m_edges[static_cast<size_t>(size())] = true;
    m_parts[static_cast<size_t>(size())] = m_part;
}

void FieldWords::takeWord(QStringView word)
{
    for (qsizetype i = 0; i < word.size(); ++i)
        take(word[i], i == 0);
}

void FieldWords::take(QChar character, bool edge)
{
    if (size() == kLimit)
        return;
    m_edges[static_cast<size_t>(size())] = edge;
    m_parts[static_cast<size_t>(size())] = m_part;
    m_letters += folded(character);
}
