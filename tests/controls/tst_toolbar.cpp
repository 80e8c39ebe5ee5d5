#include "controls/StripImages.h"
#include "controls/ToolBar.h"

#include <QAbstractButton>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
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
        for (QAbstractButton *each : findChildren<QAbstractButton *>()) {
            if (each->accessibleName() == name)
                return each;
        }
        return nullptr;
    }

    QSignalSpy clicks{this, &ToolBar::ButtonClick};
    QSignalSpy drops{this, &ToolBar::DropDownPress};
};

} // namespace

class TestToolBar : public QObject
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
};

QTEST_MAIN(TestToolBar)
#include "tst_toolbar.moc"
