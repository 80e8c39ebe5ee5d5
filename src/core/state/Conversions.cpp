#include "base/Numbers.h"
#include "base/step.h"
#include "core/state/SettingsStore.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

double numberIn(const QString &text)
{
    const auto number = numberOf(text);
    if (!number)
        throw ControlError("text is no number");
    return *number;
}

} // namespace

bool toBoolean(const QString &text)
{
    const QStringView word = QStringView(text).trimmed();
    if (word.compare(u"True"_s, Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(u"False"_s, Qt::CaseInsensitive) == 0)
        return false;
    return numberIn(text) != 0;
}

int16_t toInteger(const QString &text)
{
    return roundedToInteger(numberIn(text));
}

int32_t toLong(const QString &text)
{
    return roundedToLong(numberIn(text));
}

float toSingle(const QString &text)
{
    const double number = numberIn(text);
    if (std::abs(number) > std::numeric_limits<float>::max())
        throw ControlError("number out of range");
    return static_cast<float>(number);
}

QString fromBoolean(bool value)
{
    return value ? u"True"_s : u"False"_s;
}
