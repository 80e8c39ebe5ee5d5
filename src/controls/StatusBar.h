#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>
#include <vector>

namespace controls {

class ImageList;

/// A status bar of panels. Panels are found by their key or their index, counted from 1; an unknown one throws
/// ControlError. Only a panel whose content really changed is painted again.
class StatusBar : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kNoBorders = 0x100;
    static constexpr int kToolTips = 0x800;
    static constexpr int kOwnerDraw = 0x1000;

    explicit StatusBar(QWidget *parent = nullptr);

    /// `minWidth` in pixels; a spring panel takes all free room.
    void AddPanel(int style, const QString &text, int icon, int minWidth, bool spring, const QString &key);
    int PanelCount() const;
    QString PanelText(int index) const;
    QString PanelText(const QString &key) const;
    void setPanelText(int index, const QString &text);
    void setPanelText(const QString &key, const QString &text);
    /// -1: no icon.
    int PanelIcon(const QString &key) const;
    void setPanelIcon(const QString &key, int icon);
    QString PanelToolTip(const QString &key) const;
    void setPanelToolTip(const QString &key, const QString &text);
    void RedrawPanel(const QString &key);
    /// Rectangle of a panel in pixels inside the bar.
    QRect PanelRect(int index) const;
    int PanelIndex(const QString &key) const;

    void setImageList(const ImageList *images);
    /// Percentage of the active document as text; empty before the first document.
    QString Tag() const { return m_tag; }
    void setTag(const QString &tag) { m_tag = tag; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void panelDoubleClick(int index);
    /// An owner drawn panel is to be painted. Pixels inside the bar; the painter belongs to the bar and is clipped.
    void ownerDraw(QPainter *painter, int index, const QRect &rect);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    bool event(QEvent *event) override;

private:
    struct Panel
    {
        QString key;
        QString text;
        QString toolTip;
        int style = 0;
        int icon = -1;
        int minWidth = 0;
        bool spring = false;
        QRect rect;
    };
    const Panel &panel(int index) const;
    Panel &panel(int index);
    int neededWidth(const Panel &panel) const;
    void layOut();
    void paintPanel(QPainter &painter, int index);
    /// Index of the panel under a point, 0 for none.
    int panelAt(const QPoint &point) const;

    std::vector<Panel> m_panels;
    const ImageList *m_images = nullptr;
    QString m_tag;
};

} // namespace controls
