#include "forms/FormRecordJson.h"

#include "base/step.h"
#include "core/state/SettingsStore.h"
#include "forms/Countries.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <variant>

using namespace Qt::StringLiterals;

namespace {

using V = FormValues;

struct Entry
{
    QStringView name;
    std::variant<V::Text, V::List> target;
};

constexpr Entry kEntries[] = {
    {u"title", &V::title},
    {u"sex", &V::sex},
    {u"firstname", &V::firstname},
    {u"lastname", &V::lastname},
    {u"phone", &V::phone},
    {u"fax", &V::fax},
    {u"bday", &V::bday},
    {u"bmonth", &V::bmonth},
    {u"byear", &V::byear},
    {u"mail", &V::mail},
    {u"job", &V::job},
    {u"address1", &V::address1},
    {u"address2", &V::Address2},
    {u"country", &V::Country},
    {u"city", &V::City},
    {u"state", &V::State},
    {u"zip", &V::ZipCode},
    {u"cardtype", &V::CardType},
    {u"cardnumber", &V::CardNumber},
    {u"validcode", &V::ValidCode},
    {u"expmonth", &V::ExpMonth},
    {u"expyear", &V::ExpYear},
    {u"username", &V::UserName},
    {u"bank", &V::Bank},
};

[[noreturn]] void refuse(const QString &name, const char *why)
{
    throw ControlError("\"" + name.toStdString() + "\" " + why);
}

QString textOf(const QString &name, const QJsonValue &value)
{
    if (value.isString())
        return value.toString();
    if (value.isDouble())
        return QString::number(value.toInteger());
    refuse(name, "is neither a text nor a number");
}

int rowOf(const QString &name, V::List list, const QString &text)
{
    const QStringList rows = rowsOf(list);
    bool isNumber = false;
    if (const int row = text.toInt(&isNumber); isNumber && row >= 0 && row <= rows.size())
        return row;
    const auto same = [&](QStringView other) { return other.compare(text, Qt::CaseInsensitive) == 0; };
    if (const auto row = std::find_if(rows.begin(), rows.end(), same); row != rows.end())
        return static_cast<int>(row - rows.begin()) + 1;
    if (list == &V::Country) {
        const auto all = countries();
        const auto country = std::find_if(all.begin(), all.end(), [&](const Country &one) { return same(one.code); });
        if (country != all.end())
            return static_cast<int>(country - all.begin()) + 1;
    }
    if (text.isEmpty())
        return 0;
    refuse(name, "is not in the list");
}

void readOwnFields(const QJsonValue &value, FormValues &values)
{
    const QJsonObject own = value.toObject();
    if (!value.isObject() || own.size() > static_cast<qsizetype>(values.own.size()))
        refuse(u"custom"_s, "is no object with at most six names");
    values.own = {};
    std::size_t next = 0;
    for (auto entry = own.begin(); entry != own.end(); ++entry)
        values.own[next++] = {entry.key(), textOf(entry.key(), entry.value())};
}

} // namespace

FormValues ReadFormJson(const QByteArray &json, const SettingsStore &settings)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (!document.isObject())
        throw ControlError("this is no JSON object: " + error.errorString().toStdString());
    FormValues values;
    for (std::size_t i = 0; i < values.own.size(); ++i)
        values.own[i].Custom = settings.GetSetting(appTitle(), u"Settings"_s, keyOfOwnField(i));
    const QJsonObject object = document.object();
    for (auto member = object.begin(); member != object.end(); ++member) {
        const QString name = member.key();
        if (name == u"custom"_s) {
            readOwnFields(member.value(), values);
            continue;
        }
        const auto entry =
            std::find_if(std::begin(kEntries), std::end(kEntries), [&](const Entry &one) { return one.name == name; });
        if (entry == std::end(kEntries))
            refuse(name, "is no part of a record");
        const QString text = textOf(name, member.value());
        if (const auto *target = std::get_if<V::Text>(&entry->target))
            values.**target = text;
        else if (const auto *list = std::get_if<V::List>(&entry->target))
            values.**list = rowOf(name, *list, text);
    }
    return values;
}
