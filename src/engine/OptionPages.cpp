#include "engine/OptionPages.h"

#include "base/Strings.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// Where the fields that belong to a radio button begin: below its text.
constexpr int kIndent = 24;

/// A radio button that stands for `value` of an enumeration.
template <typename Enum>
QRadioButton *addChoice(QButtonGroup *group, QBoxLayout *column, int caption, const char *name, Enum value)
{
    auto *choice = new QRadioButton(LoadResString(caption));
    choice->setObjectName(QLatin1StringView(name));
    group->addButton(choice, static_cast<int>(value));
    column->addWidget(choice);
    return choice;
}

template <typename Enum>
Enum choiceOf(const QButtonGroup *group)
{
    return static_cast<Enum>(group->checkedId());
}

template <typename Enum>
void setChoice(QButtonGroup *group, Enum value)
{
    group->button(static_cast<int>(value))->setChecked(true);
}

QCheckBox *addCheck(QBoxLayout *column, int caption, const char *name)
{
    auto *check = new QCheckBox(LoadResString(caption));
    check->setObjectName(QLatin1StringView(name));
    column->addWidget(check);
    return check;
}

void addNote(QBoxLayout *column, int text)
{
    auto *note = new QLabel(LoadResString(text));
    note->setWordWrap(true);
    column->addWidget(note);
}

} // namespace

// --- General ---

GeneralPage::GeneralPage(OptionsHost &host)
    : m_host(host)
{
    auto *all = new QVBoxLayout(this);
    all->addWidget(cacheBox());
    all->addWidget(clearBox());
    all->addStretch();
}

QWidget *GeneralPage::cacheBox()
{
    using Cache = EngineSettings::Cache;
    auto *box = new QGroupBox(LoadResString(20508), this);
    auto *column = new QVBoxLayout(box);
    addNote(column, 20509);
    m_cache = new QButtonGroup(this);
    addChoice(m_cache, column, 20510, "optCacheAutomatic", Cache::Automatic);
    auto *sizeRow = new QHBoxLayout;
    QRadioButton *limited = addChoice(m_cache, sizeRow, 20511, "optCacheLimited", Cache::Limited);
    txtCacheSize = new QSpinBox(box);
    txtCacheSize->setObjectName(u"txtCacheSize"_s);
    txtCacheSize->setAccessibleName(LoadResString(20572));
    txtCacheSize->setRange(1, EngineSettings::kLargestCache);
    txtCacheSize->setSingleStep(50);
    txtCacheSize->setSuffix(LoadResString(20512));
    txtCacheSize->setEnabled(false);
    sizeRow->addWidget(txtCacheSize);
    sizeRow->addStretch();
    column->addLayout(sizeRow);
    addChoice(m_cache, column, 20513, "optCacheNone", Cache::None);

    connect(limited, &QRadioButton::toggled, txtCacheSize, &QWidget::setEnabled);
    connect(m_cache, &QButtonGroup::idToggled, this, &OptionPage::changed);
    connect(txtCacheSize, &QSpinBox::valueChanged, this, &OptionPage::changed);
    return box;
}

QWidget *GeneralPage::clearBox()
{
    auto *box = new QGroupBox(LoadResString(20514), this);
    auto *column = new QVBoxLayout(box);
    chkTemp = addCheck(column, 20515, "chkTemp");
    chkCookies = addCheck(column, 20516, "chkCookies");
    chkHistory = addCheck(column, 20517, "chkHistory");
    auto *row = new QHBoxLayout;
    btnClear = new QPushButton(LoadResString(20518), box);
    btnClear->setObjectName(u"btnClear"_s);
    btnClear->setAutoDefault(false);
    btnClear->setEnabled(false);
    lblCleared = new QLabel(box);
    lblCleared->setObjectName(u"lblCleared"_s);
    lblCleared->setWordWrap(true);
    lblCleared->setMinimumHeight(2 * fontMetrics().lineSpacing());
    row->addWidget(btnClear, 0, Qt::AlignTop);
    row->addWidget(lblCleared, 1);
    column->addLayout(row);

    for (QCheckBox *check : {chkTemp, chkCookies, chkHistory})
        connect(check, &QCheckBox::toggled, this, [this] { btnClear->setEnabled(chosen() != Traces()); });
    connect(btnClear, &QPushButton::clicked, this, &GeneralPage::clearNow);
    return box;
}

Traces GeneralPage::chosen() const
{
    Traces traces;
    traces.setFlag(Trace::TemporaryFiles, chkTemp->isChecked());
    traces.setFlag(Trace::Cookies, chkCookies->isChecked());
    traces.setFlag(Trace::History, chkHistory->isChecked());
    return traces;
}

void GeneralPage::clearNow()
{
    const Traces traces = chosen();
    m_host.clear(traces);
    QStringList names;
    if (traces.testFlag(Trace::TemporaryFiles))
        names << LoadResString(20520);
    if (traces.testFlag(Trace::Cookies))
        names << LoadResString(20521);
    if (traces.testFlag(Trace::History))
        names << LoadResString(20522);
    QString told = LoadResString(20519).arg(names.join(u", "_s));
    if (traces.testFlag(Trace::Cookies))
        told += u' ' + LoadResString(20523);
    lblCleared->setText(told);
    // A second press of the button needs a second decision; the focus has to be somewhere meanwhile.
    chkTemp->setFocus();
    for (QCheckBox *check : {chkTemp, chkCookies, chkHistory})
        check->setChecked(false);
}

void GeneralPage::load(const EngineSettings &settings)
{
    txtCacheSize->setValue(settings.cacheMegabytes);
    setChoice(m_cache, settings.cache);
}

void GeneralPage::store(EngineSettings &settings) const
{
    settings.cache = choiceOf<EngineSettings::Cache>(m_cache);
    settings.cacheMegabytes = txtCacheSize->value();
}

// --- Connection ---

ConnectionPage::ConnectionPage()
    : m_mode(new QButtonGroup(this))
    , m_server(new QWidget(this))
    , cmbProxyType(new QComboBox(m_server))
    , txtProxyHost(new QLineEdit(m_server))
    , txtProxyPort(new QSpinBox(m_server))
    , txtProxyUser(new QLineEdit(m_server))
{
    using Proxy = EngineSettings::Proxy;
    cmbProxyType->setObjectName(u"cmbProxyType"_s);
    cmbProxyType->addItems({LoadResString(20529), LoadResString(20530)});
    txtProxyHost->setObjectName(u"txtProxyHost"_s);
    txtProxyPort->setObjectName(u"txtProxyPort"_s);
    txtProxyPort->setRange(1, 65535);
    txtProxyPort->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    txtProxyUser->setObjectName(u"txtProxyUser"_s);

    auto *all = new QVBoxLayout(this);
    auto *box = new QGroupBox(LoadResString(20524), this);
    all->addWidget(box);
    all->addStretch();
    auto *column = new QVBoxLayout(box);
    addChoice(m_mode, column, 20525, "optProxySystem", Proxy::System);
    addChoice(m_mode, column, 20526, "optProxyDirect", Proxy::Direct);
    QRadioButton *manual = addChoice(m_mode, column, 20527, "optProxyManual", Proxy::Manual);
    auto *form = new QFormLayout(m_server);
    form->setContentsMargins(kIndent, 0, 0, 0);
    form->addRow(LoadResString(20528), cmbProxyType);
    form->addRow(LoadResString(20531), txtProxyHost);
    form->addRow(LoadResString(20532), txtProxyPort);
    form->addRow(LoadResString(20533), txtProxyUser);
    column->addWidget(m_server);
    addNote(column, 20534);

    m_server->setEnabled(false);
    connect(manual, &QRadioButton::toggled, m_server, &QWidget::setEnabled);
    connect(manual, &QRadioButton::clicked, txtProxyHost, [this] { txtProxyHost->setFocus(); });
    connect(m_mode, &QButtonGroup::idToggled, this, &OptionPage::changed);
    connect(cmbProxyType, &QComboBox::currentIndexChanged, this, &OptionPage::changed);
    connect(txtProxyPort, &QSpinBox::valueChanged, this, &OptionPage::changed);
    for (const QLineEdit *text : {txtProxyHost, txtProxyUser})
        connect(text, &QLineEdit::textChanged, this, &OptionPage::changed);
}

bool ConnectionPage::isManual() const
{
    return choiceOf<EngineSettings::Proxy>(m_mode) == EngineSettings::Proxy::Manual;
}

void ConnectionPage::load(const EngineSettings &settings)
{
    cmbProxyType->setCurrentIndex(static_cast<int>(settings.proxyType));
    txtProxyHost->setText(settings.proxyHost);
    txtProxyPort->setValue(settings.proxyPort);
    txtProxyUser->setText(settings.proxyUser);
    setChoice(m_mode, settings.proxy);
}

void ConnectionPage::store(EngineSettings &settings) const
{
    settings.proxy = choiceOf<EngineSettings::Proxy>(m_mode);
    // What was typed for a server that is not used stays for another time, if it is right.
    const QString host = txtProxyHost->text().trimmed();
    if (isManual() || host.isEmpty() || isHostName(host))
        settings.proxyHost = host;
    settings.proxyType = static_cast<EngineSettings::ProxyType>(cmbProxyType->currentIndex());
    settings.proxyPort = static_cast<quint16>(txtProxyPort->value());
    settings.proxyUser = txtProxyUser->text().trimmed();
}

QString ConnectionPage::problem() const
{
    const QString host = txtProxyHost->text().trimmed();
    if (!isManual() || isHostName(host))
        return {};
    return LoadResString(host.isEmpty() ? 20564 : 20565);
}

// --- Privacy ---

PrivacyPage::PrivacyPage()
    : m_cookies(new QButtonGroup(this))
{
    using Cookies = EngineSettings::Cookies;
    auto *all = new QVBoxLayout(this);
    auto *cookies = new QGroupBox(LoadResString(20535), this);
    auto *column = new QVBoxLayout(cookies);
    addChoice(m_cookies, column, 20536, "optCookiesAll", Cookies::All);
    addChoice(m_cookies, column, 20537, "optCookiesNoThirdParties", Cookies::NoThirdParties);
    addChoice(m_cookies, column, 20538, "optCookiesNone", Cookies::None);
    addNote(column, 20539);
    column->addSpacing(6);
    chkForget = addCheck(column, 20540, "chkForget");
    all->addWidget(cookies);

    auto *tracking = new QGroupBox(LoadResString(20541), this);
    column = new QVBoxLayout(tracking);
    chkDoNotTrack = addCheck(column, 20542, "chkDoNotTrack");
    addNote(column, 20543);
    all->addWidget(tracking);
    all->addStretch();

    connect(m_cookies, &QButtonGroup::idToggled, this, &OptionPage::changed);
    for (const QCheckBox *check : {chkForget, chkDoNotTrack})
        connect(check, &QCheckBox::toggled, this, &OptionPage::changed);
}

void PrivacyPage::load(const EngineSettings &settings)
{
    setChoice(m_cookies, settings.cookies);
    chkForget->setChecked(settings.forgetAtExit);
    chkDoNotTrack->setChecked(settings.doNotTrack);
}

void PrivacyPage::store(EngineSettings &settings) const
{
    settings.cookies = choiceOf<EngineSettings::Cookies>(m_cookies);
    settings.forgetAtExit = chkForget->isChecked();
    settings.doNotTrack = chkDoNotTrack->isChecked();
}

// --- Downloads ---

DownloadsPage::DownloadsPage(const QString &systemFolder)
    : m_systemFolder(QDir::cleanPath(systemFolder))
    , txtFolder(new QLineEdit(this))
    , btnSystemFolder(new QPushButton(LoadResString(20556), this))
{
    txtFolder->setObjectName(u"txtFolder"_s);
    btnSystemFolder->setObjectName(u"btnSystemFolder"_s);
    btnSystemFolder->setAutoDefault(false);
    auto *browse = new QPushButton(LoadResString(20554), this);
    browse->setObjectName(u"btnBrowse"_s);
    browse->setAutoDefault(false);
    auto *label = new QLabel(LoadResString(20553), this);
    label->setBuddy(txtFolder);

    auto *all = new QVBoxLayout(this);
    all->addWidget(label);
    auto *row = new QHBoxLayout;
    row->addWidget(txtFolder, 1);
    row->addWidget(browse);
    all->addLayout(row);
    all->addWidget(btnSystemFolder, 0, Qt::AlignLeft);
    all->addStretch();

    connect(browse, &QPushButton::clicked, this, &DownloadsPage::browse);
    connect(btnSystemFolder, &QPushButton::clicked, this,
            [this] { txtFolder->setText(QDir::toNativeSeparators(m_systemFolder)); });
    connect(txtFolder, &QLineEdit::textChanged, this, [this] {
        btnSystemFolder->setEnabled(folder() != m_systemFolder);
        emit changed();
    });
}

/// What the line says, with "~" for the user's home as in a shell.
QString DownloadsPage::folder() const
{
    QString typed = QDir::fromNativeSeparators(txtFolder->text().trimmed());
    if (typed == "~"_L1 || typed.startsWith("~/"_L1))
        typed.replace(0, 1, QDir::homePath());
    return typed.isEmpty() ? typed : QDir::cleanPath(typed);
}

void DownloadsPage::load(const EngineSettings &settings)
{
    const QString folder = settings.downloadFolder.isEmpty() ? m_systemFolder : settings.downloadFolder;
    txtFolder->setText(QDir::toNativeSeparators(folder));
}

void DownloadsPage::store(EngineSettings &settings) const
{
    const QString chosen = folder();
    settings.downloadFolder = chosen == m_systemFolder ? QString() : chosen;
}

QString DownloadsPage::problem() const
{
    const QString chosen = folder();
    // The system's own folder is no decision of the user that could be wrong.
    if (chosen == m_systemFolder)
        return {};
    if (!QDir::isAbsolutePath(chosen))
        return LoadResString(20567);
    // A folder that is missing is made when the first file comes.
    QFileInfo nearest(chosen);
    while (!nearest.exists() && !nearest.isRoot())
        nearest.setFile(nearest.path());
    return nearest.isDir() && nearest.isWritable() ? QString() : LoadResString(20568);
}

void DownloadsPage::browse()
{
    auto *dialog = new QFileDialog(this, LoadResString(20555), folder());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, txtFolder,
            [this](const QString &path) { txtFolder->setText(QDir::toNativeSeparators(path)); });
    dialog->open();
}

// --- Identification ---

IdentificationPage::IdentificationPage(const QString &ownAgent)
    : m_ownAgent(ownAgent)
    , m_agent(new QButtonGroup(this))
    , txtAgent(new QLineEdit(this))
{
    using Agent = EngineSettings::Agent;
    txtAgent->setObjectName(u"txtAgent"_s);
    txtAgent->setAccessibleName(LoadResString(20562));
    txtAgent->setMaxLength(EngineSettings::kLongestAgent);
    auto *all = new QVBoxLayout(this);
    auto *box = new QGroupBox(LoadResString(20557), this);
    auto *column = new QVBoxLayout(box);
    addChoice(m_agent, column, 20558, "optAgentOwn", Agent::Own);
    addChoice(m_agent, column, 20559, "optAgentOld", Agent::Old);
    addChoice(m_agent, column, 20560, "optAgentCustom", Agent::Custom);
    column->addWidget(txtAgent);
    addNote(column, 20561);
    all->addWidget(box);
    all->addStretch();

    connect(m_agent, &QButtonGroup::idToggled, this, [this](int, bool isOn) {
        if (isOn)
            showAgent();
        emit changed();
    });
    connect(txtAgent, &QLineEdit::textEdited, this, [this](const QString &text) {
        m_customAgent = text;
        emit changed();
    });
}

/// The line shows what sites would get, and can be changed only where it is the user's own.
void IdentificationPage::showAgent()
{
    const auto agent = choiceOf<EngineSettings::Agent>(m_agent);
    const bool isCustom = agent == EngineSettings::Agent::Custom;
    if (isCustom && m_customAgent.isEmpty())
        m_customAgent = txtAgent->text();
    txtAgent->setText(isCustom                              ? m_customAgent
                      : agent == EngineSettings::Agent::Old ? QString(EngineSettings::kOldAgent)
                                                            : m_ownAgent);
    txtAgent->setCursorPosition(0);
    txtAgent->setReadOnly(!isCustom);
    QPalette palette = this->palette();
    if (!isCustom)
        palette.setBrush(QPalette::Base, palette.window());
    txtAgent->setPalette(palette);
}

void IdentificationPage::load(const EngineSettings &settings)
{
    m_customAgent = settings.customAgent;
    setChoice(m_agent, settings.agent);
}

void IdentificationPage::store(EngineSettings &settings) const
{
    settings.agent = choiceOf<EngineSettings::Agent>(m_agent);
    if (settings.agent == EngineSettings::Agent::Custom || isAgentText(m_customAgent))
        settings.customAgent = m_customAgent.trimmed();
}

QString IdentificationPage::problem() const
{
    if (choiceOf<EngineSettings::Agent>(m_agent) != EngineSettings::Agent::Custom || isAgentText(m_customAgent))
        return {};
    return LoadResString(m_customAgent.trimmed().isEmpty() ? 20569 : 20570);
}

} // namespace engine
