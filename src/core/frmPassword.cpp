#include "core/frmPassword.h"

#include "base/Strings.h"
#include "core/state/ProcessFlags.h"
#include "desktop/Dialogs.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmPassword::frmPassword(QWidget *owner, const QString &password, ProcessFlags &flags, desktop::Dialogs &dialogs)
    : QDialog(owner)
    , m_password(password)
    , m_flags(flags)
    , m_dialogs(dialogs)
{
    setProperty(kTag, 3500);
    setModal(true);
    lblLabels = new QLabel(u"3501"_s, this);
    txtPassword = new QLineEdit(this);
    txtPassword->setEchoMode(QLineEdit::Password);
    txtPassword->setMinimumWidth(260);
    lblLabels->setBuddy(txtPassword);
    cmdOK = new QPushButton(this);
    cmdOK->setProperty(kTag, 3503);
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(this);
    cmdCancel->setProperty(kTag, 3504);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(16, 14, 16, 14);
    all->setSpacing(8);
    all->addWidget(lblLabels);
    all->addWidget(txtPassword);
    all->addSpacing(6);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);

    LocalizeForm(this);
    txtPassword->setAccessibleName(lblLabels->text());
    connect(cmdOK, &QPushButton::clicked, this, &frmPassword::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::hide);
}

void frmPassword::ask()
{
    txtPassword->clear();
    show();
    raise();
    activateWindow();
    txtPassword->setFocus();
}

void frmPassword::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    m_flags.ShortcutsEnabled = false;
}

void frmPassword::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    m_flags.ShortcutsEnabled = true;
}

void frmPassword::cmdOK_Click()
{
    if (txtPassword->text() == m_password) {
        hide();
        emit passed();
        return;
    }
    m_dialogs.messageBox(this, LoadResString(3505), desktop::MB_ICONEXCLAMATION, LoadResString(100));
    txtPassword->setFocus();
    txtPassword->selectAll();
}
