#include "forms/frmFormPass.h"

#include "base/Strings.h"
#include "core/state/ProcessFlags.h"
#include "core/state/Settings.h"
#include "desktop/Dialogs.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {
constexpr int kPictureEdge = 32;
constexpr int kPasswordWidth = 240;
} // namespace

frmFormPass::frmFormPass(QWidget *owner, const Settings &settings, ProcessFlags &flags, desktop::Dialogs &dialogs)
    : QDialog(owner)
    , m_settings(settings)
    , m_flags(flags)
    , m_dialogs(dialogs)
{
    setObjectName(u"frmFormPass"_s);
    setProperty(kTag, 5500);
    m_flags.ShortcutsEnabled = false;
    auto *picture = new QLabel(this);
    picture->setPixmap(
        QIcon(u":/icons/options/locked.svg"_s).pixmap(QSize(kPictureEdge, kPictureEdge), devicePixelRatio()));
    auto *message = new QLabel(u"5501"_s, this);
    lblPassword = new QLabel(u"5502"_s, this);
    txtPassword = new QLineEdit(this);
    txtPassword->setObjectName(u"txtPassword"_s);
    txtPassword->setEchoMode(QLineEdit::Password);
    txtPassword->setMinimumWidth(kPasswordWidth);
    cmdOK = new QPushButton(this);
    cmdOK->setProperty(kTag, 111);
    cmdOK->setDefault(true);
    cmdCancel = new QPushButton(this);
    cmdCancel->setProperty(kTag, 112);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    buttons->addWidget(cmdOK);
    buttons->addWidget(cmdCancel);
    auto *all = new QGridLayout(this);
    all->setContentsMargins(16, 14, 16, 14);
    all->setHorizontalSpacing(12);
    all->setVerticalSpacing(8);
    all->addWidget(picture, 0, 0, 2, 1, Qt::AlignTop);
    all->addWidget(message, 0, 1, 1, 2);
    all->addWidget(lblPassword, 1, 1);
    all->addWidget(txtPassword, 1, 2);
    all->setRowMinimumHeight(2, 6);
    all->addLayout(buttons, 3, 1, 1, 2);
    all->setSizeConstraint(QLayout::SetFixedSize);

    LocalizeForm(this);
    txtPassword->setAccessibleName(message->text());
    connect(cmdOK, &QPushButton::clicked, this, &frmFormPass::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmFormPass::~frmFormPass()
{
    m_flags.ShortcutsEnabled = true;
}

void frmFormPass::cmdOK_Click()
{
    if (txtPassword->text() == m_settings.CreditInfoPassword)
        m_flags.CreditUnlocked = true;
    else
        m_dialogs.messageBox(this, LoadResString(5505), desktop::MB_ICONEXCLAMATION, LoadResString(100));
    accept();
}
