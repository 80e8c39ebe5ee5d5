#pragma once

#include <QObject>
#include <QString>

namespace controls {
class BandContainer;
class MenuBar;
class ToolBar;
class ToolBarHost;
} // namespace controls

/// The six bands at the top of the main window: menu bar, logo, two toolbars, address bar and tab strip. Their order
/// and widths are the same at every start; what the user drags is told in layout.xml, and nothing reads that back.
class Bands : public QObject
{
    Q_OBJECT
public:
    struct Controls
    {
        /// The panel of the main window that holds the container.
        QWidget &picHolder;
        controls::BandContainer &cReBar1;
        controls::ToolBarHost &tbhMenu;
        controls::MenuBar &tbrMenu;
        QWidget &picTest;
        controls::ToolBar &Toolbar1;
        controls::ToolBar &Toolbar2;
        /// Holders of the address bar and of the tab strip.
        QWidget &Picture1;
        QWidget &Picture6;
        QWidget &vbalDTabControl1;
    };

    /// The controls must outlive this.
    Bands(const Controls &controls, const QString &programFolder, QObject *parent = nullptr);

    /// `skinPath` is the picture behind the bands, empty for none.
    void LoadBandLayout(const QString &skinPath);
    void CreateBands(const QString &skinPath);
    /// Writes layout.xml into the program folder. Any failure is silent: the program is on its way out.
    void SaveBandLayout() const;
    void DestroyBands();

    /// Where picHolder is docked: 1 top, 2 bottom (3 left, 4 right). It decides which of its measures follows the
    /// bands.
    int Align() const { return m_align; }
    void setAlign(int align);

signals:
    /// The main window has to dock picHolder there.
    void alignChanged(int align);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void BandChildResize(int index, const QRect &band, const QRect &child);
    void ChevronPushed(int index, const QRectF &twips);
    void HeightChanged(int height);
    void picHolderResized();

    Controls m_on;
    QString m_programFolder;
    int m_align = 1;
};
