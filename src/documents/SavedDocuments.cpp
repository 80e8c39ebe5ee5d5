#include "documents/SavedDocuments.h"

#include "base/step.h"
#include "controls/ListView.h"
#include "core/state/Document.h"
#include "core/state/MainWindow.h"
#include "core/state/Settings.h"
#include "core/state/SettingsStore.h"
#include "documents/frmNavigator.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
QString section()
{
    return u"Settings"_s;
}

QString countKey()
{
    return u"DocumentCount"_s;
}

QString documentKey(int n)
{
    return u"Document"_s + QString::number(n);
}
} // namespace

SavedDocuments::SavedDocuments(SettingsStore &store, const Settings &settings, frmNavigator &navigator,
                               MainWindow &frmMain)
    : m_store(store)
    , m_settings(settings)
    , m_navigator(navigator)
    , m_frmMain(frmMain)
{}

void SavedDocuments::SaveAllDocuments()
{
    const int count = m_navigator.ListView1.ListItems().Count();
    m_store.SaveSetting(appTitle(), section(), countKey(), QString::number(count));
    for (int n = 1; n <= count; ++n)
        m_store.SaveSetting(appTitle(), section(), documentKey(n), m_navigator.document(n).LocationURL());
}

int SavedDocuments::count() const
{
    int count = 0;
    step([&] { count = toInteger(m_store.GetSetting(appTitle(), section(), countKey(), u"0"_s)); });
    return count;
}

void SavedDocuments::LoadAllDocuments()
{
    // All are read before the first one opens: a load that ends meanwhile writes the same keys.
    QStringList addresses;
    const int last = count();
    for (int n = 1; n <= last; ++n)
        addresses += m_store.GetSetting(appTitle(), section(), documentKey(n), m_settings.SitesHome1);
    for (const QString &address : std::as_const(addresses))
        step([&] { m_frmMain.LoadNewDoc(address); });
}
