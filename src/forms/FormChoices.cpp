#include "forms/FormChoices.h"

#include "forms/PlaceNames.h"

#include <QSet>
#include <algorithm>
#include <functional>
#include <span>

using namespace Qt::StringLiterals;

namespace {

using engine::FormOption;
using Options = std::vector<FormOption>;

/// The first letters of the months, folded: English, German, French, Spanish, Italian, Dutch, Portuguese.
constexpr QStringView kMonths[] = {u"jan|ene|gen",     u"feb|fev",         u"mar|maa|mrt",  u"apr|avr|abr",
                                   u"may|mai|mag|mei", u"jun|juin|giu",    u"jul|juil|lug", u"aug|aou|ago",
                                   u"sep|set",         u"oct|okt|ott|out", u"nov",          u"dec|dez|dic"};

/// Words that mean the same, folded; what the record holds first, codes last.
constexpr QStringView kTitles[] = {
    u"mr|mister|herr|monsieur|m|senor|sr|signor|signore|sig|dhr|deheer|meneer|heer|senhor|hr|пан|господин",
    u"mrs|missis|frau|madame|mme|senora|sra|signora|sigra|mevrouw|mevr|mw|fru|senhora|ms",
    u"ms|miss|frau|mademoiselle|mlle|madame|mme|senorita|srta|sra|signorina|signora|mevrouw|mw|mrs",
    u"dr|doctor|doktor|docteur|dott|dra|dottore",
    u"prof|professor|professeur|profesor|professore",
    u"eng|engineer|ing|ingenieur|dipling|ingeniero|ingegnere"};
constexpr QStringView kSexes[] = {
    u"male|man|mann|mannlich|maennlich|herr|homme|masculin|hombre|masculino|varon|uomo|maschio|man|mannelijk|masculine|"
    u"mr|мужской|男|男性|남성|m",
    u"female|woman|frau|weiblich|femme|feminin|mujer|femenino|donna|femmina|vrouw|vrouwelijk|feminino|feminine|mrs|ms|"
    u"женский|女|女性|여성|f|w"};
constexpr QStringView kCards[] = {u"visa|visacard|visacredit|v|vi|vs|vsa|visacreditcard",
                                  u"mastercard|master|eurocard|eurocardmastercard|mc|m|mcd|mastercardeurocard",
                                  u"americanexpress|amex|amx|ax|ae|am|a|amexcard|americanexpresscard",
                                  u"cartebleue|cartebleu|cbleue",
                                  u"cb|cartebancaire|cbcard",
                                  u"dinersclub|diners|dinersclubinternational|dc|din|dci",
                                  u"discover|discovercard|discovernetwork|discovernovus|di|ds|d|disc|dis",
                                  u"delta|visadelta",
                                  u"solo",
                                  u"switch|maestroswitch|switchmaestro|maestro",
                                  u"jcb|jcbcard|jc"};

struct FoldedOption
{
    QString text;
    QString value;
};
using FoldedOptions = std::vector<FoldedOption>;

FoldedOptions foldedOptions(const Options &options)
{
    FoldedOptions all;
    all.reserve(options.size());
    for (const FormOption &option : options)
        all.push_back({foldedLetters(option.text), foldedLetters(option.value)});
    return all;
}

template <typename List, typename Test>
int firstThat(const List &options, Test test)
{
    const auto found = std::ranges::find_if(options, test);
    return found == std::ranges::end(options) ? -1 : static_cast<int>(found - std::ranges::begin(options));
}

/// The position that the first search which has a result gives.
int firstOf(std::initializer_list<std::function<int()>> searches)
{
    for (const auto &search : searches) {
        if (const int position = search(); position >= 0)
            return position;
    }
    return -1;
}

/// The first option that is one of the words, the words in their order; texts count before values.
int optionOfWords(const FoldedOptions &options, const QStringList &words)
{
    for (const auto part : {&FoldedOption::text, &FoldedOption::value}) {
        for (const QString &word : words) {
            const int position = firstThat(options, [&](const FoldedOption &option) { return option.*part == word; });
            if (position >= 0)
                return position;
        }
    }
    return -1;
}

/// The first number in a text, -1 for none or a huge one.
int numberIn(QStringView text)
{
    const auto *first = std::ranges::find_if(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
    const auto *last = std::find_if(first, text.end(), [](QChar c) { return c < u'0' || c > u'9'; });
    constexpr auto kMostDigits = 6;
    return first == last || last - first > kMostDigits ? -1 : QStringView(first, last).toInt();
}

/// A number and nothing else but what an ordinal or a mark adds ("3rd", "3.", "'29", "3日"); -1 otherwise.
int soleNumber(const QString &text)
{
    constexpr int kMostLetters = 2;
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    const auto *first = std::ranges::find_if(text, isDigit);
    const auto *end = std::find_if_not(first, text.end(), isDigit);
    const bool hasMore = std::any_of(end, text.end(), isDigit);
    if (hasMore || std::ranges::count_if(text, [](QChar c) { return c.isLetter(); }) > kMostLetters)
        return -1;
    return numberIn(text);
}

/// The row of words that holds one; -1 for none.
int rowOf(std::span<const QStringView> rows, QStringView word)
{
    return firstThat(rows, [&](QStringView row) { return row.split(u'|').contains(word); });
}

QStringList wordsOf(std::span<const QStringView> rows, const QString &said)
{
    const int row = rowOf(rows, foldedLetters(said));
    return row < 0 ? QStringList{foldedLetters(said)} : rows[static_cast<size_t>(row)].toString().split(u'|');
}

/// The option whose number, as `numberOf` reads it, is this one. Texts count before values, which often begin at 0.
template <typename NumberOf>
int optionOfNumber(const Options &options, int number, NumberOf numberOf)
{
    if (number <= 0)
        return -1;
    const int position = firstThat(options, [&](const FormOption &option) { return numberOf(option.text) == number; });
    if (position >= 0)
        return position;
    return firstThat(options, [&](const FormOption &option) { return numberOf(option.value) == number; });
}

int optionOfYear(const Options &options, const QString &year)
{
    constexpr int kCentury = 100;
    const int number = soleNumber(year);
    if (number < 0)
        return -1;
    const int position = optionOfNumber(options, number, soleNumber);
    if (position >= 0)
        return position;
    // Lists of two digits, and a record of two digits.
    const bool isShort = number < kCentury;
    return firstThat(options, [&](const FormOption &option) {
        const int said = soleNumber(option.text.isEmpty() ? option.value : option.text);
        return said >= 0 && (isShort ? said % kCentury == number : said == number % kCentury);
    });
}

int optionOfCard(const FoldedOptions &options, const QString &card)
{
    const QStringList words = wordsOf(kCards, card);
    const int position = optionOfWords(options, words);
    if (position >= 0)
        return position;
    // "Visa (credit)", "Pay by Visa": the shortest text that has the word.
    int best = -1;
    for (size_t i = 0; i < options.size(); ++i) {
        const bool fits = options[i].text.contains(words.front()) || options[i].value.contains(words.front());
        if (fits && (best < 0 || options[i].text.size() < options[static_cast<size_t>(best)].text.size()))
            best = static_cast<int>(i);
    }
    return best;
}

int optionOfCountry(const Options &options, const RecordValues &record)
{
    if (record.country.isEmpty())
        return -1;
    // By far the most common way, without a closer look at hundreds of names.
    const QString name = record.countryName();
    const int plain = firstThat(
        options, [&](const FormOption &option) { return option.text.compare(name, Qt::CaseInsensitive) == 0; });
    if (plain >= 0 && !name.isEmpty())
        return plain;
    const FoldedOptions folded = foldedOptions(options);
    const QStringList &names = record.countryNames;
    const QStringList &codes = record.countryCodes;
    const int position = optionOfWords(folded, names + codes);
    if (position >= 0)
        return position;
    return firstOf({
        // "Canada (CA)", "CA - Canada"
        [&] {
            return firstThat(folded, [&](const FoldedOption &option) {
                return codes.contains(option.value.first(std::min<qsizetype>(2, option.value.size()))) &&
                       option.text.contains(names.front());
            });
        },
        // A remark behind the name. With more than one of them it is part of the name.
        [&] {
            const auto isNamed = [&](const FormOption &option) {
                return foldedLetters(option.text.section(u'(', 0, 0).section(u',', 0, 0)) == names.front();
            };
            return std::ranges::count_if(options, isNamed) == 1 ? firstThat(options, isNamed) : -1;
        },
        // The position in the list of countries, where nothing else is said about what the value means.
        [&] {
            return firstThat(folded, [&](const FoldedOption &option) {
                return option.value == record.country.front() && (option.text.isEmpty() || option.text == option.value);
            });
        },
    });
}

/// The option for the country's code of the telephone. Several countries share one: the name of the user's own decides.
int optionOfCallingCode(const Options &options, const RecordValues &record)
{
    const QString &code = record.phoneParts.country;
    if (code.isEmpty())
        return -1;
    const bool isHome = code == callingCodeOfCountry(record.countryCode());
    const auto isOf = [](QChar c) { return c.isDigit(); };
    int plain = -1;
    int named = -1;
    std::vector<int> coded;
    for (int i = 0; i < static_cast<int>(options.size()); ++i) {
        const FormOption &option = options[static_cast<size_t>(i)];
        QString letters;
        QString digits;
        for (const QChar character : foldedLetters(option.text))
            (isOf(character) ? digits : letters) += character;
        if (digits.isEmpty() && option.value.startsWith(u'+'))
            digits = foldedLetters(option.value);
        const QString value = foldedLetters(option.value);
        const bool isNamed = isHome && (record.countryNames.contains(letters) ||
                                        record.countryCodes.contains(letters) || record.countryCodes.contains(value));
        if (digits == code || digits == u"00"_s + code) {
            if (isNamed)
                return i;
            coded.push_back(i);
            if (letters.isEmpty() && plain < 0)
                plain = i;
        } else if (isNamed && named < 0 && digits.isEmpty()) {
            named = i;
        }
    }
    if (plain >= 0)
        return plain;
    return coded.size() == 1 ? coded.front() : named;
}

/// Whether a text is a name with a short code in front of it or behind it ("BY - Bayern", "Bayern (BY)").
bool isNameWithCode(const QString &text, const QString &name)
{
    constexpr qsizetype kLongestCode = 4;
    const QString folded = foldedLetters(text);
    if (name.size() < kLongestCode || folded.size() <= name.size() || folded.size() > name.size() + kLongestCode)
        return false;
    const auto isMark = [&](qsizetype at) { return !text.trimmed()[at].isLetterOrNumber(); };
    const qsizetype codeSize = folded.size() - name.size();
    return (folded.endsWith(name) && isMark(codeSize)) ||
           (folded.startsWith(name) && text.trimmed().size() > folded.size());
}

int optionOfState(const Options &options, const RecordValues &record)
{
    if (record.state.isEmpty())
        return -1;
    const FoldedOptions folded = foldedOptions(options);
    const StateName state = stateOf(record.state, record.countryCode());
    const QString name = foldedLetters(state.name);
    const QString code = foldedLetters(state.code);
    const int position = optionOfWords(folded, {name});
    if (position >= 0)
        return position;
    if (code.isEmpty())
        return firstThat(options, [&](const FormOption &option) { return isNameWithCode(option.text, name); });
    const QString longCode = record.countryCode().toLower() + code;
    return firstThat(folded, [&](const FoldedOption &option) {
        // "ON - Ontario", "Ontario (ON)"
        if (option.text == code + name || option.text == name + code)
            return true;
        const bool hasCode = option.value == code || option.text == code || option.value == longCode;
        // A code that another country uses, too, stands beside another name.
        return hasCode &&
               (option.text == code || option.text == longCode || option.text.contains(name) || option.text.isEmpty());
    });
}

/// What short lists hold, known by two of their words.
struct ShortList
{
    ListContent content;
    QStringView one;
    QStringView other;
};

constexpr ShortList kShortLists[] = {
    {ListContent::CardTypes, u"visa|visacard|visacredit",
     u"mastercard|master|mc|mastercardeurocard|eurocardmastercard"},
    {ListContent::Titles, u"mr|herr|m|monsieur|sr|senor|sig|signor|dhr|deheer|mister",
     u"mrs|ms|frau|mme|madame|sra|senora|sigra|signora|mevr|mevrouw|miss"},
    {ListContent::Sexes, u"male|man|mann|mannlich|homme|masculin|hombre|masculino|uomo|maschio",
     u"female|woman|weiblich|femme|feminin|mujer|femenino|donna|femmina|feminino"},
};

/// Rows of a list that only ask to choose.
constexpr size_t kHeads = 2;

bool isComplete(const Options &options, int last, int (*numberOf)(const QString &))
{
    const auto size = static_cast<size_t>(last);
    if (options.size() < size || options.size() > size + kHeads)
        return false;
    QSet<int> numbers;
    for (const FormOption &option : options)
        numbers.insert(numberOf(option.text));
    for (int number = 1; number <= last; ++number) {
        if (!numbers.contains(number))
            return false;
    }
    return true;
}

} // namespace

int monthOf(const QString &text)
{
    constexpr int kMonthsOfYear = 12;
    constexpr qsizetype kLongestName = 20;
    if (text.size() > 3 * kLongestName)
        return 0;
    // Lists write a number beside the name in every order.
    QString word;
    for (const QChar character : text + u' ') {
        if (character.isLetter()) {
            word += folded(character);
            continue;
        }
        constexpr qsizetype kShortest = 3;
        for (int month = 1; month <= kMonthsOfYear && word.size() >= kShortest; ++month) {
            for (const QStringView start : kMonths[month - 1].split(u'|')) {
                if (word.startsWith(start))
                    return month;
            }
        }
        word.clear();
    }
    const int number = soleNumber(text);
    return number <= kMonthsOfYear ? std::max(number, 0) : 0;
}

ListContent contentOf(const Options &options)
{
    constexpr int kMonthsOfYear = 12;
    constexpr int kDaysOfMonth = 31;
    constexpr size_t kLeastYears = 4;
    constexpr size_t kShort = 40;
    constexpr size_t kLeastCountries = 5;
    if (options.size() < 2)
        return ListContent::Unknown;
    if (isComplete(options, kMonthsOfYear, monthOf))
        return ListContent::Months;
    if (isComplete(options, kDaysOfMonth, soleNumber))
        return ListContent::Days;

    // What a long list holds shows in its first rows.
    const std::span<const FormOption> head(options.data(), std::min<size_t>(options.size(), kShort));
    const auto count = [&](auto test) { return static_cast<size_t>(std::ranges::count_if(head, test)); };
    const auto isYear = [](const FormOption &option) {
        const auto isOne = [](int number) { return number >= 1900 && number < 2100; };
        return isOne(soleNumber(option.text)) || isOne(soleNumber(option.value));
    };
    if (const size_t years = count(isYear); years >= kLeastYears && years + kHeads >= head.size())
        return ListContent::Years;
    if (2 * count([](const FormOption &option) { return option.text.contains(u'+') && numberIn(option.text) > 0; }) >
        head.size())
        return ListContent::CallingCodes;

    QStringList texts;
    for (const FormOption &option : head)
        texts.append(foldedLetters(option.text.isEmpty() ? option.value : option.text));
    for (const ShortList &list : kShortLists) {
        const auto isIn = [&](QStringView words) {
            const QList<QStringView> parts = words.split(u'|');
            return std::ranges::any_of(texts, [&](const QString &text) { return parts.contains(text); });
        };
        if (options.size() <= kShort && isIn(list.one) && isIn(list.other))
            return list.content;
    }
    const auto countries = static_cast<size_t>(std::ranges::count_if(texts, isCountryName));
    const bool isShortList = countries >= 2 && countries + 1 >= options.size();
    if (isShortList || (countries >= kLeastCountries && 2 * countries > head.size()))
        return ListContent::Countries;
    return ListContent::Unknown;
}

int optionNamed(const Options &options, const QString &text)
{
    const QString letters = foldedLetters(text);
    return letters.isEmpty() ? -1 : optionOfWords(foldedOptions(options), {letters});
}

int fittingOption(const Options &options, FieldKind kind, const RecordValues &record)
{
    switch (kind) {
    case FieldKind::Title:
        return record.title.isEmpty() ? -1 : optionOfWords(foldedOptions(options), wordsOf(kTitles, record.title));
    case FieldKind::Sex:
        return record.sex.isEmpty() ? -1 : optionOfWords(foldedOptions(options), wordsOf(kSexes, record.sex.last()));
    case FieldKind::CardType:
        return record.cardType.isEmpty() ? -1 : optionOfCard(foldedOptions(options), record.cardType);
    case FieldKind::BirthDay:
        return optionOfNumber(options, record.birthDay.toInt(), soleNumber);
    case FieldKind::BirthMonth:
        return optionOfNumber(options, record.birthMonth.toInt(), monthOf);
    case FieldKind::CardMonth:
        return optionOfNumber(options, record.cardMonth.toInt(), monthOf);
    case FieldKind::BirthYear:
        return optionOfYear(options, record.birthYear);
    case FieldKind::CardYear:
        return optionOfYear(options, record.cardYear);
    case FieldKind::Country:
        return optionOfCountry(options, record);
    case FieldKind::PhoneCountry:
        return optionOfCallingCode(options, record);
    case FieldKind::State:
        return optionOfState(options, record);
    case FieldKind::City:
        return optionNamed(options, record.city);
    case FieldKind::Job:
        return optionNamed(options, record.job);
    case FieldKind::Bank:
        return optionNamed(options, record.bank);
    default:
        return -1;
    }
}
