#include "base/step.h"
#include "controls/MenuBar.h"
#include "controls/PopupMenu.h"

#include <QMainWindow>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using controls::PopupMenu;

class TestPopupMenu : public QObject
{
    Q_OBJECT
private slots:
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

private:
    static int add(PopupMenu &menu, const QString &caption, int parent, const QString &key, int data = 0)
    {
        return menu.AddItem(caption, {}, data, parent, -1, false, true, key);
    }
};

QTEST_MAIN(TestPopupMenu)
#include "tst_popupmenu.moc"
