#pragma once

#include <QString>
#include <vector>

/// A telephone number taken apart for pages that ask for it in pieces.
struct PhoneNumber
{
    /// Digits of the country's code: as the number begins with it behind "+" or "00", else that of the country where
    /// the user lives. Empty when neither tells it.
    QString country;
    /// The number itself begins with the country's code.
    bool isInternational = false;
    /// What is dialled in front of `digits` within the country when the number is an international one.
    QString trunk;
    /// All other digits.
    QString digits;
    /// Lengths of the pieces of `digits`: as they are written, or those of a North American number of ten digits.
    /// Empty when nothing tells them apart.
    std::vector<int> groups;

    /// `countryCode`: the two letters of the country where the user lives; without one it is taken for North America.
    static PhoneNumber of(const QString &text, const QString &countryCode);

    /// The ways of writing all of it that an input may take, the user's own first.
    QStringList ways(const QString &text) const;
};
