#include "documents/AddressBarRules.h"
#include "documents/AddressCompletion.h"
#include "engine/VisitLog.h"
#include "support/DocumentFixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

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

    QStringList navigations() { return lastBrowser().calls.filter(u"Navigate2"_s); }
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
    void enterOpensOrNavigates()
    {
        Bar bar;
        bar.enter(QString());
        QCOMPARE(bar.main.opened, QStringList());
        bar.enter(u"http://a/"_s); // nothing is open
        QCOMPARE(bar.main.opened, words("http://a/"));
        bar.document(1).setCaption(u"A title"_s);
        bar.enter(u"no address"_s);
        QCOMPARE(bar.document(1).Caption(), QString());
        QCOMPARE(bar.navigations().last(), u"Navigate2 no address"_s);
        bar.goNew.setChecked(true);
        bar.enter(u"http://b/"_s);
        QCOMPARE(bar.main.opened, words("http://a/ http://b/"));
    }

    void ctrlEnterCompletes()
    {
        Bar bar;
        bar.open(u"http://a/"_s);
        bar.flags.CtrlDown = true;
        bar.enter(u"example"_s);
        QCOMPARE(bar.navigations().last(), u"Navigate2 http://www.example.com"_s);
        QCOMPARE(bar.list().first(), u"http://www.example.com"_s);
        bar.enter(QString()); // also an empty box
        QCOMPARE(bar.navigations().last(), u"Navigate2 http://www..com"_s);
    }

    void listRules()
    {
        Bar bar;
        bar.open(u"x"_s);
        for (const QString &address : words("a b c"))
            bar.enter(address);
        QCOMPARE(bar.list(), words("c b a x"));
        bar.enter(u"a"_s); // Enter compares the whole list
        QCOMPARE(bar.list(), words("c b a x"));
        bar.enter(u"A"_s); // with its letters' case
        QCOMPARE(bar.list(), words("A c b a x"));
        bar.pick(u"A"_s); // a pick compares the top entry only
        QCOMPARE(bar.list(), words("A c b a x"));
        bar.pick(u"b"_s);
        QCOMPARE(bar.list(), words("b A c b a x"));
        QCOMPARE(bar.addressBar.ItemIcon(0), 4);
        bar.goNew.setChecked(true);
        bar.pick(u"c"_s); // which looks at no check box
        QCOMPARE(bar.count(), 1);
        QCOMPARE(bar.navigations().last(), u"Navigate2 c"_s);
        // A new document shows the address that was made of what was typed; the list has it once.
        connect(&bar.mdi, &controls::MdiFrame::formActivated, this, [&] { bar.addressBar.setText(u"http://d/"_s); });
        bar.enter(u"d"_s);
        QCOMPARE(bar.list(), words("d c b A c b a x"));
    }

    void go()
    {
        Bar bar;
        QVERIFY(!bar.Go.isEnabled());
        bar.addressBar.setText(u"http://a/"_s);
        bar.Go.click();
        QCOMPARE(bar.main.opened, words("http://a/"));
        bar.goNew.setChecked(true);
        bar.Go.click();
        QCOMPARE(bar.count(), 2);
        bar.addressBar.setText(QString());
        QVERIFY(!bar.Go.isEnabled());
    }

    void typingIsNoPick()
    {
        Bar bar;
        bar.open(u"http://a/"_s);
        QVERIFY(QTest::qWaitForWindowActive(&bar.window));
        bar.addressBar.lineEdit()->setFocus();
        QTRY_VERIFY(bar.rules.g_Focus());
        bar.addressBar.lineEdit()->selectAll();
        const auto before = bar.navigations();
        QTest::keyClicks(bar.addressBar.lineEdit(), u"http://a/"_s);
        QVERIFY(bar.rules.bAddressEditing());
        bar.rules.AddressBar_Click();
        QCOMPARE(bar.navigations(), before);
        QSignalSpy sent(&bar.rules, &AddressBarRules::addressSent);
        QTest::keyClick(bar.addressBar.lineEdit(), Qt::Key_Return);
        QCOMPARE(bar.navigations().size(), before.size() + 1);
        QCOMPARE(sent.count(), 1);
    }

    /// The suggestion that Enter picks goes out in place of what was typed, and like any pick it looks at no check box.
    void suggestionPickedByKey()
    {
        Bar bar;
        bar.open(u"http://a/"_s);
        bar.addressBar.InsertItem(0, u"http://shop/"_s);
        bar.goNew.setChecked(true);
        QVERIFY(QTest::qWaitForWindowActive(&bar.window));
        bar.addressBar.setFocus();
        bar.addressBar.lineEdit()->selectAll();
        QTest::keyClicks(bar.addressBar.lineEdit(), u"sho"_s);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
        QCOMPARE(bar.navigations(), (QStringList{u"Navigate2 http://a/"_s, u"Navigate2 http://shop/"_s}));
        QCOMPARE(bar.list(), words("http://shop/ http://a/"));
        QVERIFY(!QApplication::activePopupWidget());
    }

    void suggestions()
    {
        Bar bar;
        engine::VisitLog visits(bar.folder.filePath(u"visits.sqlite"_s));
        visits.addVisit(u"https://news.example.org/today"_s, u"Today"_s);
        AddressCompletion completion(bar.addressBar, &visits, this);
        for (const QString &address : words("http://shop.example.com/ https://www.example.net/ http://a.b/?q=exam"))
            bar.addressBar.InsertItem(0, address);
        QCOMPARE(
            completion.suggestions(u"exam"_s),
            words(
                "https://www.example.net/ http://a.b/?q=exam http://shop.example.com/ https://news.example.org/today"));
        QCOMPARE(completion.suggestions(u"  "_s), QStringList());
    }
};

QTEST_MAIN(tst_AddressBar)
#include "tst_addressbar.moc"
