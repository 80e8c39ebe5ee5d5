#include "base/Files.h"
#include "base/step.h"
#include "controls/GlyphButton.h"
#include "controls/ImageList.h"
#include "controls/ListView.h"
#include "controls/MenuBar.h"
#include "controls/PopupMenu.h"
#include "controls/StatusBar.h"
#include "controls/TabControl.h"

#include <QImage>
#include <QMainWindow>
#include <QPaintEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

using namespace controls;
using namespace Qt::StringLiterals;

namespace {

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

} // namespace

/// What holds entries: lists and their pictures, panels, menus, tabs.
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

    void itemsKeepTheirIndex()
    {
        QWidget owner;
        PopupMenu menu(&owner);
        const int parent = add(menu, u"Parent"_s, 0, u"parent"_s);
        const int first = add(menu, u"First"_s, parent, u"twice"_s, -8001);
        const int second = add(menu, u"Second"_s, parent, u"twice"_s, 7);
        QCOMPARE(menu.IndexForKey(u"twice"_s), first);
        QCOMPARE(menu.IndexForKey(u"none"_s), 0);
        QCOMPARE(menu.Children(parent), std::vector<int>({first, second}));

        menu.ClearSubItems(parent);
        QCOMPARE(menu.IndexForKey(u"twice"_s), 0);
        QVERIFY(menu.Children(parent).empty());
        // An index that is gone never comes back for something else.
        QVERIFY(add(menu, u"Third"_s, parent, u"third"_s) > second);
    }

    void clicksLeaveMarksAlone()
    {
        QWidget owner;
        PopupMenu menu(&owner);
        const int checked = menu.AddItem(u"On"_s, {}, 0, 0, -1, true, true, u"on"_s);
        const int plain = add(menu, u"Plain"_s, 0, u"plain"_s);
        QSignalSpy clicks(&menu, &PopupMenu::Click);
        menu.action(checked)->trigger();
        QVERIFY(menu.Checked(checked) && menu.action(checked)->isChecked());
        menu.setChecked(checked, false);
        menu.action(checked)->trigger();
        QVERIFY(!menu.action(checked)->isChecked());
        menu.action(plain)->trigger();
        QVERIFY(!menu.action(plain)->isCheckable());
        QCOMPARE(clicks, QList<QVariantList>({{checked}, {checked}, {plain}}));
    }

    void submenuIsRebuiltWhileItOpens()
    {
        QWidget owner;
        PopupMenu menu(&owner);
        const int windows = add(menu, u"&Window"_s, 0, u"mnuWindow"_s);
        const int skins = add(menu, u"Skins"_s, windows, u"mnuSkin"_s);
        add(menu, u"placeholder"_s, skins, u"mnuSkin1"_s);
        int built = 0;
        connect(&menu, &PopupMenu::InitPopupMenu, this, [&](int parent) {
            if (parent != windows)
                return;
            ++built;
            menu.ClearSubItems(parent);
            const int again = add(menu, u"Skins"_s, parent, u"mnuSkin"_s);
            add(menu, u"placeholder"_s, again, u"mnuSkin1"_s);
            for (int i = 1; i <= 3; ++i)
                add(menu, u"&%1) Document"_s.arg(i), parent, u"mnuWin(%1)"_s.arg(i), i);
        });
        QMenu &submenu = *menu.action(windows)->menu();
        for (int round = 1; round <= 2; ++round) {
            submenu.popup({10, 10});
            QVERIFY(QTest::qWaitForWindowExposed(&submenu));
            QCOMPARE(built, round);
            QCOMPARE(submenu.actions().size(), 4);
            QCOMPARE(submenu.actions().at(1)->text(), u"&1) Document"_s);
            submenu.close();
        }
        // The removed items and submenus really end.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(submenu.findChildren<QAction *>(Qt::FindDirectChildrenOnly).size(), 4 + 1); // one is the submenu's own
        QCOMPARE(submenu.findChildren<QMenu *>(Qt::FindDirectChildrenOnly).size(), 1);
    }

    void itemMayGoInItsOwnClick()
    {
        QWidget owner;
        PopupMenu menu(&owner);
        const int parent = add(menu, u"Parent"_s, 0, u"parent"_s);
        const int child = add(menu, u"Child"_s, parent, u"child"_s);
        connect(&menu, &PopupMenu::Click, this, [&] { menu.ClearSubItems(parent); });
        const QPointer<QAction> action = menu.action(child);
        action->trigger();
        QVERIFY(action);
        // A click that was under way when the item went says nothing any more.
        QSignalSpy clicks(&menu, &PopupMenu::Click);
        action->trigger();
        QVERIFY(clicks.isEmpty());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!action);
    }

    void menuBarShowsTheTopLevel()
    {
        QMainWindow window;
        window.resize(600, 100);
        controls::MenuBar bar(&window);
        PopupMenu menu(&window);
        const int file = add(menu, u"&File"_s, 0, u"mnuFile"_s);
        const int open = add(menu, u"&Open"_s, file, u"mnuFileOpen"_s);
        menu.attachTo(&bar);
        const int edit = add(menu, u"&Edit"_s, 0, u"mnuEdit"_s);
        const int help = add(menu, u"&Help"_s, 0, u"mnuHelp"_s);
        QCOMPARE(bar.actions(), QList<QAction *>({menu.action(file), menu.action(edit), menu.action(help)}));
        bar.resize(bar.sizeHint());
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        QSignalSpy opened(&menu, &PopupMenu::InitPopupMenu);
        QSignalSpy clicks(&menu, &PopupMenu::Click);
        QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
        QTRY_COMPARE(opened.size(), 1);
        QTest::keyClick(menu.action(file)->menu(), Qt::Key_O);
        QCOMPARE(clicks, QList<QVariantList>({{open}}));

        // What does not fit is behind the chevron; when all fits it has nothing to show.
        bar.ShowChevronMenu(0, 0);
        QVERIFY(!QApplication::activePopupWidget());
        bar.resize(bar.actionGeometry(menu.action(file)).right() + 40, bar.height());
        bar.ShowChevronMenu(0, 0);
        const auto *rest = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(rest && rest->actions().contains(menu.action(help)) && !rest->actions().contains(menu.action(file)));
        QApplication::activePopupWidget()->close();
    }

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

private:
    static int add(PopupMenu &menu, const QString &caption, int parent, const QString &key, int data = 0)
    {
        return menu.AddItem(caption, {}, data, parent, -1, false, true, key);
    }
};

QTEST_MAIN(TestLists)
#include "tst_lists.moc"
