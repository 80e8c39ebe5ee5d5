#include "base/step.h"
#include "base/units.h"
#include "controls/BandContainer.h"
#include "controls/BandLayout.h"

#include <QAbstractButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using controls::BandContainer;
using controls::BandNeed;
using controls::BandRows;

namespace {

/// A band's content that asks for a size.
class Content : public QWidget
{
public:
    explicit Content(QSize hint)
        : m_hint(hint)
    {}
    QSize sizeHint() const override { return m_hint; }
    void setHint(QSize hint)
    {
        m_hint = hint;
        updateGeometry();
    }

private:
    QSize m_hint;
};

BandNeed need(int width, int minWidth, int height, bool fixedSize = false)
{
    return {true, fixedSize, width, minWidth, height, {}};
}

} // namespace

class TestBands : public QObject
{
    Q_OBJECT
private slots:
    void widthsInARow()
    {
        BandRows rows;
        for (int i = 0; i < 3; ++i)
            rows.append(i, false);
        const std::initializer_list<std::pair<int, QList<int>>> cases{
            {500, {200, 264, 36}}, // room to spare goes to the last movable one
            {300, {200, 64, 36}},  // the right one shrinks first
            {200, {124, 40, 36}},  // then the left one
            {60, {50, 40, 36}}};   // never below the least width
        for (const auto &[width, expected] : cases) {
            std::vector<BandNeed> needs{need(200, 50, 20), need(150, 40, 30), need(36, 36, 16, true)};
            QCOMPARE(rows.layOut(needs, width), 30);
            int x = 0;
            for (int i = 0; i < 3; ++i) {
                QCOMPARE(needs[static_cast<size_t>(i)].rect, QRect(x, 0, expected[i], 30));
                x += expected[i];
            }
        }
    }

    void draggingMovesBands()
    {
        BandRows rows;
        for (const int band : {0, 1, 2, 3})
            rows.append(band, band < 2);
        std::vector<BandNeed> needs{need(100, 30, 20), need(100, 30, 20), need(100, 30, 20), need(36, 36, 16, true)};
        const auto layOut = [&] { rows.layOut(needs, 400); };
        const int second = 20 + BandRows::kLine + 5;
        layOut();

        // Within the row: the border to the left neighbour follows the mouse, down to the least widths.
        QVERIFY(rows.drag(2, {152, second}, 150));
        layOut();
        QCOMPARE(needs[1].rect.width(), 150);
        QVERIFY(rows.drag(2, {12, second}, 10));
        layOut();
        QCOMPARE(needs[1].rect.width(), 30);
        // Past the neighbour's grip they change places; a band of fixed size stays at the end.
        QVERIFY(rows.drag(2, {3, second}, 1));
        QCOMPARE(rows.rows()[1], std::vector<int>({2, 1, 3}));
        layOut();
        QVERIFY(rows.drag(2, {390, second}, 388));
        layOut();
        QCOMPARE(rows.rows()[1], std::vector<int>({1, 2, 3}));

        // Into another row, before the fixed one; the row that is left empty goes.
        layOut();
        QVERIFY(rows.drag(0, {399, second}, 397));
        QCOMPARE(rows.rows(), (std::vector<std::vector<int>>{{1, 2, 0, 3}}));
        layOut();
        QVERIFY(rows.moveToNewRow(1, false));
        layOut();
        QVERIFY(rows.moveToNewRow(0, true));
        QCOMPARE(rows.rows(), (std::vector<std::vector<int>>{{0}, {2, 3}, {1}}));
        layOut();
        QVERIFY(!rows.moveToNewRow(0, true));
        QVERIFY(!rows.moveToNewRow(1, false));
    }

    void containerLaysOutAndReports()
    {
        QWidget window;
        window.resize(400, 300);
        BandContainer bar(&window);
        bar.resize(400, 10);
        auto *menu = new Content({120, 20});
        auto *tools = new Content({200, 30});
        QSignalSpy heights(&bar, &BandContainer::HeightChanged);
        QList<int> resized;
        connect(&bar, &BandContainer::BandChildResize, this, [&](int index, const QRect &band, const QRect &child) {
            QVERIFY(band.contains(child));
            QCOMPARE(bar.BandKey(index), index == 0 ? u"Menu"_s : u"Tools"_s);
            resized << index;
        });
        bar.AddBand(menu, {}, true, false, u"Menu"_s);
        bar.AddBand(tools, {}, true, false, u"Tools"_s);
        bar.setBandMinHeight(0, 24);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        bar.RecalculateLayout();
        const int full = bar.BarHeight();
        QCOMPARE(bar.height(), full);
        QCOMPARE(menu->height(), 24);
        QCOMPARE(tools->height(), 30);
        QCOMPARE(heights.last().first().toInt(), full);
        QVERIFY(resized.contains(0) && resized.contains(1));

        bar.setBandVisible(1, false);
        QVERIFY(!tools->isVisible() && bar.BarHeight() < full - 30);
        bar.setBandVisible(1, true);
        QCOMPARE(bar.BarHeight(), full);

        // A child that wants another height gets it; a size that was said before is older news.
        bar.SetBandChildSize(1, 200, 50);
        bar.RecalculateLayout();
        QCOMPARE(tools->height(), 50);
        tools->setHint({200, 40});
        QTRY_COMPARE(tools->height(), 40);

        QVERIFY_THROWS_EXCEPTION(ControlError, bar.setBandVisible(2, true));
        QVERIFY_THROWS_EXCEPTION(ControlError, bar.BandKey(-1));
    }

    void chevronComesWithNarrowness()
    {
        QWidget window;
        BandContainer bar(&window);
        bar.resize(400, 10);
        auto *tools = new Content({200, 30});
        auto *field = new Content({300, 30});
        field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        bar.AddBand(tools, {}, true, false, u"Tools"_s);
        bar.AddBand(field, {}, true, false, u"Field"_s);
        window.resize(400, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const auto chevrons = [&] {
            QList<QAbstractButton *> shown = bar.findChildren<QAbstractButton *>();
            shown.removeIf([](const QAbstractButton *each) { return !each->isVisible(); });
            return shown;
        };
        QVERIFY(chevrons().isEmpty());
        bar.resize(150, bar.height());
        // Only the toolbar: the field adapts itself.
        QCOMPARE(chevrons().size(), 1);
        QAbstractButton *chevron = chevrons().first();
        QVERIFY(!chevron->accessibleName().isEmpty());
        QCOMPARE(tools->geometry().right() + 1, chevron->x());

        QRectF pressed;
        int band = -1;
        connect(&bar, &BandContainer::ChevronPushed, this, [&](int index, const QRectF &twips) {
            band = index;
            pressed = twips;
        });
        QTest::mouseClick(chevron, Qt::LeftButton);
        QCOMPARE(band, 0);
        QCOMPARE(pressed.topLeft(), QPointF(chevron->mapToGlobal(QPoint(0, 0))) * kTwipsPerPixel);
        QCOMPARE(pressed.size(), QSizeF(chevron->size()) * kTwipsPerPixel);
        bar.resize(400, bar.height());
        QVERIFY(chevrons().isEmpty());
    }
};

QTEST_MAIN(TestBands)
#include "tst_bands.moc"
