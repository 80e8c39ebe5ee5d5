#pragma once

#include <QString>
#include <vector>

/// A telephone number taken apart for pages that ask for it in pieces.
struct PhoneNumber
{
    /// Digits of the country's code when the number begins with "+" and it is set off, else empty.
    QString country;
    /// All other digits.
    QString digits;
    /// Lengths of the pieces of `digits`: as they are written, or those of a North American number of ten digits.
    /// Empty when nothing tells them apart.
    std::vector<int> groups;

    /// `isNorthAmerican`: where the user lives numbers have an area code and two more pieces.
    static PhoneNumber of(const QString &text, bool isNorthAmerican);
};
