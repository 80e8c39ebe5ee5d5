#pragma once

#include <QMenuBar>

class QToolButton;

namespace controls {

/// The menu bar as the content of a band: it asks for the width of all its menus, and what does not fit is listed by
/// the band's chevron instead of a button of its own.
class MenuBar : public QMenuBar
{
    Q_OBJECT
public:
    explicit MenuBar(QWidget *parent = nullptr);

    /// Pops up the menus that do not fit, at a screen position. Nothing when all fit.
    void ShowChevronMenu(int x, int y);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QToolButton *extension() const;
    QList<QAction *> hiddenActions() const;
};

/// Holds one toolbar as its whole content, on a picture of its own.
class ToolBarHost : public QWidget
{
    Q_OBJECT
public:
    explicit ToolBarHost(QWidget *parent = nullptr);

    /// Takes the toolbar as its content; the toolbar becomes its child.
    void HostCapture(QWidget *toolbar);
    /// Picture file tiled behind the toolbar, empty for none. Shown after HostRefresh. A file that is no picture is
    /// none.
    void setHostBackground(const QString &file) { m_file = file; }
    QString HostBackground() const { return m_file; }
    void HostRefresh();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override;

private:
    QWidget *m_content = nullptr;
    QString m_file;
    QPixmap m_tile;
};

} // namespace controls
