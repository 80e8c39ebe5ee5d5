#include "documents/AddressBarRules.h"
#include "documents/AddressCompletion.h"
#include "engine/VisitLog.h"
#include "support/DocumentFixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

struct Bar : DocumentFixture
{
    QPushButton Go;
    QCheckBox goNew;
    AddressBarRules rules{{main, flags, addressBar, Go, goNew, nullptr}};

    void enter(const QString &text)
    {
        addressBar.setText(text);
        int key = 13;
        rules.AddressBar_Key(key, 0);
    }

    void pick(const QString &text)
    {
        addressBar.setText(text);
        rules.AddressBar_Click();
    }

    QStringList list()
    {
        QStringList entries;
        for (int n = 0; n < addressBar.ListCount(); ++n)
            entries << addressBar.List(n);
        return entries;
    }

    QStringList navigations() { return lastBrowser().calls.filter(QStringLiteral("Navigate2")); }
};

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

class tst_AddressBar : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(DocumentFixture::anyWarning()); }

    void enterOpensOrNavigates()
    {
        Bar bar;
        bar.enter(QString());
        QCOMPARE(bar.main.opened, QStringList());
        bar.enter(QStringLiteral("http://a/")); // nothing is open
        QCOMPARE(bar.main.opened, words("http://a/"));
        bar.document(1).setCaption(QStringLiteral("A title"));
        bar.enter(QStringLiteral("no address"));
        QCOMPARE(bar.document(1).Caption(), QString());
        QCOMPARE(bar.navigations().last(), QStringLiteral("Navigate2 no address"));
        bar.goNew.setChecked(true);
        bar.enter(QStringLiteral("http://b/"));
        QCOMPARE(bar.main.opened, words("http://a/ http://b/"));
        int other = 65;
        bar.rules.AddressBar_Key(other, 0);
        QCOMPARE(bar.count(), 2);
        QCOMPARE(other, 65);
    }

    void ctrlEnterCompletes()
    {
        Bar bar;
        bar.open(QStringLiteral("http://a/"));
        bar.flags.CtrlDown = true;
        bar.enter(QStringLiteral("example"));
        QCOMPARE(bar.navigations().last(), QStringLiteral("Navigate2 http://www.example.com"));
        QCOMPARE(bar.list().first(), QStringLiteral("http://www.example.com"));
        bar.enter(QString()); // also an empty box
        QCOMPARE(bar.navigations().last(), QStringLiteral("Navigate2 http://www..com"));
    }

    void listRules()
    {
        Bar bar;
        bar.open(QStringLiteral("x"));
        for (const QString &address : words("a b c"))
            bar.enter(address);
        QCOMPARE(bar.list(), words("c b a x"));
        bar.enter(QStringLiteral("a")); // Enter compares the whole list
        QCOMPARE(bar.list(), words("c b a x"));
        bar.enter(QStringLiteral("A")); // with its letters' case
        QCOMPARE(bar.list(), words("A c b a x"));
        bar.pick(QStringLiteral("A")); // a pick compares the top entry only
        QCOMPARE(bar.list(), words("A c b a x"));
        bar.pick(QStringLiteral("b"));
        QCOMPARE(bar.list(), words("b A c b a x"));
        QCOMPARE(bar.addressBar.ItemIcon(0), 4);
        bar.goNew.setChecked(true);
        bar.pick(QStringLiteral("c")); // which looks at no check box
        QCOMPARE(bar.count(), 1);
        QCOMPARE(bar.navigations().last(), QStringLiteral("Navigate2 c"));
    }

    void go()
    {
        Bar bar;
        QVERIFY(!bar.Go.isEnabled());
        bar.addressBar.setText(QStringLiteral("http://a/"));
        QVERIFY(bar.Go.isEnabled());
        bar.Go.click();
        QCOMPARE(bar.main.opened, words("http://a/"));
        bar.goNew.setChecked(true);
        bar.Go.click();
        QCOMPARE(bar.count(), 2);
        bar.goNew.setChecked(false);
        bar.addressBar.setText(QStringLiteral("http://b/"));
        bar.Go.click();
        QCOMPARE(bar.navigations().last(), QStringLiteral("Navigate2 http://b/"));
        bar.addressBar.setText(QString());
        QVERIFY(!bar.Go.isEnabled());
    }

    void typingIsNoPick()
    {
        Bar bar;
        bar.open(QStringLiteral("http://a/"));
        bar.window.show();
        QVERIFY(QTest::qWaitForWindowActive(&bar.window));
        bar.addressBar.setParent(&bar.window);
        bar.addressBar.show();
        bar.addressBar.lineEdit()->setFocus();
        QTRY_VERIFY(bar.rules.g_Focus());
        bar.addressBar.lineEdit()->selectAll();
        const auto before = bar.navigations();
        QTest::keyClicks(bar.addressBar.lineEdit(), QStringLiteral("http://a/"));
        QVERIFY(bar.rules.bAddressEditing());
        bar.rules.AddressBar_Click();
        QCOMPARE(bar.navigations(), before);
        QTest::keyClick(bar.addressBar.lineEdit(), Qt::Key_Return);
        QCOMPARE(bar.navigations().size(), before.size() + 1);
    }

    void suggestions()
    {
        Bar bar;
        engine::VisitLog visits(bar.folder.filePath(QStringLiteral("visits.sqlite")));
        visits.addVisit(QStringLiteral("https://news.example.org/today"), QStringLiteral("Today"));
        AddressCompletion completion(bar.addressBar, &visits, this);
        for (const QString &address : words("http://shop.example.com/ https://www.example.net/ http://a.b/?q=exam"))
            bar.addressBar.InsertItem(0, address);
        QCOMPARE(
            completion.suggestions(QStringLiteral("exam")),
            words(
                "https://www.example.net/ http://a.b/?q=exam http://shop.example.com/ https://news.example.org/today"));
        QCOMPARE(completion.suggestions(QStringLiteral("  ")), QStringList());
    }
};

QTEST_MAIN(tst_AddressBar)
#include "tst_addressbar.moc"
