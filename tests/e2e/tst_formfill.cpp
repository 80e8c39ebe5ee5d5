#include "BrowserFixture.h"

#include "options/FormsPage.h"
#include "options/frmOptions1.h"
#include "support/LoopbackSite.h"
#include "support/Wait.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

/// A checkout that tells the site what arrives in its inputs.
const QByteArray kShop = "<form><input name=fname><input name=email><select name=country><option>Belgium<option>Canada"
                         "</select><input name=cardnumber><input name=message></form><script>"
                         "addEventListener('change', e => fetch('/got', {method: 'POST', body: e.target.name + '=' + "
                         "e.target.value}))</script>";

} // namespace

/// A user writes his record down, and shops get it.
class tst_FormFill : public QObject
{
    Q_OBJECT

    LoopbackSite m_site;

    /// What has arrived in the inputs of the shop, in order of the names.
    QStringList got() const
    {
        QStringList values;
        for (const LoopbackSite::Request &request : m_site.requests())
            if (request.path() == "/got")
                values += QString::fromUtf8(request.body);
        values.sort();
        return values;
    }

    /// Closed; nobody waits for its deletion, which only the outermost event loop does.
    static bool isGone(const QPointer<frmOptions1> &dialog)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return !dialog;
    }

private slots:
    void recordReachesTheShop()
    {
        m_site.page("/shop", "Shop", kShop);
        BrowserFixture f;
        QVERIFY(f.start(m_site.address(u"/shop"_s)));
        QVERIFY(f.waitForPage(1, u"Shop"_s));

        QVERIFY(f.choose(u"mnuContentFormData"_s));
        QPointer<frmOptions1> dialog = f.main().findChild<frmOptions1 *>();
        QVERIFY(dialog && dialog->isVisible());
        auto *page = dialog->findChild<FormsPage *>();
        QTest::keyClicks(page->firstname, u"Ann"_s);
        QTest::keyClicks(page->mail, u"ann@example.org"_s);
        QTest::keyClicks(page->Country, u"Can"_s);
        QTest::keyClicks(page->CardNumber, u"4111111111111111"_s);
        QTest::keyClicks(page->Password, u"pass"_s);
        QTest::keyClicks(page->Confirm, u"pass"_s);
        page->Protect->click();
        QTest::mouseClick(dialog->btnOk, Qt::LeftButton);
        QVERIFY(isGone(dialog));

        // The card stays out until its password has been given.
        const QStringList open{u"country=Canada"_s, u"email=ann@example.org"_s, u"fname=Ann"_s};
        QVERIFY(f.choose(u"mnuContentFillForm"_s));
        WAIT_COMPARE(got(), open);
        f.main().mainCode().flags.CreditUnlocked = true; // as the right answer to its question does
        QVERIFY(f.dialogs.messages.isEmpty());
        // What is filled already stays, so only the card is new.
        QVERIFY(f.choose(u"mnuContentFillForm"_s));
        WAIT_COMPARE(got(), QStringList{u"cardnumber=4111111111111111"_s} + open);

        // By itself, at the end of the next load and of the next run's.
        QVERIFY(f.choose(u"mnuContentAutoFill"_s));
        m_site.clearRequests();
        QVERIFY(f.choose(u"mnuNavigateRefresh"_s));
        WAIT_COMPARE(got(), QStringList{u"cardnumber=4111111111111111"_s} + open);
        f.end();
        m_site.clearRequests();
        QVERIFY(f.start(m_site.address(u"/shop"_s)));
        WAIT_COMPARE(got(), open);
    }
};

BROWSER_TEST_MAIN(tst_FormFill)
#include "tst_formfill.moc"
