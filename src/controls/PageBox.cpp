#include "controls/PageBox.h"

#include "controls/Texts.h"

#include <QAccessible>
#include <QApplication>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace controls {

namespace {

/// A page may send megabytes; nobody reads on after this.
constexpr int kTextLimit = 20000;
constexpr int kTitleLimit = 200;
/// A word may have so many characters before it is broken: this many wide letters fit into a line.
constexpr int kWordLimit = 30;
constexpr int kPanelWidth = 440;
/// Free pixels between the panel and the edge of the page.
constexpr int kEdge = 16;

QString cut(const QString &text)
{
    return text.size() > kTextLimit ? text.left(kTextLimit) + QChar(0x2026) : text;
}

/// The text with places in its long words where a line may end: a label cuts off what does not fit.
QString breakable(const QString &text)
{
    constexpr QChar kZeroWidthSpace(0x200b);
    QString result;
    int run = 0;
    for (const QChar c : text) {
        if (run >= kWordLimit && !c.isLowSurrogate() && !c.isMark()) {
            result += kZeroWidthSpace;
            run = 0;
        }
        result += c;
        run = c.isSpace() ? 0 : run + 1;
    }
    return result;
}

QLabel *plainLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    return label;
}

} // namespace

PageBox::PageBox(QWidget *page, const Content &content, Reply reply)
    : QWidget(page)
    , m_reply(std::move(reply))
{
    const QString from = drawableLine(content.from, kTitleLimit);
    const QString title = drawableLine(content.title, kTitleLimit);
    setAccessibleName(from.isEmpty() ? title : ownText(20213).arg(from));
    setAccessibleDescription(cut(content.text));
    setAttribute(Qt::WA_NoMousePropagation); // the page below gets nothing

    m_panel = new QFrame(this);
    m_panel->setObjectName(u"panel"_s);
    m_panel->setAutoFillBackground(true);
    m_panel->setBackgroundRole(QPalette::Window); // whatever the page below has
    auto *column = new QVBoxLayout(m_panel);
    column->setContentsMargins(18, 14, 18, 14);
    column->setSpacing(8);
    buildTexts(column, title, from, content);
    buildInputs(column, content);
    buildButtons(column, content);

    page->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { keepFocus(now); });
    layOut();
    show();
    raise();
    // A page that is not being used must not take the caret from where the user is typing.
    keepFocus(QApplication::focusWidget());
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

PageBox::~PageBox()
{
    disconnect(qApp, nullptr, this, nullptr); // the lines and buttons lose the focus when they end
    if (m_reply)
        std::exchange(m_reply, nullptr)(false, {}, {});
}

void PageBox::buildTexts(QVBoxLayout *column, const QString &title, const QString &from, const Content &content)
{
    QLabel *head = plainLabel(breakable(title), m_panel);
    head->setObjectName(u"title"_s);
    QFont bold = head->font();
    bold.setBold(true);
    head->setFont(bold);
    head->setVisible(!title.isEmpty());
    column->addWidget(head);

    QLabel *origin = plainLabel(breakable(from), m_panel);
    origin->setObjectName(u"from"_s);
    origin->setForegroundRole(QPalette::PlaceholderText);
    origin->setVisible(!from.isEmpty());
    column->addWidget(origin);

    m_message = plainLabel(breakable(cut(content.text)), m_panel);
    m_message->setObjectName(u"text"_s);
    m_message->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_scroll = new QScrollArea(m_panel);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidget(m_message);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_message->setAutoFillBackground(false);
    m_scroll->setVisible(!content.text.isEmpty());
    column->addWidget(m_scroll);
}

void PageBox::buildInputs(QVBoxLayout *column, const Content &content)
{
    auto *inputs = new QFormLayout;
    inputs->setContentsMargins(0, 0, 0, 0);
    inputs->setSpacing(6);
    if (content.wantsText) {
        m_text = new QLineEdit(content.defaultText, m_panel);
        m_text->selectAll();
        if (content.wantsPassword) {
            inputs->addRow(ownText(20207), m_text);
        } else {
            m_text->setAccessibleName(ownText(20209));
            inputs->addRow(m_text);
        }
    }
    if (content.wantsPassword) {
        m_password = new QLineEdit(m_panel);
        m_password->setEchoMode(QLineEdit::Password);
        m_password->setAttribute(Qt::WA_InputMethodEnabled, false);
        inputs->addRow(ownText(20208), m_password);
    }
    column->addLayout(inputs);
}

void PageBox::buildButtons(QVBoxLayout *column, const Content &content)
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    const auto add = [&](const QString &caption, bool accepts) {
        auto *button = new QPushButton(caption, m_panel);
        button->setObjectName(accepts ? u"accept"_s : u"reject"_s);
        button->setMinimumWidth(80);
        connect(button, &QPushButton::clicked, this, [this, accepts] { answer(accepts); });
        row->addWidget(button);
        return button;
    };
    m_accept = add(content.acceptCaption, true);
    m_accept->setDefault(true);
    if (!content.rejectCaption.isEmpty())
        m_reject = add(content.rejectCaption, false);
    column->addSpacing(2);
    column->addLayout(row);
}

/// What gets the focus first: the input line, else the button that agrees.
QWidget *PageBox::firstStop() const
{
    return m_text ? m_text : m_password ? static_cast<QWidget *>(m_password) : m_accept;
}

/// While the box stands, the focus cannot be in the page below it. Elsewhere it is none of the box's business.
void PageBox::keepFocus(QWidget *now)
{
    QWidget *page = parentWidget();
    if (!now || !page || isHidden() || now == this || isAncestorOf(now))
        return;
    if (now == page || page->isAncestorOf(now))
        firstStop()->setFocus(Qt::OtherFocusReason);
}

void PageBox::layOut()
{
    setGeometry(parentWidget()->rect());
    const int width = std::max(120, std::min(kPanelWidth, this->width() - 2 * kEdge));
    const QMargins inner = m_panel->layout()->contentsMargins();
    const int textWidth = width - inner.left() - inner.right();
    // A box without a text has a height of -1 there.
    int wanted = std::max(0, m_message->heightForWidth(textWidth));

    // All the rest of the panel decides how much of the text can be seen at once.
    m_scroll->setFixedHeight(0);
    m_panel->layout()->invalidate();
    const int rest = m_panel->layout()->hasHeightForWidth() ? m_panel->layout()->totalHeightForWidth(width)
                                                            : m_panel->layout()->totalSizeHint().height();
    const int room = std::max(fontMetrics().lineSpacing() * 2, height() - 2 * kEdge - rest);
    if (wanted > room)
        wanted = m_message->heightForWidth(textWidth - m_scroll->verticalScrollBar()->sizeHint().width());
    m_scroll->setFixedHeight(std::min(wanted, room));
    m_scroll->setFocusPolicy(wanted > room ? Qt::StrongFocus : Qt::NoFocus);
    const QSize size(width, rest + std::min(wanted, room));
    m_panel->setGeometry(QRect(QPoint((this->width() - width) / 2, std::max(0, (height() - size.height()) / 3)), size));
}

bool PageBox::eventFilter(QObject *object, QEvent *event)
{
    if (object == parentWidget() && event->type() == QEvent::Resize)
        layOut();
    return QWidget::eventFilter(object, event);
}

void PageBox::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (m_panel && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
        layOut();
}

void PageBox::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0, 0, 0, 90));
    // A line round the panel, and a soft edge below it.
    const QRect panel = m_panel->geometry();
    for (int i = 2; i <= 4; ++i)
        painter.fillRect(panel.adjusted(-i, -i + 1, i, i + 1), QColor(0, 0, 0, 22));
    painter.fillRect(panel.adjusted(-1, -1, 1, 1), palette().color(QPalette::Dark));
}

void PageBox::keyPressEvent(QKeyEvent *event)
{
    event->accept(); // nothing reaches the page
    if (event->key() == Qt::Key_Escape)
        answer(false);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        answer(!m_reject || !m_reject->hasFocus());
}

/// Tab goes round inside the box.
bool PageBox::focusNextPrevChild(bool next)
{
    QList<QWidget *> stops;
    for (QWidget *stop : std::initializer_list<QWidget *>{m_text, m_password, m_accept, m_reject, m_message}) {
        if (stop && stop->isVisible())
            stops.push_back(stop);
    }
    if (stops.isEmpty())
        return false;
    const qsizetype at = stops.indexOf(QApplication::focusWidget());
    const qsizetype to = at < 0 ? 0 : (at + (next ? 1 : -1) + stops.size()) % stops.size();
    stops[to]->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void PageBox::answer(bool accepted)
{
    if (!m_reply)
        return;
    const Reply reply = std::exchange(m_reply, nullptr);
    const QString text = accepted && m_text ? m_text->text() : QString();
    const QString password = accepted && m_password ? m_password->text() : QString();
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    hide();
    if (hadFocus && parentWidget())
        parentWidget()->setFocus(Qt::OtherFocusReason);
    deleteLater();
    reply(accepted, text, password);
}

} // namespace controls
