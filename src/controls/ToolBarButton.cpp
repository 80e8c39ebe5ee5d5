#include "controls/ToolBarButton.h"

#include "controls/FlatLook.h"
#include "controls/ToolBar.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

namespace controls {

namespace {

constexpr int kMargin = 4;
constexpr int kGap = 4;
constexpr int kArrow = 12;
constexpr int kSeparator = 8;
/// Longest caption that is shown whole. Captions can be the names of links.
constexpr int kMaxCaption = 160;

} // namespace

ToolBarButton::ToolBarButton(QWidget *parent, const QString &key, const QString &caption, int glyph, int style)
    : QToolButton(parent)
    , m_key(key)
    , m_caption(caption.simplified())
    , m_glyph(glyph)
    , m_separator(style & kButtonSeparator)
    , m_dropDown(style & kButtonDropDown)
{
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(m_caption);
    if (m_separator)
        setEnabled(false);
}

void ToolBarButton::setLook(const Look &look)
{
    m_look = look;
    setIconSize(QSize(look.cellSize, look.cellSize));
}

QString ToolBarButton::drawnCaption() const
{
    return textVisible ? fontMetrics().elidedText(m_caption, Qt::ElideRight, kMaxCaption) : QString();
}

QSize ToolBarButton::sizeHint() const
{
    const int least = m_look.cellSize + 2 * kMargin;
    if (m_separator)
        return {kSeparator, least};
    const QString text = drawnCaption();
    QSize content(m_look.cellSize, m_look.cellSize);
    if (!text.isEmpty()) {
        const QSize size(fontMetrics().horizontalAdvance(text), fontMetrics().height());
        if (m_look.textRight)
            content = {content.width() + kGap + size.width(), std::max(content.height(), size.height())};
        else
            content = {std::max(content.width(), size.width()), content.height() + 1 + size.height()};
    }
    return {content.width() + 2 * kMargin + (m_dropDown ? kArrow : 0), content.height() + 2 * kMargin};
}

void ToolBarButton::dropDown()
{
    const QPointer<ToolBarButton> alive(this);
    m_dropped = true;
    repaint();
    emit dropDownPressed();
    if (!alive)
        return;
    // The button stays down as long as its menu is open.
    if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
        connect(
            menu, &QMenu::aboutToHide, this,
            [this] {
                m_dropped = false;
                update();
            },
            Qt::SingleShotConnection);
        return;
    }
    m_dropped = false;
    update();
}

bool ToolBarButton::event(QEvent *event)
{
    // A disabled button of the base class swallows the mouse; the toolbar wants to hear a right click there too.
    if (!isEnabled() && event->type() == QEvent::MouseButtonPress) {
        event->ignore();
        return false;
    }
    return QToolButton::event(event);
}

void ToolBarButton::mousePressEvent(QMouseEvent *event)
{
    if (m_separator || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    if (m_dropDown && event->position().x() >= width() - kArrow) {
        event->accept();
        dropDown();
        return;
    }
    QToolButton::mousePressEvent(event);
}

void ToolBarButton::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        return;
    case Qt::Key_Down:
        if (m_dropDown)
            dropDown();
        return;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Home:
    case Qt::Key_End:
        // The base class walks through its neighbours in its own way.
        event->ignore();
        return;
    default:
        QToolButton::keyPressEvent(event);
    }
}

void ToolBarButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_separator) {
        QColor line = palette().color(QPalette::WindowText);
        line.setAlpha(70);
        painter.fillRect(width() / 2, 3, 1, height() - 6, line);
        return;
    }
    const bool hot = isEnabled() && (underMouse() || hasFocus() || m_dropped);
    paintFlatPanel(painter, rect(), palette(), isDown() || m_dropped, hot);

    const QColor color = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    QRect inner = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
    if (m_dropDown) {
        const QRect arrow(width() - kArrow, 0, kArrow, height());
        inner.setRight(arrow.left() - 1);
        if (hot) {
            QColor line = palette().color(QPalette::Highlight);
            line.setAlpha(90);
            painter.fillRect(arrow.left() - 1, 3, 1, height() - 6, line);
        }
        paintDropArrow(painter, arrow, color);
    }
    const QString text = drawnCaption();
    const int cell = m_look.cellSize;
    QRect glyph(inner.left(), inner.top() + (inner.height() - cell) / 2, cell, cell);
    QRect caption = inner.adjusted(cell + kGap, 0, 0, 0);
    int align = Qt::AlignLeft | Qt::AlignVCenter;
    if (!text.isEmpty() && !m_look.textRight) {
        glyph = QRect(inner.left() + (inner.width() - cell) / 2, inner.top(), cell, cell);
        caption = inner.adjusted(0, cell + 1, 0, 0);
        align = Qt::AlignHCenter | Qt::AlignTop;
    }
    const QPixmap pixmap =
        icon().pixmap(glyph.size(), devicePixelRatioF(), isEnabled() ? QIcon::Normal : QIcon::Disabled);
    if (!pixmap.isNull())
        painter.drawPixmap(glyph, pixmap);
    if (!text.isEmpty()) {
        painter.setPen(color);
        painter.drawText(caption, align | Qt::TextSingleLine, text);
    }
}

} // namespace controls
