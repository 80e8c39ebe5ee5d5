#pragma once

#include "engine/PageFacets.h"

#include <QObject>
#include <QPainter>
#include <QPointer>
#include <QPrinter>
#include <memory>

class QPrintDialog;

namespace engine {

class PdfPages;

/// One print: asks for the printer, makes the pages and sends them one by one, so that the program goes on meanwhile.
/// Deletes itself when it has ended, and its dialog goes with it.
class PrintJob : public QObject
{
    Q_OBJECT
public:
    using Tell = std::function<void(const QString &text)>;

    /// `page` owns job and dialog; `tell` says in its status text how things stand. `file` is proposed, with the ending
    /// ".pdf", where no printer is installed.
    PrintJob(QWidget &page, PrintFacet &facet, const PageSetup &setup, const QString &title, const QString &file,
             Tell tell);
    ~PrintJob() override;

    /// Opens the system's print dialog, without an event loop.
    void ask();
    QPrintDialog *dialog() const;
    /// Prints as the printer object says; what the dialog does when it is accepted.
    void print();
    QPrinter &printer() { return m_printer; }

private:
    QPageRanges ranges() const;
    void printPages(const QByteArray &pdf);
    void writeFile(const QByteArray &pdf);
    void printNext();
    void end(const QString &text);

    QWidget &m_page;
    PrintFacet &m_facet;
    PageSetup m_setup;
    QString m_title;
    Tell m_tell;
    QPrinter m_printer;
    QPointer<QPrintDialog> m_dialog;
    std::unique_ptr<PdfPages> m_pages;
    /// Painting on the printer; goes before it.
    std::unique_ptr<QPainter> m_painter;
    /// Numbers of the pages that are still to print, copies included.
    std::vector<int> m_left;
    int m_total = 0;
};

} // namespace engine
