#include "forms/FieldToken.h"

#include <QList>
#include <QString>
#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

using enum FieldKind;

struct Token
{
    std::u16string_view name;
    FieldKind kind;
};

/// The field tokens of HTML; Other stands for what the record does not hold.
constexpr Token kTokens[] = {
    {u"additional-name", Other},
    {u"address-level1", State},
    {u"address-level2", City},
    {u"address-level3", Other},
    {u"address-level4", Other},
    {u"address-line1", Address1},
    {u"address-line2", Address2},
    {u"address-line3", Other},
    {u"bday", BirthDate},
    {u"bday-day", BirthDay},
    {u"bday-month", BirthMonth},
    {u"bday-year", BirthYear},
    {u"cc-additional-name", Other},
    {u"cc-csc", CardCode},
    {u"cc-exp", CardDate},
    {u"cc-exp-month", CardMonth},
    {u"cc-exp-year", CardYear},
    {u"cc-family-name", LastName},
    {u"cc-given-name", FirstName},
    {u"cc-name", FullName},
    {u"cc-number", CardNumber},
    {u"cc-type", CardType},
    {u"country", Country},
    {u"country-name", Country},
    {u"current-password", Never},
    {u"email", Mail},
    {u"family-name", LastName},
    {u"given-name", FirstName},
    {u"honorific-prefix", Title},
    {u"honorific-suffix", Other},
    {u"impp", Other},
    {u"language", Other},
    {u"name", FullName},
    {u"new-password", Never},
    {u"nickname", Other},
    {u"one-time-code", Never},
    {u"organization", Other},
    {u"organization-title", Job},
    {u"photo", Other},
    {u"postal-code", Zip},
    {u"sex", Sex},
    {u"street-address", Street},
    {u"tel", Phone},
    {u"tel-area-code", PhoneArea},
    {u"tel-country-code", PhoneCountry},
    {u"tel-extension", Other},
    {u"tel-local", PhoneLocal},
    {u"tel-local-prefix", PhonePrefix},
    {u"tel-local-suffix", PhoneSuffix},
    {u"tel-national", Phone},
    {u"transaction-amount", Other},
    {u"transaction-currency", Other},
    {u"url", Other},
    {u"username", User},
};
static_assert(std::ranges::is_sorted(kTokens, {}, &Token::name));

/// More than any page writes there.
constexpr qsizetype kLongest = 200;

} // namespace

TokenReading readToken(QStringView autocomplete)
{
    TokenReading reading;
    bool isFax = false;
    const QString text = autocomplete.first(std::min(autocomplete.size(), kLongest)).toString().simplified().toLower();
    for (const QStringView part : QStringView(text).split(u' ', Qt::SkipEmptyParts)) {
        const std::u16string_view word(part.utf16(), static_cast<size_t>(part.size()));
        if (word == u"fax")
            isFax = true;
        const auto *token = std::ranges::lower_bound(kTokens, word, {}, &Token::name);
        if (token == std::end(kTokens) || token->name != word)
            continue;
        reading.kind = token->kind;
        reading.isPassword = word.ends_with(u"-password");
    }
    if (isFax && isPhone(reading.kind))
        reading.kind = reading.kind == Phone ? Fax : Other;
    return reading;
}
