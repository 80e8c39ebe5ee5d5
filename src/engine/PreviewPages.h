#pragma once

#include <QAbstractScrollArea>
#include <QHash>
#include <QImage>
#include <memory>
#include <vector>

namespace engine {

class PdfPages;

/// Shows sheets one below the other, at a zoom or fitted to the window. Draws only what can be seen, in the resolution
/// of the screen.
class PreviewPages : public QAbstractScrollArea
{
    Q_OBJECT
public:
    enum class Fit {
        Page,
        Width,
        /// Neither: the zoom that was set.
        None,
    };
    static constexpr double kSmallestZoom = 0.1;
    static constexpr double kLargestZoom = 4;

    explicit PreviewPages(QWidget *parent);
    ~PreviewPages() override;

    /// Null shows nothing. Keeps the place as far as the new pages have it.
    void setPages(std::unique_ptr<PdfPages> pages);
    int count() const;
    /// The page in the middle of the window, from 1; 0 without pages.
    int currentPage() const;
    void goTo(int page);

    void setFit(Fit fit);
    Fit fit() const { return m_fit; }
    /// 1 is the sheet's own size at 96 pixels to the inch.
    void setZoom(double zoom);
    double zoom() const { return m_zoom; }

signals:
    void pageChanged();
    void zoomChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    struct Drawn
    {
        QSize whole;
        QRect clip;
        QImage image;
    };
    void layOut();
    double fittingZoom() const;
    QRect sheetOnScreen(int index) const;
    void paintSheet(QPainter &painter, int index);
    const Drawn &drawn(int index, const QSize &whole, const QRect &visible);

    std::unique_ptr<PdfPages> m_pages;
    Fit m_fit = Fit::Page;
    double m_zoom = 1;
    /// Places of the sheets in the column, in device-independent pixels.
    std::vector<QRect> m_sheets;
    QHash<int, Drawn> m_drawn;
    int m_current = 0;
};

} // namespace engine
