#include "engine/PageCommands.h"

#include "base/Strings.h"
#include "engine/PageSetupDialog.h"
#include "engine/PrintJob.h"
#include "engine/PrintPreview.h"
#include "engine/PropertiesDialog.h"
#include "engine/SaveDialog.h"
#include "engine/WebBrowser.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPrintDialog>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// How long a page has to wait after a print before it may ask for the next one.
constexpr int kPrintPauseMs = 3000;

/// Whether the window is open already; then it comes to the front.
bool bringToFront(QWidget *window)
{
    if (!window || !window->isVisible())
        return false;
    window->raise();
    window->activateWindow();
    return true;
}

} // namespace

PageCommands::PageCommands(QWidget &page, const Facets &facets, PageMemory &memory, Tell tell, Warn warn)
    : m_page(page)
    , m_facets(facets)
    , m_memory(memory)
    , m_tell(std::move(tell))
    , m_warn(std::move(warn))
{}

PageCommands::~PageCommands()
{
    delete m_saveDialog;
    delete m_print;
    delete m_preview;
    delete m_setupDialog;
    delete m_properties;
}

bool PageCommands::run(int cmdid)
{
    switch (cmdid) {
    case OLECMDID_SAVEAS:
        saveAs();
        return true;
    case OLECMDID_PRINT:
        print();
        return true;
    case OLECMDID_PRINTPREVIEW:
        preview();
        return true;
    case OLECMDID_PAGESETUP:
        pageSetup();
        return true;
    case OLECMDID_PROPERTIES:
        properties();
        return true;
    default:
        return false;
    }
}

// --- save ---

void PageCommands::saveAs()
{
    if (m_facets.save.isSaving()) {
        m_tell(LoadResString(20102).arg(m_facets.info.known().title));
        return;
    }
    if (bringToFront(m_saveDialog) || std::exchange(m_isAsking, true))
        return;
    const QPointer<PageCommands> guard(this);
    m_facets.info.read([guard](const PageInfo &info) {
        if (!guard)
            return;
        guard->m_isAsking = false;
        guard->m_saveDialog = showSaveDialog(info, guard->m_memory.folder(), &guard->m_page,
                                             [guard](const QString &path, SaveFormat format) {
                                                 if (guard)
                                                     guard->save(path, format);
                                             });
    });
}

void PageCommands::save(const QString &path, SaveFormat format)
{
    const QFileInfo file(path);
    m_memory.setFolder(file.absolutePath());
    m_tell(LoadResString(20102).arg(file.fileName()));
    const QPointer<PageCommands> guard(this);
    m_facets.save.save(path, format, [guard, file](bool saved) {
        if (!guard)
            return;
        if (saved) {
            guard->m_tell(LoadResString(20103).arg(file.fileName(), QDir::toNativeSeparators(file.absolutePath())));
            return;
        }
        const QString text = LoadResString(20406).arg(QDir::toNativeSeparators(file.filePath()));
        guard->m_tell(LoadResString(20405));
        guard->m_warn(LoadResString(20405), text);
    });
}

// --- print ---

void PageCommands::print()
{
    if (m_print) {
        if (!bringToFront(m_print->dialog()))
            m_tell(LoadResString(20415));
        return;
    }
    const PageInfo info = m_facets.info.known();
    const QString file = QDir(m_memory.folder()).filePath(fileNameFor(info));
    m_print = new PrintJob(m_page, m_facets.print, m_memory.setup(), info.title, file, m_tell);
    connect(m_print, &QObject::destroyed, this, [this] { m_sincePrint.start(); });
    m_print->ask();
}

void PageCommands::printForPage()
{
    if (!m_print && (!m_sincePrint.isValid() || m_sincePrint.hasExpired(kPrintPauseMs)))
        print();
}

void PageCommands::preview()
{
    if (bringToFront(m_preview))
        return;
    m_preview = new PrintPreview(m_page, m_facets.print, m_memory.setup(), m_facets.info.known().title);
    connect(m_preview, &PrintPreview::printRequested, this, &PageCommands::print);
    connect(m_preview, &PrintPreview::pageSetupRequested, this, &PageCommands::pageSetup);
    connect(m_preview, &PrintPreview::setupChanged, this, &PageCommands::keepSetup);
    m_preview->show();
}

void PageCommands::pageSetup()
{
    if (bringToFront(m_setupDialog))
        return;
    QWidget *owner = m_preview && m_preview->isVisible() ? static_cast<QWidget *>(m_preview) : &m_page;
    auto *dialog = new PageSetupDialog(m_memory.setup(), owner);
    m_setupDialog = dialog;
    connect(dialog, &PageSetupDialog::chosen, this, &PageCommands::keepSetup);
    dialog->show();
}

void PageCommands::keepSetup(const PageSetup &setup)
{
    m_memory.setSetup(setup);
    if (m_preview)
        m_preview->setSetup(setup);
}

// --- properties ---

void PageCommands::properties()
{
    if (bringToFront(m_properties) || std::exchange(m_isAsking, true))
        return;
    const QPointer<PageCommands> guard(this);
    m_facets.info.read([guard](const PageInfo &info) {
        if (!guard)
            return;
        guard->m_isAsking = false;
        guard->m_properties = new PropertiesDialog(info, &guard->m_page);
        guard->m_properties->show();
    });
}

} // namespace engine
