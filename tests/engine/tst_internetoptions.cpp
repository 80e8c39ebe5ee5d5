#include "base/Strings.h"
#include "engine/InternetOptions.h"
#include "support/Parts.h"
#include "support/Rows.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace engine;

namespace {

struct FakeHost : OptionsHost
{
    EngineSettings present;
    int applied = 0;
    bool stores = true;
    const EngineSettings &settings() const override { return present; }
    bool apply(const EngineSettings &settings) override
    {
        present = settings;
        ++applied;
        return stores;
    }
    void clear(Traces) override {}
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
        return part<T>(*m_dialog, name);
    }
    void click(const char *name) { clickPart(*m_dialog, name); }
    bool isEnabled(const char *name) { return child<QWidget>(name).isEnabled(); }
    QString problem() { return child<QLabel>("lblProblem").text(); }
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

        auto expected = *EngineSettings::fromText(
            "proxy=manual\nproxy-type=socks5\nproxy-host=proxy.example\nproxy-port=1080\nproxy-user=me\ncookies="
            "none\nforget-at-exit=1\ndo-not-track=1\ncache=limited\ncache-megabytes=40\nagent=old\n");
        expected.languages = systemLanguages();
        expected.downloadFolder = QDir::homePath() + u"/files"_s;
        click("btnApply");
        QCOMPARE(m_host->present, expected);
        QVERIFY(!isEnabled("btnApply") && m_dialog->isVisible());

        // A new dialog shows what was applied, and changes nothing by that.
        delete m_dialog;
        openDialog();
        QVERIFY(!isEnabled("btnApply"));
        click("btnOk");
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(m_host->applied, 1);
        QCOMPARE(m_host->present, expected);
    }

    void wrongInputIsToldAndNotApplied_data()
    {
        rows<QByteArray, QByteArray, QString, int>({
            {"no proxy server", {"optProxyManual", "txtProxyHost", {}, 20564}},
            {"address of one", {"optProxyManual", "txtProxyHost", u"http://proxy"_s, 20565}},
            {"no folder", {"optAgentOld", "txtFolder", {}, 20567}},
            {"relative folder", {"optAgentOld", "txtFolder", u"files"_s, 20567}},
            {"no name", {"optAgentCustom", "txtAgent", {}, 20569}},
            {"name outside ASCII", {"optAgentCustom", "txtAgent", u"\u00e9"_s, 20570}},
        });
    }

    void wrongInputIsToldAndNotApplied()
    {
        const auto [choice, field, text, message] = row<QByteArray, QByteArray, QString, int>();
        click(choice);
        auto &line = child<QLineEdit>(field);
        line.selectAll();
        line.insert(text);
        QVERIFY(problem().endsWith(LoadResString(message)) && !isEnabled("btnOk") && !isEnabled("btnApply"));
        line.selectAll();
        line.insert(field == "txtProxyHost" ? u"host"_s : u"/host"_s);
        QVERIFY(problem().isEmpty());
        click("btnOk");
        QCOMPARE(m_host->applied, 1);
    }

    void listOfLanguages()
    {
        child<QTabWidget>("tabPages").setCurrentWidget(&child<QWidget>("Languages"));
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
        name.clear();
        auto &list = child<QListWidget>("lstLanguages");
        list.setCurrentRow(list.count() - 1);
        while (isEnabled("btnUp"))
            click("btnUp");
        QCOMPARE(languages().first(), u"de"_s);
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
};

QTEST_MAIN(TestInternetOptions)
#include "tst_internetoptions.moc"
