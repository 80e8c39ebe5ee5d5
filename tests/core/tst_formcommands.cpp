#include "MainFixture.h"

#include "engine/WBCustomizer.h"
#include "forms/FormLock.h"
#include "forms/FormStore.h"
#include "options/FormsPage.h"
#include "options/frmOptions1.h"
#include "support/Rows.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

/// The form record in the whole program: what documents know of it, and when pages are filled.
class tst_FormCommands : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        f = std::make_unique<MainFixture>();
        f->seedQuietStart();
        record(u"Ann"_s);
    }
    void cleanup() { f.reset(); }

    void endOfLoad_data()
    {
        rows<bool, bool, bool, QStringList>({
            {"not by itself", {false, true, false, QStringList()}},
            {"open", {true, false, false, QStringList{u"fill open Ann"_s}}},
            {"locked", {true, true, false, QStringList{u"fill locked Ann"_s}}},
            {"unlocked", {true, true, true, QStringList{u"fill open Ann"_s}}},
        });
    }

    void endOfLoad()
    {
        const auto [isAuto, isProtected, isUnlocked, filled] = row<bool, bool, bool, QStringList>();
        QVERIFY(f->start(u"http://a/"_s));
        f->settings().AutoFormFill = isAuto;
        f->settings().ProtectCreditInfo = isProtected;
        f->code->flags.CreditUnlocked = isUnlocked;
        const engine::WBCustomizer *tools = f->main().ActiveForm()->customWB();
        f->engine.browsers[0]->load(u"http://a/"_s, u"A"_s);
        QCOMPARE(fills(0), filled);
        QCOMPARE(tools->formLocked(), isProtected && !isUnlocked);

        // A failing fill costs nothing else of the end of the load.
        f->engine.browsers[0]->failing += u"fill"_s;
        f->engine.browsers[0]->load(u"http://a/"_s, u"A"_s);
        QCOMPARE(f->main().navigator->ListView1.ListItems(1).ListSubItems(1).Text(), u"Completed"_s);
    }

    void commands()
    {
        QVERIFY(f->start(u"http://a/"_s));
        f->main().LoadNewDoc(u"http://b/"_s);
        run(u"mnuContentFillForm"_s);
        QCOMPARE(fills(1), QStringList{u"fill open Ann"_s});
        QVERIFY(fills(0).isEmpty() && !isMarked());
        // Switching on fills at once, switching off does not.
        f->settings().ProtectCreditInfo = true;
        run(u"mnuContentAutoFill"_s);
        QCOMPARE(fills(1).last(), u"fill locked Ann"_s);
        QVERIFY(isMarked() && f->settings().AutoFormFill);
        run(u"mnuContentAutoFill"_s);
        QVERIFY(!isMarked() && !f->settings().AutoFormFill);
        QCOMPARE(static_cast<int>(fills(1).size()), 2);

        f->engine.browsers[1]->failing += u"fill"_s;
        run(u"mnuContentFillForm"_s);
        run(u"mnuFileClose"_s);
        run(u"mnuFileClose"_s);
        run(u"mnuContentFillForm"_s);
        run(u"mnuContentAutoFill"_s);
        QVERIFY(isMarked());
    }

    void dialogReachesEveryDocument()
    {
        QVERIFY(f->start(u"http://a/"_s));
        f->main().LoadNewDoc(u"http://b/"_s);
        run(u"mnuContentFormData"_s);
        auto *page = dialog().findChild<FormsPage *>();
        QVERIFY(page->isVisible() && dialog().isModal());
        run(u"mnuContentFormData"_s);
        QCOMPARE(static_cast<int>(f->main().findChildren<frmOptions1 *>().size()), 1);
        page->firstname->setText(u"Bea"_s);
        page->chkAutoFormFill->setChecked(true);
        dialog().btnOk->click();
        QVERIFY(isMarked());
        for (int i = 0; i < 2; ++i) {
            f->engine.browsers[i]->load(u"http://x/"_s, u"X"_s);
            QCOMPARE(fills(i), QStringList{u"fill open Bea "_s});
        }
        // Documents read the file again, also when nothing was confirmed.
        DocumentFixture::deleteClosed();
        QCOMPARE(f->code->flags.OptionsStartPage, 1);
        run(u"mnuViewOptions"_s);
        record(u"Cleo"_s);
        dialog().btnCancel->click();
        run(u"mnuContentFillForm"_s);
        QCOMPARE(fills(1).last(), u"fill open Cleo"_s);
        QVERIFY(isMarked());
    }

    void closingWithTheDialogOpen()
    {
        QVERIFY(f->start(u"http://a/"_s));
        run(u"mnuContentFormData"_s);
        QPointer<frmOptions1> open = &dialog();
        open->findChild<FormsPage *>()->firstname->setText(u"Bea"_s);
        f->close();
        QVERIFY(f->main().isUnloaded());
        f->code.reset();
        QVERIFY(!open);
        FormKeys keys(f->paths.programFolder);
        FormStore store(keys);
        store.LoadFormData(formFileIn(f->paths.programFolder));
        QCOMPARE(store.fields().front().value, u"Ann"_s);
    }

private:
    /// Stores a form record, as another program might.
    void record(const QString &name)
    {
        FormKeys keys(f->paths.programFolder);
        FormStore store(keys);
        store.AddFormField(u"name"_s, name, false);
        store.SaveFormData(formFileIn(f->paths.programFolder));
    }
    QStringList fills(int browser) { return f->engine.browsers[browser]->calls.filter(u"fill"_s); }
    frmOptions1 &dialog() { return *f->main().findChild<frmOptions1 *>(); }
    bool isMarked() { return f->isChecked(u"mnuContentAutoFill"_s); }
    void run(const QString &key) { QVERIFY(f->main().commands().run(key)); }

    std::unique_ptr<MainFixture> f;
};

QTEST_MAIN(tst_FormCommands)
#include "tst_formcommands.moc"
