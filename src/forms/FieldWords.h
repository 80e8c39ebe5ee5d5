#pragma once

#include <QString>
#include <array>

/// A text of a page, or a word of ours, as letters and digits alone: in lower case, without accents, blanks and marks.
/// Where words began and ended is kept beside it, so that "first_name", "firstName" and "First name" are one and the
/// same text, and "state" can be told from a part of "statement".
class FieldWords
{
public:
    enum class From {
        /// Marks of a path ("a[b][c]", "a.b.c") part it, and its last part says most.
        Name,
        Prose
    };

    /// Texts are cut to `kLimit` letters: what an input is stands in its first words (in the last ones of a name).
    static constexpr int kLimit = 120;

    explicit FieldWords(QStringView text, From from = From::Prose);

    const QString &letters() const { return m_letters; }
    qsizetype size() const { return m_letters.size(); }
    /// Whether a word begins or ends in front of letter `at` (0 to size()).
    bool isEdge(qsizetype at) const { return m_edges[static_cast<size_t>(at)]; }
    /// The number of the part of the path that letter `at` is in.
    int part(qsizetype at) const { return m_parts[static_cast<size_t>(at)]; }
    /// Whether a part of the path begins at letter `at`, or ends in front of it.
    bool isStartOfPart(qsizetype at) const { return at == 0 || at == size() || part(at) != part(at - 1); }
    /// Whether letter `at` came after an opening bracket of a remark.
    bool isRemark(qsizetype at) const { return m_remark >= 0 && at >= m_remark; }

private:
    void take(QChar character, bool edge);
    /// A sign that stands for a word.
    void takeWord(QStringView word);

    QString m_letters;
    std::array<bool, kLimit + 1> m_edges{};
    std::array<quint8, kLimit + 1> m_parts{};
    qsizetype m_remark = -1;
    quint8 m_part = 0;
};

/// Shorthand for the letters alone, uncut.
QString foldedLetters(QStringView text);
/// A letter or digit in lower case without its accent. German sharp s and the like stay one letter.
QChar folded(QChar character);
