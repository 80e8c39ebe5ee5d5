// What the form record costs: the table, the file and its key.

#include "core/state/SettingsStore.h"
#include "forms/FieldTable.h"
#include "forms/FormStore.h"
#include "forms/Matching.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

/// A page with something in every control: the longest record there is.
FormValues fullPage()
{
    using V = FormValues;
    FormValues values;
    for (const V::List list : {&V::title, &V::sex, &V::bday, &V::bmonth, &V::Country, &V::CardType, &V::ExpMonth})
        values.*list = 1;
    for (const V::Text text :
         {&V::firstname, &V::lastname, &V::phone, &V::fax, &V::byear, &V::mail, &V::job, &V::address1, &V::Address2,
          &V::City, &V::State, &V::ZipCode, &V::CardNumber, &V::ValidCode, &V::ExpYear, &V::UserName, &V::Bank})
        values.*text = u"a text of thirty characters ..."_s;
    for (std::size_t i = 0; i < values.own.size(); ++i)
        values.own[i] = {u"field%1"_s.arg(i), u"value"_s};
    return values;
}

/// A store that keeps what it gets and writes nothing.
class Unwritten : public FormStore
{
public:
    using FormStore::FormStore;
    void SaveFormData(const QString &) override {}
};

void formTableBuild(benchmark::State &state)
{
    QTemporaryDir folder;
    SettingsStore settings(folder.filePath(u"settings.ini"_s));
    FormKeys keys(folder.path());
    Unwritten store(keys);
    const FormValues values = fullPage();
    for ([[maybe_unused]] auto iteration : state)
        BuildFormFields(values, store, settings, QString());
    state.counters["fields"] = static_cast<double>(store.fields().size());
}
BENCHMARK(formTableBuild)->Unit(benchmark::kMicrosecond);

/// What every new document does. With the key: also what only the first one of a run does.
void formFileLoad(benchmark::State &state)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(u"form.bin"_s);
    SettingsStore settings(folder.filePath(u"settings.ini"_s));
    FormKeys keys(folder.path());
    FormStore written(keys);
    BuildFormFields(fullPage(), written, settings, path);
    const bool withKey = state.range(0) != 0;
    for ([[maybe_unused]] auto iteration : state) {
        FormKeys fresh(folder.path());
        FormStore store(withKey ? fresh : keys);
        store.LoadFormData(path);
        if (store.fields() != written.fields())
            state.SkipWithError("the record did not come back");
    }
}
BENCHMARK(formFileLoad)->ArgName("key")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// A frame of a checkout, over and over: every tenth input a list of all countries.
engine::FrameForm checkout(int inputs)
{
    const QStringList names{u"billing_first_name"_s, u"billing_last_name"_s, u"customer[email]"_s,
                            u"billing_address_1"_s,  u"billing_city"_s,      u"postcode"_s,
                            u"txtHomePhone"_s,       u"card_number"_s,       u"field_17"_s,
                            u"billing_country"_s};
    engine::FrameForm frame;
    frame.secure = true;
    for (int i = 0; i < inputs; ++i) {
        const QString &name = names[i % names.size()];
        engine::FormInput input{i, u"text"_s, name, u"id_"_s + name, u"on"_s, u"Enter it here, please *"_s, {}, {},
                                0, {},        {}};
        if (name.endsWith(u"country")) {
            input.type = u"select-one"_s;
            for (const QString &country : rowsOf(&FormValues::Country))
                input.options.push_back({country.first(2), country});
        }
        frame.inputs.push_back(input);
    }
    return frame;
}

/// What a page of 1,000 inputs over ten frames costs on our side of it.
void formMatch(benchmark::State &state)
{
    QTemporaryDir folder;
    SettingsStore settings(folder.filePath(u"settings.ini"_s));
    FormKeys keys(folder.path());
    Unwritten store(keys);
    BuildFormFields(fullPage(), store, settings, QString());
    const engine::FrameForm frame = checkout(100);
    size_t answers = 0;
    for ([[maybe_unused]] auto iteration : state) {
        answers = 0;
        for (int i = 0; i < 10; ++i)
            answers += MatchForm(store.fields(), frame, false).size();
    }
    state.counters["answers"] = static_cast<double>(answers);
}
BENCHMARK(formMatch)->Unit(benchmark::kMillisecond);

} // namespace
