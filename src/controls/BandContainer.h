#pragma once

#include <QString>
#include <QWidget>
#include <memory>

namespace controls {

/// A container of movable bands in rows. Bands are counted from 0 in the order of adding, wherever the user has dragged
/// them; index accessors throw ControlError for an index that does not exist. Sizes are pixels.
///
/// A band is a grip, an optional caption and the child. In each row the last band that is not of fixed size takes the
/// free room. A band whose child gets less width than its size hint asks for shows a chevron; a child without a size
/// hint, or with an expanding or ignored policy, adapts itself and needs none.
class BandContainer : public QWidget
{
    Q_OBJECT
public:
    explicit BandContainer(QWidget *parent = nullptr);
    ~BandContainer() override;

    /// Picture file tiled behind all bands; empty, or a file that is no picture, for none.
    void setBackgroundBitmap(const QString &file);
    QString BackgroundBitmap() const;
    /// Appends a band that shows `child`. `caption` stands before the child, empty for none. The child becomes a child
    /// of the container until RemoveAllBands.
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
    /// Lays the bands out anew. Costs nothing when nothing has changed since the last time.
    void RecalculateLayout();
    int BarHeight() const;
    /// The layout as XML: key, row, width and visibility of each band.
    QString LayoutText() const;
    /// Back to no background.
    void ResetBar();
    /// Takes all bands out; each child goes back, hidden, to the parent it had before.
    void RemoveAllBands();
    /// Hides the container for good; the bands are gone by then.
    void DestroyBar();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The child of a band got a new rectangle. Both rectangles are inside the container.
    void BandChildResize(int index, const QRect &band, const QRect &child);
    /// The chevron of a band that is too narrow was pressed; its rectangle in twips on the screen.
    void ChevronPushed(int index, const QRectF &twips);
    void HeightChanged(int height);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    /// Gives a band its rectangle, with a chevron when it needs one; true when that changes anything.
    bool placeBand(int index, const QRect &rect);
    QWidget &chevronOf(int index);

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace controls
