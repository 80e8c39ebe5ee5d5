#include "forms/FieldGuess.h"

#include "forms/DatePattern.h"
#include "forms/FieldToken.h"

#include <QHash>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using enum FieldKind;

namespace {

bool isButton(const engine::FormInput &input)
{
    return input.type == u"radio" || input.type == u"checkbox";
}

/// The texts of an input, in the order in which they count.
struct Readings
{
    enum Place { Name, Id, Token, Label, AriaLabel, Placeholder, Count };

    std::array<TextReading, Count> all;

    explicit Readings(const FormEntry &entry)
    {
        const engine::FormInput &input = *entry.input;
        all[Name] = readName(input.name);
        if (input.id != input.name)
            all[Id] = readName(input.id);
        // Words of the page's own stand there, too: "first-name", "zip".
        if (readToken(input.autocomplete).kind == None)
            all[Token] = readName(input.autocomplete);
        // The label of a button is one of the alternatives.
        if (!entry.buttons.empty())
            return;
        all[Label] = readProse(input.label);
        if (input.ariaLabel != input.label)
            all[AriaLabel] = readProse(input.ariaLabel);
        if (input.placeholder != input.label)
            all[Placeholder] = readProse(input.placeholder);
    }

    /// Whether a text for people names the address of mail and no name beside it ("User name or e-mail").
    bool asksForMailAlone() const
    {
        return std::ranges::any_of(std::array{Label, AriaLabel, Placeholder}, [&](Place place) {
            return all[place].said.has(Mail) && !all[place].said.hasAny(User, FullName);
        });
    }
    /// Whether any text for people stands beside the input.
    bool hasProse() const
    {
        return std::ranges::any_of(std::array{Label, AriaLabel, Placeholder},
                                   [&](Place place) { return all[place].hasLetters; });
    }
    bool hasSureProse() const
    {
        return std::ranges::any_of(std::array{Label, AriaLabel, Placeholder}, [&](Place place) {
            return all[place].kind != None && all[place].kind < Day && !all[place].isWeak;
        });
    }
    /// Whether a text for people is about a country and nothing else ("Country code" beside "Mobile number").
    bool hasCountryProse() const
    {
        return std::ranges::any_of(std::array{Label, AriaLabel, Placeholder},
                                   [&](Place place) { return all[place].kind == Country; });
    }
    bool asksForWholeName() const
    {
        bool isWhole = false;
        for (const Place place : {Label, AriaLabel, Placeholder}) {
            const TextReading &reading = all[place];
            if (reading.kind == FirstName || reading.kind == LastName)
                return false;
            isWhole = isWhole || (reading.isWholeName && reading.kind == FullName);
        }
        return isWhole;
    }
    FieldKinds proseSaid() const
    {
        FieldKinds kinds;
        for (const Place place : {Label, AriaLabel, Placeholder})
            kinds.add(all[place].said);
        return kinds;
    }
    FieldKinds said() const
    {
        FieldKinds kinds;
        for (const TextReading &reading : all)
            kinds.add(reading.said);
        return kinds;
    }
    /// Day, month and year as the first text gives them that has any. A label may stand above a whole date, so that it
    /// counts least.
    FieldKinds parts() const
    {
        for (const Place place : {Name, Id, Token, Placeholder, AriaLabel, Label}) {
            const FieldKinds said = all[place].said;
            if (said.hasAny(Day, Month, Year, CardMonth, CardYear))
                return said;
        }
        return {};
    }
};

/// The text that decides: the first that says what the input is, else the first that says anything.
void decide(const Readings &readings, const FormEntry &entry, FieldGuess &guess)
{
    const auto take = [&](Readings::Place place) {
        const TextReading &reading = readings.all[place];
        guess.kind = reading.kind;
        guess.isWeak = reading.isWeak;
        guess.byName = place <= Readings::Token;
    };
    const bool isNamedDatePart = isDatePart(readings.all[Readings::Name].kind);
    for (int place = Readings::Name; place < Readings::Count; ++place) {
        const TextReading &reading = readings.all[static_cast<size_t>(place)];
        if (reading.kind == None || reading.isWeak || !canTake(*entry.input, reading.kind))
            continue;
        if (place == Readings::Id && isNamedDatePart)
            continue;
        return take(static_cast<Readings::Place>(place));
    }
    for (int place = Readings::Name; place < Readings::Count; ++place) {
        const TextReading &reading = readings.all[static_cast<size_t>(place)];
        // What stands far from the end of a name gives way to any text that people see.
        if (reading.kind != None && canTake(*entry.input, reading.kind) && !(reading.isFar && readings.hasProse()))
            return take(static_cast<Readings::Place>(place));
    }
}

/// What people are told says more than a name whose word fits by chance: "High school city" for "city", "Line 2" for
/// the second of the inputs "street".
void heedProse(const Readings &readings, FieldGuess &guess)
{
    if (!guess.byName)
        return;
    // A heading may stand in front of the label ("Personal data City"): a name that is that word alone knows better.
    const bool isPlain = readings.all[Readings::Name].isAlone && !guess.isWeak;
    for (const Readings::Place place : {Readings::Label, Readings::AriaLabel, Readings::Placeholder}) {
        const TextReading &reading = readings.all[place];
        if (reading.isForeign || (reading.isOfOther && !isPlain) || (guess.isWeak && reading.kind == Other))
            guess.kind = Other;
        else if (guess.kind == Address1 && reading.kind == Address2 && reading.isSecond)
            guess.kind = Address2;
        else if (guess.kind == Country && reading.kind == State)
            guess.kind = State;
    }
    // "userField5" beside "Real name", "stationName" and "userField2" beside no word for the name of a person
    const TextReading &name = readings.all[Readings::Name];
    const FieldKinds said = readings.proseSaid();
    if ((guess.kind != FullName && guess.kind != User) || !guess.isWeak || name.isAlone || !readings.hasProse())
        return;
    if (!said.hasAny(FullName, FirstName, LastName, User, Mail, Phone, CardWord))
        guess.kind = None;
    else if (name.kind == User && said.has(FullName) && !said.hasAny(User, Mail, Phone))
        guess.kind = FullName;
}

/// Where one text asks for a name and another one for a first name, the narrower one is meant.
void narrowName(const Readings &readings, FieldGuess &guess)
{
    for (const TextReading &reading : readings.all) {
        if (!reading.isWeak && (reading.kind == FirstName || reading.kind == LastName))
            guess.kind = reading.kind;
    }
}

std::optional<DatePattern> patternBeside(const FormEntry &entry)
{
    return DatePattern::in(entry.input->placeholder + u" ("_s + entry.input->label + u')');
}

/// Whether a month and a year are to be written into one input.
bool hasRoomForCardDate(const FormEntry &entry)
{
    constexpr int kShortest = 4;
    if (entry.isList() || (entry.maxLength() > 0 && entry.maxLength() < kShortest))
        return false;
    const auto pattern = patternBeside(entry);
    return entry.input->type == u"month" || (pattern && !pattern->hasDay() && pattern->hasYear());
}

/// Which part of which date is meant.
void settleDate(const Readings &readings, const FormEntry &entry, FieldGuess &guess)
{
    const FieldKinds said = guess.said;
    const FieldKinds parts = readings.parts();
    const bool day = parts.has(Day);
    const bool month = parts.hasAny(Month, CardMonth);
    const bool year = parts.hasAny(Year, CardYear);
    // "event_date[day]"
    if (isDatePart(guess.kind) && said.has(Other)) {
        guess.kind = Other;
        guess.isWeak = false;
    }
    if (isDatePart(guess.kind)) {
        // "MM/YY" is asked for of cards alone.
        if (hasRoomForCardDate(entry))
            guess.kind = CardDate;
        else if (day + month + year == 1)
            guess.kind = day ? Day : month ? Month : Year;
        if (said.hasAny(CardDate, CardMonth, CardYear) || (said.has(CardWord) && !said.has(BirthDate)))
            guess.kind = CardDate;
        else if (said.has(BirthDate))
            guess.kind = BirthDate;
    }
    if (hasRoomForCardDate(entry) && (guess.kind == CardDate || guess.kind == CardMonth || guess.kind == CardYear)) {
        guess.kind = CardDate;
    } else if (guess.kind == CardDate) {
        if (month != year)
            guess.kind = month ? CardMonth : CardYear;
    } else if (guess.kind == BirthDate && day + month + year == 1) {
        guess.kind = day ? BirthDay : month ? BirthMonth : BirthYear;
    }
    // A whole date without a word for birth is any, and no card ends on a day.
    const bool mayBeWhole = isDatePart(guess.kind) || guess.kind == CardDate;
    if (const auto pattern = mayBeWhole ? patternBeside(entry) : std::nullopt; pattern && pattern->hasDay())
        guess.kind = None;
    // A month and a year without a word for a card need one beside them.
    if (isBirth(guess.kind) || guess.kind == CardDate || guess.kind == CardMonth || guess.kind == CardYear)
        guess.isWeak = guess.kind == CardDate && !said.hasAny(CardDate, CardMonth, CardYear, CardWord);
}

/// What the options show where the words leave it open.
void settleContent(const FormEntry &entry, FieldGuess &guess)
{
    const FieldKind kind = guess.kind;
    const bool isOpen = kind == None || guess.isWeak;
    switch (entry.content) {
    case ListContent::Days:
        if (kind == BirthDate)
            guess.kind = BirthDay;
        else if (isOpen)
            guess.kind = Day;
        break;
    case ListContent::Months:
        if (isBirth(kind))
            guess.kind = BirthMonth;
        else if (kind == CardDate || kind == CardNumber)
            guess.kind = CardMonth;
        else if (isOpen)
            guess.kind = Month;
        break;
    case ListContent::Years:
        if (isBirth(kind))
            guess.kind = BirthYear;
        else if (kind == CardDate || kind == CardNumber)
            guess.kind = CardYear;
        else if (isOpen)
            guess.kind = Year;
        break;
    case ListContent::CallingCodes:
        if (isPhone(kind) || kind == Country || isOpen)
            guess.kind = PhoneCountry;
        break;
    case ListContent::CardTypes:
        if (isOpen || isCard(kind))
            guess.kind = CardType;
        break;
    case ListContent::Titles:
        if (isOpen || kind == Sex || isName(kind))
            guess.kind = Title;
        break;
    case ListContent::Sexes:
        if (isOpen)
            guess.kind = Sex;
        break;
    case ListContent::Countries:
        if (kind == None)
            guess.kind = Country;
        break;
    case ListContent::Unknown:
        break;
    }
}

/// The user's own field, where its key is part of the name or id.
int ownFieldOf(const engine::FormInput &input, const OwnKeys &ownKeys)
{
    if (ownKeys.isEmpty())
        return -1;
    const int named = ownKeys.find(FieldWords(input.name, FieldWords::From::Name));
    return named >= 0 ? named : ownKeys.find(FieldWords(input.id, FieldWords::From::Name));
}

/// A token decides, but that many pages write the one for a new password only to keep fillers away, and the one for a
/// user's name where he is known by his address.
bool tokenDecides(const TokenReading &token, const Readings &readings)
{
    if (token.kind == None)
        return false;
    const TextReading &name = readings.all[Readings::Name];
    if (token.isPassword)
        return (name.kind == None && !readings.hasSureProse()) || name.kind == User || name.isWeak;
    return token.kind != User || !readings.asksForMailAlone();
}

} // namespace

FormEntries::FormEntries(const std::vector<engine::FormInput> &inputs)
{
    struct Group
    {
        size_t entry;
        std::vector<engine::FormOption> *options;
    };
    QHash<QString, Group> groups;
    m_entries.reserve(inputs.size());
    for (const engine::FormInput &input : inputs) {
        Group group{m_entries.size(), nullptr};
        if (isButton(input)) {
            const QString name = input.type + u' ' + input.name;
            const auto known = groups.constFind(name);
            if (known != groups.constEnd() && !input.name.isEmpty())
                group = *known;
            else
                group.options = &m_made.emplace_back();
            groups.insert(name, group);
            group.options->push_back({input.value, input.label.isEmpty() ? input.ariaLabel : input.label});
        }
        if (group.entry == m_entries.size()) {
            FormEntry &entry = m_entries.emplace_back();
            entry.input = &input;
            entry.options = input.type.startsWith(u"select") ? &input.options : group.options;
        }
        if (group.options)
            m_entries[group.entry].buttons.push_back(input.number);
    }
    for (FormEntry &entry : m_entries) {
        if (entry.isList())
            entry.content = contentOf(*entry.options);
    }
}

bool canTake(const engine::FormInput &input, FieldKind kind)
{
    if (kind == Other || kind == Never)
        return true;
    const QString &type = input.type;
    if (type == u"email")
        return kind == Mail;
    if (type == u"tel" || type == u"number")
        return isPhone(kind) || isBirth(kind) || isCard(kind) || isDatePart(kind) || kind == Fax || kind == Zip ||
               kind == HouseNumber || kind == Custom || kind == CardWord || (kind == User && type == u"tel");
    if (type == u"date")
        return kind == BirthDate || kind == Custom;
    if (type == u"month")
        return kind == CardDate || kind == Custom;
    if (type == u"textarea")
        return kind == Address1 || kind == Address2 || kind == Street || kind == Custom;
    static const QStringList never{u"search"_s,         u"url"_s,    u"password"_s, u"range"_s,  u"color"_s,
                                   u"file"_s,           u"time"_s,   u"week"_s,     u"hidden"_s, u"image"_s,
                                   u"datetime-local"_s, u"submit"_s, u"button"_s,   u"reset"_s};
    return !never.contains(type);
}

FieldGuess guessOf(const FormEntry &entry, const OwnKeys &ownKeys)
{
    FieldGuess guess;
    const engine::FormInput &input = *entry.input;
    const Readings readings(entry);
    guess.said = readings.said();
    guess.isWholeName = readings.asksForWholeName();
    for (const TextReading &reading : readings.all) {
        guess.person = guess.person < 0 ? reading.person : guess.person;
        guess.isStranger = guess.isStranger || reading.isStranger;
    }
    guess.isStranger = guess.isStranger || (guess.said.has(Never) && guess.said.hasAny(FullName, FirstName, LastName));

    const TokenReading token = readToken(input.autocomplete);
    if (tokenDecides(token, readings)) {
        guess.kind = token.kind;
        guess.byToken = true;
        return guess;
    }
    decide(readings, entry, guess);
    heedProse(readings, guess);

    const bool isOfTable = guess.kind != None && guess.kind != Other && guess.kind != Never && !guess.isWeak;
    const int own = isOfTable && guess.byName ? -1 : ownFieldOf(input, ownKeys);
    if (own >= 0 && canTake(input, Custom) && input.type != u"password") {
        guess.kind = Custom;
        guess.own = own;
        return guess;
    }
    if (guess.said.has(Never)) {
        guess.kind = Never;
        return guess;
    }
    if (input.type == u"email") {
        guess.kind = Mail;
        return guess;
    }
    if (guess.kind == FullName)
        narrowName(readings, guess);
    const bool isOfPhone = guess.kind == Phone && !guess.byName && readings.hasCountryProse();
    if (isOfPhone || (guess.kind == Country && guess.said.has(Phone)))
        guess.kind = PhoneCountry;
    if (guess.kind == Mail && !guess.byName && readings.all[Readings::Name].kind == User &&
        !readings.asksForMailAlone())
        guess.kind = User;
    else if (guess.kind == User && canTake(input, Mail) && readings.asksForMailAlone() && !guess.said.has(FullName))
        guess.kind = Mail;
    settleDate(readings, entry, guess);
    settleContent(entry, guess);
    if (guess.kind == None && !entry.isList() && input.placeholder.contains(u'@') && canTake(input, Mail))
        guess.kind = Mail;
    return guess;
}
