#include "forms/FieldTable.h"

#include "core/state/SettingsStore.h"
#include "forms/Countries.h"

#include <QStringView>
#include <algorithm>
#include <span>
#include <variant>

using namespace Qt::StringLiterals;

namespace {

using V = FormValues;

constexpr QStringView kTitles[] = {u"Mr.", u"Mrs.", u"Ms.", u"Dr.", u"Prof.", u"Eng."};
constexpr QStringView kSexes[] = {u"Male", u"Female"};
constexpr QStringView kSexCodes[] = {u"M", u"F"};
constexpr QStringView kMonths[] = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                   u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
constexpr QStringView kCards[] = {
    u"Visa",  u"Master Card", u"American Express", u"Carte Bleue", u"CB", u"Diners Club", u"Discover",
    u"Delta", u"Solo",        u"Switch",           u"JCB"};
constexpr int kDaysOfMonth = 31;
constexpr int kMonthsOfYear = 12;

/// What a row of the table puts into its fields.
enum class Put {
    /// The text box.
    Text,
    /// The number of the list's row, in decimal.
    Number,
    /// The list's row as it is shown, in capital letters, or in the short form that pages use as a code.
    Name,
    Capitals,
    Code,
    /// First name, one blank, last name, whichever of them there is.
    FullName,
};

struct Row
{
    std::variant<V::Text, V::List> source;
    /// Separated by blanks; each gets a field with the same value.
    QStringView keys;
    Put put = Put::Text;
    bool isProtected = false;
    /// Also when there is nothing to put.
    bool isAlways = false;
    /// Only for this row of the list; 0 for any that is chosen.
    int onlyRow = 0;
};

constexpr bool kProtected = true;
constexpr bool kAlways = true;

/// Of two keys with different values where one holds the other, the longer one stands first. One key can stand several
/// times with values that mean the same: pages differ in what they call it.
constexpr Row kTable[] = {
    {&V::title, u"title", Put::Capitals},
    {&V::sex, u"sex", Put::Code, false, false, 1},
    {&V::sex, u"sex", Put::Name, false, false, 1},
    {&V::sex, u"gender", Put::Code, false, false, 1},
    {&V::sex, u"gender", Put::Name, false, false, 1},
    {&V::sex, u"sex gender", Put::Code, false, false, 2},
    {&V::sex, u"sex gender", Put::Name, false, false, 2},
    {&V::UserName, u"user"},
    {&V::firstname, u"fullname full_name", Put::FullName},
    {&V::firstname, u"firstname fname first_name"},
    {&V::lastname, u"lastname lname last_name"},
    {&V::firstname, u"name", Put::FullName},
    {&V::phone, u"phon phone"},
    {&V::fax, u"fax"},
    {&V::bday, u"day", Put::Number},
    {&V::ExpMonth, u"exp_month expmonth expir_month expirmonth", Put::Number, kProtected},
    {&V::ExpYear, u"exp_year expyear expir_year expiryear", Put::Text, kProtected},
    {&V::bmonth, u"month", Put::Number},
    {&V::byear, u"year"},
    {&V::mail, u"mail", Put::Text, false, kAlways},
    {&V::job, u"Job occup", Put::Text, false, kAlways},
    {&V::Address2, u"Address2 Address_2 Addr2 Addr_2"},
    {&V::address1, u"Address1 Address_1 Addr1 Addr_1 Addr"},
    {&V::Country, u"Country", Put::Number},
    {&V::Country, u"Country", Put::Name},
    {&V::Country, u"Country", Put::Code},
    {&V::City, u"City"},
    {&V::State, u"State Prov"},
    {&V::ZipCode, u"zip postal"},
    {&V::CardType, u"cardtyp card_typ", Put::Name, kProtected},
    {&V::CardNumber, u"card_num credit_num card_no credit_no cardnum creditnum cardno creditno", Put::Text, kProtected},
    {&V::ValidCode, u"validation valid_num valid_code validnum validcode v_num v_code vnum vcode", Put::Text,
     kProtected},
    {&V::Bank, u"bank"},
};

/// How a control of the page comes back from the record.
enum class Take {
    Text,
    /// The number of the list's row.
    Position,
    /// A name or code of the list, in any letters; anything else is row 0.
    Named,
};

struct Control
{
    QStringView key;
    std::variant<V::Text, V::List> target;
    Take take = Take::Text;
};

constexpr Control kControls[] = {
    {u"title", &V::title, Take::Named},
    {u"sex", &V::sex, Take::Named},
    {u"firstname", &V::firstname},
    {u"lastname", &V::lastname},
    {u"phone", &V::phone},
    {u"fax", &V::fax},
    {u"day", &V::bday, Take::Position},
    {u"month", &V::bmonth, Take::Position},
    {u"year", &V::byear},
    {u"mail", &V::mail},
    {u"job", &V::job},
    {u"address1", &V::address1},
    {u"address2", &V::Address2},
    {u"country", &V::Country, Take::Position},
    {u"city", &V::City},
    {u"state", &V::State},
    {u"postal", &V::ZipCode},
    {u"cardtyp", &V::CardType, Take::Named},
    {u"card_num", &V::CardNumber},
    {u"validation", &V::ValidCode},
    {u"exp_month", &V::ExpMonth, Take::Position},
    {u"exp_year", &V::ExpYear},
    {u"user", &V::UserName},
    {u"bank", &V::Bank},
};

QStringList texts(std::span<const QStringView> views)
{
    QStringList list;
    for (const QStringView view : views)
        list += view.toString();
    return list;
}

/// "01", "02", ...
QStringList numbers(int count)
{
    QStringList list;
    for (int i = 1; i <= count; ++i)
        list += u"%1"_s.arg(i, 2, 10, QLatin1Char('0'));
    return list;
}

QString codeOf(V::List list, int row)
{
    return (list == &V::Country ? countries()[row - 1].code : kSexCodes[row - 1]).toString();
}

/// What a row puts into its fields; nothing when it puts no field at all.
std::optional<QString> valueOf(const Row &row, const FormValues &values)
{
    if (row.put == Put::FullName) {
        if (values.firstname.isEmpty() && values.lastname.isEmpty())
            return std::nullopt;
        return QString(values.firstname + u' ' + values.lastname);
    }
    if (const auto *text = std::get_if<V::Text>(&row.source)) {
        const QString &value = values.**text;
        return value.isEmpty() && !row.isAlways ? std::nullopt : std::optional(value);
    }
    const V::List list = std::get<V::List>(row.source);
    const int chosen = values.*list;
    if (chosen <= 0 || (row.onlyRow != 0 && chosen != row.onlyRow))
        return std::nullopt;
    switch (row.put) {
    case Put::Number:
        return QString::number(chosen);
    case Put::Code:
        return codeOf(list, chosen);
    case Put::Capitals:
        return rowsOf(list).at(chosen - 1).toUpper();
    default:
        return rowsOf(list).at(chosen - 1);
    }
}

int rowOf(V::List list, Take take, const QString &value)
{
    if (value.isEmpty())
        return 0;
    if (take == Take::Position) {
        bool isNumber = false;
        const int row = value.toInt(&isNumber);
        return isNumber && row >= 0 && row <= rowsOf(list).size() ? row : -1;
    }
    const QStringList names = list == &V::sex ? texts(kSexCodes) : rowsOf(list);
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (names.at(i).toUpper() == value.toUpper())
            return static_cast<int>(i) + 1;
    }
    return 0;
}

} // namespace

QString keyOfOwnField(std::size_t own)
{
    return u"CustomFormField"_s + QString::number(own);
}

QStringList rowsOf(FormValues::List list)
{
    if (list == &V::title)
        return texts(kTitles);
    if (list == &V::sex)
        return texts(kSexes);
    if (list == &V::bday)
        return numbers(kDaysOfMonth);
    if (list == &V::bmonth)
        return texts(kMonths);
    if (list == &V::ExpMonth)
        return numbers(kMonthsOfYear);
    if (list == &V::CardType)
        return texts(kCards);
    QStringList names;
    for (const Country &country : countries())
        names += country.name.toString();
    return names;
}

void BuildFormFields(const FormValues &values, engine::FormRecord &record, SettingsStore &settings, const QString &path)
{
    record.ClearFormData();
    for (const Row &row : kTable) {
        const auto value = valueOf(row, values);
        if (!value)
            continue;
        for (const QStringView key : row.keys.split(u' '))
            record.AddFormField(key.toString(), *value, row.isProtected);
    }
    for (std::size_t i = 0; i < values.own.size(); ++i) {
        const FormValues::Own &own = values.own[i];
        settings.SaveSetting(appTitle(), u"Settings"_s, keyOfOwnField(i), own.Custom);
        if (!own.Custom.isEmpty())
            record.AddFormField(own.Custom, own.Value, false);
    }
    record.SaveFormData(path);
}

FormValues ReadFormFields(const engine::FormRecord &record, const SettingsStore &settings)
{
    FormValues values;
    bool isProtected = false;
    for (const Control &control : kControls) {
        QString value;
        record.GetFormField(control.key.toString(), value, isProtected);
        if (const auto *text = std::get_if<V::Text>(&control.target))
            values.**text = value;
        else if (const auto *list = std::get_if<V::List>(&control.target))
            values.**list = rowOf(*list, control.take, value);
    }
    for (std::size_t i = 0; i < values.own.size(); ++i) {
        FormValues::Own &own = values.own[i];
        own.Custom = settings.GetSetting(appTitle(), u"Settings"_s, keyOfOwnField(i));
        record.GetFormField(own.Custom, own.Value, isProtected);
    }
    return values;
}
