#include "base/step.h"
#include "controls/StripImages.h"
#include "controls/ToolBar.h"

#include <QAbstractButton>
#include <QMenu>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using controls::ToolBar;

namespace {

constexpr int kDropDown = controls::kButtonAutoSize | controls::kButtonDropDown;

/// New (drop-down), Home, a separator, Mail, News.
void fill(ToolBar &bar)
{
    bar.CreateToolbar(16, true, true);
    bar.AddButton(u"New"_s, 0, u"New"_s, kDropDown, u"New"_s);
    bar.AddButton(u"Home"_s, 1, u"Home"_s, controls::kButtonAutoSize, u"Home"_s);
    bar.AddButton({}, -1, {}, controls::kButtonSeparator, {});
    bar.AddButton(u"Mail"_s, 2, u"R && D <b>"_s, controls::kButtonAutoSize, u"Mail"_s);
    bar.AddButton(u"News"_s, 3, u"News"_s, controls::kButtonAutoSize, u"News"_s);
}

QAbstractButton *buttonNamed(const ToolBar &bar, const QString &name)
{
    for (QAbstractButton *each : bar.findChildren<QAbstractButton *>()) {
        if (each->accessibleName() == name)
            return each;
    }

    return nullptr;
}

} // namespace

class TestToolBar : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        // All but what the offscreen platform says about itself.
        QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support)"_s));
    }

    void clicksAndDropDowns()
    {
        ToolBar bar;
        fill(bar);
        bar.resize(bar.sizeHint());
        bar.show();
        QVERIFY(QTest::qWaitForWindowExposed(&bar));
        QSignalSpy clicks(&bar, &ToolBar::ButtonClick);
        QSignalSpy drops(&bar, &ToolBar::DropDownPress);
        QAbstractButton *fresh = buttonNamed(bar, u"New"_s);
        QTest::mouseClick(fresh, Qt::LeftButton, {}, {5, 5});
        QTest::mouseClick(fresh, Qt::LeftButton, {}, {fresh->width() - 4, 5});
        QAbstractButton *home = buttonNamed(bar, u"Home"_s);
        QTest::mouseClick(home, Qt::LeftButton, {}, {home->width() - 4, 5});
        // The separator takes no click.
        QTest::mouseClick(&bar, Qt::LeftButton, {}, {home->geometry().right() + 4, 5});
        QCOMPARE(clicks, QList<QVariantList>({{0}, {1}}));
        QCOMPARE(drops, QList<QVariantList>({{0}}));
        QVERIFY(!fresh->isDown());

        bar.setButtonEnabled(1, false);
        QTest::mouseClick(home, Qt::LeftButton);
        QCOMPARE(clicks.size(), 2);
        QCOMPARE(bar.ButtonLeft(u"New"_s), 0);
        QCOMPARE(bar.ButtonLeft(u"Home"_s), fresh->width());
        QCOMPARE(bar.ButtonBottom(u"Home"_s), bar.height());
    }

    void rightClickAnywhere()
    {
        ToolBar bar;
        fill(bar);
        bar.resize(bar.ToolbarWidth() + 50, bar.ToolbarHeight());
        bar.show();
        QVERIFY(QTest::qWaitForWindowExposed(&bar));
        bar.setButtonEnabled(1, false);
        QSignalSpy clicks(&bar, &ToolBar::ButtonClick);
        QTest::mouseClick(bar.windowHandle(), Qt::RightButton, {}, {bar.width() - 5, 5});
        QTest::mouseClick(bar.windowHandle(), Qt::RightButton, {}, {5, 5});
        QCOMPARE(clicks.size(), 2);
        QTest::mouseClick(bar.windowHandle(), Qt::RightButton, {}, {bar.ButtonLeft(u"Home"_s) + 5, 5});
        QCOMPARE(clicks, QList<QVariantList>({{-1}, {-1}, {-1}}));
        QTest::mouseClick(bar.windowHandle(), Qt::LeftButton, {}, {bar.width() - 5, 5});
        QCOMPARE(clicks.size(), 3);
    }

    void chevronListsWhatDoesNotFit()
    {
        ToolBar bar;
        fill(bar);
        bar.show();
        const auto rest = [] { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); };
        bar.resize(bar.sizeHint());
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
        QSignalSpy clicks(&bar, &ToolBar::ButtonClick);
        rest()->actions().at(0)->trigger();
        QCOMPARE(clicks, QList<QVariantList>({{3}}));
        rest()->close();
        // A hidden button is no button that lacks room.
        bar.setButtonVisible(u"Mail"_s, false);
        bar.setButtonVisible(u"News"_s, false);
        bar.ShowChevronMenu(0, 0);
        QVERIFY(!rest());
    }

    void keyboard()
    {
        ToolBar bar;
        fill(bar);
        bar.resize(bar.sizeHint());
        bar.show();
        QVERIFY(QTest::qWaitForWindowActive(&bar));
        QSignalSpy clicks(&bar, &ToolBar::ButtonClick);
        QSignalSpy drops(&bar, &ToolBar::DropDownPress);
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        // A click leaves the focus alone, Tab stops once.
        QTest::mouseClick(buttonNamed(bar, u"Home"_s), Qt::LeftButton);
        QVERIFY(!buttonNamed(bar, u"Home"_s)->hasFocus());
        buttonNamed(bar, u"New"_s)->setFocus(Qt::TabFocusReason);
        press(Qt::Key_Down);
        press(Qt::Key_Right);
        press(Qt::Key_Return);
        press(Qt::Key_Right); // past the separator
        press(Qt::Key_Space);
        bar.setButtonEnabled(4, false);
        press(Qt::Key_Right); // past the disabled one, around the end
        QVERIFY(buttonNamed(bar, u"New"_s)->hasFocus());
        press(Qt::Key_Left);
        QVERIFY(buttonNamed(bar, u"R && D <b>"_s)->hasFocus());
        QCOMPARE(drops, QList<QVariantList>({{0}}));
        QCOMPARE(clicks, QList<QVariantList>({{1}, {1}, {3}}));
        int stops = 0;
        for (const QAbstractButton *each : bar.findChildren<QAbstractButton *>())
            stops += each->focusPolicy() & Qt::TabFocus ? 1 : 0;
        QCOMPARE(stops, 1);
    }

    void buttonMayGoInItsOwnClick()
    {
        ToolBar bar;
        fill(bar);
        connect(&bar, &ToolBar::ButtonClick, this, [&](int index) { bar.RemoveButton(bar.ButtonKey(index)); });
        connect(&bar, &ToolBar::DropDownPress, this, [&](int index) { bar.RemoveButton(bar.ButtonKey(index)); });
        QTest::mouseClick(buttonNamed(bar, u"Home"_s), Qt::LeftButton);
        QAbstractButton *fresh = buttonNamed(bar, u"New"_s);
        QTest::mouseClick(fresh, Qt::LeftButton, {}, {fresh->width() - 3, 5});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(bar.ButtonCount(), 3);
    }

    void stripFiles_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("cells");
        const auto bitmap = [](QSize size, QImage::Format format, const char *type) {
            QImage image(size, format);
            image.fill(qRgb(255, 0, 255));
            image.setPixelColor(size.width() - 1, 0, Qt::black);
            QByteArray bytes;
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::WriteOnly);
            image.save(&buffer, type);
            return bytes;
        };
        QTest::newRow("three cells") << bitmap({48, 16}, QImage::Format_RGB32, "BMP") << 3;
        QTest::newRow("another format") << bitmap({32, 16}, QImage::Format_RGB32, "PNG") << 2;
        QTest::newRow("absurdly high") << bitmap({600, 600}, QImage::Format_RGB32, "BMP") << 0;
        QTest::newRow("cut off header") << bitmap({48, 16}, QImage::Format_RGB32, "BMP").left(20) << 0;
        QTest::newRow("empty") << QByteArray() << 0;
    }

    void stripFiles()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, cells);
        QTemporaryDir folder;
        QFile file(folder.filePath(u"strip.bmp"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        controls::StripImages strip;
        strip.load(file.fileName());
        for (int i = -1; i < cells + 2; ++i)
            QCOMPARE(strip.icon(i).isNull(), i < 0 || i >= cells);
        if (cells == 0)
            return;
        // Without alpha the corner's colour is the background.
        const QImage first = strip.icon(0).pixmap(16).toImage();
        QCOMPARE(first.pixelColor(8, 8).alpha(), 0);
        if (cells > 1) {
            const QImage last = strip.icon(cells - 1).pixmap(16).toImage();
            QCOMPARE(last.pixelColor(15, 0), QColor(Qt::black));
        }
        strip.load(folder.filePath(u"none.bmp"_s));
        QVERIFY(strip.icon(0).isNull());
    }
};

QTEST_MAIN(TestToolBar)
#include "tst_toolbar.moc"
