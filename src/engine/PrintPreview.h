#pragma once

#include "engine/PageFacets.h"

#include <QWidget>

class QAction;
class QComboBox;
class QLabel;
class QSpinBox;
class QToolBar;

namespace engine {

class PreviewPages;

/// A window that shows a page as it will come out of the printer. It stops nobody: the documents go on beside it.
class PrintPreview : public QWidget
{
    Q_OBJECT
public:
    /// Belongs to `page` and goes with it.
    PrintPreview(QWidget &page, PrintFacet &facet, const PageSetup &setup, const QString &title);

    /// Lays the pages out anew.
    void setSetup(const PageSetup &setup);
    PreviewPages &pages() { return *m_pages; }

signals:
    void printRequested();
    void pageSetupRequested();
    /// The user turned the sheet here.
    void setupChanged(const engine::PageSetup &setup);
    /// New pages are shown, or none could be made.
    void ready(bool shown);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QToolBar *toolBar();
    void addPageTools(QToolBar *bar);
    void addZoomTools(QToolBar *bar);
    QAction *addTool(QToolBar *bar, const QString &icon, int text, const std::function<void()> &act);
    void refresh();
    void showPages(const QByteArray &pdf);
    void turn(QPageLayout::Orientation orientation);
    void pickZoom(int index);
    void typeZoom();
    void stepZoom(int direction);
    void updateTools();

    PrintFacet &m_facet;
    PageSetup m_setup;
    PreviewPages *m_pages;
    QLabel *lblWaiting;
    QSpinBox *txtPage = nullptr;
    QLabel *lblPages = nullptr;
    QComboBox *cmbZoom = nullptr;
    QAction *actPrint = nullptr;
    QAction *actFirst = nullptr;
    QAction *actPrevious = nullptr;
    QAction *actNext = nullptr;
    QAction *actLast = nullptr;
    QAction *actPortrait = nullptr;
    QAction *actLandscape = nullptr;
    /// Number of the last order for pages; earlier ones come too late.
    int m_order = 0;
};

} // namespace engine
