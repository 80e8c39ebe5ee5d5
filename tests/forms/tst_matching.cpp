#include "base/Files.h"
#include "core/state/SettingsStore.h"
#include "forms/FieldTable.h"
#include "forms/FormRecordJson.h"
#include "forms/FormStore.h"
#include "forms/Matching.h"
#include "forms/PhoneNumber.h"

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

QByteArray dataFile(const QString &name)
{
    return readFile(QStringLiteral(FORMS_DATA "/") + name).value();
}

Fields fieldsOf(const QString &person)
{
    const QTemporaryDir folder;
    SettingsStore settings(folder.filePath(u"settings.ini"_s));
    FormKeys keys(folder.path());
    FormStore store(keys);
    BuildFormFields(ReadFormJson(dataFile(person + u".json"_s), settings), store, settings,
                    folder.filePath(u"form.bin"_s));
    return store.fields();
}

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
    for (const QString &line : QString::fromUtf8(dataFile(u"shapes.txt"_s)).split(u'\n', Qt::SkipEmptyParts)) {
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
    void shapes_data()
    {
        QTest::addColumn<size_t>("number");
        const std::vector<Shape> all = readShapes();
        QVERIFY(all.size() >= 40);
        for (size_t i = 0; i < all.size(); ++i)
            QTest::newRow(qPrintable(all[i].title)) << i;
    }

    void shapes()
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

    void phoneNumbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("home");
        QTest::addColumn<QString>("parts");
        QTest::newRow("blanks") << u"+49 30 1234567"_s << u"DE"_s << u"49 30|1234567 0301234567"_s;
        QTest::newRow("two zeros") << u"0049 221 5550134"_s << u"DE"_s << u"49 221|5550134 02215550134"_s;
        QTest::newRow("zeros alone") << u"00 44 20 7946 0958"_s << u"DE"_s << u"44 20|7946|0958 2079460958"_s;
        QTest::newRow("zero in brackets") << u"+49 (0)30 1234567"_s << u"DE"_s << u"49 30|1234567 0301234567"_s;
        QTest::newRow("unparted, at home") << u"+442079460958"_s << u"UK"_s << u"44 2079460958 02079460958"_s;
        QTest::newRow("unparted, abroad") << u"+442079460958"_s << u"DE"_s << u" 442079460958 442079460958"_s;
        QTest::newRow("national") << u"0221/5550134"_s << u"DE"_s << u"49 0221|5550134 02215550134"_s;
        QTest::newRow("America") << u"1-503-555-0142"_s << u"US"_s << u"1 503|555|0142 5035550142"_s;
        QTest::newRow("America from abroad") << u"+15035550142"_s << u"FR"_s << u"1 503|555|0142 5035550142"_s;
        QTest::newRow("no country") << u"503 555 0142"_s << QString() << u" 503|555|0142 5035550142"_s;
        QTest::newRow("marks alone") << u"+"_s << u"DE"_s << u"49  "_s;
    }

    /// The country's code, the pieces and what is dialled within the country.
    void phoneNumbers()
    {
        QFETCH(QString, text);
        QFETCH(QString, home);
        const PhoneNumber number = PhoneNumber::of(text, home);
        QStringList pieces;
        qsizetype from = 0;
        for (const int length : number.groups) {
            pieces += number.digits.mid(from, length);
            from += length;
        }
        if (pieces.isEmpty())
            pieces = QStringList{number.digits};
        QTEST(number.country + u' ' + pieces.join(u'|') + u' ' + number.ways(text).last(), "parts");
    }

    /// Whatever a page asks for: no value of a protected field is in any answer, be the card locked or the path open.
    void protectedFieldsStayIn()
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
    void limitsHold()
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

    /// 100,000 inputs and texts of a megabyte: the first ones are answered, and it ends long before the test's time is
    /// up.
    void hugeForms()
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

private:
    const Fields m_ada = fieldsOf(u"ada"_s);
    const Fields m_jan = fieldsOf(u"jan"_s);
};

QTEST_APPLESS_MAIN(tst_Matching)
#include "tst_matching.moc"
