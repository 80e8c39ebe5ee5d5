#include "support/DocumentFixture.h"
#include "support/Rows.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The Navigator's window: what is on it, its animations, its commands and its close.
class tst_Navigator : public QObject
{
    Q_OBJECT
private slots:
    void captionCounts()
    {
        DocumentFixture f;
        f.navigator.tmrLoading.setInterval(1);
        QStringList seen;
        connect(&f.navigator.tmrLoading, &QTimer::timeout, this, [&] {
            seen += f.navigator.Caption().mid(9);
            if (seen.size() == 7)
                f.navigator.endLoading();
        });
        f.navigator.tmrLoading.setEnabled(true);
        QTRY_COMPARE(seen, QStringList({u"."_s, u".."_s, u"..."_s, u"...."_s, u"....."_s, u""_s, u"."_s}));
        QCOMPARE(f.navigator.Caption(), u"Navigator"_s);
    }

    void heightMovesInSteps_data()
    {
        rows<double, QString, double>({
            {"grow", {600.0, u"0"_s, 5100.0}},
            {"shrink past the bound", {1305.0, u"1"_s, 405.0}},
            {"at the lower bound", {600.0, u"1"_s, 600.0}},
        });
    }

    void heightMovesInSteps()
    {
        const auto [from, direction, to] = row<double, QString, double>();
        DocumentFixture f;
        f.navigator.setHeight(from);
        f.navigator.Timer1.setInterval(1);
        f.navigator.Timer1.setTag(direction);
        f.navigator.Timer1.setEnabled(true);
        QTRY_VERIFY(!f.navigator.Timer1.Enabled());
        QCOMPARE(f.navigator.Height(), to);
    }

    void pointerAndFocusGiveTheDirection()
    {
        DocumentFixture f;
        f.navigator.Timer1.setInterval(1000000);
        f.navigator.show();
        f.navigator.MDIForm_MouseMove();
        QCOMPARE(f.navigator.Timer1.Tag(), u"1"_s);
        QVERIFY(f.navigator.Timer1.Enabled());
        QTest::mouseMove(f.navigator.ListView1.viewport(), QPoint(3, 3));
        QTRY_COMPARE(f.navigator.Timer1.Tag(), u"0"_s);
        f.navigator.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.navigator));
        f.window.activateWindow();
        QTRY_COMPARE(f.navigator.Timer1.Tag(), u"1"_s);
    }

    void clickedLineComesToTheFront()
    {
        DocumentFixture f;
        frmDocument &a = f.open(u"a"_s);
        f.open(u"b"_s);
        f.navigator.setHeight(5000);
        f.navigator.show();
        const QRect rect = f.navigator.ListView1.visualItemRect(f.navigator.ListView1.topLevelItem(0));
        QTest::mouseClick(f.navigator.ListView1.viewport(), Qt::LeftButton, {}, rect.center());
        QVERIFY(a.isActive());
        QTRY_VERIFY(f.navigator.isActiveWindow());
    }

    void toolbarActsOnTheSelectedLine()
    {
        DocumentFixture f;
        frmNavigator &navigator = f.navigator;
        f.open(u"a"_s);
        f.open(u"b"_s);
        ScriptedBrowser &a = DocumentFixture::browserOf(f.document(1));
        a.calls.clear();
        f.lastBrowser().calls.clear();
        for (const QString &text : {u"Refresh"_s, u"Stop"_s, u"Close"_s})
            button(navigator, text)->trigger();
        QCOMPARE(f.count(), 2);
        QVERIFY(f.lastBrowser().calls.isEmpty());

        navigator.ListView1.setCurrentItem(navigator.ListView1.topLevelItem(0));
        button(navigator, u"Refresh"_s)->trigger();
        button(navigator, u"Stop"_s)->trigger();
        QCOMPARE(a.calls, (QStringList{u"Refresh2 3"_s, u"Stop"_s}));
        button(navigator, u"Close"_s)->trigger();
        QCOMPARE(f.disorder(), QString());
        QCOMPARE(f.line(1).Text(), u"b"_s);
        navigator.show();
        navigator.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&navigator));
        button(navigator, u"New"_s)->trigger();
        QCOMPARE(f.main.opened.last(), u"http://home.example/"_s);
        // The new document takes the keyboard.
        QTRY_VERIFY(f.window.isActiveWindow());
    }

    void closeOnlyHides()
    {
        DocumentFixture f;
        frmDocument &document = f.open(u"a"_s);
        f.navigator.show();
        f.main.menuChecks.insert(u"mnuViewNavigator"_s, true);
        QVERIFY(!f.navigator.close());
        QVERIFY(!f.navigator.isVisible() && !f.main.menuChecks.value(u"mnuViewNavigator"_s));
        QCOMPARE(f.disorder(), QString());

        f.navigator.setTag(u"1"_s);
        QVERIFY(f.navigator.Unload());
        // The register still serves the documents that close after it.
        QCOMPARE(f.disorder(), QString());
        document.Unload();
        QCOMPARE(f.count(), 0);
    }

private:
    static QAction *button(frmNavigator &navigator, const QString &text)
    {
        for (QAction *action : navigator.Toolbar1.actions()) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }
};

QTEST_MAIN(tst_Navigator)
#include "tst_navigator.moc"
