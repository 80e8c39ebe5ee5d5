#include "support/DocumentFixture.h"

#include "system/frmQSearch.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

class tst_QSearch : public QObject
{
    Q_OBJECT

private slots:
    void queries()
    {
        const QString web = u"https://www.google.com/search?hl=en&lr=&ie=UTF-8&oe=UTF-8&q="_s;
        const std::initializer_list<std::tuple<QString, int, QString>> cases{
            {u" two  words "_s, 0, web + u"two++words"_s}, // words
            {u"a&b#c"_s, 0, web + u"a&b#c"_s},             // nothing is encoded
            {u"x"_s, 1,
             u"https://groups.google.com/groups?hl=en&lr=&ie=UTF-8&oe=UTF-8&tab=nf&q="
             "x&sa=N&tab=fg"_s},  // groups
            {QString(), 0, web}}; // empty
        for (const auto &[typed, type, address] : cases) {
            DocumentFixture f;
            f.flags.ShortcutsEnabled = true;
            frmQSearch form(&f.window, f.main, f.store, f.flags);
            form.ask();
            QVERIFY(QTest::qWaitForWindowActive(&form));
            QVERIFY(form.isModal() && !f.flags.ShortcutsEnabled);
            QTest::keyClicks(QApplication::focusWidget(), typed);
            QCOMPARE(form.Command1->isEnabled(), !typed.isEmpty());
            form.vbalCboEx2->setCurrentIndex(type);
            // Enter does not look at the button.
            if (type == 0)
                QTest::keyClick(form.vbalCboEx1->lineEdit(), Qt::Key_Return);
            else
                QTest::mouseClick(form.Command1, Qt::LeftButton);
            QCOMPARE(f.main.opened, QStringList{address});
            QVERIFY(form.isHidden() && f.flags.ShortcutsEnabled);
            QCOMPARE(form.vbalCboEx1->List(0), typed);
        }
    }

    void comesBackAsItWas()
    {
        DocumentFixture f;
        {
            frmQSearch form(&f.window, f.main, f.store, f.flags);
            for (const QString &query : {u"one"_s, u"two"_s, u"two"_s}) {
                form.vbalCboEx1->setText(query);
                form.Command1->click();
            }
            form.vbalCboEx2->setCurrentIndex(1);
            form.move(40, 60);
            form.Unload();
        }
        frmQSearch form(&f.window, f.main, f.store, f.flags);
        QCOMPARE(form.pos(), QPoint(40, 60));
        QCOMPARE(form.vbalCboEx2->currentIndex(), 1);
        QCOMPARE(form.vbalCboEx1->ListCount(), 3);
        QCOMPARE(form.vbalCboEx1->List(2), u"one"_s);
    }

    void damagedSettingsAreIgnored()
    {
        DocumentFixture f;
        for (const char16_t *key : {u"QSearchLeft", u"QSearchTop", u"QSearchTypesListIndex", u"QSearchSearchListCount"})
            f.store.SaveSetting(appTitle(), u"Settings"_s, QString::fromUtf16(key), u"many"_s);
        const frmQSearch form(&f.window, f.main, f.store, f.flags);
        QCOMPARE(form.pos(), QPoint(385, 491));
        QCOMPARE(form.vbalCboEx2->currentIndex() + form.vbalCboEx1->ListCount(), 0);
    }
};

QTEST_MAIN(tst_QSearch)
#include "tst_qsearch.moc"
