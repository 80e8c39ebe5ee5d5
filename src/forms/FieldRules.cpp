#include "forms/FieldRules.h"

#include "forms/FieldPhrases.h"

#include <QList>
#include <QSet>
#include <algorithm>
#include <optional>
#include <tuple>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace {

/// A phrase that is found in parts of words must be at least this long, unless it is marked.
constexpr qsizetype kLeastPart = 4;
/// In texts for people, and inside of words, chance is greater.
constexpr qsizetype kLeastPartOfProse = 5;
/// What a text for people is about stands within as many of its first letters.
constexpr qsizetype kReach = 40;
/// Further in, it is told what one gets for an answer ("Enter to win a $100 gift card").
constexpr int kMostBeforeNever = 4;

struct Phrase
{
    QString letters;
    FieldKind kind;
    bool isWeak;
    bool wholeOnly;
    /// Only where nothing else is said beside it.
    bool aloneOnly;
    /// Not in names and ids.
    bool proseOnly;
    bool isOneWord;
    /// It says who is asked about.
    bool isWho;
    /// It stands behind the first word of the record: what it names is less sure than any of those.
    bool isLate;
    /// In the order in which they count.
    int order;
};

bool isWho(FieldKind kind)
{
    return kind == FieldKind::Sender || kind == FieldKind::Recipient || kind == FieldKind::Companion;
}

/// All phrases by their first letters, longest first; of equal ones that which is for texts alone.
class PhraseIndex
{
public:
    PhraseIndex()
    {
        for (const FieldPhrases &row : fieldPhrases()) {
            for (const QStringView text : row.phrases.split(u'|'))
                add(row, text);
        }
        for (auto &[start, list] : m_lists)
            std::ranges::stable_sort(list, std::ranges::greater(), [](const Phrase &phrase) {
                return std::pair(phrase.letters.size(), phrase.proseOnly);
            });
    }

    /// Phrases that may begin at a place of a text.
    const std::vector<Phrase> *at(QStringView letters) const
    {
        const auto list = m_lists.find(startOf(letters));
        return list == m_lists.end() ? nullptr : &list->second;
    }

private:
    static constexpr char16_t kEastAsia = 0x2E80;

    static quint32 startOf(QStringView letters)
    {
        const char16_t first = letters[0].unicode();
        const bool isOne = first >= kEastAsia || letters.size() < 2;
        return quint32(first) << 16 | (isOne ? 0 : letters[1].unicode());
    }

    void add(const FieldPhrases &row, QStringView text)
    {
        const bool isAlone = text.startsWith(u'^');
        const bool isProse = text.startsWith(u'\'');
        const bool isWhole = isAlone || isProse || text.startsWith(u'=');
        const bool isPart = text.startsWith(u'~');
        const QString letters = foldedLetters(text);
        Q_ASSERT(!letters.isEmpty());
        const bool wholeOnly = isWhole || (!isPart && letters.size() < kLeastPart);
        m_hasRecord = m_hasRecord || row.kind < FieldKind::Day;
        m_lists[startOf(letters)].push_back({letters, row.kind, row.isWeak, wholeOnly, isAlone, isProse,
                                             !text.contains(u' '), isWho(row.kind), m_hasRecord, m_count++});
    }

    std::unordered_map<quint32, std::vector<Phrase>> m_lists;
    int m_count = 0;
    bool m_hasRecord = false;
};

const PhraseIndex &phraseIndex()
{
    static const PhraseIndex index;
    return index;
}

enum class Fit { Whole, Part, Inside };

/// How a phrase lies in the words of a text, if it may lie so.
std::optional<Fit> fitOf(const Phrase &phrase, const FieldWords &words, qsizetype at, FieldWords::From from)
{
    // "address[name]" is the name in an address, not the name of one.
    if (phrase.kind == FieldKind::Other && words.part(at) != words.part(at + phrase.letters.size() - 1))
        return {};
    if (words.isRemark(at) != words.isRemark(at + phrase.letters.size() - 1))
        return {};
    const qsizetype end = at + phrase.letters.size();
    if (phrase.proseOnly && from == FieldWords::From::Name)
        return {};
    if (phrase.aloneOnly && from == FieldWords::From::Name && phrase.letters.size() < 2)
        return {};
    if (phrase.aloneOnly && !(words.isStartOfPart(at) && words.isStartOfPart(end)))
        return {};
    const bool starts = words.isEdge(at);
    const bool ends = words.isEdge(end);
    if (starts && ends)
        return Fit::Whole;
    if (phrase.wholeOnly)
        return {};
    const qsizetype size = phrase.letters.size();
    // "to_day" is no "today", there is no estate in "home_state" and no "lname" in "call name", but mail in
    // "e-mailadres".
    for (qsizetype i = at + 1; i < end && phrase.isOneWord && (!starts || phrase.kind == FieldKind::Trap); ++i) {
        if (words.isEdge(i))
            return {};
    }
    if (phrase.kind == FieldKind::Trap)
        return Fit::Inside;
    if (starts || ends) {
        if (from == FieldWords::From::Prose && size < kLeastPartOfProse)
            return {};
        return Fit::Part;
    }
    if (from == FieldWords::From::Prose || size < kLeastPartOfProse)
        return {};
    return Fit::Inside;
}

struct Match
{
    const Phrase *phrase;
    qsizetype at;
    Fit fit;
    /// As in TextReading.
    bool isFar = false;

    qsizetype end() const { return at + phrase->letters.size(); }
};

/// Whether a text begins so; faster than QStringView::startsWith() for the few letters of a phrase.
bool isAt(QStringView phrase, QStringView text)
{
    return phrase.size() <= text.size() &&
           std::equal(phrase.rbegin(), phrase.rend(), text.first(phrase.size()).rbegin());
}

/// Calls `use` for each phrase in the text that no longer one holds.
template <typename Use>
void forEachMatch(const FieldWords &words, FieldWords::From from, Use use)
{
    const QStringView letters = words.letters();
    qsizetype covered = 0;
    qsizetype trapped = 0;
    for (qsizetype at = 0; at < letters.size(); ++at) {
        if (at < trapped)
            continue;
        const std::vector<Phrase> *list = phraseIndex().at(letters.sliced(at));
        if (!list)
            continue;
        for (const Phrase &phrase : *list) {
            const qsizetype end = at + phrase.letters.size();
            // Who it is about hides nothing and is hidden by nothing.
            if ((end <= covered && !phrase.isWho) || !isAt(phrase.letters, letters.sliced(at)))
                continue;
            const std::optional<Fit> fit = fitOf(phrase, words, at, from);
            if (!fit)
                continue;
            covered = phrase.isWho ? covered : end;
            if (phrase.kind == FieldKind::Trap)
                trapped = end;
            use(Match{&phrase, at, *fit});
        }
    }
}

bool decides(FieldKind kind)
{
    return kind < FieldKind::CardWord || kind == FieldKind::Other;
}

/// Three letters are soon a part of another word.
bool isWeak(const Match &match)
{
    const bool isShortPart = match.fit != Fit::Whole && match.phrase->letters.size() < kLeastPart;
    return match.phrase->isWeak || match.fit == Fit::Inside || match.isFar || isShortPart;
}

/// Words that the last part of a path may be without saying what the input is.
bool isFiller(QStringView word)
{
    static const QStringList fillers =
        u"value|val|text|txt|string|input|field|number|num|nr|no|full|main|und|default|primary|confirm|confirmation|"
        "repeat|again|verify|check|x|formatted|display|international|national|first|one|attributes|data"_s.split(u'|');
    return fillers.contains(word) || std::ranges::all_of(word, [](QChar c) { return c.isDigit(); });
}

/// The last part of a path that says anything.
int sayingPart(const FieldWords &words)
{
    const QStringView letters = words.letters();
    if (words.part(letters.size()) == 0)
        return 0;
    qsizetype end = letters.size();
    for (qsizetype at = end - 1; at >= 0; --at) {
        if (!words.isEdge(at))
            continue;
        if (!isFiller(letters.sliced(at, end - at)))
            return words.part(at);
        end = at;
    }
    return 0;
}

/// The one digit beside a word, -1 for none.
int numberBeside(const FieldWords &words, const Match &match)
{
    const QString &letters = words.letters();
    for (const qsizetype at : {match.end(), match.at - 1}) {
        if (at >= 0 && at < letters.size() && letters[at].isDigit() && words.isEdge(at) && words.isEdge(at + 1))
            return letters[at].digitValue();
    }
    return -1;
}

/// A list of words parted by "|".
class WordSet
{
public:
    explicit WordSet(QStringView words)
    {
        for (const QStringView word : words.split(u'|'))
            m_words.insert(word);
    }
    bool has(QStringView word) const { return m_words.contains(word); }

private:
    QSet<QStringView> m_words;
};

/// The end of the word that begins at a place, the size of the text at its end.
qsizetype endOfWord(const FieldWords &words, qsizetype at)
{
    while (at < words.size() && !words.isEdge(++at)) {
    }
    return at;
}

int wordsBefore(const FieldWords &words, qsizetype end)
{
    int count = 0;
    for (qsizetype at = 0; at < end; ++at)
        count += words.isEdge(at);
    return count;
}

/// Whether a word in front of this match gives it to somebody else: "Dealer city". `said`: where the match in front of
/// it ends.
bool isOfStranger(const FieldWords &words, const Match &match, qsizetype said)
{
    // Further in, a sentence is spoken.
    constexpr int kMostWords = 3;
    static const WordSet owned(ownedPhrases());
    static const WordSet own(ownWords());
    if (match.at <= said || match.fit != Fit::Whole || words.isRemark(match.at) || !owned.has(match.phrase->letters))
        return false;
    qsizetype start = match.at - 1;
    while (!words.isEdge(start))
        --start;
    const QStringView word = QStringView(words.letters()).sliced(start, match.at - start);
    return wordsBefore(words, match.at) <= kMostWords && !own.has(word) && !word.front().isDigit();
}

/// Where a noun stands behind this match that gives it to somebody else ("Name of the dog"), -1 for nowhere.
qsizetype strangerBehind(const FieldWords &words, const Match &match)
{
    static const WordSet particles(particleWords());
    static const WordSet own(ownNouns());
    qsizetype end = match.end();
    qsizetype at;
    QStringView word;
    do {
        at = end;
        end = endOfWord(words, at);
        word = QStringView(words.letters()).sliced(at, end - at);
    } while (particles.has(word));
    const bool isOne = at > match.end() && end > at && words.isRemark(at) == words.isRemark(match.at);
    return isOne && !own.has(word) ? at : -1;
}

/// What a text for people means that names several things.
void settleSeveral(FieldKinds sure, TextReading &reading)
{
    // "Street and house number"
    if (reading.kind == FieldKind::HouseNumber && sure.has(FieldKind::Address1))
        reading.kind = FieldKind::Address1;
    // "Telephone, user name or e-mail"
    if (reading.kind == FieldKind::Phone || reading.kind == FieldKind::Mail) {
        if (sure.has(FieldKind::User))
            reading.kind = FieldKind::User;
        else if (sure.has(FieldKind::Mail))
            reading.kind = FieldKind::Mail;
    }
}

/// Keeps the match of the least rank.
template <typename Rank>
TextReading read(const FieldWords &words, FieldWords::From from, Rank rankOf)
{
    TextReading reading;
    reading.hasLetters = words.size() > 0;
    reading.isSecond = words.letters().contains(u'2');
    std::optional<decltype(rankOf(Match{}))> best;
    FieldKinds sure;
    bool isFirst = true;
    bool isOfOther = false;
    qsizetype stranger = -1;
    qsizetype said = 0;
    const int last = from == FieldWords::From::Name ? sayingPart(words) : 0;
    forEachMatch(words, from, [&](Match match) {
        const FieldKind kind = match.phrase->kind;
        const qsizetype before = said;
        if (kind != FieldKind::Trap || match.phrase->proseOnly)
            said = std::max(said, match.end());
        if (match.at == stranger && kind < FieldKind::CardWord)
            stranger = -1;
        match.isFar = words.part(match.end() - 1) < last;
        if (from == FieldWords::From::Prose && match.at >= kReach)
            return;
        if (kind == FieldKind::Never &&
            (match.fit == Fit::Inside || words.isRemark(match.at) || wordsBefore(words, match.at) > kMostBeforeNever))
            return;
        reading.said.add(kind);
        if (kind == FieldKind::Companion && reading.person < 0)
            reading.person = numberBeside(words, match);
        if (!decides(kind))
            return;
        const bool isForeign = isFirst && kind == FieldKind::Other && !match.phrase->isLate && !isWeak(match);
        isFirst = false;
        if (!isWeak(match))
            sure.add(kind);
        const auto rank = rankOf(match);
        if (best && *best <= rank)
            return;
        best = rank;
        reading.kind = kind;
        reading.isWeak = isWeak(match);
        reading.isFar = match.isFar;
        reading.isAlone = words.isStartOfPart(match.at) && words.isStartOfPart(match.end());
        reading.isForeign = isForeign;
        if (from == FieldWords::From::Prose) {
            isOfOther = isOfStranger(words, match, before);
            stranger = kind < FieldKind::Day && kind != FieldKind::CardCode ? strangerBehind(words, match) : -1;
        }
    });
    if (isOfOther || stranger >= 0) {
        reading.isStranger = isName(reading.kind);
        reading.kind = FieldKind::Other;
        reading.isOfOther = true;
    }
    // "paxFirstName2"
    const QChar end = words.size() > 0 ? words.letters().back() : QChar();
    if (from == FieldWords::From::Name && reading.said.has(FieldKind::Companion) && reading.person < 0 &&
        end.isDigit() && (reading.kind <= FieldKind::LastName || isBirth(reading.kind)))
        reading.person = end.digitValue();
    reading.isWholeName = sure.has(FieldKind::FullName);
    if (from == FieldWords::From::Prose)
        settleSeveral(sure, reading);
    if (reading.said.has(FieldKind::Never))
        reading.kind = FieldKind::Never;
    return reading;
}

} // namespace

TextReading readName(const QString &name)
{
    const FieldWords words(name, FieldWords::From::Name);
    return read(words, FieldWords::From::Name, [&](const Match &match) {
        // "companyPhone", "cardholder_email", "mail_city"
        const Phrase &phrase = *match.phrase;
        const bool isLateOther = phrase.kind == FieldKind::Other && phrase.isLate;
        const bool isPrefix = phrase.kind == FieldKind::FullName || (match.at == 0 && phrase.letters == u"mail");
        const int give = isLateOther ? 2 : isPrefix ? 1 : 0;
        return std::tuple(isWeak(match), -words.part(match.end() - 1), give, match.fit, phrase.order);
    });
}

TextReading readProse(const QString &text)
{
    const FieldWords words(text);
    return read(words, FieldWords::From::Prose, [&](const Match &match) {
        // "Company e-mail", "Card holder: first name", "tel Card number"
        const FieldKind kind = match.phrase->kind;
        const bool isLateOther = kind == FieldKind::Other && match.phrase->isLate;
        const bool isShort = kind == FieldKind::Phone && match.phrase->letters.size() < kLeastPart;
        const int give = isLateOther ? 2 : kind == FieldKind::FullName || isShort ? 1 : 0;
        // Weak words say the less the later they stand in the table.
        const qsizetype place = match.phrase->isWeak ? match.phrase->order : match.at;
        return std::tuple(words.isRemark(match.at), isWeak(match), give, place);
    });
}

void OwnKeys::add(const QString &key, int number)
{
    const QString letters = foldedLetters(key);
    if (!letters.isEmpty() && letters.size() <= FieldWords::kLimit)
        m_keys.push_back({letters, number});
}

int OwnKeys::find(const FieldWords &name) const
{
    int inside = -1;
    for (const Key &key : m_keys) {
        for (qsizetype at = name.letters().indexOf(key.letters); at >= 0;
             at = name.letters().indexOf(key.letters, at + 1)) {
            if (name.isEdge(at) && name.isEdge(at + key.letters.size()))
                return key.number;
            if (inside < 0 && key.letters.size() >= kLeastPart)
                inside = key.number;
        }
    }
    return inside;
}
