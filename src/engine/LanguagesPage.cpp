#include "base/Strings.h"
#include "engine/OptionPages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>
#include <map>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// The code of an entry, in the list and in the choices.
constexpr int kCodeRole = Qt::UserRole;

/// "Deutsch (Deutschland) [de-DE]"; a code that the system does not know stands alone.
QString shownLanguage(const QString &code)
{
    const QLocale locale(code);
    if (locale.language() == QLocale::C)
        return code;
    QString name = locale.nativeLanguageName();
    if (code.contains(u'-'))
        name += u" (%1)"_s.arg(locale.nativeTerritoryName());
    return u"%1 [%2]"_s.arg(name, code);
}

QPushButton *addButton(QBoxLayout *column, int caption, const char *name)
{
    auto *button = new QPushButton(LoadResString(caption));
    button->setObjectName(QLatin1StringView(name));
    button->setAutoDefault(false);
    column->addWidget(button);
    return button;
}

} // namespace

LanguagesPage::LanguagesPage()
    : chkSystem(new QCheckBox(LoadResString(20545), this))
{
    chkSystem->setObjectName(u"chkSystem"_s);
    auto *note = new QLabel(LoadResString(20544), this);
    note->setWordWrap(true);
    auto *all = new QVBoxLayout(this);
    all->addWidget(note);
    all->addWidget(chkSystem);
    QWidget *list = listBox();
    all->addWidget(list, 1);

    connect(chkSystem, &QCheckBox::toggled, this, [this, list](bool isSystem) {
        list->setEnabled(!isSystem);
        emit changed();
    });
}

QWidget *LanguagesPage::listBox()
{
    auto *box = new QWidget(this);
    auto *all = new QVBoxLayout(box);
    all->setContentsMargins({});
    lstLanguages = new QListWidget(box);
    lstLanguages->setObjectName(u"lstLanguages"_s);
    auto *label = new QLabel(LoadResString(20546), box);
    label->setBuddy(lstLanguages);
    all->addWidget(label);
    auto *row = new QHBoxLayout;
    row->addWidget(lstLanguages, 1);
    auto *buttons = new QVBoxLayout;
    btnUp = addButton(buttons, 20549, "btnUp");
    btnDown = addButton(buttons, 20550, "btnDown");
    btnRemove = addButton(buttons, 20548, "btnRemove");
    buttons->addStretch();
    row->addLayout(buttons);
    all->addLayout(row, 1);
    all->addWidget(newLanguageRow());

    connect(lstLanguages, &QListWidget::currentRowChanged, this, &LanguagesPage::updateButtons);
    connect(btnUp, &QPushButton::clicked, this, [this] { moveCurrent(-1); });
    connect(btnDown, &QPushButton::clicked, this, [this] { moveCurrent(1); });
    connect(btnRemove, &QPushButton::clicked, this, &LanguagesPage::removeCurrent);
    updateButtons();
    return box;
}

QWidget *LanguagesPage::newLanguageRow()
{
    auto *box = new QWidget(this);
    auto *row = new QHBoxLayout(box);
    row->setContentsMargins({});
    auto *label = new QLabel(LoadResString(20551), box);
    cmbLanguage = new QComboBox(box);
    cmbLanguage->setObjectName(u"cmbLanguage"_s);
    cmbLanguage->setEditable(true);
    cmbLanguage->setInsertPolicy(QComboBox::NoInsert);
    // The names of some languages are long.
    cmbLanguage->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    fillChoices();
    cmbLanguage->setCurrentIndex(-1);
    label->setBuddy(cmbLanguage);
    row->addWidget(label);
    row->addWidget(cmbLanguage, 1);
    btnAdd = addButton(row, 20547, "btnAdd");
    btnAdd->setEnabled(false);

    connect(cmbLanguage, &QComboBox::editTextChanged, this, [this] {
        btnAdd->setEnabled(!cmbLanguage->currentText().trimmed().isEmpty());
        emit changed();
    });
    connect(btnAdd, &QPushButton::clicked, this, &LanguagesPage::add);
    return box;
}

/// Every language that the system can name, by that name.
void LanguagesPage::fillChoices()
{
    std::map<QString, QString> choices;
    const QList<QLocale> all =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    for (const QLocale &locale : all) {
        if (locale.language() == QLocale::C || locale.nativeLanguageName().isEmpty())
            continue;
        for (const QString &code : {locale.bcp47Name().section(u'-', 0, 0), locale.bcp47Name()})
            choices.emplace(shownLanguage(code), code);
    }
    for (const auto &[name, code] : choices)
        cmbLanguage->addItem(name, code);
}

void LanguagesPage::append(const QString &code)
{
    auto *item = new QListWidgetItem(shownLanguage(code), lstLanguages);
    item->setData(kCodeRole, code);
}

/// The code of the choice or, when the line holds something else, that text.
QString LanguagesPage::typedCode() const
{
    const QString text = cmbLanguage->currentText().trimmed();
    const int index = cmbLanguage->findText(text, Qt::MatchFixedString);
    return index < 0 ? text : cmbLanguage->itemData(index, kCodeRole).toString();
}

void LanguagesPage::add()
{
    const QString code = typedCode();
    if (!isLanguageCode(code))
        return;
    int row = 0;
    while (row < lstLanguages->count() &&
           lstLanguages->item(row)->data(kCodeRole).toString().compare(code, Qt::CaseInsensitive) != 0)
        ++row;
    if (row == lstLanguages->count())
        append(code);
    lstLanguages->setCurrentRow(row);
    cmbLanguage->setCurrentIndex(-1);
    cmbLanguage->clearEditText();
    updateButtons();
    emit changed();
}

void LanguagesPage::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && btnAdd->isEnabled() && focusWidget() == cmbLanguage)
        add();
    else
        OptionPage::keyPressEvent(event);
}

void LanguagesPage::removeCurrent()
{
    delete lstLanguages->takeItem(lstLanguages->currentRow());
    updateButtons();
    emit changed();
}

void LanguagesPage::moveCurrent(int step)
{
    const int row = lstLanguages->currentRow();
    QListWidgetItem *item = lstLanguages->takeItem(row);
    lstLanguages->insertItem(row + step, item);
    lstLanguages->setCurrentItem(item);
    emit changed();
}

void LanguagesPage::updateButtons()
{
    const int row = lstLanguages->currentRow();
    btnRemove->setEnabled(row >= 0);
    btnUp->setEnabled(row > 0);
    btnDown->setEnabled(row >= 0 && row + 1 < lstLanguages->count());
}

void LanguagesPage::load(const EngineSettings &settings)
{
    lstLanguages->clear();
    // A list of one's own begins with what held before.
    for (const QString &code : settings.languages.isEmpty() ? systemLanguages() : settings.languages)
        append(code);
    chkSystem->setChecked(settings.languages.isEmpty());
}

void LanguagesPage::store(EngineSettings &settings) const
{
    settings.languages.clear();
    for (int row = 0; !chkSystem->isChecked() && row < lstLanguages->count(); ++row)
        settings.languages << lstLanguages->item(row)->data(kCodeRole).toString();
}

QString LanguagesPage::problem() const
{
    if (chkSystem->isChecked())
        return {};
    if (const QString code = typedCode(); !code.isEmpty() && !isLanguageCode(code))
        return LoadResString(20552).arg(code);
    return lstLanguages->count() == 0 ? LoadResString(20566) : QString();
}

} // namespace engine
