#include "core/frmWindows.h"

#include "base/Strings.h"
#include "controls/Texts.h"
#include "core/state/ProcessFlags.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

/// Characters of a caption that a line shows; the window is not wide enough for more.
constexpr int kCaptionLimit = 200;

} // namespace

frmWindows::frmWindows(QWidget *owner, std::vector<Line> lines, int current, ProcessFlags &flags)
    : QDialog(owner)
    , m_lines(std::move(lines))
    , m_flags(flags)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setProperty(kTag, 20059);
    lstWindows = new QListWidget(this);
    lstWindows->setUniformItemSizes(true);
    for (const Line &line : m_lines)
        lstWindows->addItem(controls::drawableLine(line.caption, kCaptionLimit));
    lstWindows->setCurrentRow(current);
    btnOk = new QPushButton(this);
    btnOk->setProperty(kTag, 111);
    btnOk->setDefault(true);
    btnCancel = new QPushButton(this);
    btnCancel->setProperty(kTag, 112);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(btnOk);
    buttons->addWidget(btnCancel);
    auto *all = new QVBoxLayout(this);
    all->addWidget(lstWindows);
    all->addLayout(buttons);
    resize(460, 380);

    LocalizeForm(this);
    lstWindows->setAccessibleName(windowTitle());
    connect(btnOk, &QPushButton::clicked, this, &frmWindows::btnOk_Click);
    connect(lstWindows, &QListWidget::itemActivated, this, &frmWindows::btnOk_Click);
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);
    m_flags.ShortcutsEnabled = false;
}

frmWindows::~frmWindows()
{
    m_flags.ShortcutsEnabled = true;
}

void frmWindows::btnOk_Click()
{
    const int row = lstWindows->currentRow();
    const QPointer<QWidget> form = row >= 0 ? m_lines[row].form : nullptr;
    accept();
    if (form)
        emit chosen(form);
}
