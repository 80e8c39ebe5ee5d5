#include "forms/FieldText.h"

#include "forms/DatePattern.h"
#include "forms/PlaceNames.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using enum FieldKind;

namespace {

QString digitsOf(const QString &text)
{
    QString digits;
    for (const QChar character : text) {
        if (character >= u'0' && character <= u'9')
            digits += character;
    }
    return digits;
}

bool fits(const QString &text, const engine::FormInput &input)
{
    if (input.maxLength > 0 && text.size() > input.maxLength)
        return false;
    return input.type != u"number" || (!text.isEmpty() && digitsOf(text).size() == text.size());
}

/// The first way of writing something that the input takes.
QString firstFitting(const engine::FormInput &input, const QStringList &ways)
{
    const auto way = std::ranges::find_if(ways, [&](const QString &text) { return fits(text, input); });
    return way == ways.end() ? QString() : *way;
}

std::optional<DatePattern> patternOf(const engine::FormInput &input)
{
    if (auto pattern = DatePattern::in(input.placeholder))
        return pattern;
    if (auto pattern = DatePattern::in(input.label))
        return pattern;
    return DatePattern::in(input.ariaLabel);
}

QStringList dayOrMonth(const engine::FormInput &input, const QString &number, bool isOfCard)
{
    const QString two = number.rightJustified(2, u'0');
    const bool wantsTwo = isOfCard || input.maxLength == 2 || input.placeholder.trimmed().size() == 2;
    return wantsTwo && input.type != u"number" ? QStringList{two, number} : QStringList{number};
}

/// A year of two digits is of this century on a card and of the last one in a date of birth, which is always long ago.
QString fullYear(const QString &year, bool isOfCard)
{
    constexpr qsizetype kShort = 2;
    if (year.size() != kShort)
        return year;
    return (isOfCard ? u"20"_s : u"19"_s) + year;
}

QStringList yearFor(const engine::FormInput &input, const QString &year, bool isOfCard)
{
    const QString full = fullYear(year, isOfCard);
    if (full.size() < 2)
        return {};
    const QString hint = input.placeholder.trimmed();
    const bool wantsTwo = hint.compare(u"YY"_s, Qt::CaseInsensitive) == 0 ||
                          hint.compare(u"JJ"_s, Qt::CaseInsensitive) == 0 ||
                          hint.compare(u"AA"_s, Qt::CaseInsensitive) == 0;
    return wantsTwo ? QStringList{full.last(2)} : QStringList{full, full.last(2)};
}

QStringList cardDate(const engine::FormInput &input, const RecordValues &record)
{
    const int month = record.cardMonth.toInt();
    const int year = fullYear(record.cardYear, true).toInt();
    if (month < 1 || year < 1)
        return {};
    const auto write = [&](QStringView pattern) { return DatePattern::of(pattern).write(1, month, year); };
    if (input.type == u"month")
        return {write(u"YYYY-MM")};
    if (const auto pattern = patternOf(input); pattern && !pattern->hasDay() && pattern->hasYear())
        return {pattern->write(1, month, year), write(u"MM/YY"), write(u"MMYY")};
    constexpr int kLongForm = 7;
    if (input.maxLength == kLongForm)
        return {write(u"MM/YYYY")};
    return {write(u"MM/YY"), write(u"MMYY")};
}

QStringList birthDate(const engine::FormInput &input, const RecordValues &record)
{
    const int day = record.birthDay.toInt();
    const int month = record.birthMonth.toInt();
    const int year = fullYear(record.birthYear, false).toInt();
    if (day < 1 || month < 1 || year < 1)
        return {};
    const auto write = [&](QStringView pattern) { return DatePattern::of(pattern).write(day, month, year); };
    if (input.type == u"date")
        return {write(u"YYYY-MM-DD")};
    if (const auto pattern = patternOf(input); pattern && pattern->hasDay() && pattern->hasYear())
        return {pattern->write(day, month, year)};
    const QString country = record.countryCode();
    if (country == u"US")
        return {write(u"MM/DD/YYYY")};
    if (QStringList{u"DE"_s, u"AT"_s, u"CH"_s, u"PL"_s, u"CZ"_s, u"RU"_s, u"FI"_s, u"NO"_s, u"TR"_s}.contains(country))
        return {write(u"DD.MM.YYYY")};
    return {write(u"DD/MM/YYYY")};
}

/// The street and the number of a house, whichever stands first; the number is empty when there is none.
std::pair<QString, QString> streetAndNumber(const QString &address)
{
    const QStringList words = address.split(u' ', Qt::SkipEmptyParts);
    if (words.size() < 2)
        return {address, QString()};
    if (words.front().front().isDigit())
        return {words.sliced(1).join(u' '), words.front()};
    // "Hauptstraße 5", "Hauptstraße 5 a"
    const bool hasLetter = words.size() > 2 && words.back().size() == 1 && words.back().front().isLetter();
    const qsizetype at = words.size() - (hasLetter ? 2 : 1);
    if (!words[at].front().isDigit())
        return {address, QString()};
    QString street = words.first(at).join(u' ');
    if (street.endsWith(u','))
        street.chop(1);
    return {street, words.sliced(at).join(u' ')};
}

QString streetFor(const FormEntry &entry, const RecordValues &record, bool hasSecondLine)
{
    const engine::FormInput &input = *entry.input;
    if (entry.guess.kind == HouseNumber)
        return firstFitting(input, {streetAndNumber(record.address1).second});
    if (entry.withoutHouseNumber)
        return firstFitting(input, {streetAndNumber(record.address1).first});
    if (entry.guess.kind == Street && !hasSecondLine && !record.address2.isEmpty()) {
        const QString mark = input.type == u"textarea" ? u"\n"_s : u", "_s;
        return firstFitting(input, {record.address1 + mark + record.address2, record.address1});
    }
    return firstFitting(input, {record.address1});
}

QString phoneFor(const FormEntry &entry, const RecordValues &record)
{
    constexpr int kCountryBox = 5;
    const bool isFax = entry.guess.kind == Fax;
    const PhoneNumber &number = isFax ? record.faxParts : record.phoneParts;
    const engine::FormInput &input = *entry.input;
    const auto piece = [&](size_t first, size_t end) {
        qsizetype from = 0;
        qsizetype length = 0;
        for (size_t i = 0; i < number.groups.size() && i < end; ++i)
            (i < first ? from : length) += number.groups[i];
        return number.groups.size() < 2 ? QString() : number.digits.mid(from, length);
    };
    const size_t all = number.groups.size();
    switch (entry.guess.kind) {
    case PhoneCountry:
        // What the number doesn't say is not for a box that may be looking for the country's name.
        if (number.country.isEmpty() ||
            (!number.isInternational && (input.maxLength == 0 || input.maxLength > kCountryBox)))
            return {};
        return firstFitting(input, {u"+"_s + number.country, number.country});
    case PhoneArea:
        return entry.withoutCountry || piece(0, 1).isEmpty()
                   ? firstFitting(input, {piece(0, 1)})
                   : firstFitting(input, {number.trunk + piece(0, 1), piece(0, 1)});
    case PhoneLocal:
        return firstFitting(input, {piece(1, all)});
    case PhonePrefix:
        return all == 3 ? firstFitting(input, {piece(1, 2)}) : QString();
    case PhoneSuffix:
        return all == 3 ? firstFitting(input, {piece(2, 3)}) : QString();
    default:
        break;
    }
    if (entry.length >= 0)
        return number.digits.mid(entry.from, entry.length);
    if (entry.withoutCountry && number.isInternational)
        return firstFitting(input, {number.digits});
    return firstFitting(input, number.ways(isFax ? record.fax : record.phone));
}

QString countryFor(const FormEntry &entry, const RecordValues &record)
{
    if (record.countryName().isEmpty())
        return {};
    constexpr int kLongCode = 3;
    const engine::FormInput &input = *entry.input;
    const QString code = record.countryCode() == u"UK" ? u"GB"_s : record.countryCode();
    const QString names = foldedLetters(input.name + input.id + input.label);
    if (input.autocomplete.endsWith(u"country") || names.contains(u"countrycode") || names.contains(u"countryiso"))
        return firstFitting(input, {code});
    if (input.maxLength == kLongCode)
        return firstFitting(input, {longCodeOfCountry(record.countryCode())});
    return firstFitting(input, {record.countryName(), code});
}

QString stateFor(const engine::FormInput &input, const RecordValues &record)
{
    QStringList ways{record.state};
    const StateName state = stateOf(record.state, record.countryCode());
    if (!state.code.isEmpty())
        ways.append(state.code);
    return firstFitting(input, ways);
}

QString dateFor(const engine::FormInput &input, FieldKind kind, const RecordValues &record)
{
    switch (kind) {
    case BirthDate:
        return firstFitting(input, birthDate(input, record));
    case BirthDay:
        return record.birthDay.isEmpty() ? QString() : firstFitting(input, dayOrMonth(input, record.birthDay, false));
    case BirthMonth:
        return record.birthMonth.isEmpty() ? QString()
                                           : firstFitting(input, dayOrMonth(input, record.birthMonth, false));
    case BirthYear:
        return firstFitting(input, yearFor(input, record.birthYear, false));
    case CardDate:
        return firstFitting(input, cardDate(input, record));
    case CardMonth:
        return record.cardMonth.isEmpty() ? QString() : firstFitting(input, dayOrMonth(input, record.cardMonth, true));
    case CardYear:
        return firstFitting(input, yearFor(input, record.cardYear, true));
    default:
        return {};
    }
}

/// The text of the record that stands for a kind as it is.
QString plainText(FieldKind kind, const RecordValues &record)
{
    switch (kind) {
    case Title:
        return record.title;
    case Sex:
        return record.sex.isEmpty() ? QString() : record.sex.last();
    case User:
        return record.user;
    case FullName:
        return record.fullName;
    case FirstName:
        return record.firstName;
    case LastName:
        return record.lastName;
    case Mail:
        return record.mail;
    case Job:
        return record.job;
    case Address2:
        return record.address2;
    case City:
        return record.city;
    case Zip:
        return record.zip;
    case CardType:
        return record.cardType;
    case CardNumber:
        return record.cardNumber;
    case CardCode:
        return record.cardCode;
    case Bank:
        return record.bank;
    default:
        return {};
    }
}

} // namespace

QString textFor(const FormEntry &entry, const RecordValues &record, bool hasSecondLine)
{
    const FieldKind kind = entry.guess.kind;
    const engine::FormInput &input = *entry.input;
    if (isPhone(kind) || kind == Fax)
        return phoneFor(entry, record);
    if (kind == Address1 || kind == Street || kind == HouseNumber)
        return streetFor(entry, record, hasSecondLine);
    if (kind == Country)
        return countryFor(entry, record);
    if (kind == State)
        return stateFor(input, record);
    if (kind == Custom)
        return firstFitting(input, {record.own.value(entry.guess.own)});
    if (const QString date = dateFor(input, kind, record); !date.isEmpty())
        return date;

    const QString text = plainText(kind, record);
    if (kind == CardNumber && entry.length >= 0)
        return digitsOf(text).mid(entry.from, entry.length);
    QStringList ways{text};
    if (kind == CardNumber)
        ways.append(digitsOf(text));
    if (kind == Zip)
        ways.append(QString(text).remove(u' '));
    return firstFitting(input, ways);
}
