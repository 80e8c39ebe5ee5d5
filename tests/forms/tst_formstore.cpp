#include "base/Files.h"
#include "base/step.h"
#include "core/state/SettingsStore.h"
#include "desktop/Paths.h"
#include "forms/FieldTable.h"
#include "forms/FormFile.h"
#include "forms/FormRecordJson.h"
#include "forms/FormStore.h"
#include "support/Rows.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <map>

using namespace Qt::StringLiterals;

namespace {

/// A keyring that answers when the test says so.
class FakeService : public desktop::SecretService
{
public:
    struct Ring
    {
        std::map<QString, QByteArray> secrets;
        std::vector<std::function<void()>> waiting;
        bool refuses = false;
        bool forgets = false;
        int reads = 0;

        void answer()
        {
            while (!waiting.empty()) {
                for (const auto &answer : std::exchange(waiting, {}))
                    answer();
            }
        }
    };
    explicit FakeService(Ring &ring)
        : m_ring(ring)
    {}
    void read(const QString &name, std::function<void(std::optional<QByteArray>)> done) override
    {
        ++m_ring.reads;
        m_ring.waiting.emplace_back([this, name, done] {
            const auto secret = m_ring.secrets.find(name);
            const bool isThere = secret != m_ring.secrets.end() && !m_ring.refuses;
            done(isThere ? std::optional(secret->second) : std::nullopt);
        });
    }
    void write(const QString &name, const QByteArray &secret, std::function<void(bool)> done) override
    {
        m_ring.waiting.emplace_back([this, name, secret, done] {
            if (!m_ring.forgets)
                m_ring.secrets[name] = secret;
            done(!m_ring.refuses);
        });
    }

private:
    Ring &m_ring;
};

std::vector<FormField> sample()
{
    return {{u"sex"_s, u"M"_s, false},
            {u"sex"_s, u"Male"_s, false},
            {u"Job"_s, QString(), false},
            {u"card_num"_s, u"4111111111111111"_s, true},
            {u"half "_s + QChar(0xD83D), u"Zoë 😀\r\n\0 end"_s + QChar(0xDC00), false},
            {u"long"_s, QString(100'000, u'x'), true}};
}

void fill(FormStore &store, const std::vector<FormField> &fields)
{
    store.ClearFormData();
    for (const FormField &field : fields)
        store.AddFormField(field.key, field.value, field.isProtected);
}

bool isBeginning(const std::vector<FormField> &part, const std::vector<FormField> &all)
{
    return part.size() <= all.size() && std::equal(part.begin(), part.end(), all.begin());
}

constexpr auto kOwnerOnly =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadUser | QFileDevice::WriteUser;

/// Something in every control; one of his own fields has no name.
FormValues gregor()
{
    QTemporaryDir folder;
    return ReadFormJson(readFile(QStringLiteral(FORMS_DATA "/gregor.json")).value(),
                        SettingsStore(folder.filePath(u"settings.ini"_s)));
}

} // namespace

/// The record of forms: its file and its key, and its fields from the user's values and back.
class tst_FormStore : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_settings = std::make_unique<SettingsStore>(m_folder->filePath(u"settings.ini"_s));
    }

    void comesBackAsItWas()
    {
        saveSample();
        FormKeys keys(m_folder->path());
        FormStore store(keys);
        store.LoadFormData(path());
        QVERIFY(store.fields() == sample());
        QString value;
        bool isProtected = false;
        store.GetFormField(u"SEX"_s, value, isProtected);
        QCOMPARE(value, u"M"_s);
        store.GetFormField(u"CARD_num"_s, value, isProtected);
        QVERIFY(isProtected);

        for (const QString &file : {path(), keyFile()})
            QCOMPARE(QFile::permissions(file), kOwnerOnly);
        const QByteArray content = readFile(path()).value();
        const QString number = u"4111111111111111"_s;
        const QByteArray units(reinterpret_cast<const char *>(number.utf16()), 2 * number.size());
        QVERIFY(!content.contains(number.toUtf8()) && !content.contains(units));
        // The same record looks different each time, and an old one is overwritten in its place.
        store.SaveFormData(path());
        QVERIFY(readFile(path()) != content && !QFile::exists(path() + u".damaged"_s));
    }

    void everyDamageLeavesABeginning()
    {
        std::vector<FormField> fields = sample();
        fields.pop_back();
        const FormKey key = FormKey::make();
        const QByteArray whole = formfile::write(fields, key);
        QVERIFY(formfile::read(whole, key).isWhole);
        std::size_t most = 0;
        for (qsizetype size = 0; size < whole.size(); ++size) {
            const formfile::Content cut = formfile::read(whole.first(size), key);
            QVERIFY2(!cut.isWhole && isBeginning(cut.fields, fields), qPrintable(QString::number(size)));
            most = std::max(most, cut.fields.size());
        }
        QCOMPARE(most, fields.size());
        for (qsizetype at = 0; at < whole.size(); ++at) {
            QByteArray flipped = whole;
            flipped[at] = static_cast<char>(flipped[at] ^ (1 << (at % 8)));
            const formfile::Content bad = formfile::read(flipped, key);
            QVERIFY2(!bad.isWhole && isBeginning(bad.fields, fields), qPrintable(QString::number(at)));
        }
        const formfile::Content longer = formfile::read(whole + "more", key);
        QVERIFY(!longer.isWhole && longer.fields == fields);
        FormKey other = FormKey::make();
        other.id = key.id;
        QVERIFY(formfile::read(whole, other).fields.empty());
    }

    void oddFiles()
    {
        const auto shortened = [](const QString &path) { QVERIFY(QFile::resize(path, QFileInfo(path).size() - 1)); };
        const auto removed = [](const QString &path) { QFile::remove(path); };
        const auto grown = [](const QString &path) { QVERIFY(QFile::resize(path, 100'000'000)); };
        const auto folder = [](const QString &path) { QVERIFY(QFile::remove(path) && QDir().mkdir(path)); };
        const auto keyLost = [](const QString &path) { QFile::remove(path.chopped(3) + u"key"_s); };
        const auto keyCut = [](const QString &path) { QVERIFY(QFile::resize(path.chopped(3) + u"key"_s, 20)); };
        const std::initializer_list<std::tuple<std::function<void(const QString &)>, int, bool>> cases{
            {removed, 0, false},  // missing
            {shortened, 6, true}, // last byte lost
            {grown, 0, true},     // of 100 MB
            {folder, 0, true},    // a folder
            {keyLost, 0, true},   // key missing
            {keyCut, 0, true}};   // key damaged
        for (const auto &[spoil, left, isKept] : cases) {
            init();
            saveSample();
            spoil(path());

            FormKeys keys(m_folder->path());
            FormStore store(keys);
            store.LoadFormData(path());
            QCOMPARE(static_cast<int>(store.fields().size()), left);
            fill(store, {{u"mail"_s, u"new"_s, false}});
            store.SaveFormData(path());
            QCOMPARE(QFile::exists(path() + u".damaged"_s), isKept);

            FormKeys later(m_folder->path());
            FormStore again(later);
            again.LoadFormData(path());
            QVERIFY(again.fields() == store.fields());
        }
    }

    void failedSaveLeavesTheOldFile()
    {
        saveSample();
        const auto before = readFile(path());
        FormKeys keys(m_folder->path());
        FormStore store(keys);
        store.LoadFormData(path());
        // QSaveFile has to make its file beside the record.
        QVERIFY_THROWS_EXCEPTION(ControlError, store.SaveFormData(m_folder->filePath(u"gone/form.bin"_s)));
        QCOMPARE(readFile(path()), before);
        FormKeys nowhere(m_folder->filePath(u"gone"_s));
        QVERIFY_THROWS_EXCEPTION(ControlError, FormStore(nowhere).SaveFormData(path()));
        QCOMPARE(readFile(path()), before);
    }

    void keyMovesIntoTheService()
    {
        // A folder that can be moved keeps its key, whatever the session offers, and so do all tests.
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
        QVERIFY(!desktop::secretServiceOf(desktop::Paths::below(m_folder->path())));
        for (const bool forgets : {true, false}) {
            FakeService::Ring ring;
            ring.forgets = forgets;
            FormKeys keys(m_folder->path(), std::make_unique<FakeService>(ring));
            FormStore store(keys);
            store.LoadFormData(path());
            fill(store, sample());
            store.SaveFormData(path());
            QVERIFY(QFile::exists(keyFile()));
            ring.answer();
            QCOMPARE(QFile::exists(keyFile()), forgets);
        }
    }

    void lateKey()
    {
        for (const QString &meanwhile : {u"nothing"_s, u"clear"_s, u"add"_s, u"gone"_s, u"refuse, then give"_s}) {
            init();
            FakeService::Ring ring;
            {
                FormKeys keys(m_folder->path(), std::make_unique<FakeService>(ring));
                FormStore store(keys);
                fill(store, sample());
                store.SaveFormData(path());
                ring.answer();
            }
            ring.refuses = meanwhile.startsWith(u"refuse");
            ring.reads = 0;
            FormKeys keys(m_folder->path(), std::make_unique<FakeService>(ring));
            FormStore other(keys);
            auto store = std::make_unique<FormStore>(keys);
            int late = 0;
            store->loadedLate = [&] { ++late; };
            store->LoadFormData(path());
            other.LoadFormData(path());
            bool isSettled = false;
            keys.whenSettled([&] { isSettled = true; });
            QVERIFY(!isSettled && store->fields().empty());
            if (meanwhile == u"clear"_s)
                store->ClearFormData();
            else if (meanwhile == u"add"_s)
                store->AddFormField(u"mail"_s, u"mine"_s, false);
            else if (meanwhile == u"gone"_s)
                store.reset();
            ring.answer();
            QVERIFY(isSettled);
            QCOMPARE(ring.reads, 1);
            if (ring.refuses) {
                QVERIFY(store->fields().empty());
                ring.refuses = false;
                keys.whenSettled([] {});
                ring.answer();
            }
            QVERIFY(other.fields() == sample());
            // From here on the process knows the key.
            FormStore next(keys);
            next.LoadFormData(path());
            QVERIFY(next.fields() == sample());
            if (store) {
                const std::size_t expected = meanwhile == u"clear"_s ? 0 : meanwhile == u"add"_s ? 1 : sample().size();
                QCOMPARE(store->fields().size(), expected);
                QCOMPARE(late, expected > 1 ? 1 : 0);
            }
        }
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
        const QString all = QString::fromUtf8(readFile(QStringLiteral(FORMS_DATA "/fields.txt")).value()).chopped(1);
        rows<FormValues, QString>({
            {"empty page", {FormValues(), u"mail=; Job=; occup="_s}},
            {"first name",
             {first, u"fullname=Ann ; full_name=Ann ; firstname=Ann; fname=Ann; first_name=Ann; name=Ann ; "
                     "mail=; Job=; occup="_s}},
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
        QCOMPARE((QList<int>{values.title, values.bday, values.CardType}), (QList<int>{4, 3, 1}));
        QCOMPARE(values.own[0].Custom + values.own[0].Value, u"petcat"_s);
    }

private:
    QString keyFile() const { return m_folder->filePath(u"form.key"_s); }
    void saveSample()
    {
        FormKeys keys(m_folder->path());
        FormStore store(keys);
        fill(store, sample());
        store.SaveFormData(path());
    }
    QString path() const { return m_folder->filePath(u"form.bin"_s); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<SettingsStore> m_settings;
};

QTEST_GUILESS_MAIN(tst_FormStore)
#include "tst_formstore.moc"
