#include "base/Files.h"
#include "base/step.h"
#include "core/state/SettingsStore.h"
#include "forms/FieldTable.h"
#include "forms/FormRecordJson.h"
#include "forms/FormStore.h"
#include "support/Rows.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Something in every control; one of his own fields has no name.
FormValues gregor()
{
    QTemporaryDir folder;
    return ReadFormJson(R"({"title": "Mr.", "sex": "Male", "firstname": "Gregor", "lastname": "Tamblyn", "phone": "416",
        "fax": "417", "bday": 3, "bmonth": "Mar", "byear": 1970, "mail": "g@t", "job": "Surveyor", "address1": "77 H",
        "address2": "U 12", "country": "AF", "city": "Toronto", "state": "Ontario", "zip": "M5V", "cardtype": "Delta",
        "cardnumber": "4111", "validcode": "737", "expmonth": 9, "expyear": "2029", "username": "gt", "bank": "N T",
        "custom": {"": "dropped", "pet": "", "phone": "own"}})",
                        SettingsStore(folder.filePath(u"settings.ini"_s)));
}

} // namespace

class tst_FieldTable : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_settings = std::make_unique<SettingsStore>(m_folder->filePath(u"settings.ini"_s));
    }

    void build_data()
    {
        // Fields in order, "key=value" separated by "; ", a star for a protected one.
        FormValues first;
        first.firstname = u"Ann"_s;
        FormValues last;
        last.lastname = u"Lee"_s;
        last.sex = 2;
        last.title = last.bday = -1; // lists without a row
        const QString all = QString::fromUtf8(readFile(QStringLiteral(ALL_FIELDS)).value()).chopped(1);
        rows<FormValues, QString>({
            {"empty page", {FormValues(), u"mail=; Job=; occup="_s}},
            {"first name",
             {first,
              u"fullname=Ann ; full_name=Ann ; firstname=Ann; fname=Ann; first_name=Ann; name=Ann ; mail=; Job=; occup="_s}},
            {"last name, woman",
             {last, u"sex=F; gender=F; sex=Female; gender=Female; fullname= Lee; full_name= Lee; "
                    "lastname=Lee; lname=Lee; last_name=Lee; name= Lee; mail=; Job=; occup="_s}},
            {"everything", {gregor(), QString(all).replace(u'\n', u"; "_s)}},
        });
    }

    void build()
    {
        const auto [values, fields] = row<FormValues, QString>();
        FormKeys keys(m_folder->path());
        FormStore store(keys);
        store.AddFormField(u"old"_s, u"old"_s, false);
        BuildFormFields(values, store, *m_settings, path());
        QStringList built;
        for (const FormField &field : store.fields())
            built += (field.isProtected ? u"*"_s : QString()) + field.key + u'=' + field.value;
        QCOMPARE(built, fields.split(u"; "_s));
        for (std::size_t i = 0; i < values.own.size(); ++i)
            QCOMPARE(m_settings->GetSetting(appTitle(), u"Settings"_s, keyOfOwnField(i), u"(absent)"_s),
                     values.own[i].Custom);
        FormStore again(keys);
        again.LoadFormData(path());
        QVERIFY(again.fields() == store.fields());
    }

    void everyRowComesBack()
    {
        using V = FormValues;
        FormKeys keys(m_folder->path());
        FormStore store(keys);
        for (const V::List list : {&V::title, &V::sex, &V::bday, &V::bmonth, &V::Country, &V::CardType, &V::ExpMonth}) {
            for (int row = 0; row <= rowsOf(list).size(); ++row) {
                FormValues values = gregor();
                values.*list = row;
                BuildFormFields(values, store, *m_settings, path());
                QCOMPARE(ReadFormFields(store, *m_settings).*list, row);
            }
        }
        const FormValues read = ReadFormFields(store, *m_settings);
        const FormValues built = gregor();
        for (const V::Text text :
             {&V::firstname, &V::lastname, &V::phone, &V::fax, &V::byear, &V::mail, &V::job, &V::address1, &V::Address2,
              &V::City, &V::State, &V::ZipCode, &V::CardNumber, &V::ValidCode, &V::ExpYear, &V::UserName, &V::Bank})
            QCOMPARE(read.*text, built.*text);
        // An own field of the same name as another comes back with the value of the first.
        QCOMPARE(read.own[2].Value, built.phone);
        QCOMPARE(read.own[1].Custom, u"pet"_s);
    }

    void oddValues()
    {
        using V = FormValues;
        const std::tuple<QString, V::List, QString, int> cases[] = {
            {u"title"_s, &V::title, u"prof."_s, 5},
            {u"title"_s, &V::title, u"Sir"_s, 0},
            {u"sex"_s, &V::sex, u"Female"_s, 0},
            {u"cardtyp"_s, &V::CardType, u"DINERS CLUB"_s, 6},
            {u"day"_s, &V::bday, u"0"_s, 0},
            {u"country"_s, &V::Country, u"237"_s, -1},
            {u"month"_s, &V::bmonth, u"-1"_s, -1},
            {u"exp_month"_s, &V::ExpMonth, u"Sep"_s, -1},
            {u"day"_s, &V::bday, u"99999999999"_s, -1},
        };
        FormKeys keys(m_folder->path());
        FormStore store(keys);
        for (const auto &[key, list, value, row] : cases) {
            store.ClearFormData();
            store.AddFormField(key, value, false);
            QVERIFY2(ReadFormFields(store, *m_settings).*list == row, qPrintable(value));
        }
    }

    void json_data()
    {
        const QByteArray texts(R"({"firstname": "Ann", "country": "CANADA", "title": "Dr.", "bday": 3,
            "cardtype": "visa", "custom": {"pet": "cat"}})");
        const QByteArray codes(R"({"firstname": "Ann", "country": "ca", "title": "4", "bday": "03", "cardtype": 1,
            "custom": {"pet": "cat"}})");
        rows<QByteArray, QString>({
            {"texts and rows", {texts, {}}},
            {"codes and numbers as texts", {codes, {}}},
            {"unknown name", {QByteArray(R"({"nickname": "A"})"), u"nickname"_s}},
            {"not in the list", {QByteArray(R"({"country": "Atlantis"})"), u"country"_s}},
            {"no text", {QByteArray(R"({"city": ["a"]})"), u"city"_s}},
            {"cut off", {"{\"city\": \"To", u"object"_s}},
        });
    }

    void json()
    {
        const auto [text, told] = row<QByteArray, QString>();
        QString fault;
        FormValues values;
        try {
            values = ReadFormJson(text, *m_settings);
        } catch (const ControlError &error) {
            fault = QString::fromUtf8(error.what());
        }
        QCOMPARE(fault.isEmpty(), told.isEmpty());
        QVERIFY2(fault.contains(told), qPrintable(fault));
        if (!fault.isEmpty())
            return;
        QCOMPARE(values.firstname, u"Ann"_s);
        QCOMPARE(rowsOf(&FormValues::Country).at(values.Country - 1), u"Canada"_s);
        QCOMPARE(values.title, 4);
        QCOMPARE(values.bday, 3);
        QCOMPARE(values.CardType, 1);
        QCOMPARE(values.own[0].Custom + values.own[0].Value, u"petcat"_s);
    }

private:
    QString path() const { return m_folder->filePath(u"form.bin"_s); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SettingsStore> m_settings;
};

QTEST_GUILESS_MAIN(tst_FieldTable)
#include "tst_fieldtable.moc"
