#pragma once

#include "engine/PageFacets.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

class QDialog;
class QFileDialog;

namespace engine {

class PrintJob;
class PrintPreview;

/// The commands of a document that the browser carries out with windows of its own: save, print, preview, page setup,
/// properties. No window stops another document or runs an event loop; each exists once for a document and is brought
/// to the front when it is asked for again. All of them close with the document.
class PageCommands : public QObject
{
    Q_OBJECT
public:
    struct Facets
    {
        PrintFacet &print;
        SaveFacet &save;
        InfoFacet &info;
    };
    /// A line for the status text.
    using Tell = std::function<void(const QString &text)>;
    /// Something that the user has to know before going on, shown in the document.
    using Warn = std::function<void(const QString &title, const QString &text)>;

    PageCommands(QWidget &page, const Facets &facets, PageMemory &memory, Tell tell, Warn warn);
    ~PageCommands() override;

    /// Runs the command OLECMDID_...; false for one that is not of this kind.
    bool run(int cmdid);
    /// The page itself wants to be printed. It is not listened to while a print is open and for a moment afterwards, so
    /// that it cannot ask without end.
    void printForPage();

private:
    void saveAs();
    void save(const QString &path, SaveFormat format);
    void print();
    void preview();
    void pageSetup();
    void keepSetup(const PageSetup &setup);
    void properties();

    QWidget &m_page;
    Facets m_facets;
    PageMemory &m_memory;
    Tell m_tell;
    Warn m_warn;
    /// A dialog that waits for what the page tells of itself.
    bool m_isAsking = false;
    QPointer<QFileDialog> m_saveDialog;
    QPointer<PrintJob> m_print;
    QPointer<PrintPreview> m_preview;
    QPointer<QDialog> m_setupDialog;
    QPointer<QDialog> m_properties;
    QElapsedTimer m_sincePrint;
};

} // namespace engine
