#include "support/DocumentFixture.h"

#include "documents/frmLoad.h"
#include "support/Rows.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QTest>

using namespace Qt::StringLiterals;

/// The list of open documents from one start to the next, and the question at start.
class tst_SavedDocuments : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(DocumentFixture::anyWarning()); }

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

    void loading_data()
    {
        QTest::addColumn<QString>("count");
        QTest::addColumn<QStringList>("opened");
        const QString a = u"http://a/"_s;
        const QString home = u"http://home.example/"_s;
        QTest::newRow("as many as stored") << u"2"_s << QStringList{a, u""_s};
        QTest::newRow("more: the home page") << u"3"_s << QStringList{a, u""_s, home};
        QTest::newRow("none") << u"0"_s << QStringList();
        QTest::newRow("no number") << u"many"_s << QStringList();
    }

    void loading()
    {
        QFETCH(const QString, count);
        QFETCH(const QStringList, opened);
        DocumentFixture f;
        store(f, u"DocumentCount"_s, count);
        store(f, u"Document1"_s, u"http://a/"_s);
        store(f, u"Document2"_s, QString());
        f.saved.LoadAllDocuments();
        QCOMPARE(f.main.opened, opened);
        QCOMPARE(f.count(), opened.size());
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

    void question_data()
    {
        rows<bool, bool, Qt::Key, int>({
            {"load", {true, false, Qt::Key_Return, 2}},
            {"always load", {true, true, Qt::Key_Return, 1}},
            {"nothing", {false, false, Qt::Key_Return, 2}},
            {"never again", {false, true, Qt::Key_Return, 3}},
            {"Escape ignores the box", {false, true, Qt::Key_Escape, 2}},
        });
    }

    void question()
    {
        const auto [loads, dontAsk, key, action] = row<bool, bool, Qt::Key, int>();
        DocumentFixture f;
        f.settings.LoadAction = 2;
        f.flags.ShortcutsEnabled = true;
        frmLoad form(&f.window, f.main, f.settings, f.flags);
        QVERIFY(!f.flags.ShortcutsEnabled);
        QVERIFY(form.Option1[0]->isChecked());
        form.show();
        form.Option1[loads || key == Qt::Key_Escape ? 0 : 1]->setChecked(true);
        form.chkDontAskAgain->setChecked(dontAsk);
        QTest::keyClick(&form, key);
        QVERIFY(!form.isVisible() && f.flags.ShortcutsEnabled);
        QCOMPARE(int(f.settings.LoadAction), action);
        QCOMPARE(f.main.calls.contains(u"LoadAllDocuments"_s), loads);
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

QTEST_MAIN(tst_SavedDocuments)
#include "tst_saveddocuments.moc"
