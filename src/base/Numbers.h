#pragma once

#include <QStringView>
#include <cstdint>
#include <optional>

/// The number that a whole text stands for: decimal digits with sign, point and exponent, or "&H" and up to eight
/// hexadecimal digits (a 32-bit pattern, so that "&HFFFFFFFF" is -1). Blanks around it don't count. Nothing for any
/// other text, also for one that is empty.
std::optional<double> numberOf(QStringView text);

/// The number that a text begins with; blanks anywhere in it don't count, and a text that begins with no number counts
/// as 0.
double leadingNumber(QStringView text);

/// Rounded to a 16-bit or 32-bit whole number, to the even neighbour at .5. Throws ControlError outside the range.
int16_t roundedToInteger(double number);
int32_t roundedToLong(double number);
