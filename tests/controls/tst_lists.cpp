#include "base/Files.h"
#include "base/step.h"
#include "controls/ImageList.h"
#include "controls/ListView.h"
#include "controls/StatusBar.h"

#include <QImage>
#include <QPaintEvent>
#include <QTemporaryDir>
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

class TestLists : public QObject
{
    Q_OBJECT
private slots:
    void linesAndSubItems()
    {
        ListView view;
        view.setColumnCount(2);
        for (const QString &text : {u"one"_s, u"two"_s, u"three"_s})
            view.ListItems().Add(text).AddListSubItem();
        ListItem &third = view.ListItems(3);
        third.ListSubItems(1).setText(u"50%"_s);
        view.ListItems().Remove(1);
        QCOMPARE(third.Index(), 2);
        QCOMPARE(&view.ListItems(2), &third);
        QCOMPARE(third.ListSubItems(1).Text(), u"50%"_s);

        QVERIFY_THROWS_EXCEPTION(ControlError, view.ListItems(0));
        QVERIFY_THROWS_EXCEPTION(ControlError, view.ListItems(3));
        QVERIFY_THROWS_EXCEPTION(ControlError, view.ListItems().Remove(3));
        QVERIFY_THROWS_EXCEPTION(ControlError, third.ListSubItems(2));
        QVERIFY_THROWS_EXCEPTION(ControlError, view.ListItems().Add().ListSubItems(1));
    }

    /// A line of two device pixels' width must stay one at each ratio, not be a stretched small picture.
    void picturesAreSharpAndKeepTheirNumbers()
    {
        QTemporaryDir folder;
        const QString file = folder.filePath(u"line.svg"_s);
        QVERIFY(writeFileWhole(file, "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 16 16'>"
                                     "<rect x='8' width='8' height='16' fill='#000'/></svg>"));

        ImageList images(16);
        QCOMPARE(images.add(folder.filePath(u"absent.svg"_s)), 0);
        QCOMPARE(images.add(file), 1);
        QVERIFY(images.icon(0).isNull() && images.icon(-1).isNull() && images.icon(2).isNull());
        QVERIFY(images.pixmap(0, 1).isNull());
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QImage image = images.pixmap(1, ratio).toImage();
            QCOMPARE(image.size(), QSize(16, 16) * ratio);
            const int edge = image.width() / 2;
            QCOMPARE(qAlpha(image.pixel(edge - 1, 5)), 0);
            QCOMPARE(qAlpha(image.pixel(edge, 5)), 255);
        }
    }

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

QTEST_MAIN(TestLists)
#include "tst_lists.moc"
