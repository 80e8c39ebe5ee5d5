#include "support/DocumentFixture.h"

#include "base/Files.h"
#include "base/step.h"
#include "documents/frmLoad.h"
#include "engine/WBCustomizer.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QTest>

using namespace Qt::StringLiterals;

/// How documents come, change places at the front and go, and how their list goes from one start to the next.
class tst_Opening : public QObject
{
    Q_OBJECT

private slots:
    void loadNewDocRunsItsStepsInOrder()
    {
        DocumentFixture f;
        f.settings.SuppressScriptErrors = true;
        frmDocument &document = f.open(u"http://a.example/"_s);
        ScriptedBrowser &browser = f.lastBrowser();
        QCOMPARE(browser.calls, (QStringList{u"ambient -5513 Mozilla/4.0 (compatible; MSIE 5.5; Windows NT 5.0)"_s,
                                             u"ambient -5512 112"_s, u"RegisterAsBrowser True"_s,
                                             u"Navigate2 http://a.example/"_s, u"Silent True"_s}));
        QCOMPARE(browser.HostFlags(), 0x40000);
        QCOMPARE(browser.MessageSink(), static_cast<engine::WBMessages *>(&document));
        QCOMPARE(f.disorder(), QString());
        QCOMPARE(f.tab(1).Caption(), u"http://a.example/"_s);
        QVERIFY(f.tab(1).Selected() && document.isVisible() && document.isActive());
        QCOMPARE(f.addressBar.List(0), u"http://a.example/"_s);
        QCOMPARE(f.main.calls, QStringList{u"ModifyMenu"_s});
        // The page fills its form, wherever 16 bits of twips end.
        for (const QSize size : {QSize(400, 300), QSize(2400, 2300), QSize(0, 0)}) {
            document.resize(size);
            QCOMPARE(browser.geometry(), QRect(QPoint(), size));
        }

        // A refused step costs only itself. The document comes up maximised, whatever state the others are in.
        f.mdi.Arrange(controls::vbTileHorizontal);
        QCOMPARE(f.mdi.WindowState(&document), controls::vbNormal);
        f.engine.failing = {u"Navigate2"_s, u"RegisterAsBrowser"_s, u"Silent"_s};
        f.open(u"x"_s);
        QCOMPARE(f.disorder(), QString());
        QVERIFY(f.document(2).isActive() && !document.isActive());
        QCOMPARE(f.mdi.WindowState(&f.document(2)), controls::vbMaximized);
        QCOMPARE(f.addressBar.List(0), u"x"_s);
    }

    void shortcutFilesOpenTheAddressInside()
    {
        const QString inside = u"http://inside.example/"_s;
        const std::initializer_list<std::tuple<QString, QString, QString>> cases{
            {QString(), u"site.url"_s, inside},                        // path
            {u"FILE://"_s, u"site.Url"_s, inside},                     // file address
            {u"file://"_s, u"two%20words.url"_s, inside},              // encoded blank
            {QString(), u"none.url"_s, QString()},                     // missing file
            {u"file://"_s, u"page.html"_s, u"file://%1/page.html"_s}}; // other file
        for (const auto &[prefix, name, opened] : cases) {
            DocumentFixture f;
            for (const QString &file : {u"site.url"_s, u"two words.url"_s})
                QVERIFY(
                    writeFileWhole(f.folder.filePath(file), "[InternetShortcut]\r\nURL=http://inside.example/\r\n"));
            QString url = prefix + f.folder.path() + u'/' + name;
            f.main.LoadNewDoc(url);
            const QString expected = opened.contains(u"%1") ? opened.arg(f.folder.path()) : opened;
            QVERIFY(f.lastBrowser().calls.contains(u"Navigate2 "_s + expected) || expected.isEmpty());
            QCOMPARE(f.addressBar.List(0), expected);
        }
    }

    void closingKeepsPositionsInStep_data()
    {
        QTest::addColumn<QList<int>>("closed");
        QTest::addColumn<QString>("left");
        QTest::newRow("first") << QList<int>{1} << u"bcd"_s;
        QTest::newRow("last, active") << QList<int>{4} << u"abc"_s;
        QTest::newRow("first, then last") << QList<int>{1, 3} << u"bc"_s;
        QTest::newRow("all") << QList<int>{2, 2, 1, 1} << QString();
    }

    void closingKeepsPositionsInStep()
    {
        QFETCH(const QList<int>, closed);
        QFETCH(const QString, left);
        DocumentFixture f;
        for (const QString &url : {u"a"_s, u"b"_s, u"c"_s, u"d"_s})
            f.open(url);
        for (const int position : closed) {
            // The close button of a tab removes the tab before its document hears of it.
            const bool byButton = position == 2;
            if (byButton)
                f.tabs.Tabs().Remove(position);
            f.document(position).setTabAlreadyDeleted(byButton);
            f.document(position).Unload();
        }
        DocumentFixture::deleteClosed();

        QCOMPARE(f.disorder(), QString());
        QString names;
        for (int n = 1; n <= f.count(); ++n) {
            names += f.line(n).Text();
            QCOMPARE(f.tab(n).Caption(), f.line(n).Text());
            QCOMPARE(f.document(n).Caption(), f.line(n).Text());
            QCOMPARE(f.line(n).Bold(), f.document(n).isActive());
            QCOMPARE(f.tab(n).Selected(), f.document(n).isActive());
        }
        QCOMPARE(names, left);
    }

    void closingReleasesTheBrowser()
    {
        DocumentFixture f;
        const QPointer<frmDocument> document = &f.open(u"a"_s);
        const QPointer<ScriptedBrowser> browser = &f.lastBrowser();
        f.statusBar.setPanelText(1, u"text"_s);
        f.main.calls.clear();
        document->Unload();
        document->Unload();
        QCOMPARE(f.flags.OpenDocumentCount, 0);
        QCOMPARE(f.main.calls, QStringList{u"ModifyMenu"_s});
        QCOMPARE(f.statusBar.PanelText(1), QString());
        QVERIFY(document && !document->browser() && !document->customWB());
        QVERIFY(!browser->eventSink() && !browser->MessageSink());
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, document->RefreshDoc());
        DocumentFixture::deleteClosed();
        QVERIFY(!document && !browser && !f.main.ActiveForm());
    }

    void activationMovesTheSharedControls()
    {
        DocumentFixture f;
        frmDocument &a = f.open(u"http://a/"_s);
        frmDocument &b = f.open(u"http://b/"_s);
        ScriptedBrowser &pageOfA = DocumentFixture::browserOf(a);
        // What happens in the background reaches the shared controls only when the document comes to the front.
        pageOfA.events().WebBro_SetSecureLockIcon(6);
        pageOfA.events().WebBro_ProgressChange(30, 100);
        pageOfA.events().WebBro_StatusTextChange(u"from a"_s);
        QCOMPARE(f.statusBar.PanelIcon(u"Item5"_s), -1);
        QCOMPARE(f.statusBar.Tag(), u"0"_s);
        QCOMPARE(f.addressBar.Text(), u"http://b/"_s);

        f.main.focusInAddressBar = true;
        f.statusBar.setPanelText(1, u"old"_s);
        f.mdi.activateForm(&a);
        QCOMPARE(f.addressBar.Text(), u"http://a/"_s);
        QCOMPARE(f.statusBar.PanelText(1), QString());
        QCOMPARE(f.statusBar.Tag(), u"30"_s);
        QCOMPARE(f.statusBar.PanelIcon(u"Item5"_s), 2);
        QVERIFY(f.tab(1).Selected() && f.line(1).Bold() && f.line(1).ListSubItems(1).Bold());
        QVERIFY(!f.tab(2).Selected() && !f.line(2).Bold() && !b.isActive());
        QVERIFY(pageOfA.isExposed && !DocumentFixture::browserOf(b).isExposed);
        QCOMPARE(f.window.focusWidget(), &pageOfA);

        // The active one writes at once.
        pageOfA.events().WebBro_StatusTextChange(u"from a"_s);
        QCOMPARE(f.statusBar.PanelText(1), u"from a"_s);
        pageOfA.events().WebBro_SetSecureLockIcon(0);
        QCOMPARE(f.statusBar.PanelIcon(u"Item5"_s), -1);
    }

    void windowOfAPageBecomesADocument()
    {
        DocumentFixture f;
        frmDocument &opener = f.open(u"http://a/"_s);
        ScriptedBrowser &browser = f.lastBrowser();
        browser.clicks = 3;
        engine::WebBrowser *ppDisp = nullptr;
        bool cancel = false;
        browser.events().WebBro_NewWindow2(ppDisp, cancel);
        QVERIFY(!cancel);
        QCOMPARE(ppDisp, &f.lastBrowser());
        QVERIFY(ppDisp != &browser);
        QCOMPARE(browser.clicks, 0);
        QCOMPARE(f.disorder(), QString());
        QCOMPARE(f.line(2).Text() + f.tab(2).Caption() + f.tab(2).Tag(), QString());
        QVERIFY(!f.lastBrowser().registered);
        QVERIFY(f.document(2).isVisible() && f.document(2).isActive() && f.tab(2).Selected());
        QCOMPARE(f.addressBar.ListCount(), 1);

        bool closingCancel = false;
        ppDisp->eventSink()->WebBro_WindowClosing(true, closingCancel);
        QVERIFY(!closingCancel && ppDisp->parent());
        QCOMPARE(f.count(), 1);
        QVERIFY(opener.isActive());
    }

    void helperSpeaksForItsBrowser()
    {
        engine::WBCustomizer helper;
        QString title;
        QString address;
        {
            ScriptedBrowser browser;
            browser.back = {{u"Near"_s, u"http://near/"_s}, {u"Far"_s, u"http://far/"_s}};
            helper.AttachBrowser(&browser);
            helper.GetHistoryElement(true, 2, title, address);
            QCOMPARE(title, u"Far"_s);
            for (const int position : {0, 3, -1})
                QVERIFY_THROWS_EXCEPTION(ControlError, helper.GetHistoryElement(true, position, title, address));
        }
        // The browser may go first.
        QCOMPARE(helper.BackCount(), 0);
        QVERIFY_THROWS_EXCEPTION(ControlError, helper.GetHistoryElement(true, 1, title, address));
    }

    void savedInTabOrder()
    {
        DocumentFixture f;
        for (const QString &url : {u"http://a/"_s, u"http://b/"_s, u"http://c/"_s})
            f.open(url);
        f.saved.SaveAllDocuments();
        DocumentFixture::browserOf(f.document(2)).address = u"http://b/deeper"_s;
        f.document(1).Unload();
        f.saved.SaveAllDocuments();
        QCOMPARE(stored(f, u"DocumentCount"_s), u"2"_s);
        QCOMPARE(stored(f, u"Document1"_s), u"http://b/deeper"_s);
        QCOMPARE(stored(f, u"Document2"_s), u"http://c/"_s);
        // What stands above the count stays.
        QCOMPARE(stored(f, u"Document3"_s), u"http://c/"_s);
    }

    void loading()
    {
        // One more than was stored gives the home page.
        const QStringList all{u"http://a/"_s, u""_s, u"http://home.example/"_s};
        for (const auto &[count, opened] : {std::pair{u"2"_s, 2}, {u"3"_s, 3}, {u"0"_s, 0}, {u"many"_s, 0}}) {
            DocumentFixture f;
            store(f, u"DocumentCount"_s, count);
            store(f, u"Document1"_s, u"http://a/"_s);
            store(f, u"Document2"_s, QString());
            f.saved.LoadAllDocuments();
            QCOMPARE(f.main.opened, all.first(opened));
            QCOMPARE(f.count(), opened);
        }
    }

    void loadThatEndsMeanwhileChangesNothing()
    {
        DocumentFixture f;
        f.settings.SaveDocumentOnExit = true;
        frmDocument &first = f.open(u"http://open/"_s);
        store(f, u"DocumentCount"_s, u"3"_s);
        for (const QString &n : {u"1"_s, u"2"_s, u"3"_s})
            store(f, u"Document"_s + n, u"http://"_s + n);
        f.main.opened.clear();
        // Events are let through while documents open; the end of this load writes the list anew.
        QMetaObject::invokeMethod(
            &first, [&] { f.document(1).WebBro_ProgressChange(0, 0); }, Qt::QueuedConnection);
        f.saved.LoadAllDocuments();
        QVERIFY(f.main.calls.contains(u"SaveAllDocuments"_s));
        QCOMPARE(f.main.opened, (QStringList{u"http://1"_s, u"http://2"_s, u"http://3"_s}));
    }

    void question()
    {
        const std::initializer_list<std::tuple<bool, bool, Qt::Key, int>> cases{
            {true, false, Qt::Key_Return, 2},  // load
            {true, true, Qt::Key_Return, 1},   // always load
            {false, false, Qt::Key_Return, 2}, // nothing
            {false, true, Qt::Key_Return, 3},  // never again
            {false, true, Qt::Key_Escape, 2}}; // Escape ignores the box
        for (const auto &[loads, dontAsk, key, action] : cases) {
            DocumentFixture f;
            f.settings.LoadAction = 2;
            f.flags.ShortcutsEnabled = true;
            frmLoad form(&f.window, f.main, f.settings, f.flags);
            QVERIFY(!f.flags.ShortcutsEnabled && form.Option1[0]->isChecked());
            form.show();
            form.Option1[loads || key == Qt::Key_Escape ? 0 : 1]->setChecked(true);
            form.chkDontAskAgain->setChecked(dontAsk);
            QTest::keyClick(&form, key);
            QVERIFY(!form.isVisible() && f.flags.ShortcutsEnabled);
            QCOMPARE(int(f.settings.LoadAction), action);
            QCOMPARE(f.main.calls.contains(u"LoadAllDocuments"_s), loads);
        }
    }

private:
    static QString stored(DocumentFixture &f, const QString &key)
    {
        return f.store.GetSetting(appTitle(), u"Settings"_s, key, u"-"_s);
    }

    static void store(DocumentFixture &f, const QString &key, const QString &value)
    {
        f.store.SaveSetting(appTitle(), u"Settings"_s, key, value);
    }
};

QTEST_MAIN(tst_Opening)
#include "tst_opening.moc"
