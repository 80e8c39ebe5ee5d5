#pragma once

#include <QDialog>
#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;
struct ProcessFlags;
namespace desktop {
class Dialogs;
}

/// Asks for the tray password before the main window comes back. It stays loaded; a right password and Cancel hide it.
class frmPassword : public QDialog
{
    Q_OBJECT
public:
    /// `password` is the one that counts at the moment of the answer.
    frmPassword(QWidget *owner, const QString &password, ProcessFlags &flags, desktop::Dialogs &dialogs);

    /// Empties the box and shows the window, modal; it returns at once.
    void ask();

    QLabel *lblLabels = nullptr;
    QLineEdit *txtPassword = nullptr;
    QPushButton *cmdOK = nullptr;
    QPushButton *cmdCancel = nullptr;

signals:
    void passed();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void cmdOK_Click();

    const QString &m_password;
    ProcessFlags &m_flags;
    desktop::Dialogs &m_dialogs;
};
