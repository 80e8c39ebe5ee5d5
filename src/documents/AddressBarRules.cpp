#include "documents/AddressBarRules.h"

#include "base/Strings.h"
#include "base/step.h"
#include "controls/ComboBox.h"
#include "core/state/Document.h"
#include "core/state/MainWindow.h"
#include "core/state/ProcessFlags.h"
#include "documents/AddressCompletion.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kEnter = 13;

} // namespace

AddressBarRules::AddressBarRules(const Parts &parts, QObject *parent)
    : QObject(parent)
    , m_parts(parts)
{
    using controls::ComboBox;
    ComboBox *bar = &m_parts.AddressBar;
    connect(bar, &ComboBox::gotFocus, this, [this] { m_focus = true; });
    connect(bar, &ComboBox::lostFocus, this, [this] { m_focus = false; });
    connect(bar, &ComboBox::beginEdit, this, [this] { m_bAddressEditing = true; });
    connect(bar, &ComboBox::endEdit, this, [this] { m_bAddressEditing = false; });
    connect(bar, &ComboBox::textChanged, this, [this] { m_parts.Go.setEnabled(!m_parts.AddressBar.Text().isEmpty()); });
    connect(bar, &ComboBox::key, this, [this](int &keyCode, int shift) {
        AddressBar_Key(keyCode, shift);
        if (keyCode == kEnter)
            tellSent();
    });
    connect(bar, &ComboBox::listItemPicked, this, [this] {
        AddressBar_Click();
        tellSent();
    });
    connect(&m_parts.Go, &QAbstractButton::clicked, this, [this] {
        Go_Click();
        tellSent();
    });
    m_parts.Go.setEnabled(!bar->Text().isEmpty());

    auto *completion = new AddressCompletion(*bar, m_parts.visits, this);
    connect(completion, &AddressCompletion::picked, this, [this](const QString &address) {
        m_bAddressEditing = false;
        m_parts.AddressBar.setText(address);
        AddressBar_Click();
        tellSent();
    });

    bar->lineEdit()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(bar->lineEdit(), &QWidget::customContextMenuRequested, this, &AddressBarRules::showMenu);
}

/// The menu of every text box, with an entry that sends what the clipboard holds.
void AddressBarRules::showMenu(const QPoint &at)
{
    QLineEdit &box = *m_parts.AddressBar.lineEdit();
    QMenu *menu = box.createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QList<QAction *> entries = menu->actions();
    const QString key = QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
    const auto paste =
        std::find_if(entries.begin(), entries.end(), [&](const QAction *entry) { return entry->text().endsWith(key); });
    const auto behind = paste == entries.end() ? paste : paste + 1;
    auto *pasteAndGo = new QAction(LoadResString(20062), menu);
    const QString address = QGuiApplication::clipboard()->text().trimmed();
    pasteAndGo->setEnabled(!address.isEmpty());
    connect(pasteAndGo, &QAction::triggered, this, [this, address] {
        m_parts.AddressBar.setText(address);
        int enter = kEnter;
        AddressBar_Key(enter, 0);
        tellSent();
    });
    menu->insertAction(behind == entries.end() ? nullptr : *behind, pasteAndGo);
    menu->popup(box.mapToGlobal(at));
}

void AddressBarRules::tellSent()
{
    if (!m_parts.AddressBar.Text().isEmpty())
        emit addressSent();
}

void AddressBarRules::AddAddress(const QString &s)
{
    m_parts.AddressBar.InsertItem(0, s, kAddressIcon);
}

void AddressBarRules::AddressBar_Key(int &keyCode, int /*shift*/)
{
    if (keyCode != kEnter)
        return;
    controls::ComboBox &bar = m_parts.AddressBar;
    if (m_parts.flags.CtrlDown)
        bar.setText("http://www."_L1 + bar.Text() + ".com"_L1);
    const QString text = bar.Text();
    if (text.isEmpty())
        return;
    Document *document = m_parts.frmMain.ActiveForm();
    if (!document || m_parts.goNew.isChecked()) {
        m_parts.frmMain.LoadNewDoc(text);
    } else {
        document->setCaption(QString());
        document->NavigateDoc(text);
    }
    // The whole list counts here, the letters' case included. What was sent goes in, and not what a new document has
    // made of it in the box: that would be the same address a second time.
    for (int index = 0; index < bar.ListCount(); ++index) {
        if (bar.List(index) == text)
            return;
    }
    AddAddress(text);
}

void AddressBarRules::AddressBar_Click()
{
    if (m_bAddressEditing)
        return;
    controls::ComboBox &bar = m_parts.AddressBar;
    const QString text = bar.Text();
    if (text.isEmpty())
        return;
    Document *document = m_parts.frmMain.ActiveForm();
    if (!document) {
        m_parts.frmMain.LoadNewDoc(text);
        return;
    }
    document->NavigateDoc(text);
    // Only the top entry counts here: an older one gets a second copy on top.
    if (bar.ListCount() == 0 || bar.List(0) != text)
        AddAddress(text);
}

void AddressBarRules::Go_Click()
{
    if (m_parts.goNew.isChecked()) {
        m_parts.frmMain.LoadNewDoc(m_parts.AddressBar.Text());
        return;
    }
    // The button has taken the focus: whatever edit there was is over.
    m_bAddressEditing = false;
    AddressBar_Click();
}
