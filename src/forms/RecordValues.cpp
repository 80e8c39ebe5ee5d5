#include "forms/RecordValues.h"

#include "forms/PlaceNames.h"

#include <QHash>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// A record of the dialog has six of them.
constexpr qsizetype kMostOwn = 64;

/// All values of each key of the record, in its order.
class ValuesByKey
{
public:
    ValuesByKey(const std::vector<FormField> &fields, bool withProtected)
        : m_withProtected(withProtected)
    {
        for (const FormField &field : fields)
            m_values[field.key.toLower()].append(&field);
    }

    QString first(const QString &key)
    {
        const QStringList values = all(key);
        return values.isEmpty() ? QString() : values.front();
    }
    QStringList all(const QString &key)
    {
        QStringList values;
        for (const FormField *field : m_values.value(key)) {
            if (m_withProtected || !field->isProtected)
                values.append(field->value.trimmed());
        }
        return values;
    }

private:
    QHash<QString, QList<const FormField *>> m_values;
    bool m_withProtected;
};

/// Keys that the record's table knows; what stands under another one is the user's own.
bool isOfTable(const QString &key)
{
    static const QSet<QString> keys = [] {
        const QStringList list = u"title sex gender user fullname full_name firstname fname first_name lastname lname "
                                 u"last_name name phon phone "
                                 "fax day exp_month expmonth expir_month expirmonth exp_year expyear expir_year "
                                 "expiryear month year mail job "
                                 "occup address2 address_2 addr2 addr_2 address1 address_1 addr1 addr_1 addr country "
                                 "city state prov zip postal "
                                 "cardtyp card_typ card_num credit_num card_no credit_no cardnum creditnum cardno "
                                 "creditno validation valid_num "
                                 "valid_code validnum validcode v_num v_code vnum vcode bank"_s.split(u' ');
        return QSet<QString>(list.begin(), list.end());
    }();
    return keys.contains(key.toLower());
}

} // namespace

RecordValues::RecordValues(const std::vector<FormField> &fields, bool withProtected)
{
    ValuesByKey values(fields, withProtected);
    title = values.first(u"title"_s);
    sex = values.all(u"sex"_s);
    user = values.first(u"user"_s);
    fullName = values.first(u"fullname"_s);
    firstName = values.first(u"firstname"_s);
    lastName = values.first(u"lastname"_s);
    phone = values.first(u"phone"_s);
    fax = values.first(u"fax"_s);
    birthDay = values.first(u"day"_s);
    birthMonth = values.first(u"month"_s);
    birthYear = values.first(u"year"_s);
    mail = values.first(u"mail"_s);
    job = values.first(u"job"_s);
    address1 = values.first(u"address1"_s);
    address2 = values.first(u"address2"_s);
    country = values.all(u"country"_s);
    countryNames = namesOfCountry(countryCode(), countryName());
    countryCodes = codesOfCountry(countryCode());
    phoneParts = PhoneNumber::of(phone, countryCode());
    faxParts = PhoneNumber::of(fax, countryCode());
    city = values.first(u"city"_s);
    state = values.first(u"state"_s);
    zip = values.first(u"zip"_s);
    cardType = values.first(u"cardtyp"_s);
    cardNumber = values.first(u"card_num"_s);
    cardCode = values.first(u"validation"_s);
    cardMonth = values.first(u"exp_month"_s);
    cardYear = values.first(u"exp_year"_s);
    bank = values.first(u"bank"_s);

    for (const FormField &field : fields) {
        if (own.size() >= kMostOwn)
            break;
        if (isOfTable(field.key) || field.value.isEmpty() || (field.isProtected && !withProtected))
            continue;
        ownKeys.add(field.key, static_cast<int>(own.size()));
        own.append(field.value);
    }
}
