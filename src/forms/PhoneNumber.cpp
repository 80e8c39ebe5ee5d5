#include "forms/PhoneNumber.h"

#include <QStringList>
#include <numeric>

using namespace Qt::StringLiterals;

PhoneNumber PhoneNumber::of(const QString &text, bool isNorthAmerican)
{
    constexpr qsizetype kTen = 10;
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
    PhoneNumber number;
    if (text.trimmed().startsWith(u'+')) {
        const QString all = pieces.join(QString());
        if (all.startsWith(u'1') && all.size() == kTen + 1) {
            number.country = u"1"_s;
            isNorthAmerican = true;
            pieces = {all.sliced(1)};
        } else if (pieces.size() > 1) {
            number.country = pieces.takeFirst();
        }
    }
    number.digits = pieces.join(QString());
    if (number.digits.size() == kTen && isNorthAmerican) {
        number.groups = {3, 3, 4};
    } else if (pieces.size() > 1) {
        for (const QString &piece : pieces)
            number.groups.push_back(static_cast<int>(piece.size()));
    }
    return number;
}
