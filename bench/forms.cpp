// What the form record costs: the table, the file and its key.

#include "core/state/SettingsStore.h"
#include "forms/FieldTable.h"
#include "forms/FormStore.h"

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

} // namespace
