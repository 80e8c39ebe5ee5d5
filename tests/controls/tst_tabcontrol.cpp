#include "controls/GlyphButton.h"
#include "controls/TabControl.h"

#include <QTest>
#include <QWheelEvent>

using namespace controls;
using namespace Qt::StringLiterals;

/// A strip that notes its events as short texts.
class Strip : public TabControl
{
public:
    Strip()
    {
        connect(this, &TabControl::tabClick, this, [this](Tab &tab, int button, int shift, double, double) {
            log << u"click %1 %2 %3"_s.arg(tab.Caption()).arg(button).arg(shift);
        });
        connect(this, &TabControl::tabDoubleClick, this,
                [this](Tab &tab) { log << u"double %1"_s.arg(tab.Caption()); });
        connect(this, &TabControl::tabClose, this,
                [this](Tab &tab, bool &) { log << u"close %1 of %2"_s.arg(tab.Caption()).arg(Tabs().Count()); });
        connect(this, &TabControl::barClick, this, [this](int button, int shift, double x, double y) {
            log << u"bar %1 %2%3"_s.arg(button).arg(shift).arg(x == -1.0 && y == -1.0 ? u" -1"_s : QString());
        });
        resize(600, 26);
    }
    void fill(int count)
    {
        for (int n = 1; n <= count; ++n)
            Tabs().Add(u"Page number %1"_s.arg(n), 0);
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
    }
    QPoint middleOf(int n) const { return tabRect(n - 1).center(); }
    QPoint empty() const { return {width() - 4, height() / 2}; }
    void doubleClick(const QPoint &point, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(this, Qt::LeftButton, keys, point);
        QTest::mouseDClick(this, Qt::LeftButton, keys, point);
    }
    GlyphButton *closeButton() const { return findChild<GlyphButton *>(); }

    QStringList log;
};

class TestTabControl : public QObject
{
    Q_OBJECT
private slots:
    void clickIsToldWithThePressAndSelectsNothing()
    {
        Strip strip;
        strip.fill(2);
        QTest::mousePress(&strip, Qt::MiddleButton, Qt::AltModifier | Qt::ShiftModifier, strip.middleOf(2));
        QCOMPARE(strip.log, QStringList{u"click Page number 2 4 5"_s});
        QTest::mouseRelease(&strip, Qt::MiddleButton, Qt::AltModifier | Qt::ShiftModifier, strip.middleOf(2));
        QTest::mouseClick(&strip, Qt::RightButton, Qt::ControlModifier, strip.empty());
        QTest::mouseClick(&strip, Qt::BackButton, {}, strip.middleOf(2));
        QCOMPARE(strip.log.mid(1), QStringList{u"bar 2 2"_s});
        QVERIFY(strip.Tabs(1).Selected());
    }

    /// Where a click closes its tab, the second click of a double click meets another one, or none.
    void secondClickOnWhatMovedInIsAFirstPress()
    {
        Strip strip;
        strip.fill(2);
        connect(&strip, &TabControl::tabClick, &strip,
                [&](Tab &tab, int, int, double, double) { strip.Tabs().Remove(tab.Index()); });
        const QPoint place = strip.middleOf(1);
        strip.doubleClick(place);
        QCOMPARE(strip.log, (QStringList{u"click Page number 1 1 0"_s, u"click Page number 2 1 0"_s}));
        QCOMPARE(strip.Tabs().Count(), 0);

        strip.log.clear();
        strip.Tabs().Add(u"Last"_s, 0);
        strip.doubleClick(strip.middleOf(1));
        QCOMPARE(strip.log, (QStringList{u"click Last 1 0"_s, u"bar 1 0"_s}));
    }

    void closeButtonTakesTheSelectedTabOutFirst()
    {
        Strip strip;
        strip.fill(3);
        strip.Tabs(2).setSelected(true);
        GlyphButton *close = strip.closeButton();
        QVERIFY(strip.tabRect(1).contains(close->geometry()) && !close->accessibleName().isEmpty());
        QTest::mouseClick(close, Qt::LeftButton);
        QCOMPARE(strip.log, QStringList{u"close Page number 2 of 2"_s});
        QCOMPARE(strip.Tabs(2).Caption(), u"Page number 3"_s);

        connect(&strip, &TabControl::tabClose, &strip, [](Tab &, bool &cancel) { cancel = true; });
        strip.Tabs(1).setSelected(true);
        QTest::mouseClick(close, Qt::LeftButton);
        QCOMPARE(strip.Tabs().Count(), 2);
        QCOMPARE(strip.SelectedTab()->Caption(), u"Page number 1"_s);
        QVERIFY(close->isVisible());
    }

    void manyTabsNarrowAndStayReachable()
    {
        Strip strip;
        strip.fill(120);
        const int natural = strip.tabRect(0).width();
        QVERIFY(strip.tabRect(0).right() < strip.width() && strip.tabRect(119).left() > strip.width());
        QVERIFY(natural >= 16 * 3);
        strip.Tabs(120).setSelected(true);
        QVERIFY(strip.rect().contains(strip.middleOf(120)) && strip.closeButton()->isVisible());
        QVERIFY(strip.tabRect(119).contains(strip.closeButton()->geometry()));

        // Back to the first one with the wheel, which selects nothing; titles that arrive meanwhile move nothing.
        for (int turn = 0; turn < 130 && strip.tabRect(0).left() < 0; ++turn) {
            QWheelEvent wheel(QPointF(50, 10), strip.mapToGlobal(QPointF(50, 10)), {}, {0, 120}, Qt::NoButton, {},
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&strip, &wheel);
        }
        QVERIFY(strip.rect().contains(strip.middleOf(1)) && strip.Tabs(120).Selected());
        strip.Tabs(60).setCaption(u"Another and much longer title of a page"_s);
        QVERIFY(strip.rect().contains(strip.middleOf(1)));
        QVERIFY(strip.closeButton()->isHidden()); // its tab is out of sight
    }

    /// Titles come from pages.
    void titlesAreNeitherMarkupNorShortcuts()
    {
        Strip strip;
        strip.fill(2);
        const int before = strip.tabRect(0).width();
        strip.Tabs(2).setCaption(u"&News & <b>more</b>"_s);
        strip.Tabs(2).setToolTipText(u"<img src=x>\n"_s + QString(2'000'000, u'm'));
        QTest::keyClick(&strip, Qt::Key_N, Qt::AltModifier);
        QVERIFY(strip.Tabs(1).Selected());
        QCOMPARE(strip.Tabs(2).Caption(), u"&News & <b>more</b>"_s);
        QCOMPARE(strip.Tabs(2).ToolTipText().size(), 2'000'000 + 12);
        QVERIFY(strip.accessibleTabName(1).size() < 1000);
        QCOMPARE(strip.tabRect(0).width(), before);
    }

    /// Keys and assistive tools ask the program like a click does.
    void otherWaysToATabAreClicks()
    {
        Strip strip;
        strip.fill(2);
        QTest::keyClick(&strip, Qt::Key_Right);
        QTest::keyClick(&strip, Qt::Key_Left); // there is none before the first
        QCOMPARE(strip.log, QStringList{u"click Page number 2 1 0"_s});
        QVERIFY(strip.Tabs(1).Selected());
        strip.setCurrentIndex(1);
        QCOMPARE(strip.log.size(), 2);
    }
};

QTEST_MAIN(TestTabControl)
#include "tst_tabcontrol.moc"
