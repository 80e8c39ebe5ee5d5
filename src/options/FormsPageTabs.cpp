// What stands on the four tabs of the Forms page.

#include "options/FormsPage.h"

#include "base/Strings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using V = FormValues;

/// Columns of a group: label, control, label, control.
constexpr int kSecondHalf = 2;
constexpr int kYearWidth = 64;
constexpr int kLockEdge = 24;

/// A group frame with rows of labelled controls.
class Group
{
public:
    explicit Group(int caption)
        : box(new QGroupBox)
        , grid(new QGridLayout(box))
    {
        box->setProperty(kTag, caption);
        grid->setHorizontalSpacing(8);
        grid->setVerticalSpacing(8);
        grid->setColumnStretch(1, 1);
        grid->setColumnStretch(kSecondHalf + 1, 1);
    }

    /// `stop` gets the focus from the label's key. A wide control takes the rest of its row.
    void add(int row, int column, int label, QWidget *control, QWidget *stop, bool isWide)
    {
        auto *text = new QLabel(QString::number(label));
        text->setBuddy(stop);
        stop->setAccessibleName(plain(LoadResString(label)));
        grid->addWidget(text, row, column);
        grid->addWidget(control, row, column + 1, 1, isWide ? -1 : 1);
    }
    void left(int row, int label, QWidget *control) { add(row, 0, label, control, control, false); }
    void right(int row, int label, QWidget *control) { add(row, kSecondHalf, label, control, control, false); }
    void wide(int row, int label, QWidget *control) { add(row, 0, label, control, control, true); }

    /// Without the mark of the key and the colon.
    static QString plain(QString label)
    {
        label.remove(u'&');
        return label.endsWith(u':') ? label.chopped(1) : label;
    }

    QGroupBox *box;
    QGridLayout *grid;
};

/// Controls side by side, as wide as they want to be.
QWidget *inOneLine(std::initializer_list<QWidget *> controls)
{
    auto *line = new QWidget;
    auto *row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    for (QWidget *control : controls)
        row->addWidget(control);
    row->addStretch();
    return line;
}

QLabel *note(int text)
{
    auto *label = new QLabel(QString::number(text));
    label->setWordWrap(true);
    return label;
}

/// A tab with its groups at the top.
QWidget *tabOf(std::initializer_list<QWidget *> parts)
{
    auto *tab = new QWidget;
    auto *column = new QVBoxLayout(tab);
    column->setContentsMargins(10, 10, 10, 10);
    for (QWidget *part : parts)
        column->addWidget(part);
    column->addStretch();
    return tab;
}

} // namespace

QLineEdit *FormsPage::textBox(const char *name, FormValues::Text value)
{
    auto *box = new QLineEdit;
    box->setObjectName(QLatin1StringView(name));
    m_texts.emplace_back(box, value);
    return box;
}

QLineEdit *FormsPage::passwordBox(const char *name)
{
    auto *box = new QLineEdit;
    box->setObjectName(QLatin1StringView(name));
    box->setEchoMode(QLineEdit::Password);
    return box;
}

QComboBox *FormsPage::listBox(const char *name, FormValues::List value)
{
    auto *list = new QComboBox;
    list->setObjectName(QLatin1StringView(name));
    list->addItem(QString());
    list->addItems(rowsOf(value));
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_lists.emplace_back(list, value);
    return list;
}

QWidget *FormsPage::personTab()
{
    Group person(5001);
    person.left(0, 5002, title = listBox("title", &V::title));
    person.right(0, 5003, sex = listBox("sex", &V::sex));
    person.left(1, 5004, firstname = textBox("firstname", &V::firstname));
    person.right(1, 5005, lastname = textBox("lastname", &V::lastname));
    person.left(2, 5006, phone = textBox("phone", &V::phone));
    person.right(2, 5007, fax = textBox("fax", &V::fax));

    Group additional(8084);
    QWidget *birth = birthRow();
    additional.add(0, 0, 5008, birth, bday, true);
    additional.wide(1, 5009, mail = textBox("mail", &V::mail));
    additional.wide(2, 5010, job = textBox("job", &V::job));
    person.grid->addWidget(additional.box, 3, 0, 1, -1);
    m_additional = additional.box;
    return tabOf({person.box});
}

/// The first controls of all rows stand in one line, from tab to tab and through the inner group.
void FormsPage::alignLabels()
{
    int widest = 0;
    for (const QLabel *label : findChildren<QLabel *>()) {
        if (label->buddy())
            widest = std::max(widest, label->sizeHint().width());
    }
    for (QGroupBox *box : SSTab1->findChildren<QGroupBox *>()) {
        auto *grid = qobject_cast<QGridLayout *>(box->layout());
        const auto *first = qobject_cast<QLabel *>(grid->itemAtPosition(0, 0)->widget());
        const int inset = box->contentsMargins().left() + grid->contentsMargins().left();
        if (first && first->buddy())
            grid->setColumnMinimumWidth(0, box == m_additional ? widest - inset : widest);
    }
}

QWidget *FormsPage::birthRow()
{
    bday = listBox("bday", &V::bday);
    bmonth = listBox("bmonth", &V::bmonth);
    bmonth->setAccessibleName(LoadResString(20606));
    byear = textBox("byear", &V::byear);
    byear->setAccessibleName(LoadResString(20607));
    byear->setFixedWidth(kYearWidth);
    return inOneLine({bday, bmonth, byear});
}

QWidget *FormsPage::addressTab()
{
    Group address(5011);
    address.wide(0, 5012, address1 = textBox("address1", &V::address1));
    address.wide(1, 5013, Address2 = textBox("Address2", &V::Address2));
    address.wide(2, 5014, Country = listBox("Country", &V::Country));
    address.wide(3, 5015, City = textBox("City", &V::City));
    address.wide(4, 5016, State = textBox("State", &V::State));
    address.wide(5, 5017, ZipCode = textBox("ZipCode", &V::ZipCode));
    return tabOf({address.box});
}

QWidget *FormsPage::cardTab()
{
    Group card(5018);
    card.left(0, 5019, Password = passwordBox("Password"));
    QWidget *confirm = passwordRow();
    card.add(0, kSecondHalf, 5020, confirm, Confirm, false);
    card.grid->addWidget(note(20605), 1, 1, 1, -1);
    card.left(2, 5023, CardType = listBox("CardType", &V::CardType));
    card.left(3, 5024, CardNumber = textBox("CardNumber", &V::CardNumber));
    card.right(3, 5025, ValidCode = textBox("ValidCode", &V::ValidCode));
    QWidget *expiry = expiryRow();
    card.add(4, 0, 5026, expiry, ExpMonth, false);
    card.left(5, 5027, UserName = textBox("UserName", &V::UserName));
    card.right(5, 5028, Bank = textBox("Bank", &V::Bank));
    return tabOf({card.box});
}

QWidget *FormsPage::passwordRow()
{
    Confirm = passwordBox("Confirm");
    Protect = new QToolButton;
    Protect->setObjectName(u"Protect"_s);
    Protect->setCheckable(true);
    Protect->setFocusPolicy(Qt::StrongFocus);
    QIcon lock(u":/icons/options/unlocked.svg"_s);
    lock.addFile(u":/icons/options/locked.svg"_s, QSize(), QIcon::Normal, QIcon::On);
    Protect->setIcon(lock);
    Protect->setIconSize(QSize(kLockEdge, kLockEdge));
    Protect->setAccessibleName(LoadResString(20608));
    Protect->setToolTip(LoadResString(20608));
    auto *line = new QWidget;
    auto *row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(Confirm);
    row->addWidget(Protect);
    return line;
}

QWidget *FormsPage::expiryRow()
{
    ExpMonth = listBox("ExpMonth", &V::ExpMonth);
    ExpYear = textBox("ExpYear", &V::ExpYear);
    ExpYear->setAccessibleName(LoadResString(20609));
    ExpYear->setFixedWidth(kYearWidth);
    return inOneLine({ExpMonth, ExpYear});
}

QWidget *FormsPage::ownTab()
{
    Group own(8085);
    own.grid->addWidget(new QLabel(u"5030"_s), 0, 0);
    own.grid->addWidget(new QLabel(u"5031"_s), 0, 1);
    for (int i = 0; i < static_cast<int>(Custom.size()); ++i) {
        for (const auto &[boxes, column, text] : {std::tuple(&Custom, 0, 20610), std::tuple(&Value, 1, 20611)}) {
            auto *box = (*boxes)[i] = new QLineEdit;
            box->setObjectName((boxes == &Custom ? u"Custom%1"_s : u"Value%1"_s).arg(i));
            box->setAccessibleName(LoadResString(text).arg(i + 1));
            own.grid->addWidget(box, i + 1, column);
        }
    }
    own.grid->setColumnStretch(0, 1);
    own.grid->setColumnStretch(1, 2);
    own.grid->setColumnStretch(kSecondHalf + 1, 0);
    return tabOf({own.box, note(20612)});
}
