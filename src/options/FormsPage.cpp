#include "options/FormsPage.h"

#include "base/Strings.h"
#include "base/step.h"
#include "core/state/ProcessFlags.h"
#include "core/state/Settings.h"
#include "desktop/Dialogs.h"
#include "desktop/Paths.h"
#include "forms/FormLock.h"
#include "forms/frmFormPass.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QShortcut>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kCardTab = 2;
/// Wide enough for the names and numbers that people have, in pixels.
constexpr int kWidth = 540;
/// Background of the controls that the password guards: light blue.
constexpr QColor kProtectedColor(0xCC, 0xCC, 0xFF);

} // namespace

FormsPage::FormsPage(const OptionsContext &context)
    : m_context(context)
    , m_store(context.formKeys)
{
    chkAutoFormFill = new QCheckBox(this);
    chkAutoFormFill->setObjectName(u"chkAutoFormFill"_s);
    chkAutoFormFill->setProperty(kTag, 8083);
    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName(u"SSTab1"_s);
    SSTab1->setUsesScrollButtons(false);
    SSTab1->setMinimumWidth(kWidth);
    SSTab1->setAccessibleName(LoadResString(5000));
    SSTab1->addTab(personTab(), LoadResString(20600));
    SSTab1->addTab(addressTab(), LoadResString(20601));
    SSTab1->addTab(cardTab(), LoadResString(20602));
    SSTab1->addTab(ownTab(), LoadResString(20603));

    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(10);
    all->addWidget(chkAutoFormFill);
    all->addWidget(SSTab1);

    addTurningKeys();
    m_store.loadedLate = [this] { show(ReadFormFields(m_store, m_context.store)); };
    connect(Protect, &QToolButton::toggled, this, &FormsPage::Protect_Click);
    connect(SSTab1, &QTabWidget::currentChanged, this, [this](int tab) { SSTab1_Click(std::exchange(m_tab, tab)); });
}

/// Ctrl+Tab belongs to the documents everywhere.
void FormsPage::addTurningKeys()
{
    for (const auto &[key, step] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, -1)}) {
        auto *shortcut = new QShortcut(QKeySequence(Qt::ControlModifier | key), this);
        connect(shortcut, &QShortcut::activated, this, [this, step = step] {
            const int count = SSTab1->count();
            SSTab1->setCurrentIndex((SSTab1->currentIndex() + step + count) % count);
        });
    }
}

void FormsPage::Prepare()
{
    const Settings &settings = m_context.settings;
    const QString password = settings.ProtectCreditInfo ? settings.CreditInfoPassword : QString();
    Password->setText(password);
    Confirm->setText(password);
    Protect->setChecked(settings.ProtectCreditInfo);
    alignLabels();
}

void FormsPage::LoadPage()
{
    chkAutoFormFill->setChecked(m_context.settings.AutoFormFill);
    LoadFormPage();
}

void FormsPage::LoadFormPage()
{
    m_store.LoadFormData(formFileIn(m_context.paths.programFolder));
    show(ReadFormFields(m_store, m_context.store));
}

bool FormsPage::SavePage()
{
    m_context.settings.AutoFormFill = chkAutoFormFill->isChecked();
    // Nothing tells of a record that could not be written; the one of before is still there then.
    step([&] { BuildFormFields(shown(), m_store, m_context.store, formFileIn(m_context.paths.programFolder)); });
    return true;
}

void FormsPage::show(const FormValues &values)
{
    for (const auto &[box, value] : m_texts)
        box->setText(values.*value);
    for (const auto &[list, value] : m_lists)
        list->setCurrentIndex(values.*value);
    for (std::size_t i = 0; i < values.own.size(); ++i) {
        Custom[i]->setText(values.own[i].Custom);
        Value[i]->setText(values.own[i].Value);
    }
}

FormValues FormsPage::shown() const
{
    FormValues values;
    for (const auto &[box, value] : m_texts)
        values.*value = box->text();
    for (const auto &[list, value] : m_lists)
        values.*value = list->currentIndex();
    for (std::size_t i = 0; i < values.own.size(); ++i)
        values.own[i] = {Custom[i]->text(), Value[i]->text()};
    return values;
}

void FormsPage::Protect_Click()
{
    Settings &settings = m_context.settings;
    if (!Protect->isChecked()) {
        Password->clear();
        Confirm->clear();
        settings.ProtectCreditInfo = false;
        settings.CreditInfoPassword.clear();
        setCardBackground(false);
    } else if (Password->text().isEmpty()) {
        refuseProtection(3022);
    } else if (Password->text() != Confirm->text()) {
        refuseProtection(3021);
    } else {
        settings.ProtectCreditInfo = true;
        settings.CreditInfoPassword = Password->text();
        setCardBackground(true);
    }
}

void FormsPage::refuseProtection(int message)
{
    Protect->setChecked(false);
    m_context.dialogs.messageBox(this, LoadResString(message), desktop::MB_ICONEXCLAMATION, LoadResString(20604));
}

void FormsPage::setCardBackground(bool isProtected)
{
    QPalette palette;
    if (isProtected) {
        for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Button})
            palette.setColor(role, kProtectedColor);
        for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText})
            palette.setColor(role, Qt::black);
    }
    for (QWidget *control : std::initializer_list<QWidget *>{CardType, CardNumber, ValidCode, ExpMonth, ExpYear})
        control->setPalette(palette);
}

void FormsPage::SSTab1_Click(int previousTab)
{
    if (SSTab1->currentIndex() != kCardTab || !FormLocked(m_context.settings, m_context.flags))
        return;
    SSTab1->setCurrentIndex(previousTab);
    askPassword();
}

void FormsPage::askPassword()
{
    if (m_question)
        return;
    m_question = new frmFormPass(window(), m_context.settings, m_context.flags, m_context.dialogs);
    m_question->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_question, &QDialog::finished, this, [this] {
        m_question.clear();
        // The question goes at once with the message about its password, and a window manager that has just given it
        // the keyboard back gives it to nobody then.
        window()->activateWindow();
        if (m_context.flags.CreditUnlocked)
            SSTab1->setCurrentIndex(kCardTab);
    });
    // The question gives the shortcuts back when it goes, but the options are still up.
    connect(m_question, &QObject::destroyed, this, [this] { m_context.flags.ShortcutsEnabled = false; });
    m_question->open();
}
