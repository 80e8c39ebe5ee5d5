#include "core/state/ProcessFlags.h"
#include "core/state/Settings.h"
#include "core/state/SettingsStore.h"
#include "desktop/Paths.h"
#include "forms/FormLock.h"
#include "forms/frmFormPass.h"
#include "options/FormsPage.h"
#include "options/frmOptions1.h"
#include "support/Recording.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

const QString kNoPassword = u"Error: Protecting Credit Card info requires a non-blank password"_s;
const QString kNoMatch = u"Error passwords do NOT match, please type a correct password"_s;

/// The dialog over a folder of its own; it can be opened many times.
struct Fixture
{
    QTemporaryDir folder;
    desktop::Paths paths = desktop::Paths::below(folder.path());
    SettingsStore store{paths.settingsFile};
    Settings settings;
    ProcessFlags flags;
    RecordingDialogs dialogs;
    FormKeys keys{paths.programFolder};
    QPointer<frmOptions1> dialog;

    ~Fixture() { delete dialog; }
    FormsPage &open(int startPage = 9)
    {
        delete dialog;
        flags.OptionsStartPage = startPage;
        dialog = new frmOptions1(nullptr, {settings, flags, store, dialogs, paths, keys});
        dialog->show();
        return page();
    }
    FormsPage &page() { return *dialog->findChild<FormsPage *>(u"frameForm"_s); }
    void lock(const QString &password)
    {
        settings.ProtectCreditInfo = true;
        settings.CreditInfoPassword = password;
        flags.CreditUnlocked = false;
    }
    QString stored(const QString &key)
    {
        FormStore record(keys);
        record.LoadFormData(formFileIn(paths.programFolder));
        QString value;
        bool isProtected = false;
        record.GetFormField(key, value, isProtected);
        return value;
    }
    /// Answers the question for the password that is on the screen.
    void answer(const QString &password)
    {
        auto *question = dialog->findChild<frmFormPass *>();
        QVERIFY(question && question->isVisible() && !flags.ShortcutsEnabled);
        question->txtPassword->setText(password);
        question->cmdOK->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!dialog->findChild<frmFormPass *>());
    }
};

bool isLightBlue(const QWidget *control)
{
    return control->palette().color(QPalette::Base) == QColor(0xCC, 0xCC, 0xFF);
}

} // namespace

class tst_FormsPage : public QObject
{
    Q_OBJECT
private slots:
    void protection()
    {
        const std::initializer_list<std::tuple<QString, QString, QString>> cases{
            {u"a b"_s, u"a b"_s, QString()},       // right
            {QString(), u"x"_s, kNoPassword},      // no password
            {u"Secret"_s, u"secret"_s, kNoMatch}}; // other letters
        for (const auto &[password, confirm, message] : cases) {
            Fixture f;
            FormsPage &page = f.open();
            page.Password->setText(password);
            page.Confirm->setText(confirm);
            page.Protect->click();

            const bool isOn = message.isEmpty();
            QCOMPARE(f.dialogs.messages, isOn ? QStringList() : QStringList{message});
            QCOMPARE(f.dialogs.titles, isOn ? QStringList() : QStringList{u"error"_s});
            QCOMPARE(page.Protect->isChecked(), isOn);
            QCOMPARE(f.settings.ProtectCreditInfo, isOn);
            QCOMPARE(f.settings.CreditInfoPassword, isOn ? password : QString());
            QCOMPARE(page.Password->text() + page.Confirm->text(), isOn ? password + confirm : QString());
            for (const QWidget *control : std::initializer_list<QWidget *>{page.CardType, page.CardNumber,
                                                                           page.ValidCode, page.ExpMonth, page.ExpYear})
                QCOMPARE(isLightBlue(control), isOn);
            QVERIFY(!isLightBlue(page.Bank));

            // Opening the dialog again shows the state, cancelled or not; a protection without a password ends there.
            f.dialogs.messages.clear();
            f.dialog->reject();
            if (!isOn) {
                f.settings.ProtectCreditInfo = true;
                FormsPage &again = f.open();
                QVERIFY(!again.Protect->isChecked() && !f.settings.ProtectCreditInfo);
                QCOMPARE(f.dialogs.messages, QStringList{kNoPassword});
                continue;
            }
            FormsPage &again = f.open();
            QVERIFY(again.Protect->isChecked() && isLightBlue(again.CardNumber));
            QCOMPARE(again.Confirm->text(), password);
            again.Protect->click();
            QVERIFY(!f.settings.ProtectCreditInfo && f.settings.CreditInfoPassword.isEmpty());
            QVERIFY(!isLightBlue(again.CardNumber) && f.dialogs.messages.isEmpty());
        }
    }

    void tabGuard()
    {
        Fixture f;
        f.lock(u"Secret"_s);
        FormsPage &page = f.open();
        page.SSTab1->setCurrentIndex(1);
        for (const QString &wrong : {QString(), u"secret"_s, u"Secret "_s}) {
            page.SSTab1->setCurrentIndex(2);
            QCOMPARE(page.SSTab1->currentIndex(), 1);
            f.answer(wrong);
            QCOMPARE(page.SSTab1->currentIndex(), 1);
            QCOMPARE(f.dialogs.messages.takeLast(), u"Password is incorrect! please try again."_s);
        }
        page.SSTab1->setCurrentIndex(3);
        page.SSTab1->setCurrentIndex(2);
        f.dialog->findChild<frmFormPass *>()->cmdCancel->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(page.SSTab1->currentIndex(), 3);
        QVERIFY(f.dialogs.messages.isEmpty() && !f.flags.CreditUnlocked);

        page.SSTab1->setCurrentIndex(2);
        f.answer(u"Secret"_s);
        QCOMPARE(page.SSTab1->currentIndex(), 2);
        QVERIFY(f.flags.CreditUnlocked && !f.flags.ShortcutsEnabled);
        // The rest of the run needs no password, also in the next dialog.
        FormsPage &again = f.open();
        again.SSTab1->setCurrentIndex(2);
        QCOMPARE(again.SSTab1->currentIndex(), 2);
    }

    void confirmedAndCancelled()
    {
        Fixture f;
        FormsPage &page = f.open();
        QVERIFY(!f.flags.ShortcutsEnabled);
        page.firstname->setText(u" Ann "_s);
        page.CardType->setCurrentText(u"Diners Club"_s);
        page.CardNumber->setText(u"4111"_s);
        page.Custom[5]->setText(u"pet"_s);
        page.Value[5]->setText(u"cat"_s);
        page.chkAutoFormFill->setChecked(true);
        QPointer<frmOptions1> dialog = f.dialog;
        QTest::keyClick(f.dialog, Qt::Key_Return);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!dialog);
        QCOMPARE(f.flags.OptionsStartPage, 1);
        QVERIFY(f.settings.AutoFormFill && f.flags.ShortcutsEnabled);
        QCOMPARE(f.stored(u"fullname"_s), u" Ann  "_s);
        QCOMPARE(f.stored(u"cardtyp"_s) + f.stored(u"pet"_s), u"Diners Clubcat"_s);

        // Cancelled: nothing changes. A start page that is not there shows the first that is.
        FormsPage &second = f.open(1);
        QVERIFY(second.isVisible());
        QCOMPARE(second.CardType->currentText(), u"Diners Club"_s);
        QCOMPARE(second.Value[5]->text(), u"cat"_s);
        second.firstname->setText(u"Bea"_s);
        second.Custom[5]->setText(u"dog"_s);
        second.chkAutoFormFill->setChecked(false);
        f.dialog->btnCancel->click();
        QCOMPARE(f.stored(u"firstname"_s), u" Ann "_s);
        QVERIFY(f.settings.AutoFormFill);

        // While the card is locked its details are saved as they were.
        f.lock(u"Secret"_s);
        FormsPage &third = f.open();
        QCOMPARE(third.Custom[5]->text(), u"pet"_s);
        third.City->setText(u"Ghent"_s);
        f.dialog->btnOk->click();
        QCOMPARE(f.stored(u"city"_s) + f.stored(u"card_num"_s), u"Ghent4111"_s);
        QVERIFY(f.dialogs.messages.isEmpty());
    }

    void everythingIsNamed()
    {
        Fixture f;
        FormsPage &page = f.open();
        QCOMPARE(f.dialog->windowTitle(), u"Corvane Options"_s);
        QCOMPARE(f.dialog->TreeView1->currentItem()->text(0), u"Forms"_s);
        f.dialog->TreeView1->setCurrentItem(f.dialog->TreeView1->topLevelItem(0));
        QVERIFY(page.isVisible());

        static const QRegularExpression isNumber(u"^\\d*$"_s);
        QSet<QString> names;
        for (const QWidget *control : page.findChildren<QWidget *>()) {
            const bool isControl = qobject_cast<const QLineEdit *>(control) ||
                                   qobject_cast<const QComboBox *>(control) ||
                                   qobject_cast<const QToolButton *>(control);
            if (isControl && !qobject_cast<const QTabBar *>(control->parent())) {
                QVERIFY2(!isNumber.match(control->accessibleName()).hasMatch(), qPrintable(control->objectName()));
                QVERIFY2(!names.contains(control->accessibleName()), qPrintable(control->accessibleName()));
                names += control->accessibleName();
            }
            if (const auto *label = qobject_cast<const QLabel *>(control))
                QVERIFY2(!isNumber.match(label->text()).hasMatch(), qPrintable(label->text()));
        }
        QCOMPARE(names.size(), 39);

        // Tab goes through the controls as they are read, and the key of a label leads to its control.
        f.dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f.dialog));
        page.firstname->setFocus();
        QStringList order;
        for (int i = 0; i < 8; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            order += QApplication::focusWidget()->objectName();
        }
        QCOMPARE(order.join(u' '), u"lastname phone fax bday bmonth byear mail job"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::AltModifier);
        QCOMPARE(QApplication::focusWidget(), page.firstname);
        QTest::keyClick(page.firstname, Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(page.SSTab1->currentIndex(), 1);
    }
};

QTEST_MAIN(tst_FormsPage)
#include "tst_formspage.moc"
