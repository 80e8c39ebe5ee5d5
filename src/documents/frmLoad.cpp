#include "documents/frmLoad.h"

#include "base/Strings.h"
#include "core/state/MainWindow.h"
#include "core/state/ProcessFlags.h"
#include "core/state/Settings.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
/// Values of the setting LoadAction.
constexpr int16_t kLoadAlways = 1;
constexpr int16_t kLoadNever = 3;
/// Width at which the question breaks into two lines, in pixels.
constexpr int kWidth = 400;
} // namespace

frmLoad::frmLoad(QWidget *owner, MainWindow &frmMain, Settings &settings, ProcessFlags &flags)
    : QDialog(owner)
    , label1(new QLabel(u"7501"_s, this))
    , Option1{new QRadioButton(this), new QRadioButton(this)}
    , chkDontAskAgain(new QCheckBox(this))
    , btnOk(new QPushButton(this))
    , btnCancel(new QPushButton(this))
    , m_frmMain(frmMain)
    , m_settings(settings)
    , m_flags(flags)
{
    setProperty(kTag, 7500);
    label1->setWordWrap(true);
    Option1[0]->setProperty(kTag, 7502);
    Option1[1]->setProperty(kTag, 7503);
    chkDontAskAgain->setProperty(kTag, 7504);
    btnOk->setProperty(kTag, 111);
    btnCancel->setProperty(kTag, 112);

    auto *options = new QVBoxLayout;
    options->setContentsMargins(16, 0, 0, 0);
    options->addWidget(Option1[0]);
    options->addWidget(Option1[1]);
    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(btnOk, QDialogButtonBox::AcceptRole);
    buttons->addButton(btnCancel, QDialogButtonBox::RejectRole);
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addWidget(label1);
    layout->addLayout(options);
    layout->addWidget(chkDontAskAgain);
    layout->addStretch();
    layout->addWidget(buttons);

    btnOk->setDefault(true);
    Option1[0]->setChecked(true);
    connect(btnOk, &QPushButton::clicked, this, &frmLoad::btnOk_Click);
    connect(btnCancel, &QPushButton::clicked, this, &frmLoad::reject);
    Form_Load();
    resize(kWidth, heightForWidth(kWidth));
    Option1[0]->setFocus();
}

frmLoad::~frmLoad()
{
    Form_Unload();
}

void frmLoad::Form_Load()
{
    LocalizeForm(this);
    m_flags.ShortcutsEnabled = false;
    m_loaded = true;
}

void frmLoad::Form_Unload()
{
    if (m_loaded)
        m_flags.ShortcutsEnabled = true;
    m_loaded = false;
}

void frmLoad::done(int result)
{
    QDialog::done(result);
    Form_Unload();
}

void frmLoad::btnOk_Click()
{
    const bool load = Option1[0]->isChecked();
    const bool dontAskAgain = chkDontAskAgain->isChecked();
    accept();
    if (load)
        m_frmMain.LoadAllDocuments();
    if (dontAskAgain)
        m_settings.LoadAction = load ? kLoadAlways : kLoadNever;
}
