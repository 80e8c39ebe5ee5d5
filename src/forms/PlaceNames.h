#pragma once

#include <QString>
#include <QStringList>

/// Other names of a country of the record's list, folded (foldedLetters): its own one, common English ones, and those
/// of the larger countries in German, French, Spanish, Italian, Dutch and Portuguese. `code` is its two-letter code.
QStringList namesOfCountry(const QString &code, const QString &name);
/// Its codes, folded: two letters, also the present ones of a country that the list has under an old one, and three.
QStringList codesOfCountry(const QString &code);
/// Three letters in capitals, or empty.
QString longCodeOfCountry(const QString &code);
/// The digits that are dialled for a country, or empty.
QString callingCodeOfCountry(const QString &code);
/// What is dialled in front of an area's code within the country, or empty.
QString trunkOfCountry(const QString &code);
/// Whether a folded text is the name of a country in the list or an English one that is as common.
bool isCountryName(const QString &folded);

/// A state or province.
struct StateName
{
    QString name;
    QString code;
};

/// Name and code of a state of the USA, Canada or Australia that the record gives by either. Without a known state both
/// are the text of the record, the code only if it is one.
StateName stateOf(const QString &text, const QString &countryCode);
