#include "appearance/Bands.h"
#include "appearance/ShippedFiles.h"
#include "appearance/Toolbars.h"
#include "base/Files.h"
#include "controls/BandContainer.h"
#include "controls/MenuBar.h"
#include "controls/PopupMenu.h"
#include "controls/ToolBar.h"
#include "core/state/Settings.h"
#include "core/state/SettingsStore.h"

#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// The top of the main window, as far as the bands are concerned.
struct Top
{
    QTemporaryDir folder;
    SettingsStore store{folder.filePath(u"settings.ini"_s)};
    Settings settings;
    QWidget window;
    QWidget *picHolder = new QWidget;
    controls::BandContainer *cReBar1 = new controls::BandContainer(picHolder);
    controls::ToolBarHost *tbhMenu = new controls::ToolBarHost(picHolder);
    controls::MenuBar *tbrMenu = new controls::MenuBar;
    QWidget *picTest = new QWidget(picHolder);
    controls::ToolBar *Toolbar1 = new controls::ToolBar(picHolder);
    controls::ToolBar *Toolbar2 = new controls::ToolBar(picHolder);
    QWidget *Picture1 = new QWidget(picHolder);
    QWidget *Picture6 = new QWidget(picHolder);
    QWidget *vbalDTabControl1 = new QWidget(Picture6);
    Toolbars toolbars{*Toolbar1, *Toolbar2, *cReBar1, store, settings};
    Bands bands{{*picHolder, *cReBar1, *tbhMenu, *tbrMenu, *picTest, *Toolbar1, *Toolbar2, *Picture1, *Picture6,
                 *vbalDTabControl1},
                folder.path()};

    Top()
    {
        installShippedFiles(folder.path());
        settings.ToolbarLargeBitmap = folder.filePath(u"nav_24h.bmp"_s);
        settings.ToolbarSmallBitmap = folder.filePath(u"nav_16h.bmp"_s);
        auto *layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(picHolder);
        layout->addStretch();
        Picture1->resize(300, 24);
        Picture6->resize(300, 22);
        tbrMenu->addMenu(u"&File"_s);
        tbrMenu->addMenu(u"&Edit"_s);
        tbhMenu->HostCapture(tbrMenu);
    }

    void set(const QString &key, const QString &value) { store.SaveSetting(appTitle(), u"Settings"_s, key, value); }
    void show()
    {
        toolbars.BuildToolbars();
        bands.LoadBandLayout({});
        window.resize(900, 400);
        window.show();
    }
};

} // namespace

class TestToolbarsAndBands : public QObject
{
    Q_OBJECT
private slots:
    void shippedStrips()
    {
        QTemporaryDir folder;
        installShippedFiles(folder.path());
        for (const auto &[name, cell] : {std::pair(u"nav_24h"_s, 24), std::pair(u"nav_16h"_s, 16)}) {
            const QImage strip(folder.filePath(name + u".bmp"_s));
            QCOMPARE(strip.size(), QSize(10 * cell, cell));
            QVERIFY(strip.hasAlphaChannel());
            QCOMPARE(QImage(folder.filePath(name + u"@2x.bmp"_s)).size(), strip.size() * 2);
        }

        // What the user put there stays.
        QVERIFY(writeFileWhole(folder.filePath(u"nav_16h.bmp"_s), "mine"));
        QFile::remove(folder.filePath(u"nav_24h.bmp"_s));
        installShippedFiles(folder.path());
        QVERIFY(QFile::exists(folder.filePath(u"nav_24h.bmp"_s)));
        QCOMPARE(readFile(folder.filePath(u"nav_16h.bmp"_s)).value(), "mine");
    }

    void toolbarsStartAsStored()
    {
        Top usual;
        usual.toolbars.BuildToolbars();
        QCOMPARE(usual.Toolbar1->ImageFile(), usual.settings.ToolbarLargeBitmap);
        QCOMPARE(usual.Toolbar2->ImageFile(), usual.settings.ToolbarSmallBitmap);
        QVERIFY(usual.Toolbar1->ButtonTextVisible(1) && usual.Toolbar1->TextAlignRight());

        Top top;
        top.set(u"Toolbar1LargeIcons"_s, u"False"_s);
        top.set(u"Toolbar1TextAlignRight"_s, u"False"_s);
        top.set(u"Toolbar2ShowText"_s, u"nonsense"_s);
        top.toolbars.BuildToolbars();
        QCOMPARE(top.Toolbar1->ImageFile(), top.settings.ToolbarSmallBitmap);
        QVERIFY(!top.Toolbar1->TextAlignRight());
        // What does not convert is False, not the default.
        QVERIFY(!top.Toolbar2->ButtonTextVisible(0));
    }

    void switchesActAtOnce()
    {
        Top top;
        top.show();
        const int index = top.cReBar1->BandIndexForKey(u"Toolbar1"_s);
        const int height = top.cReBar1->BarHeight();
        const QString large = top.settings.ToolbarLargeBitmap;
        // The paths of the start serve the whole run.
        top.settings.ToolbarLargeBitmap = u"/elsewhere.bmp"_s;
        top.toolbars.SetToolbarIconSize(*top.Toolbar1, index, false);
        QCOMPARE(top.Toolbar1->height(), 24);
        QCOMPARE(top.cReBar1->BarHeight(), height - 8);
        top.toolbars.SetToolbarIconSize(*top.Toolbar1, index, true);
        QCOMPARE(top.Toolbar1->ImageFile(), large);
        QCOMPARE(top.cReBar1->BarHeight(), height);
        top.toolbars.SetToolbarTextAlign(*top.Toolbar1, u"Toolbar1"_s, false);
        QVERIFY(top.cReBar1->BarHeight() > height);
        top.toolbars.SetToolbarText(*top.Toolbar1, u"Toolbar1"_s, false);
        QCOMPARE(top.cReBar1->BarHeight(), height);
        QCOMPARE(top.picHolder->height(), height);
    }

    void toolbarMenuShowsTheState()
    {
        Top top;
        controls::PopupMenu menu(&top.window);
        const auto add = [&](const QString &key, int parent) {
            return menu.AddItem(key, {}, 0, parent, -1, false, true, key);
        };
        const int large = add(u"mnuTBLargeIcons"_s, 0);
        const int text = add(u"mnuTBShowText"_s, 0);
        const int align = add(u"mnuTBTextAlign"_s, 0);
        const int right = add(u"mnuTBTextAlignRight"_s, align);
        const int bottom = add(u"mnuTBTextAlignBottom"_s, align);
        top.show();

        top.toolbars.PrepareToolbarMenu(menu, *top.Toolbar1, u"Toolbar1"_s);
        QVERIFY(menu.Checked(large) && menu.Checked(text) && menu.Enabled(align));
        QVERIFY(menu.RadioChecked(right) && !menu.RadioChecked(bottom));
        // The place holder alone has no text that could be aligned.
        top.toolbars.PrepareToolbarMenu(menu, *top.Toolbar2, u"Toolbar2"_s);
        QVERIFY(!menu.Checked(large) && menu.Checked(text) && !menu.Enabled(align));
        top.toolbars.SetToolbarText(*top.Toolbar1, u"Toolbar1"_s, false);
        top.toolbars.SetToolbarTextAlign(*top.Toolbar1, u"Toolbar1"_s, false);
        top.set(u"Toolbar1ShowText"_s, u"False"_s);
        top.toolbars.PrepareToolbarMenu(menu, *top.Toolbar1, u"Toolbar1"_s);
        QVERIFY(!menu.Checked(text) && !menu.Enabled(align) && menu.RadioChecked(bottom) && !menu.RadioChecked(right));
    }

    void bandsAreTheSameAtEachStart()
    {
        Top top;
        const QString file = top.folder.filePath(u"layout.xml"_s);
        QVERIFY(writeFileWhole(file, "<layout><band key=\"Tabbar\" row=\"0\"/></layout>"));
        top.show();
        QStringList keys;
        for (int i = 0; i < top.cReBar1->BandCount(); ++i)
            keys << top.cReBar1->BandKey(i);
        QCOMPARE(keys.join(u','), u"MenuBar,Logo,Toolbar1,Toolbar2,Addressbar,Tabbar"_s);
        QCOMPARE(top.picHolder->height(), top.cReBar1->BarHeight());
        // The contents of these two bands follow the width of their band.
        for (const int width : {900, 700}) {
            top.window.resize(width, 400);
            QTRY_COMPARE(top.Picture1->width(), width - 10);
            QCOMPARE(top.vbalDTabControl1->width(), width - 7);
            QCOMPARE(top.cReBar1->width(), width);
        }

        top.bands.SaveBandLayout();
        QCOMPARE(QString::fromUtf8(readFile(file).value()), top.cReBar1->LayoutText());
    }
};

QTEST_MAIN(TestToolbarsAndBands)
#include "tst_toolbarsandbands.moc"
