#include "base/step.h"
#include "base/units.h"
#include "controls/BandContainer.h"
#include "controls/BandLayout.h"
#include "controls/StripImages.h"
#include "controls/ToolBar.h"

#include <QAbstractButton>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using controls::BandContainer;
using controls::BandNeed;
using controls::BandRows;
using controls::ToolBar;

namespace {

/// New (drop-down), Home, a separator, Mail and News, on the screen in its natural size, and a note of its clicks.
struct Bar : ToolBar
{
    Bar()
    {
        CreateToolbar(16, true, true);
        AddButton(u"New"_s, 0, u"New"_s, controls::kButtonAutoSize | controls::kButtonDropDown, u"New"_s);
        AddButton(u"Home"_s, 1, u"Home"_s, controls::kButtonAutoSize, u"Home"_s);
        AddButton({}, -1, {}, controls::kButtonSeparator, {});
        AddButton(u"Mail"_s, 2, u"R && D <b>"_s, controls::kButtonAutoSize, u"Mail"_s);
        AddButton(u"News"_s, 3, u"News"_s, controls::kButtonAutoSize, u"News"_s);
        resize(sizeHint());
        show();
        QVERIFY(QTest::qWaitForWindowActive(this));
    }
    QAbstractButton *button(const QString &name) const
    {
        for (QAbstractButton *each : findChildren<QAbstractButton *>())
            if (each->accessibleName() == name)
                return each;
        return nullptr;
    }

    QSignalSpy clicks{this, &ToolBar::ButtonClick};
    QSignalSpy drops{this, &ToolBar::DropDownPress};
};

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

/// Toolbars, and the bands that they and other things stand in.
class TestBars : public QObject
{
    Q_OBJECT

private slots:
    void clicksAndDropDowns()
    {
        Bar bar;
        QAbstractButton *fresh = bar.button(u"New"_s);
        QTest::mouseClick(fresh, Qt::LeftButton, {}, {5, 5});
        QTest::mouseClick(fresh, Qt::LeftButton, {}, {fresh->width() - 4, 5});
        QAbstractButton *home = bar.button(u"Home"_s);
        QTest::mouseClick(home, Qt::LeftButton, {}, {home->width() - 4, 5});
        // The separator takes no click.
        QTest::mouseClick(&bar, Qt::LeftButton, {}, {home->geometry().right() + 4, 5});
        QCOMPARE(bar.clicks, QList<QVariantList>({{0}, {1}}));
        QCOMPARE(bar.drops, QList<QVariantList>({{0}}));
        QVERIFY(!fresh->isDown());

        bar.setButtonEnabled(1, false);
        QTest::mouseClick(home, Qt::LeftButton);
        QCOMPARE(bar.clicks.size(), 2);
    }

    void rightClickAnywhere()
    {
        Bar bar;
        bar.resize(bar.ToolbarWidth() + 50, bar.ToolbarHeight());
        bar.setButtonEnabled(1, false);
        // Beside the buttons, on one and on one that is disabled.
        for (const int x : {bar.width() - 5, 5, bar.ButtonLeft(u"Home"_s) + 5})
            QTest::mouseClick(bar.windowHandle(), Qt::RightButton, {}, {x, 5});
        QTest::mouseClick(bar.windowHandle(), Qt::LeftButton, {}, {bar.width() - 5, 5});
        QCOMPARE(bar.clicks, QList<QVariantList>({{-1}, {-1}, {-1}}));
    }

    void chevronListsWhatDoesNotFit()
    {
        Bar bar;
        const auto rest = [] { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); };
        bar.ShowChevronMenu(0, 0);
        QVERIFY(!rest());

        // Up to and with the separator: it goes too, since nothing follows it any more.
        bar.resize(bar.ButtonLeft(u"Mail"_s) + 3, bar.height());
        bar.setButtonEnabled(4, false);
        bar.ShowChevronMenu(0, 0);
        QVERIFY(rest());
        QCOMPARE(rest()->actions().size(), 2);
        QCOMPARE(rest()->actions().at(0)->text(), u"R &&&& D <b>"_s);
        QVERIFY(!rest()->actions().at(1)->isEnabled());
        rest()->actions().at(0)->trigger();
        QCOMPARE(bar.clicks, QList<QVariantList>({{3}}));
        rest()->close();
        // A hidden button is no button that lacks room.
        bar.setButtonVisible(u"Mail"_s, false);
        bar.setButtonVisible(u"News"_s, false);
        bar.ShowChevronMenu(0, 0);
        QVERIFY(!rest());
    }

    void keyboard()
    {
        Bar bar;
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        // A click leaves the focus alone.
        QTest::mouseClick(bar.button(u"Home"_s), Qt::LeftButton);
        QVERIFY(!bar.button(u"Home"_s)->hasFocus());
        bar.button(u"New"_s)->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Down);
        press(Qt::Key_Right);
        press(Qt::Key_Return);
        press(Qt::Key_Right); // past the separator
        press(Qt::Key_Space);
        bar.setButtonEnabled(4, false);
        press(Qt::Key_Right); // past the disabled one, around the end
        QVERIFY(bar.button(u"New"_s)->hasFocus());
        press(Qt::Key_Left);
        QVERIFY(bar.button(u"R && D <b>"_s)->hasFocus());
        QCOMPARE(bar.drops, QList<QVariantList>({{0}}));
        QCOMPARE(bar.clicks, QList<QVariantList>({{1}, {1}, {3}}));
    }

    /// Strips are files of the user: without alpha the colour of the corner is the background, and damage shows
    /// nothing.
    void stripFiles()
    {
        QImage good(48, 16, QImage::Format_RGB32);
        good.fill(qRgb(255, 0, 255));
        good.setPixelColor(47, 0, Qt::black);
        QTemporaryDir folder;
        const QString path = folder.filePath(u"strip.bmp"_s);
        QVERIFY(good.save(path));
        controls::StripImages strip;
        strip.load(path);
        for (const int cell : {-1, 0, 2, 3})
            QCOMPARE(strip.icon(cell).isNull(), cell < 0 || cell > 2);
        QCOMPARE(strip.icon(0).pixmap(16).toImage().pixelColor(8, 8).alpha(), 0);
        QCOMPARE(strip.icon(2).pixmap(16).toImage().pixelColor(15, 0), QColor(Qt::black));

        QVERIFY(QFile::resize(path, 20)); // within the header
        strip.load(path);
        QVERIFY(strip.icon(0).isNull());
        QVERIFY(good.scaled(600, 600).save(path));
        strip.load(path);
        QVERIFY(strip.icon(0).isNull());
    }

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

QTEST_MAIN(TestBars)
#include "tst_bars.moc"
