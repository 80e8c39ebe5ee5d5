#include "core/state/SettingsStore.h"
#include "forms/FieldTable.h"
#include "forms/FormRecordJson.h"
#include "forms/FormStore.h"
#include "forms/Matching.h"

#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using engine::FormAnswer;
using engine::FormInput;
using engine::FrameForm;

namespace {

using Fields = std::vector<FormField>;

Fields fieldsOf(const QByteArray &json)
{
    const QTemporaryDir folder;
    SettingsStore settings(folder.filePath(u"settings.ini"_s));
    FormKeys keys(folder.path());
    FormStore store(keys);
    BuildFormFields(ReadFormJson(json, settings), store, settings, folder.filePath(u"form.bin"_s));
    return store.fields();
}

constexpr const char *kAda = R"({"title": 2, "sex": 2, "firstname": "Ada", "lastname": "Miller",
    "phone": "4155550199", "fax": "4155550111", "bday": 7, "bmonth": 12, "byear": "1985", "mail": "ada@miller.example",
    "job": "Teacher", "address1": "12 Oak Lane", "address2": "Apt 4", "country": "US", "city": "Salem",
    "state": "Oregon", "zip": "97301", "cardtype": 2, "cardnumber": "5555 5555 5555 4444",
    "validcode": "321", "expmonth": 4, "expyear": "31", "username": "adam", "bank": "First Oak",
    "custom": {"pet": "Rex", "club": "Rowing", "phone": "never this one"}})";

constexpr const char *kJan = R"({"title": 1, "sex": 1, "firstname": "Jan", "lastname": "Köhler",
    "phone": "+49 30 1234567", "bday": 24, "bmonth": 2, "byear": "1979", "mail": "jan@koehler.example",
    "job": "Lehrer", "address1": "Lindenweg 5a", "address2": "Hinterhaus", "country": "DE", "city": "Berlin",
    "state": "Berlin", "zip": "10115", "cardtype": 1, "cardnumber": "4111111111111111", "validcode": "737",
    "expmonth": 11, "expyear": "2030", "username": "jank"})";

/// "v:text|w:text", "text|text" and "1..12".
std::vector<engine::FormOption> readOptions(const QString &cell)
{
    std::vector<engine::FormOption> options;
    for (const QString &one : cell.split(u'|')) {
        const QStringList range = one.split(u".."_s);
        if (range.size() == 2) {
            for (int i = range[0].toInt(); i <= range[1].toInt(); ++i) {
                const QString text = QString::number(i).rightJustified(range[0].size(), u'0');
                options.push_back({text, text});
            }
            continue;
        }
        const bool hasValue = one.contains(u':');
        options.push_back({hasValue ? one.section(u':', 0, 0) : one, hasValue ? one.section(u':', 1) : one});
    }
    return options;
}

FormInput readInput(const QString &line, int number)
{
    static const QHash<QString, QString> types{
        {u"t"_s, u"text"_s},  {u"e"_s, u"email"_s},    {u"p"_s, u"tel"_s},      {u"n"_s, u"number"_s},
        {u"d"_s, u"date"_s},  {u"m"_s, u"month"_s},    {u"a"_s, u"textarea"_s}, {u"s"_s, u"select-one"_s},
        {u"r"_s, u"radio"_s}, {u"c"_s, u"checkbox"_s},
    };
    const auto between = [&](const QString &pattern) { return QRegularExpression(pattern).match(line).captured(1); };
    FormInput input;
    input.number = number;
    input.type = types.value(line.section(u' ', 0, 0));
    const QString name = line.section(u' ', 1, 1);
    input.name = name == u"-" ? QString() : name;
    input.id = between(u" #(\\S+)"_s);
    input.autocomplete = between(u"^\\S+ \\S+ \\(([^)]+)\\)"_s);
    input.label = between(u"\"([^\"]*)\""_s);
    input.placeholder = between(u" '([^']*)'"_s);
    input.maxLength = between(u"<(\\d+)>"_s).toInt();
    const QString cell = between(u"\\{(.*)\\}"_s);
    if (input.type == u"select-one")
        input.options = readOptions(cell);
    else
        input.value = cell;
    return input;
}

/// What an answer makes of an input, as the table of shapes writes it.
QString shown(const FormInput &input, const QString &answer)
{
    if (input.type == u"select-one")
        return input.options.at(static_cast<size_t>(answer.toInt())).text;
    if (input.type == u"radio" || input.type == u"checkbox")
        return answer == u"1" ? u"on"_s : answer;
    return QString(answer).replace(u'\n', u"\\n"_s);
}

QHash<int, QString> answersTo(const Fields &fields, const FrameForm &frame, bool locked = false)
{
    QHash<int, QString> answers;
    for (const FormAnswer &answer : MatchForm(fields, frame, locked))
        answers.insert(answer.number, answer.value);
    return answers;
}

struct Shape
{
    QString title;
    FrameForm frame;
    QStringList expected;
};

std::vector<Shape> readShapes()
{
    std::vector<Shape> shapes;
    QFile file(QStringLiteral(FORM_SHAPES));
    if (!file.open(QIODevice::ReadOnly))
        return shapes;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u';'))
            continue;
        if (line.startsWith(u'=')) {
            shapes.push_back({line.sliced(2), {}, {}});
            shapes.back().frame.secure = true;
            continue;
        }
        Shape &shape = shapes.back();
        shape.frame.inputs.push_back(readInput(line.section(u" -> "_s, 0, 0), static_cast<int>(shape.expected.size())));
        shape.expected.append(line.section(u" -> "_s, 1));
    }
    return shapes;
}

} // namespace

class tst_Matching : public QObject
{
    Q_OBJECT
private slots:
    void shapes_data();
    void shapes();
    void protectedFieldsStayIn();
    void limitsHold();
    void hugeForms();

private:
    const Fields m_ada = fieldsOf(kAda);
    const Fields m_jan = fieldsOf(kJan);
};

void tst_Matching::shapes_data()
{
    QTest::addColumn<size_t>("number");
    const std::vector<Shape> all = readShapes();
    QVERIFY(all.size() >= 40);
    for (size_t i = 0; i < all.size(); ++i)
        QTest::newRow(qPrintable(all[i].title)) << i;
}

void tst_Matching::shapes()
{
    QFETCH(size_t, number);
    static const std::vector<Shape> all = readShapes();
    const Shape &shape = all[number];
    const QHash<int, QString> answers = answersTo(shape.title.startsWith(u"ada") ? m_ada : m_jan, shape.frame);
    QStringList wrong;
    for (const FormInput &input : shape.frame.inputs) {
        const QString got = answers.contains(input.number) ? shown(input, answers[input.number]) : QString();
        if (got != shape.expected[input.number])
            wrong += u"%1 \"%2\": %3, not %4"_s.arg(input.name, input.label, got, shape.expected[input.number]);
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
}

/// Whatever a page asks for: no value of a protected field is in any answer, be the card locked or the path open.
void tst_Matching::protectedFieldsStayIn()
{
    Fields fields = m_ada;
    fields.push_back({u"secret"_s, u"own and protected"_s, true});
    const QStringList secrets{u"5555 5555"_s,  u"555555555"_s, u"4444"_s,  u"321"_s,
                              u"MasterCard"_s, u"2031"_s,      u"04/31"_s, u"own and"_s};
    int others = 0;
    for (Shape shape : readShapes()) {
        shape.frame.inputs.push_back(readInput(u"t secret"_s, 1000));
        for (const bool locked : {true, false}) {
            shape.frame.secure = locked;
            const QHash<int, QString> answers = answersTo(fields, shape.frame, locked);
            for (const FormInput &input : shape.frame.inputs) {
                const QString answer = answers.value(input.number);
                const QString text = answer.isEmpty() ? answer : shown(input, answer);
                for (const QString &secret : secrets)
                    QVERIFY2(!text.contains(secret), qPrintable(shape.title + u": "_s + input.name));
                others += text.isEmpty() ? 0 : 1;
            }
        }
    }
    QVERIFY(others > 200);
}

/// With every limit: a value is whole or, where it has a shorter form, that one; never longer than the input takes.
void tst_Matching::limitsHold()
{
    for (const Shape &shape : readShapes()) {
        for (int limit = 1; limit < 24; ++limit) {
            FrameForm frame = shape.frame;
            for (FormInput &input : frame.inputs)
                input.maxLength = limit;
            const QHash<int, QString> answers = answersTo(m_ada, frame);
            for (const FormInput &input : frame.inputs)
                QVERIFY(input.type == u"select-one" || answers.value(input.number).size() <= limit);
        }
    }
}

/// 100,000 inputs and texts of a megabyte: the first ones are answered, and it ends long before the test's time is up.
void tst_Matching::hugeForms()
{
    FrameForm many;
    const FormInput phone = readInput(u"t phone <3>"_s, 0);
    const FormInput name = readInput(u"t name"_s, 1);
    for (int i = 0; i < 50000; ++i) {
        many.inputs.push_back(phone);
        many.inputs.push_back(name);
    }
    const QString huge = u"name[name]"_s.repeated(100000);
    FrameForm big;
    for (int i = 0; i < 20; ++i)
        big.inputs.push_back({i, u"text"_s, huge, huge, huge, huge, huge, huge, 0, huge, {{huge, huge}}});
    big.inputs.push_back(readInput(u"t email"_s, 20));

    const QHash<int, QString> answers = answersTo(m_ada, many);
    QCOMPARE(answers.value(1), u"Ada Miller"_s);
    QCOMPARE(answersTo(m_ada, big).value(20), u"ada@miller.example"_s);
}

QTEST_APPLESS_MAIN(tst_Matching)
#include "tst_matching.moc"
