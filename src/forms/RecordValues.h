#pragma once

#include "forms/FieldRules.h"
#include "forms/FormField.h"
#include "forms/PhoneNumber.h"

#include <QString>
#include <QStringList>
#include <vector>

/// The user's record, by what its fields mean. What is not there, or may not be given away, is empty.
struct RecordValues
{
    QString title;
    /// Alternatives: "M", "Male".
    QStringList sex;
    QString user;
    QString fullName;
    QString firstName;
    QString lastName;
    QString phone;
    PhoneNumber phoneParts;
    PhoneNumber faxParts;
    QString fax;
    QString birthDay;
    QString birthMonth;
    QString birthYear;
    QString mail;
    QString job;
    QString address1;
    QString address2;
    /// Alternatives: position in the list of countries, name, code.
    QStringList country;
    /// Of the country: other names and codes, folded.
    QStringList countryNames;
    QStringList countryCodes;
    QString city;
    QString state;
    QString zip;
    QString cardType;
    QString cardNumber;
    QString cardCode;
    QString cardMonth;
    QString cardYear;
    QString bank;

    /// The user's own fields: their keys, and their values by number.
    OwnKeys ownKeys;
    QStringList own;

    /// `withProtected`: protected fields may be given away.
    RecordValues(const std::vector<FormField> &fields, bool withProtected);

    /// The two-letter code of the country, or empty.
    QString countryCode() const { return country.size() > 2 ? country[2] : QString(); }
    QString countryName() const { return country.size() > 1 ? country[1] : QString(); }
};
