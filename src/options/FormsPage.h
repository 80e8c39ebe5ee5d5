#pragma once

#include "forms/FieldTable.h"
#include "forms/FormStore.h"
#include "options/OptionsPage.h"

#include <QPointer>
#include <array>
#include <utility>
#include <vector>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QTabWidget;
class QToolButton;
class frmFormPass;

/// The user's record for web forms, on four tabs, and the password that guards the details of his card.
///
/// The controls always hold the whole record: the guard only keeps the tab of the card from being shown, so that
/// confirming the dialog while it is locked saves the card as it was.
class FormsPage : public OptionsPage
{
    Q_OBJECT
public:
    explicit FormsPage(const OptionsContext &context);

    /// Sets the password boxes, which switches protection off when there is no password to protect with.
    void Prepare() override;
    void LoadPage() override;
    bool SavePage() override;

    void LoadFormPage();
    /// Acts on the program's values at once; cancelling the dialog does not undo it.
    void Protect_Click();
    /// The tab guard; `previousTab` is the one that was showing before.
    void SSTab1_Click(int previousTab);

    QCheckBox *chkAutoFormFill = nullptr;
    QTabWidget *SSTab1 = nullptr;

    QComboBox *title = nullptr;
    QComboBox *sex = nullptr;
    QLineEdit *firstname = nullptr;
    QLineEdit *lastname = nullptr;
    QLineEdit *phone = nullptr;
    QLineEdit *fax = nullptr;
    QComboBox *bday = nullptr;
    QComboBox *bmonth = nullptr;
    QLineEdit *byear = nullptr;
    QLineEdit *mail = nullptr;
    QLineEdit *job = nullptr;

    QLineEdit *address1 = nullptr;
    QLineEdit *Address2 = nullptr;
    QComboBox *Country = nullptr;
    QLineEdit *City = nullptr;
    QLineEdit *State = nullptr;
    QLineEdit *ZipCode = nullptr;

    QLineEdit *Password = nullptr;
    QLineEdit *Confirm = nullptr;
    QToolButton *Protect = nullptr;
    QComboBox *CardType = nullptr;
    QLineEdit *CardNumber = nullptr;
    QLineEdit *ValidCode = nullptr;
    QComboBox *ExpMonth = nullptr;
    QLineEdit *ExpYear = nullptr;
    QLineEdit *UserName = nullptr;
    QLineEdit *Bank = nullptr;

    std::array<QLineEdit *, 6> Custom{};
    std::array<QLineEdit *, 6> Value{};

private:
    QWidget *personTab();
    void addTurningKeys();
    void alignLabels();
    QWidget *birthRow();
    QWidget *addressTab();
    QWidget *cardTab();
    QWidget *passwordRow();
    QWidget *expiryRow();
    QWidget *ownTab();
    QLineEdit *textBox(const char *name, FormValues::Text value);
    QLineEdit *passwordBox(const char *name);
    QComboBox *listBox(const char *name, FormValues::List value);

    void show(const FormValues &values);
    FormValues shown() const;
    void refuseProtection(int message);
    void setCardBackground(bool isProtected);
    void askPassword();

    const OptionsContext m_context;
    FormStore m_store;
    QWidget *m_additional = nullptr;
    std::vector<std::pair<QLineEdit *, FormValues::Text>> m_texts;
    std::vector<std::pair<QComboBox *, FormValues::List>> m_lists;
    /// The tab that shows.
    int m_tab = 0;
    QPointer<frmFormPass> m_question;
};
