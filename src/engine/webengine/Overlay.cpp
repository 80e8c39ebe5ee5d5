#include "engine/webengine/Overlay.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// Width of the text column in pixels: about 70 letters, which reads well.
constexpr int kColumn = 480;

/// A warning sign that is sharp at every scale, which the styles' own is not everywhere.
class WarningSign : public QWidget
{
public:
    explicit WarningSign(QWidget *parent)
        : QWidget(parent)
    {
        setFixedSize(32, 32);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(0xb3, 0x7a, 0x00), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(QColor(0xff, 0xcf, 0x40));
        painter.drawPolygon(QPolygonF({{16, 3}, {30, 28}, {2, 28}}));
        painter.setPen(QPen(QColor(0x3d, 0x2c, 0x00), 3, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(16, 12), QPointF(16, 19));
        painter.drawPoint(QPointF(16, 24));
    }
};

QWidget *column(QWidget *parent, const QString &title, const QString &text)
{
    auto *content = new QWidget(parent);
    content->setMaximumWidth(kColumn);
    auto *lines = new QVBoxLayout(content);
    lines->setSpacing(12);

    auto *heading = new QHBoxLayout;
    heading->setSpacing(12);
    heading->addWidget(new WarningSign(content), 0, Qt::AlignTop);
    auto *name = new QLabel(title, content);
    name->setTextFormat(Qt::PlainText);
    name->setWordWrap(true);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setWeight(QFont::DemiBold);
    name->setFont(large);
    heading->addWidget(name, 1);
    lines->addLayout(heading);

    auto *body = new QLabel(text, content);
    body->setTextFormat(Qt::PlainText);
    body->setWordWrap(true);
    body->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    lines->addWidget(body);
    return content;
}

} // namespace

Overlay::Overlay(QWidget *page, const QString &title, const QString &text, const std::vector<Choice> &choices)
    : QWidget(page)
{
    setObjectName(u"Overlay"_s);
    setAccessibleName(title);
    setAccessibleDescription(text);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    QWidget *content = column(this, title, text);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (const Choice &choice : choices) {
        auto *button = new QPushButton(choice.caption, content);
        button->setAutoDefault(true);
        button->setDefault(choice.isDefault);
        // Acts may delete this notice.
        connect(
            button, &QPushButton::clicked, this, [act = choice.act] { act(); }, Qt::QueuedConnection);
        buttons->addWidget(button);
        if (choice.isDefault)
            setFocusProxy(button);
    }
    static_cast<QVBoxLayout *>(content->layout())->addLayout(buttons);

    auto *middle = new QHBoxLayout;
    middle->addStretch(1);
    middle->addWidget(content, 100);
    middle->addStretch(1);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(24, 24, 24, 24);
    all->addStretch(2);
    all->addLayout(middle);
    all->addStretch(3);

    page->installEventFilter(this);
    setGeometry(page->rect());
    show();
    raise();
}

bool Overlay::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return false;
}

} // namespace engine
