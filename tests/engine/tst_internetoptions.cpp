#include "base/Strings.h"
#include "engine/InternetOptions.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

struct FakeHost : OptionsHost
{
    EngineSettings present;
    int applied = 0;
    Traces cleared;
    bool stores = true;
    const EngineSettings &settings() const override { return present; }
    bool apply(const EngineSettings &settings) override
    {
        present = settings;
        ++applied;
        return stores;
    }
    void clear(Traces traces) override { cleared |= traces; }
    QString ownAgent() const override { return u"Engine/1"_s; }
    QString systemDownloadFolder() const override { return QDir::tempPath(); }
};

} // namespace

class TestInternetOptions : public QObject
{
    Q_OBJECT

    std::unique_ptr<FakeHost> m_host;
    QPointer<InternetOptions> m_dialog;

    template <typename T>
    T &child(const char *name)
    {
        T *found = m_dialog->findChild<T *>(QLatin1StringView(name));
        return *(found ? found : (qFatal("no child %s", name), nullptr));
    }
    void click(const char *name)
    {
        auto &button = child<QAbstractButton>(name);
        if (!button.isEnabled())
            qFatal("%s is out of service", name);
        button.click();
    }
    bool isEnabled(const char *name) { return child<QWidget>(name).isEnabled(); }
    QString problem() { return child<QLabel>("lblProblem").text(); }
    void toFront(const char *page) { child<QTabWidget>("tabPages").setCurrentWidget(&child<QWidget>(page)); }
    QString shownAgent() { return child<QLineEdit>("txtAgent").text(); }
    QStringList languages()
    {
        QStringList codes;
        const auto &list = child<QListWidget>("lstLanguages");
        for (int row = 0; row < list.count(); ++row)
            codes << list.item(row)->text().section(u'[', -1).remove(u']');
        return codes;
    }
    void openDialog()
    {
        m_dialog = new InternetOptions(*m_host, nullptr);
        m_dialog->open();
    }

private slots:
    void init()
    {
        m_host = std::make_unique<FakeHost>();
        openDialog();
    }
    void cleanup()
    {
        delete m_dialog;
        m_host.reset();
    }

    void everySettingArrives()
    {
        QVERIFY(!isEnabled("btnApply"));
        click("optCacheLimited");
        child<QSpinBox>("txtCacheSize").setValue(40);
        click("optProxyManual");
        child<QComboBox>("cmbProxyType").setCurrentIndex(1);
        child<QLineEdit>("txtProxyHost").setText(u" proxy.example "_s);
        child<QSpinBox>("txtProxyPort").setValue(1080);
        child<QLineEdit>("txtProxyUser").setText(u"me"_s);
        click("optCookiesNone");
        click("chkForget");
        click("chkDoNotTrack");
        click("chkSystem");
        child<QLineEdit>("txtFolder").setText(u"~/a/../files/"_s);
        click("optAgentOld");

        EngineSettings expected;
        expected.cache = EngineSettings::Cache::Limited;
        expected.cacheMegabytes = 40;
        expected.proxy = EngineSettings::Proxy::Manual;
        expected.proxyType = EngineSettings::ProxyType::Socks5;
        expected.proxyHost = u"proxy.example"_s;
        expected.proxyPort = 1080;
        expected.proxyUser = u"me"_s;
        expected.cookies = EngineSettings::Cookies::None;
        expected.forgetAtExit = true;
        expected.doNotTrack = true;
        expected.languages = systemLanguages();
        expected.downloadFolder = QDir::homePath() + u"/files"_s;
        expected.agent = EngineSettings::Agent::Old;
        click("btnApply");
        QCOMPARE(m_host->present, expected);
        QVERIFY(!isEnabled("btnApply"));
        QVERIFY(m_dialog->isVisible());

        // A new dialog shows what was applied, and changes nothing by that.
        delete m_dialog;
        openDialog();
        QVERIFY(!isEnabled("btnApply"));
        click("btnOk");
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(m_host->applied, 1);
        QCOMPARE(m_host->present, expected);
    }

    void wrongInputIsToldAndNotApplied()
    {
        const auto isRefused = [&](int message) {
            return problem() == LoadResString(message) && !isEnabled("btnOk") && !isEnabled("btnApply");
        };
        toFront("Connection");
        click("optProxyManual");
        QVERIFY(isRefused(20564));
        child<QLineEdit>("txtProxyHost").setText(u"http://proxy"_s);
        QVERIFY(isRefused(20565));
        toFront("Privacy");
        QCOMPARE(problem(), u"Connection: "_s + LoadResString(20565));
        click("optProxyDirect");
        QVERIFY(problem().isEmpty());
        QVERIFY(isEnabled("btnOk"));

        toFront("Downloads");
        const QTemporaryDir folder;
        auto &path = child<QLineEdit>("txtFolder");
        for (const QString &wrong : {QString(), u"files"_s}) {
            path.setText(wrong);
            QVERIFY(isRefused(20567));
        }
        path.setText(folder.filePath(u"new/one"_s));
        QVERIFY(problem().isEmpty());
        click("btnSystemFolder");
        QCOMPARE(path.text(), m_host->systemDownloadFolder());

        toFront("Identification");
        click("optAgentCustom");
        auto &agent = child<QLineEdit>("txtAgent");
        QTest::keyClick(&agent, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&agent, Qt::Key_Delete);
        QVERIFY(isRefused(20569));
        QTest::keyClicks(&agent, u"Mine"_s);
        agent.insert(u"\u00e9"_s);
        QVERIFY(isRefused(20570));
        QTest::keyClick(&agent, Qt::Key_Backspace);
        click("btnOk");
        QCOMPARE(m_host->present.customAgent, u"Mine"_s);
        QVERIFY(m_host->present.downloadFolder.isEmpty());
    }

    void listOfLanguages()
    {
        toFront("Languages");
        click("chkSystem");
        QCOMPARE(languages(), systemLanguages());
        auto &name = *child<QComboBox>("cmbLanguage").lineEdit();
        name.setFocus();
        const auto add = [&](const QString &text) {
            name.setText(text);
            QTest::keyClick(&name, Qt::Key_Return);
        };
        add(u"pt-BR"_s);
        add(u"Deutsch [de]"_s);
        add(u"PT-br"_s);
        QVERIFY(m_dialog->isVisible());
        QCOMPARE(languages(), systemLanguages() + QStringList({u"pt-BR"_s, u"de"_s}));
        add(u"nonsense!"_s);
        QCOMPARE(problem(), LoadResString(20552).arg(u"nonsense!"_s));
        QCOMPARE(languages().size(), systemLanguages().size() + 2);
        name.clear();

        auto &list = child<QListWidget>("lstLanguages");
        list.setCurrentRow(list.count() - 1);
        QVERIFY(!isEnabled("btnDown"));
        while (isEnabled("btnUp"))
            click("btnUp");
        QCOMPARE(languages().first(), u"de"_s);
        QVERIFY(isEnabled("btnDown"));
        while (isEnabled("btnRemove"))
            click("btnRemove");
        QCOMPARE(problem(), LoadResString(20566));
        add(u"fr"_s);
        click("btnApply");
        QCOMPARE(m_host->present.languages, QStringList{u"fr"_s});
        click("chkSystem");
        click("btnOk");
        QCOMPARE(m_host->present.languages, QStringList());
    }

    void whatCouldNotBeStoredIsTold()
    {
        m_host->stores = false;
        click("optCookiesNone");
        click("btnOk");
        QCOMPARE(problem(), LoadResString(20571));
        QVERIFY(m_dialog->isVisible());
        click("btnOk");
        QTRY_VERIFY(!m_dialog);
        QCOMPARE(m_host->applied, 1);
    }

    /// Every field can be reached by a letter that no other one of its tab has, or by a label of its own, and has a
    /// name for those who do not see it.
    void fieldsHaveNamesAndLetters()
    {
        const auto letter = [](const QString &text) {
            const qsizetype at = text.indexOf(u'&');
            return at < 0 ? QString() : QString(text.at(at + 1).toUpper());
        };
        QStringList common;
        for (const char *name : {"btnOk", "btnApply"})
            common << letter(child<QAbstractButton>(name).text());
        common << letter(LoadResString(112));
        auto &tabs = child<QTabWidget>("tabPages");
        QCOMPARE(tabs.count(), 6);
        for (int i = 0; i < tabs.count(); ++i) {
            QStringList letters = common;
            for (const auto *button : tabs.widget(i)->findChildren<QAbstractButton *>())
                letters << letter(button->text());
            QSet<const QWidget *> named;
            for (const auto *label : tabs.widget(i)->findChildren<QLabel *>()) {
                if (!label->buddy())
                    continue;
                letters << letter(label->text());
                named << label->buddy();
            }
            QVERIFY2(!letters.contains(QString()), qPrintable(tabs.tabText(i)));
            QCOMPARE(QStringList(letters).removeDuplicates(), 0);
            for (const auto *field : tabs.widget(i)->findChildren<QWidget *>()) {
                const bool isField =
                    qobject_cast<const QComboBox *>(field) || qobject_cast<const QSpinBox *>(field) ||
                    qobject_cast<const QListWidget *>(field) ||
                    (qobject_cast<const QLineEdit *>(field) && field->objectName().startsWith(u"txt"_s));
                QVERIFY2(!isField || named.contains(field) || !field->accessibleName().isEmpty(),
                         qPrintable(field->objectName()));
            }
        }
    }
};

QTEST_MAIN(TestInternetOptions)
#include "tst_internetoptions.moc"
