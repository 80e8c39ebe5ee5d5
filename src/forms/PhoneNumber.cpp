#include "forms/PhoneNumber.h"

#include "forms/PlaceNames.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

/// Digits that stand together.
QStringList piecesOf(const QString &text)
{
    QStringList pieces;
    bool isNew = true;
    for (const QChar character : text) {
        if (!character.isDigit()) {
            isNew = true;
            continue;
        }
        if (isNew)
            pieces.append(QString());
        pieces.back() += character;
        isNew = false;
    }
    return pieces;
}

/// Takes the country's code off the pieces of an international number; empty when it cannot be told from the rest.
QString takeCountry(QStringList &pieces, const QString &home)
{
    constexpr qsizetype kLongestCode = 3;
    QString &first = pieces.front();
    if (pieces.size() > 1 && first.size() <= kLongestCode)
        return pieces.takeFirst();
    for (const QString &code : {home, u"1"_s}) {
        if (code.isEmpty() || !first.startsWith(code))
            continue;
        first.remove(0, code.size());
        if (first.isEmpty())
            pieces.removeFirst();
        return code;
    }
    return {};
}

} // namespace

PhoneNumber PhoneNumber::of(const QString &text, const QString &countryCode)
{
    constexpr qsizetype kTen = 10;
    const QString home = callingCodeOfCountry(countryCode);
    const QString start = text.trimmed();
    QStringList pieces = piecesOf(start);
    PhoneNumber number;
    number.country = countryCode.isEmpty() ? QString() : home;
    if (start.startsWith(u"00"))
        pieces.front().remove(0, 2);
    pieces.removeAll(QString());
    if ((start.startsWith(u'+') || start.startsWith(u"00")) && !pieces.isEmpty()) {
        number.country = takeCountry(pieces, home);
        number.isInternational = !number.country.isEmpty();
        // "+49 (0)30 ..."
        if (number.isInternational && pieces.size() > 1 && pieces.front() == u"0")
            pieces.removeFirst();
        number.trunk = number.country == home ? trunkOfCountry(countryCode) : QString();
    }
    number.digits = pieces.join(QString());
    const bool isNorthAmerican = number.country == u"1" || (number.country.isEmpty() && countryCode.isEmpty());
    if (isNorthAmerican && !number.isInternational && number.digits.size() == kTen + 1 &&
        number.digits.startsWith(u'1'))
        number.digits.remove(0, 1);
    if (number.digits.size() == kTen && isNorthAmerican) {
        number.groups = {3, 3, 4};
    } else if (pieces.size() > 1) {
        for (const QString &piece : pieces)
            number.groups.push_back(static_cast<int>(piece.size()));
    }
    return number;
}

QStringList PhoneNumber::ways(const QString &text) const
{
    if (!isInternational)
        return {text, piecesOf(text).join(QString()), digits};
    return {text, u'+' + country + digits, trunk + digits};
}
