#include "MainFixture.h"

#include "base/Files.h"

using namespace Qt::StringLiterals;

/// The black list in the whole program, from its file to the window, and what the content choices reach.
class tst_Refusals : public QObject
{
    Q_OBJECT

private slots:
    void firstDocumentIsRefused()
    {
        MainFixture f;
        f.seedQuietStart();
        const QString file = f.paths.programFolder + u"/blacklist.cvd"_s;
        QVERIFY(writeFileWhole(file, "ads.\nx\n"));
        QVERIFY(f.start(u"http://www.ADS.example/"_s));
        // The sound that comes with the program, which its start has put beside the list.
        QCOMPARE(readFile(f.settings().PopupSoundFile).value_or("none").left(4), "RIFF");
        QVERIFY(f.engine.browsers.last()->beforeNavigate(u"http://www.ADS.example/"_s));
        QTRY_COMPARE(f.main().navigator->ListView1.ListItems().Count(), 0);
        QVERIFY(f.main().isVisible());
        QCOMPARE(f.sound.played, QStringList{f.settings().PopupSoundFile});

        // A double click on the sign of the killer switches the list off with it, and on again.
        controls::StatusBar *bar = f.main().vbalStatusBar1;
        for (const bool on : {false, true}) {
            QTest::mouseDClick(bar, Qt::LeftButton, {}, bar->PanelRect(4).center());
            QCOMPARE(bar->PanelIcon(u"Item4"_s), on ? 3 : 1);
            f.main().LoadNewDoc(u"http://ads.example/"_s);
            QCOMPARE(f.engine.browsers.last()->beforeNavigate(u"http://ads.example/"_s), on);
        }

        f.settings().BlackList += u"from the options"_s;
        f.settings().BlackListCount = 3;
        f.close();
        QCOMPARE(readFile(file).value_or("none"), "ads.\r\nx\r\nfrom the options\r\n");
    }

    void closingDuringARefreshSkipsNobody()
    {
        MainFixture f;
        QVERIFY(f.startQuietly(u"http://a/"_s));
        f.main().LoadNewDoc(u"http://b/"_s);
        f.main().LoadNewDoc(u"http://c/"_s);
        // The change of a setting lets events through before each reload.
        QMetaObject::invokeMethod(&f.main().navigator->document(1), &Document::Unload, Qt::QueuedConnection);
        QVERIFY(f.main().commands().run(u"mnuContentImage"_s));
        QCOMPARE(f.code->flags.OpenDocumentCount, 2);
        for (int n = 1; n <= 2; ++n)
            QVERIFY(f.engine.browsers[n]->calls.endsWith(u"Refresh2 3"_s));
    }
};

QTEST_MAIN(tst_Refusals)
#include "tst_refusals.moc"
