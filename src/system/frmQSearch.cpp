#include "system/frmQSearch.h"

#include "base/Strings.h"
#include "base/step.h"
#include "base/units.h"
#include "controls/ComboBox.h"
#include "core/state/MainWindow.h"
#include "core/state/ProcessFlags.h"
#include "core/state/SettingsStore.h"
#include "core/state/SettingsTable.h"

#include <QComboBox>
#include <QGridLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QToolButton>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Place of the window before it was ever moved, and its width, in twips.
constexpr double kLeft = 5775;
constexpr double kTop = 7365;
constexpr double kWidth = 7830;
/// Sizes of the picture and of the button, in pixels.
constexpr QSize kPicture(57, 22);
constexpr QSize kButton(24, 22);

constexpr int kEnter = 13;
constexpr int kEscape = 27;

/// A search type: its name, and what stands before and behind the query in its address.
struct SearchType
{
    int name;
    const char16_t *before;
    const char16_t *behind;
};
constexpr SearchType kTypes[] = {
    {20060, u"https://www.google.com/search?hl=en&lr=&ie=UTF-8&oe=UTF-8&q=", u""},
    {20061, u"https://groups.google.com/groups?hl=en&lr=&ie=UTF-8&oe=UTF-8&tab=nf&q=", u"&sa=N&tab=fg"},
};

QString withoutOuterBlanks(QString text)
{
    while (text.startsWith(u' '))
        text.remove(0, 1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString itemKey(int n)
{
    return u"QSearchSearchListItem%1"_s.arg(n);
}

} // namespace

frmQSearch::frmQSearch(QWidget *owner, MainWindow &frmMain, SettingsStore &store, ProcessFlags &flags)
    : QDialog(owner)
    , m_frmMain(frmMain)
    , m_store(store)
    , m_flags(flags)
{
    setObjectName(u"frmQSearch"_s);
    setProperty(kTag, 4000);
    setModal(true);
    createControls();
    layOut();
    LocalizeForm(this);
    vbalCboEx1->setAccessibleName(Label2->text());
    vbalCboEx2->setAccessibleName(Label3->text());
    Command1->setAccessibleName(Label2->text());
    Command1->setToolTip(Label2->text());
    for (const SearchType &type : kTypes)
        vbalCboEx2->addItem(LoadResString(type.name));
    move(toPixels(kLeft), toPixels(kTop));
    load();

    connect(vbalCboEx1, &controls::ComboBox::key, this, &frmQSearch::vbalCboEx1_Key);
    connect(vbalCboEx1, &controls::ComboBox::textChanged, this,
            [this] { Command1->setEnabled(!vbalCboEx1->Text().isEmpty()); });
    connect(Command1, &QToolButton::clicked, this, &frmQSearch::Command1_Click);
}

void frmQSearch::createControls()
{
    Label1 = new QLabel(u"4001"_s, this);
    Label1->setWordWrap(true);
    Picture1 = new QLabel(this);
    Picture1->setFixedSize(kPicture);
    Picture1->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Picture1->setPixmap(
        QIcon(u":/icons/menu/03.svg"_s).pixmap(QSize(kPicture.height(), kPicture.height()), devicePixelRatio()));
    Label2 = new QLabel(u"4003"_s, this);
    vbalCboEx1 = new controls::ComboBox(this);
    Label2->setBuddy(vbalCboEx1);
    Label3 = new QLabel(u"4002"_s, this);
    vbalCboEx2 = new QComboBox(this);
    Label3->setBuddy(vbalCboEx2);
    Command1 = new QToolButton(this);
    Command1->setIcon(QIcon(u":/icons/bars/go.svg"_s));
    Command1->setFocusPolicy(Qt::StrongFocus);
    Command1->setFixedSize(kButton);
    Command1->setEnabled(false);
}

void frmQSearch::layOut()
{
    auto *all = new QGridLayout(this);
    all->setContentsMargins(14, 12, 14, 14);
    all->setHorizontalSpacing(8);
    all->setVerticalSpacing(8);
    all->addWidget(Label1, 0, 0, 1, 2);
    all->addWidget(Picture1, 0, 2, Qt::AlignRight | Qt::AlignTop);
    all->addWidget(Label2, 1, 0);
    all->addWidget(vbalCboEx1, 1, 1);
    all->addWidget(Command1, 1, 2, Qt::AlignLeft);
    all->addWidget(Label3, 2, 0);
    all->addWidget(vbalCboEx2, 2, 1, Qt::AlignLeft);
    all->setColumnStretch(1, 1);
    all->setSizeConstraint(QLayout::SetFixedSize);
    setMinimumWidth(toPixels(kWidth));
    Label1->setMinimumWidth(toPixels(kWidth) - kPicture.width() - 44);
    setTabOrder(vbalCboEx1, Command1);
    setTabOrder(Command1, vbalCboEx2);
}

void frmQSearch::load()
{
    const auto text = [this](const QString &key, const QString &own) {
        return m_store.GetSetting(appTitle(), u"Settings"_s, key, own);
    };
    const auto twips = [&](const QString &key, int own) {
        return toPixels(static_cast<double>(toSingle(text(key, QString::number(toTwips(own))))));
    };
    step([&] { move(twips(u"QSearchLeft"_s, x()), y()); });
    step([&] { move(x(), twips(u"QSearchTop"_s, y())); });
    step([&] {
        const int type = toInteger(text(u"QSearchTypesListIndex"_s, u"0"_s));
        if (type >= 0 && type < vbalCboEx2->count())
            vbalCboEx2->setCurrentIndex(type);
    });
    int count = 0;
    step([&] { count = toInteger(text(u"QSearchSearchListCount"_s, u"0"_s)); });
    for (int n = 1; n <= count; ++n)
        vbalCboEx1->InsertItem(vbalCboEx1->ListCount(), text(itemKey(n), QString()));
}

void frmQSearch::ask()
{
    if (isVisible())
        return;
    // The screen that it was stored on may have gone.
    const QRect area = screen()->availableGeometry();
    move(std::clamp(x(), area.left(), std::max(area.left(), area.right() - sizeHint().width())),
         std::clamp(y(), area.top(), std::max(area.top(), area.bottom() - sizeHint().height())));
    show();
    raise();
    activateWindow();
    vbalCboEx1->setFocus();
    vbalCboEx1->lineEdit()->selectAll();
}

void frmQSearch::ClearList()
{
    vbalCboEx1->Clear();
}

void frmQSearch::Unload()
{
    const auto save = [this](const QString &key, const QString &value) {
        m_store.SaveSetting(appTitle(), u"Settings"_s, key, value);
    };
    save(u"QSearchLeft"_s, QString::number(toTwips(x())));
    save(u"QSearchTop"_s, QString::number(toTwips(y())));
    save(u"QSearchTypesListIndex"_s, QString::number(vbalCboEx2->currentIndex()));
    save(u"QSearchSearchListCount"_s, QString::number(vbalCboEx1->ListCount()));
    for (int n = 1; n <= vbalCboEx1->ListCount(); ++n)
        save(itemKey(n), vbalCboEx1->List(n - 1));
    hide();
}

void frmQSearch::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    m_flags.ShortcutsEnabled = false;
}

void frmQSearch::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    m_flags.ShortcutsEnabled = true;
}

/// What the list of the types and the button leave over.
void frmQSearch::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Command1_Click();
    else if (event->key() == Qt::Key_Escape)
        putAway();
    else
        QDialog::keyPressEvent(event);
}

void frmQSearch::vbalCboEx1_Key(int &keyCode)
{
    if (keyCode == kEnter)
        Command1_Click();
    else if (keyCode == kEscape)
        putAway();
    else
        return;
    keyCode = 0;
}

void frmQSearch::Command1_Click()
{
    const QString text = vbalCboEx1->Text();
    vbalCboEx1->InsertItem(0, text);
    const QString query = withoutOuterBlanks(text).replace(u' ', u'+');
    putAway();
    const SearchType &type = kTypes[std::max(vbalCboEx2->currentIndex(), 0)];
    // Nothing but blanks is encoded, so a query may hold further parts of an address.
    m_frmMain.LoadNewDoc(QString::fromUtf16(type.before) + query + QString::fromUtf16(type.behind));
}

void frmQSearch::putAway()
{
    hide();
    parentWidget()->window()->activateWindow();
}
