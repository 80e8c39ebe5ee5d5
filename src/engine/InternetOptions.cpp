#include "engine/InternetOptions.h"

#include "base/Strings.h"
#include "engine/OptionPages.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace engine {

InternetOptions::InternetOptions(OptionsHost &host, QWidget *parent)
    : QDialog(parent)
    , m_host(host)
    , tabPages(new QTabWidget(this))
    , lblProblem(new QLabel(this))
{
    setObjectName(u"InternetOptions"_s);
    setWindowTitle(LoadResString(20500));
    setAttribute(Qt::WA_DeleteOnClose);
    tabPages->setObjectName(u"tabPages"_s);
    tabPages->setAccessibleName(LoadResString(20500));
    // All of them are to be seen at once.
    tabPages->setUsesScrollButtons(false);
    lblProblem->setObjectName(u"lblProblem"_s);
    lblProblem->setWordWrap(true);
    lblProblem->setTextFormat(Qt::PlainText);
    // The room is there from the beginning: a dialog that jumps while one types is a nuisance.
    lblProblem->setMinimumHeight(2 * fontMetrics().lineSpacing());

    auto *buttons = new QDialogButtonBox(this);
    btnOk = buttons->addButton(LoadResString(111), QDialogButtonBox::AcceptRole);
    btnOk->setObjectName(u"btnOk"_s);
    btnOk->setDefault(true);
    buttons->addButton(LoadResString(112), QDialogButtonBox::RejectRole);
    btnApply = buttons->addButton(LoadResString(20507), QDialogButtonBox::ApplyRole);
    btnApply->setObjectName(u"btnApply"_s);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(btnApply, &QPushButton::clicked, this, &InternetOptions::apply);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        // What could not be stored is told first; a second OK closes.
        if (!btnApply->isEnabled() || apply())
            accept();
    });

    auto *all = new QVBoxLayout(this);
    all->addWidget(tabPages);
    all->addWidget(lblProblem);
    all->addWidget(buttons);
    addPages();
    connect(tabPages, &QTabWidget::currentChanged, this, &InternetOptions::changed);
    changed();
    addTurningKeys();
    tabPages->tabBar()->setFocus();
}

void InternetOptions::addPages()
{
    addPage("General", 20501, new GeneralPage(m_host));
    addPage("Connection", 20502, new ConnectionPage);
    addPage("Privacy", 20503, new PrivacyPage);
    addPage("Languages", 20504, new LanguagesPage);
    addPage("Downloads", 20505, new DownloadsPage(m_host.systemDownloadFolder()));
    addPage("Identification", 20506, new IdentificationPage(m_host.ownAgent()));
}

void InternetOptions::addPage(const char *name, int caption, OptionPage *page)
{
    page->setObjectName(QLatin1StringView(name));
    page->load(m_host.settings());
    tabPages->addTab(page, LoadResString(caption));
    m_pages.push_back(page);
    connect(page, &OptionPage::changed, this, &InternetOptions::changed);
}

/// Ctrl+Tab belongs to the documents everywhere.
void InternetOptions::addTurningKeys()
{
    const auto add = [this](int key, int step) {
        auto *shortcut = new QShortcut(QKeySequence(Qt::ControlModifier | Qt::Key(key)), this);
        connect(shortcut, &QShortcut::activated, tabPages, [this, step] {
            const int count = tabPages->count();
            tabPages->setCurrentIndex((tabPages->currentIndex() + step + count) % count);
        });
    };
    add(Qt::Key_PageDown, 1);
    add(Qt::Key_PageUp, -1);
}

EngineSettings InternetOptions::collected() const
{
    EngineSettings settings = m_host.settings();
    for (const OptionPage *page : m_pages)
        page->store(settings);
    return settings;
}

void InternetOptions::changed()
{
    QString problem;
    for (std::size_t i = 0; i < m_pages.size() && problem.isEmpty(); ++i) {
        const QString told = m_pages[i]->problem();
        if (told.isEmpty())
            continue;
        // The problem of a tab that is not in front needs its name.
        const int tab = static_cast<int>(i);
        problem = tab == tabPages->currentIndex() ? told : LoadResString(20563).arg(tabPages->tabText(tab), told);
    }
    lblProblem->setText(problem);
    btnOk->setEnabled(problem.isEmpty());
    btnApply->setEnabled(problem.isEmpty() && collected() != m_host.settings());
}

/// True when the settings hold and are stored.
bool InternetOptions::apply()
{
    const bool isStored = m_host.apply(collected());
    changed();
    if (!isStored)
        lblProblem->setText(LoadResString(20571));
    return isStored;
}

} // namespace engine
