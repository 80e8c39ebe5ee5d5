#pragma once

#include <QToolButton>

namespace controls {

/// One button of a ToolBar: flat, with a glyph and a caption beside or below it, and an arrow area when it drops down.
/// It paints itself; of QToolButton it takes the behaviour and the accessible role.
class ToolBarButton : public QToolButton
{
    Q_OBJECT
public:
    struct Look
    {
        int cellSize = 16;
        bool textRight = true;
    };

    ToolBarButton(QWidget *parent, const QString &key, const QString &caption, int glyph, int style);

    QString key() const { return m_key; }
    QString caption() const { return m_caption; }
    int glyph() const { return m_glyph; }
    bool isSeparator() const { return m_separator; }
    bool isDropDown() const { return m_dropDown; }
    /// Whether the program shows the button; the lack of room may still hide it.
    bool wanted = true;
    bool textVisible = true;

    void setLook(const Look &look);
    QSize sizeHint() const override;

signals:
    void dropDownPressed();

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void dropDown();
    QString drawnCaption() const;

    QString m_key;
    QString m_caption;
    int m_glyph;
    bool m_separator;
    bool m_dropDown;
    /// The menu of the drop-down is open.
    bool m_dropped = false;
    Look m_look;
};

} // namespace controls
