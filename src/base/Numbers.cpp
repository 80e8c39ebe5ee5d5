#include "base/Numbers.h"

#include "base/step.h"

#include <QLocale>
#include <QString>
#include <cmath>
#include <limits>

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

qsizetype skipDigits(QStringView text, qsizetype from)
{
    while (from < text.size() && isDigit(text[from]))
        ++from;
    return from;
}

/// Length of the decimal number that the text begins with; 0 when there is none.
qsizetype decimalPrefix(QStringView text)
{
    qsizetype at = !text.isEmpty() && (text[0] == u'+' || text[0] == u'-') ? 1 : 0;
    const qsizetype whole = skipDigits(text, at);
    qsizetype digits = whole - at;
    at = whole;
    if (at < text.size() && text[at] == u'.') {
        const qsizetype fraction = skipDigits(text, at + 1);
        digits += fraction - at - 1;
        at = fraction;
    }
    if (digits == 0)
        return 0;
    if (at < text.size() && text[at].toLower() == u'e') {
        qsizetype exponent = at + 1;
        if (exponent < text.size() && (text[exponent] == u'+' || text[exponent] == u'-'))
            ++exponent;
        const qsizetype end = skipDigits(text, exponent);
        if (end > exponent)
            at = end;
    }
    return at;
}

template <typename Whole>
Whole rounded(double number)
{
    const double nearest = std::nearbyint(number);
    if (!(nearest >= std::numeric_limits<Whole>::min() && nearest <= std::numeric_limits<Whole>::max()))
        throw ControlError("number out of range");
    return static_cast<Whole>(nearest);
}

} // namespace

std::optional<double> numberOf(QStringView text)
{
    text = text.trimmed();
    bool ok = false;
    if (text.startsWith(u"&H", Qt::CaseInsensitive)) {
        const QStringView digits = text.sliced(2);
        for (const QChar c : digits) {
            if (!isDigit(c) && !(c.toLower() >= u'a' && c.toLower() <= u'f'))
                return std::nullopt;
        }
        const uint pattern = digits.size() <= 8 ? digits.toUInt(&ok, 16) : 0;
        return ok ? std::optional<double>(static_cast<int32_t>(pattern)) : std::nullopt;
    }
    if (text.isEmpty() || decimalPrefix(text) != text.size())
        return std::nullopt;
    const double number = text.toDouble(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

double leadingNumber(QStringView text)
{
    QString dense;
    for (const QChar c : text) {
        if (!c.isSpace())
            dense += c;
    }
    return numberOf(QStringView(dense).first(decimalPrefix(dense))).value_or(0);
}

int16_t roundedToInteger(double number)
{
    return rounded<int16_t>(number);
}

int32_t roundedToLong(double number)
{
    return rounded<int32_t>(number);
}
