#include "core/frmAbout.h"

#include "base/Strings.h"
#include "core/state/ProcessFlags.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmAbout::frmAbout(QWidget *owner, ProcessFlags &flags)
    : QDialog(owner)
    , m_flags(flags)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty(kTag, 9000);

    auto *logo = new QLabel(this);
    logo->setPixmap(QIcon(u":/icons/app/corvane.svg"_s).pixmap(QSize(64, 64), devicePixelRatio()));
    label2 = new QLabel(u"100"_s, this);
    QFont font = label2->font();
    font.setPointSizeF(font.pointSizeF() * 1.8);
    font.setBold(true);
    label2->setFont(font);
    label1 = new QLabel(u"107"_s, this);
    cmdOK = new QPushButton(this);
    cmdOK->setProperty(kTag, 111);
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);

    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch();
    texts->addWidget(label2);
    texts->addWidget(label1);
    texts->addStretch();
    auto *top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(logo);
    top->addLayout(texts);
    top->addStretch();
    auto *bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(cmdOK);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(20, 20, 20, 16);
    all->setSpacing(20);
    all->addLayout(top);
    all->addLayout(bottom);

    LocalizeForm(this);
    setMinimumWidth(320);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    m_flags.ShortcutsEnabled = false;
}

frmAbout::~frmAbout()
{
    m_flags.ShortcutsEnabled = true;
}
