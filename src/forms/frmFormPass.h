#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
struct ProcessFlags;
struct Settings;
namespace desktop {
class Dialogs;
}

/// Asks for the password of the card details, once: a right and a wrong answer both close it.
class frmFormPass : public QDialog
{
    Q_OBJECT
public:
    /// A right password sets CreditUnlocked of `flags`.
    frmFormPass(QWidget *owner, const Settings &settings, ProcessFlags &flags, desktop::Dialogs &dialogs);
    ~frmFormPass() override;

    QLabel *lblPassword = nullptr;
    QLineEdit *txtPassword = nullptr;
    QPushButton *cmdOK = nullptr;
    QPushButton *cmdCancel = nullptr;

private:
    void cmdOK_Click();

    const Settings &m_settings;
    ProcessFlags &m_flags;
    desktop::Dialogs &m_dialogs;
};
