#include "base/step.h"
#include "core/state/SettingsStore.h"
#include "forms/FieldTable.h"
#include "forms/FormRecordJson.h"
#include "forms/FormStore.h"

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

    void build_data();
    void build();
    void everyRowComesBack();
    void oddValues();
    void json_data();
    void json();

private:
    QString path() const { return m_folder->filePath(u"form.bin"_s); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SettingsStore> m_settings;
};

void tst_FieldTable::build_data()
{
    QTest::addColumn<FormValues>("values");
    // Fields in order, "key=value" separated by "; ", a star for a protected one.
    QTest::addColumn<QString>("fields");
    QTest::newRow("empty page") << FormValues() << u"mail=; Job=; occup="_s;
    FormValues v;
    v.firstname = u"Ann"_s;
    QTest::newRow("first name only") << v
                                     << u"fullname=Ann ; full_name=Ann ; firstname=Ann; fname=Ann; first_name=Ann; "
                                        "name=Ann ; mail=; Job=; occup="_s;
    v = {};
    v.lastname = u"Lee"_s;
    v.sex = 2;
    v.title = -1;
    v.bday = -1;
    QTest::newRow("last name, woman, lists without a row")
        << v
        << u"sex=F; gender=F; sex=Female; gender=Female; fullname= Lee; full_name= Lee; lastname=Lee; lname=Lee; "
           "last_name=Lee; name= Lee; mail=; Job=; occup="_s;
    QTest::newRow("everything")
        << gregor()
        << u"title=MR.; sex=M; sex=Male; gender=M; gender=Male; user=gt; fullname=Gregor Tamblyn; "
           "full_name=Gregor Tamblyn; firstname=Gregor; fname=Gregor; first_name=Gregor; lastname=Tamblyn; "
           "lname=Tamblyn; last_name=Tamblyn; name=Gregor Tamblyn; phon=416; phone=416; fax=417; day=3; *exp_month=9; "
           "*expmonth=9; *expir_month=9; *expirmonth=9; *exp_year=2029; *expyear=2029; *expir_year=2029; "
           "*expiryear=2029; month=3; year=1970; mail=g@t; Job=Surveyor; occup=Surveyor; Address2=U 12; Address_2=U "
           "12; "
           "Addr2=U 12; Addr_2=U 12; Address1=77 H; Address_1=77 H; Addr1=77 H; Addr_1=77 H; Addr=77 H; Country=1; "
           "Country=Afghanistan; Country=AF; City=Toronto; State=Ontario; Prov=Ontario; zip=M5V; postal=M5V; "
           "*cardtyp=Delta; *card_typ=Delta; *card_num=4111; *credit_num=4111; *card_no=4111; *credit_no=4111; "
           "*cardnum=4111; *creditnum=4111; *cardno=4111; *creditno=4111; *validation=737; *valid_num=737; "
           "*valid_code=737; *validnum=737; *validcode=737; *v_num=737; *v_code=737; *vnum=737; *vcode=737; bank=N T; "
           "pet=; phone=own"_s;
}

void tst_FieldTable::build()
{
    QFETCH(FormValues, values);
    QFETCH(QString, fields);
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

void tst_FieldTable::everyRowComesBack()
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

void tst_FieldTable::oddValues()
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

void tst_FieldTable::json_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("told");
    QTest::newRow("texts and rows") << QByteArray(
                                           R"({"firstname": "Ann", "country": "CANADA", "title": "Dr.", "bday": 3,
        "cardtype": "visa", "custom": {"pet": "cat"}})")
                                    << QString();
    QTest::newRow("codes and numbers as texts") << QByteArray(R"({"firstname": "Ann", "country": "ca", "title": "4",
        "bday": "03", "cardtype": 1, "custom": {"pet": "cat"}})")
                                                << QString();
    QTest::newRow("unknown name") << QByteArray(R"({"nickname": "A"})") << u"nickname"_s;
    QTest::newRow("not in the list") << QByteArray(R"({"country": "Atlantis"})") << u"country"_s;
    QTest::newRow("no text") << QByteArray(R"({"city": ["a"]})") << u"city"_s;
    QTest::newRow("cut off") << QByteArray(R"({"city": "To)") << u"object"_s;
}

void tst_FieldTable::json()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, told);
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

QTEST_GUILESS_MAIN(tst_FieldTable)
#include "tst_fieldtable.moc"
