#include "controls/StatusBar.h"

#include <QPaintEvent>
#include <QTest>

using namespace controls;
using namespace Qt::StringLiterals;

/// The program's seven panels, and a note of what is painted.
class Bar : public StatusBar
{
public:
    Bar()
    {
        AddPanel(0, {}, -1, 145, true, u"Item1"_s);
        AddPanel(0, {}, -1, 145, false, u"Item2"_s);
        for (const QString &key : {u"Item3"_s, u"Item4"_s, u"Item5"_s})
            AddPanel(kNoBorders | kToolTips, {}, -1, 16, false, key);
        AddPanel(kOwnerDraw, {}, -1, 172, false, u"Item6"_s);
        AddPanel(kNoBorders, {}, -1, 16, false, u"Item7"_s);
        resize(900, sizeHint().height());
        show();
    }
    QRegion painted;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        painted += event->region();
        StatusBar::paintEvent(event);
    }
};

class TestStatusBar : public QObject
{
    Q_OBJECT
private slots:
    void onlyWhatChangedIsPainted()
    {
        Bar bar;
        QVERIFY(QTest::qWaitForWindowExposed(&bar));
        QTRY_VERIFY(!bar.painted.isEmpty());
        const auto paintedBy = [&](auto change) {
            QCoreApplication::processEvents();
            bar.painted = {};
            change();
            QCoreApplication::processEvents();
            return bar.painted;
        };
        QCOMPARE(paintedBy([&] { bar.setPanelText(1, u"text"_s); }), QRegion(bar.PanelRect(1)));
        QCOMPARE(paintedBy([&] { bar.setPanelText(1, u"text"_s); }), QRegion());
        QCOMPARE(paintedBy([&] { bar.setPanelIcon(u"Item4"_s, 3); }), QRegion(bar.PanelRect(4)));
        QCOMPARE(paintedBy([&] { bar.setPanelIcon(u"Item4"_s, 3); }), QRegion());
        QCOMPARE(paintedBy([&] { bar.RedrawPanel(u"Item6"_s); }), QRegion(bar.PanelRect(6)));
        QCOMPARE(paintedBy([&] { bar.setPanelText(1, QString(1'000'000, u'w')); }), QRegion(bar.PanelRect(1)));

        // The first panel takes what the others leave, and a long text widens its own.
        const int spring = bar.PanelRect(1).width();
        bar.resize(1000, bar.height());
        QCOMPARE(bar.PanelRect(1).width(), spring + 100);
        bar.setPanelText(u"Item2"_s, QString(60, u'8'));
        QVERIFY(bar.PanelRect(2).width() > bar.fontMetrics().horizontalAdvance(QString(60, u'8')));
    }
};

QTEST_MAIN(TestStatusBar)
#include "tst_statusbar.moc"
