#pragma once

#include <QString>
#include <QWidget>
#include <memory>

namespace controls {

/// A container of movable bands in rows. Bands are counted from 0; index accessors throw ControlError for an index that
/// does not exist. Sizes are pixels.
class BandContainer : public QWidget
{
    Q_OBJECT
public:
    explicit BandContainer(QWidget *parent = nullptr);
    ~BandContainer() override;

    /// Picture file tiled behind all bands; empty for none.
    void setBackgroundBitmap(const QString &file);
    QString BackgroundBitmap() const;
    /// Appends a band that shows `child`. `caption` stands before the child, empty for none.
    void AddBand(QWidget *child, const QString &caption, bool newRow, bool fixedSize, const QString &key);
    void setBandMinHeight(int index, int height);
    void setBandMinWidth(int index, int width);
    /// -1 when no band has the key.
    int BandIndexForKey(const QString &key) const;
    QString BandKey(int index) const;
    int BandCount() const;
    bool BandVisible(int index) const;
    void setBandVisible(int index, bool visible);
    void SetBandChildSize(int index, int width, int height);
    void RecalculateLayout();
    int BarHeight() const;
    /// The layout as XML: key, row, width and visibility of each band.
    QString LayoutText() const;
    void ResetBar();
    void RemoveAllBands();
    void DestroyBar();

    QSize sizeHint() const override;

signals:
    /// The child of a band got a new rectangle.
    void BandChildResize(int index, const QRect &band, const QRect &child);
    /// The chevron of a band that is too narrow was pressed; its rectangle in twips on the screen.
    void ChevronPushed(int index, const QRectF &twips);
    void HeightChanged(int height);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace controls
