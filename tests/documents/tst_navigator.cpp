#include "support/DocumentFixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// The Navigator's window: what is on it, its animations, its commands and its close.
class tst_Navigator : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(DocumentFixture::anyWarning()); }

    void captionCounts()
    {
        DocumentFixture f;
        f.navigator.tmrLoading.setInterval(1);
        QStringList seen;
        connect(&f.navigator.tmrLoading, &QTimer::timeout, this, [&] {
            seen += f.navigator.Caption();
            if (seen.size() == 7)
                f.navigator.endLoading();
        });
        f.navigator.tmrLoading.setEnabled(true);
        QTRY_COMPARE(seen.size(), 7);
        const QString name = u"Navigator"_s;
        QCOMPARE(seen, (QStringList{name + u"."_s, name + u".."_s, name + u"..."_s, name + u"...."_s, name + u"....."_s,
                                    name, name + u"."_s}));
        QCOMPARE(f.navigator.Caption(), name);
        QCOMPARE(f.navigator.nDots, 1);
    }

    void heightMovesInSteps_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<QString>("direction");
        QTest::addColumn<double>("to");
        QTest::newRow("grow") << 600.0 << u"0"_s << 5100.0;
        QTest::newRow("shrink past the bound") << 1305.0 << u"1"_s << 405.0;
        QTest::newRow("at the lower bound") << 600.0 << u"1"_s << 600.0;
        QTest::newRow("at the upper bound") << 5010.0 << u"0"_s << 5010.0;
    }

    void heightMovesInSteps()
    {
        QFETCH(const double, from);
        QFETCH(const QString, direction);
        DocumentFixture f;
        const double width = f.navigator.Width();
        f.navigator.setHeight(from);
        f.navigator.Timer1.setInterval(1);
        f.navigator.Timer1.setTag(direction);
        f.navigator.Timer1.setEnabled(true);
        QTRY_VERIFY(!f.navigator.Timer1.Enabled());
        QTEST(f.navigator.Height(), "to");
        QCOMPARE(f.navigator.Width(), width);
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
        f.navigator.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.navigator));
        const QRect rect = f.navigator.ListView1.visualItemRect(f.navigator.ListView1.topLevelItem(0));
        QTest::mouseClick(f.navigator.ListView1.viewport(), Qt::LeftButton, {}, rect.center());
        QVERIFY(a.isActive());
        QVERIFY(f.line(1).Bold() && !f.line(2).Bold());
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
        button(navigator, u"New"_s)->trigger();
        QCOMPARE(f.main.opened.last(), u"http://home.example/"_s);

        QSignalSpy newMenu(&navigator, &frmNavigator::newMenuRequested);
        for (auto *tool : navigator.Toolbar1.findChildren<QToolButton *>()) {
            if (tool->arrowType() == Qt::DownArrow)
                tool->click();
        }
        QCOMPARE(newMenu.size(), 1);
    }

    void closeOnlyHides()
    {
        DocumentFixture f;
        frmDocument &document = f.open(u"a"_s);
        f.navigator.show();
        f.main.menuChecks.insert(u"mnuViewNavigator"_s, true);
        QVERIFY(!f.navigator.close());
        QVERIFY(!f.navigator.isVisible());
        QVERIFY(!f.main.menuChecks.value(u"mnuViewNavigator"_s));
        QCOMPARE(f.disorder(), QString());

        f.navigator.tmrLoading.setEnabled(true);
        f.navigator.setTag(u"1"_s);
        QVERIFY(f.navigator.Unload());
        QVERIFY(!f.navigator.tmrLoading.Enabled());
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
