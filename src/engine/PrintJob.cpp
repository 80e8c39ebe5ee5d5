#include "engine/PrintJob.h"

#include "base/Strings.h"
#include "engine/PdfPages.h"

#include <QDir>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// Dots per inch of what is sent to a printer. More cannot be seen, and takes seconds for each page.
constexpr int kResolution = 300;

} // namespace

PrintJob::PrintJob(QWidget &page, PrintFacet &facet, const PageSetup &setup, const QString &title, const QString &file,
                   Tell tell)
    : QObject(&page)
    , m_page(page)
    , m_facet(facet)
    , m_setup(setup)
    , m_title(title)
    , m_tell(std::move(tell))
    , m_printer(QPrinter::HighResolution)
{
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        m_printer.setOutputFormat(QPrinter::PdfFormat);
    m_printer.setDocName(title);
    m_printer.setResolution(kResolution);
    m_printer.setPageLayout(setup.layout);
    m_printer.setFullPage(true);
    if (m_printer.outputFormat() == QPrinter::PdfFormat)
        m_printer.setOutputFileName(file + ".pdf"_L1);
}

PrintJob::~PrintJob()
{
    m_painter.reset();
    delete m_dialog;
}

void PrintJob::ask()
{
    if (m_printer.outputFormat() == QPrinter::PdfFormat)
        m_tell(LoadResString(20410));
    m_dialog = new QPrintDialog(&m_printer, &m_page);
    m_dialog->setOption(QAbstractPrintDialog::PrintSelection, false);
    m_dialog->setOption(QAbstractPrintDialog::PrintCurrentPage, false);
    m_dialog->setWindowModality(Qt::NonModal);
    connect(m_dialog, &QDialog::finished, this, [this](int result) {
        if (result == QDialog::Accepted)
            print();
        else
            deleteLater();
    });
    m_dialog->show();
}

QPrintDialog *PrintJob::dialog() const
{
    return m_dialog;
}

void PrintJob::print()
{
    // The dialog may have changed paper and orientation; the margins stay those of the page setup.
    PageSetup setup = m_setup;
    setup.layout.setPageSize(m_printer.pageLayout().pageSize());
    setup.layout.setOrientation(m_printer.pageLayout().orientation());
    setup.layout.setMargins(m_setup.layout.margins());
    const QPointer<PrintJob> guard(this);
    m_facet.makePdf(setup, ranges(), [guard](const QByteArray &pdf) {
        if (guard)
            guard->printPages(pdf);
    });
}

QPageRanges PrintJob::ranges() const
{
    if (m_printer.printRange() != QPrinter::PageRange)
        return {};
    if (!m_printer.pageRanges().isEmpty() || m_printer.fromPage() < 1)
        return m_printer.pageRanges();
    QPageRanges ranges;
    ranges.addRange(m_printer.fromPage(), std::max(m_printer.fromPage(), m_printer.toPage()));
    return ranges;
}

void PrintJob::printPages(const QByteArray &pdf)
{
    if (!pdf.isEmpty() && m_printer.outputFormat() == QPrinter::PdfFormat) {
        writeFile(pdf);
        return;
    }
    m_pages = openPdf(pdf);
    if (!m_pages) {
        end(LoadResString(20414));
        return;
    }
    const int copies = m_printer.supportsMultipleCopies() ? 1 : m_printer.copyCount();
    for (int copy = 0; copy < copies; ++copy) {
        for (int page = 0; page < m_pages->count(); ++page)
            m_left.push_back(page);
    }
    if (m_printer.pageOrder() == QPrinter::FirstPageFirst)
        std::reverse(m_left.begin(), m_left.end());
    m_total = static_cast<int>(m_left.size());

    m_painter = std::make_unique<QPainter>();
    if (!m_painter->begin(&m_printer)) {
        m_painter.reset();
        end(LoadResString(20413).arg(m_printer.printerName()));
        return;
    }
    printNext();
}

/// The page itself goes into the file: its text can be searched, and it is a small part of a picture's size.
void PrintJob::writeFile(const QByteArray &pdf)
{
    const QString name = m_printer.outputFileName();
    QSaveFile file(name);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size() && file.commit();
    const QString shown = QDir::toNativeSeparators(name);
    end(isWritten ? LoadResString(20416).arg(shown) : LoadResString(20406).arg(shown));
}

void PrintJob::printNext()
{
    const int page = m_left.back();
    m_left.pop_back();
    const QRect sheet = m_printer.pageLayout().fullRectPixels(m_printer.resolution());
    m_painter->drawImage(sheet, m_pages->render(page, sheet.size(), QRect(QPoint(), sheet.size())));
    m_tell(LoadResString(20411).arg(m_total - static_cast<int>(m_left.size())).arg(m_total));
    if (m_left.empty()) {
        const bool isSent = m_painter->end();
        m_painter.reset();
        end(isSent ? LoadResString(20412).arg(m_title) : LoadResString(20413).arg(m_printer.printerName()));
        return;
    }
    if (!m_printer.newPage()) {
        end(LoadResString(20413).arg(m_printer.printerName()));
        return;
    }
    QTimer::singleShot(0, this, &PrintJob::printNext);
}

void PrintJob::end(const QString &text)
{
    m_tell(text);
    deleteLater();
}

} // namespace engine
