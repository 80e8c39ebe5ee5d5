#include "forms/FieldNeighbours.h"

#include "forms/DatePattern.h"

#include <algorithm>
#include <array>

using enum FieldKind;

namespace {

using Entries = std::vector<FormEntry>;

/// How far from an input its neighbours may explain it, in inputs.
constexpr int kNear = 4;

int count(const Entries &entries)
{
    return static_cast<int>(entries.size());
}

/// The entry `at`, which is one of the frame.
template <typename List>
auto &entryAt(List &entries, int at)
{
    return entries[static_cast<size_t>(at)];
}

/// The kind of the entry `at`, None outside of the frame.
FieldKind kindAt(const Entries &entries, int at)
{
    return at >= 0 && at < count(entries) ? entryAt(entries, at).guess.kind : None;
}

/// Whether a kind for which `test` holds is within `reach` inputs, before or behind.
template <typename Test>
bool isNear(const Entries &entries, int at, int reach, Test test)
{
    for (int distance = 1; distance <= reach; ++distance) {
        if (test(kindAt(entries, at - distance)) || test(kindAt(entries, at + distance)))
            return true;
    }
    return false;
}

auto is(FieldKind wanted)
{
    return [wanted](FieldKind kind) { return kind == wanted; };
}

bool isShortBox(const FormEntry &entry)
{
    constexpr int kLongestPiece = 8;
    return !entry.isList() && entry.maxLength() > 0 && entry.maxLength() <= kLongestPiece;
}

/// More than one word: "Billing month".
bool isSentence(const QString &label)
{
    const auto blank = label.indexOf(u' ');
    const auto isLetter = [](QChar c) { return c.isLetter(); };
    return blank >= 0 && std::ranges::any_of(label.first(blank), isLetter) &&
           std::ranges::any_of(label.sliced(blank), isLetter);
}

/// A day, month or year of what: the nearest date or card tells; two parts beside each other are a date of birth when
/// no card is near, and a part by itself is one only where its name is nothing but that word.
void settleDatePart(Entries &entries, int at)
{
    constexpr qsizetype kOneWord = 5;
    FormEntry &entry = entryAt(entries, at);
    FieldGuess &guess = entry.guess;
    const auto isOtherPart = [&](FieldKind kind) {
        const bool isSame = guess.kind == Day     ? kind == BirthDay
                            : guess.kind == Month ? kind == BirthMonth || kind == CardMonth
                                                  : kind == BirthYear || kind == CardYear;
        return kind != guess.kind && !isSame &&
               (isDatePart(kind) || isBirth(kind) || kind == CardMonth || kind == CardYear || kind == CardDate);
    };
    // Numbers from 1 to 12 that no word calls months count anything.
    if (entry.isList() && !guess.said.hasAny(Day, Month, Year, CardDate, CardMonth, CardYear, BirthDate) &&
        !isNear(entries, at, 1, isOtherPart)) {
        guess.kind = None;
        return;
    }
    const bool isDay = guess.kind == Day;
    bool isOfCard = false;
    bool isOfBirth = false;
    for (int distance = 1; distance <= kNear && !isOfCard && !isOfBirth; ++distance) {
        for (const int neighbour : {at - distance, at + distance}) {
            const FieldKind kind = kindAt(entries, neighbour);
            if (!isOfCard && !isOfBirth) {
                isOfCard = isCard(kind) && !isDay;
                isOfBirth = isBirth(kind);
            }
        }
    }
    int others = 0;
    for (const FieldKind part : {Day, Month, Year})
        others += part != guess.kind && isNear(entries, at, 2, is(part));
    const bool hasOthers = others > 0;
    // "Billing month"; with both others beside it, it may be spoken in any words.
    const bool isSaid = others < 2 && !entry.isList() && isSentence(entry.input->label.simplified());
    const bool isOnlyWord = entry.input->name.size() <= kOneWord || hasOthers;
    if (isOfCard)
        guess.kind = guess.kind == Month ? CardMonth : CardYear;
    else if (isOfBirth || (hasOthers && entry.isList()) || (guess.byName && isOnlyWord && !isSaid))
        guess.kind = isDay ? BirthDay : guess.kind == Month ? BirthMonth : BirthYear;
    else
        guess.kind = None;
}

/// Whether an input that is for the end of a card's validity has room for one part of it only, or says nothing else.
bool mayBePart(const FormEntry &entry)
{
    constexpr int kShortestDate = 5;
    if (entry.guess.kind != CardDate || entry.guess.byToken || entry.input->type == u"month")
        return false;
    return entry.isList() || (entry.maxLength() < kShortestDate && !DatePattern::in(entry.input->placeholder));
}

/// A list or a short box that nothing is said about: behind the month of a card it is for the year.
bool isBare(const FormEntry &entry)
{
    constexpr int kYearDigits = 4;
    const bool isPart = entry.isList() ? entry.buttons.empty() : isShortBox(entry) && entry.maxLength() <= kYearDigits;
    return isPart && entry.guess.kind == None && entry.input->label.isEmpty();
}

/// "Valid thru" above two inputs is their month and their year.
void settleCardDates(Entries &entries)
{
    for (int i = 0; i + 1 < count(entries); ++i) {
        FormEntry &first = entryAt(entries, i);
        FormEntry &second = entryAt(entries, i + 1);
        const bool isOneLabel = second.input->label.isEmpty() || second.input->label == first.input->label;
        const bool isPair = mayBePart(second) || (isBare(second) && first.maxLength() <= 2);
        if (mayBePart(first) && isPair && isOneLabel) {
            first.guess.kind = CardMonth;
            second.guess.kind = CardYear;
        } else if (mayBePart(first) && second.guess.kind == CardYear) {
            first.guess.kind = CardMonth;
        } else if (first.guess.kind == CardMonth && (mayBePart(second) || isBare(second))) {
            second.guess.kind = CardYear;
        }
    }
}

/// A date of birth over several inputs, of which not each one says its part.
void settleBirthDates(Entries &entries, const RecordValues &record)
{
    constexpr int kYearDigits = 4;
    for (int i = 0; i < count(entries); ++i) {
        FormEntry &entry = entryAt(entries, i);
        const bool isTriple =
            entry.guess.kind == BirthDate && kindAt(entries, i + 1) == BirthDate && kindAt(entries, i + 2) == BirthDate;
        if (isTriple && !entry.guess.byToken) {
            std::array<FieldKind, 3> order{BirthDay, BirthMonth, BirthYear};
            if (entry.maxLength() == kYearDigits)
                order = {BirthYear, BirthMonth, BirthDay};
            else if (record.countryCode() == u"US")
                order = {BirthMonth, BirthDay, BirthYear};
            for (int part = 0; part < 3; ++part)
                entryAt(entries, i + part).guess.kind = order[static_cast<size_t>(part)];
            continue;
        }
        const bool isShort = entry.maxLength() <= 2;
        const bool hasMonth = isNear(entries, i, 2, is(BirthMonth));
        if (entry.guess.kind == BirthDate && !entry.guess.byToken && isShort && hasMonth)
            entry.guess.kind = BirthDay;
        else if (entry.guess.kind == BirthDay && !entry.isList() && !hasMonth && entry.maxLength() == 0)
            entry.guess.kind = BirthDate;
    }
}

/// "Name" beside a first name is the last name, and the other way round; a "title" behind the name is one of a job.
void settleNames(Entries &entries)
{
    const bool hasTitles = std::ranges::any_of(
        entries, [](const FormEntry &entry) { return entry.guess.kind == Title && entry.isList(); });
    for (int i = 0; i < count(entries); ++i) {
        FieldGuess &guess = entryAt(entries, i).guess;
        if (guess.kind == Title && guess.isWeak && !entryAt(entries, i).isList()) {
            const bool isBefore = isName(kindAt(entries, i + 1)) || isName(kindAt(entries, i + 2));
            bool isBehind = false;
            for (int distance = 1; distance <= kNear; ++distance)
                isBehind = isBehind || isName(kindAt(entries, i - distance));
            // The title of a thing stands by itself, and that of a doctor beside "Mr." and "Mrs.".
            if (hasTitles)
                guess.kind = Other;
            else if (!isBefore)
                guess.kind = isBehind ? Job : Other;
        }
        const bool first = isNear(entries, i, 2, is(FirstName));
        const bool last = isNear(entries, i, 2, is(LastName));
        if (guess.isWholeName && !guess.byToken &&
            ((guess.kind == FirstName && !last) || (guess.kind == LastName && !first)))
            guess.kind = FullName;
        if (guess.kind == FullName && guess.isWeak && first != last)
            guess.kind = first ? LastName : FirstName;
    }
}

/// The limits of the inputs from `at` on that take `digits` digits together, each full to its limit; none when none do.
std::vector<int> piecesFrom(const Entries &entries, int at, qsizetype digits, FieldKind kind)
{
    constexpr int kMost = 4;
    qsizetype sum = 0;
    std::vector<int> lengths;
    for (int i = at; i < at + kMost && i < count(entries); ++i) {
        const FormEntry &entry = entryAt(entries, i);
        const FieldKind said = entry.guess.kind;
        // Three boxes in a row for digits need no words.
        const bool isOpen = i > at ? said == None || entry.guess.isWeak : said == None && entry.input->type == u"tel";
        const bool belongs = said == kind || (kind == Phone && isPhone(said)) || isOpen;
        if (!belongs || !isShortBox(entry))
            return {};
        lengths.push_back(entry.maxLength());
        sum += entry.maxLength();
        if (sum >= digits)
            return sum == digits && i > at ? lengths : std::vector<int>{};
    }
    return {};
}

/// Deals the digits of a number to inputs from `at` on.
void deal(Entries &entries, int at, const std::vector<int> &lengths, FieldKind kind)
{
    int from = 0;
    for (const int length : lengths) {
        FormEntry &entry = entryAt(entries, at++);
        entry.guess.kind = kind;
        entry.from = from;
        entry.length = length;
        from += length;
    }
}

/// A telephone input that has no words beside it: the one in front of it speaks for it.
bool isWordless(const Entries &entries, int at, FieldKind kind)
{
    if (kindAt(entries, at) != kind)
        return false;
    const FormEntry &entry = entryAt(entries, at);
    const engine::FormInput &input = *entry.input;
    const auto isLetter = [](QChar c) { return c.isLetter(); };
    return !entry.guess.byToken && entry.maxLength() == 0 && input.placeholder.isEmpty() && input.ariaLabel.isEmpty() &&
           std::ranges::none_of(input.label, isLetter);
}

/// Gives the inputs of a split telephone number their pieces, by their limits or by what they are called. The number of
/// inputs that are settled by that.
int settlePhone(Entries &entries, int at, const PhoneNumber &number, FieldKind kind)
{
    constexpr int kCountryBox = 4;
    constexpr size_t kThree = 3;
    const FormEntry &entry = entryAt(entries, at);
    const auto piecesAt = [&](int first) { return piecesFrom(entries, first, number.digits.size(), kind); };
    if (const std::vector<int> pieces = piecesAt(at); !pieces.empty()) {
        deal(entries, at, pieces, kind);
        // What follows is an extension.
        int next = at + static_cast<int>(pieces.size());
        while (isPhone(kindAt(entries, next)) && isShortBox(entryAt(entries, next)) && piecesAt(next).empty())
            entryAt(entries, next++).guess.kind = Other;
        return next - at;
    }
    // A short first box in front of all the digits is for the country.
    if (entry.guess.kind == kind && isShortBox(entry) && entry.maxLength() <= kCountryBox &&
        !piecesAt(at + 1).empty()) {
        entryAt(entries, at).guess.kind = kind == Phone ? PhoneCountry : Other;
        return 1;
    }
    if (number.groups.size() == kThree && entry.maxLength() == 0 && isWordless(entries, at + 1, kind) &&
        isWordless(entries, at + 2, kind)) {
        deal(entries, at, number.groups, kind);
        return kThree;
    }
    if (entry.guess.kind == PhoneArea && kindAt(entries, at + 1) == Phone && !number.groups.empty()) {
        entryAt(entries, at + 1).guess.kind = PhoneLocal;
        return 2;
    }
    return 1;
}

/// The number behind its country's code does without it.
void settleCountryCode(Entries &entries, int at, const RecordValues &record)
{
    const FormEntry &entry = entryAt(entries, at);
    if (entry.isList() && fittingOption(*entry.options, PhoneCountry, record) < 0)
        return;
    for (int i = at + 1; i < count(entries) && i <= at + 2; ++i) {
        entryAt(entries, i).withoutCountry = true;
        if (kindAt(entries, i) == Phone)
            return;
    }
}

void settlePhones(Entries &entries, const RecordValues &record)
{
    for (int i = 0; i < count(entries);) {
        const FormEntry &entry = entryAt(entries, i);
        const FieldKind kind = entry.guess.kind;
        const bool isBox = kind == None && entry.input->type == u"tel";
        if (kind == PhoneCountry)
            settleCountryCode(entries, i++, record);
        else if (entry.isList() || !(isPhone(kind) || kind == Fax || isBox))
            ++i;
        else if (kind == Fax)
            i += settlePhone(entries, i, record.faxParts, Fax);
        else
            i += settlePhone(entries, i, record.phoneParts, Phone);
    }
}

void settleCardNumbers(Entries &entries, const RecordValues &record)
{
    const auto digits = std::ranges::count_if(record.cardNumber, [](QChar c) { return c.isDigit(); });
    for (int i = 0; i < count(entries); ++i) {
        if (kindAt(entries, i) != CardNumber)
            continue;
        if (const std::vector<int> pieces = piecesFrom(entries, i, digits, CardNumber); !pieces.empty()) {
            deal(entries, i, pieces, CardNumber);
            i += static_cast<int>(pieces.size()) - 1;
        }
    }
}

/// A number of a card that only a text beside the input speaks of, and a code by a word that is used for other things,
/// too, need another detail of a card in the frame.
void settleCards(Entries &entries)
{
    const auto isSure = [](const FormEntry &entry) {
        const FieldGuess &guess = entry.guess;
        if (guess.kind == CardNumber)
            return guess.byToken || (guess.byName && !guess.isWeak);
        return isCard(guess.kind) && (guess.byToken || !guess.isWeak);
    };
    if (std::ranges::any_of(entries, isSure))
        return;
    for (FormEntry &entry : entries) {
        if (isCard(entry.guess.kind))
            entry.guess.kind = None;
    }
}

/// The second of two equal lines of an address is its second line; a house number needs a street beside it.
void settleAddresses(Entries &entries)
{
    for (int i = 0; i < count(entries); ++i) {
        FormEntry &entry = entryAt(entries, i);
        FieldGuess &guess = entry.guess;
        if (entry.isList() && (guess.kind == Address1 || guess.kind == Address2))
            guess.kind = Other;
        const bool isAgain = guess.kind == Address1 && !guess.byToken;
        if (isAgain && kindAt(entries, i - 1) == Address1)
            guess.kind = kindAt(entries, i + 1) == Address2 ? Other : Address2;
        else if (isAgain && kindAt(entries, i - 1) == Address2 && kindAt(entries, i - 2) == Address1)
            guess.kind = Other;
        else if (guess.kind == Address1 && kindAt(entries, i + 1) != Address2 && entry.input->type == u"textarea")
            guess.kind = Street;
        else if (guess.kind == Address2 && !guess.byToken && kindAt(entries, i - 1) == Address2)
            guess.kind = Other;
        else if (guess.kind == Zip && kindAt(entries, i - 1) == Zip && isShortBox(entry) && entry.maxLength() <= 4)
            guess.kind = Other;
    }
    for (int i = 0; i < count(entries); ++i) {
        FieldGuess &guess = entryAt(entries, i).guess;
        if (guess.kind != HouseNumber)
            continue;
        bool hasStreet = false;
        for (const int at : {i - 1, i + 1, i - 2, i + 2}) {
            if (hasStreet || kindAt(entries, at) != Address1)
                continue;
            hasStreet = true;
            entryAt(entries, at).withoutHouseNumber = true;
        }
        if (!hasStreet)
            guess.kind = None;
    }
}

/// "Postcode and town" is one line where no input for the other one is beside it, and stays empty; else its first half.
void settlePlaces(Entries &entries)
{
    for (int i = 0; i < count(entries); ++i) {
        FieldGuess &guess = entryAt(entries, i).guess;
        if ((guess.kind != Zip && guess.kind != City) || guess.byToken ||
            !(guess.said.has(Zip) && guess.said.has(City)))
            continue;
        if (!isNear(entries, i, kNear, is(guess.kind == Zip ? City : Zip)))
            guess.kind = Other;
    }
}

/// On a page that asks who sends something and who gets it the user is the one who sends.
void settleRecipients(Entries &entries)
{
    const bool hasSender = std::ranges::any_of(
        entries, [](const FormEntry &entry) { return entry.guess.said.has(Sender) && isName(entry.guess.kind); });
    for (FormEntry &entry : entries) {
        if (hasSender && entry.guess.said.has(Recipient) && !entry.guess.said.has(Sender))
            entry.guess.kind = Other;
    }
}

/// What follows the name of somebody else is about that one, where the user has been asked for the same before.
void settleStrangers(Entries &entries)
{
    const auto ofPerson = [](FieldKind kind) {
        return isPhone(kind) || isBirth(kind) || kind == Mail || kind == Job || (kind >= Address1 && kind <= Zip);
    };
    for (int i = 0; i < count(entries); ++i) {
        if (!entryAt(entries, i).guess.isStranger)
            continue;
        for (int next = i + 1; next <= i + kNear && !isName(kindAt(entries, next)); ++next) {
            const FieldKind kind = kindAt(entries, next);
            if (ofPerson(kind) && std::any_of(entries.begin(), entries.begin() + i,
                                              [&](const FormEntry &entry) { return entry.guess.kind == kind; }))
                entryAt(entries, next).guess.kind = Other;
        }
    }
}

/// Of several people with numbers the user is the first one.
void settleCompanions(Entries &entries)
{
    int first = -1;
    for (int i = 1; i < count(entries); ++i) {
        // "birthdate2" behind "Name of passenger 2"
        const int person = entryAt(entries, i - 1).guess.person;
        FormEntry &entry = entryAt(entries, i);
        if (person > 1 && entry.guess.person < 0 && entry.input->name.endsWith(QChar(u'0' + person)))
            entry.guess.person = person;
    }
    for (const FormEntry &entry : entries) {
        if (entry.guess.person >= 0 && (first < 0 || entry.guess.person < first))
            first = entry.guess.person;
    }
    for (FormEntry &entry : entries) {
        // Some count from 0. A second one without a first is nobody that the record knows, either.
        if (entry.guess.person > std::min(first, 1))
            entry.guess.kind = Other;
    }
}

/// A county is asked for only where no state is, and a suburb where no city is.
void settleWeak(Entries &entries, FieldKind kind)
{
    const bool hasSure = std::ranges::any_of(
        entries, [&](const FormEntry &entry) { return entry.guess.kind == kind && !entry.guess.isWeak; });
    for (FormEntry &entry : entries) {
        if (hasSure && entry.guess.kind == kind && entry.guess.isWeak)
            entry.guess.kind = Other;
    }
}

} // namespace

void settleNeighbours(std::vector<FormEntry> &entries, const RecordValues &record)
{
    settleRecipients(entries);
    settleCompanions(entries);
    settleStrangers(entries);
    settleCardDates(entries);
    settleBirthDates(entries, record);
    for (int i = 0; i < count(entries); ++i) {
        if (isDatePart(kindAt(entries, i)))
            settleDatePart(entries, i);
    }
    settleCardDates(entries);
    settleBirthDates(entries, record);
    settleNames(entries);
    settlePhones(entries, record);
    settleCardNumbers(entries, record);
    settleCards(entries);
    settleAddresses(entries);
    settlePlaces(entries);
    settleWeak(entries, State);
    settleWeak(entries, City);
}
