#include "engine/FindBar.h"

#include "base/Strings.h"
#include "engine/PageFacets.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// A long page is searched once for a word, not for each of its letters.
constexpr int kTypingMs = 120;
/// Nobody looks for more, and pasted texts may be long.
constexpr int kLongestText = 1000;
constexpr int kTextWidth = 240;

} // namespace

FindBar::FindBar(FindFacet &find, QWidget *parent)
    : QWidget(parent)
    , m_find(find)
    , txtFind(new QLineEdit(this))
    , lblHits(new QLabel(this))
    , btnPrevious(button(u"previous"_s, 20475))
    , btnNext(button(u"next"_s, 20476))
    , chkCase(new QCheckBox(LoadResString(20477), this))
    , chkHighlight(new QCheckBox(LoadResString(20478), this))
    , tmrTyping(new QTimer(this))
{
    setObjectName(u"FindBar"_s);
    setAccessibleName(LoadResString(20472));
    setAutoFillBackground(true);
    // The page around it is filled like paper.
    setBackgroundRole(QPalette::Window);
    txtFind->setObjectName(u"txtFind"_s);
    txtFind->setPlaceholderText(LoadResString(20472));
    txtFind->setAccessibleName(LoadResString(20472));
    txtFind->setMaxLength(kLongestText);
    txtFind->setMaximumWidth(kTextWidth);
    txtFind->setClearButtonEnabled(true);
    txtFind->installEventFilter(this);
    lblHits->setObjectName(u"lblHits"_s);
    btnPrevious->setObjectName(u"btnPrevious"_s);
    btnNext->setObjectName(u"btnNext"_s);
    chkCase->setObjectName(u"chkCase"_s);
    chkHighlight->setObjectName(u"chkHighlight"_s);
    chkHighlight->setChecked(true);
    QToolButton *btnClose = button(u"close"_s, 20479);
    btnClose->setObjectName(u"btnClose"_s);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 4, 3);
    row->setSpacing(6);
    row->addWidget(txtFind, 3);
    row->addWidget(btnPrevious);
    row->addWidget(btnNext);
    row->addWidget(lblHits);
    row->addSpacing(12);
    row->addWidget(chkCase);
    row->addWidget(chkHighlight);
    row->addStretch(1);
    row->addWidget(btnClose);

    tmrTyping->setSingleShot(true);
    tmrTyping->setInterval(kTypingMs);
    connect(txtFind, &QLineEdit::textChanged, tmrTyping, qOverload<>(&QTimer::start));
    connect(tmrTyping, &QTimer::timeout, this, [this] { this->find(false, true); });
    for (QCheckBox *option : {chkCase, chkHighlight})
        connect(option, &QCheckBox::toggled, this, [this] { this->find(false, true); });
    connect(btnPrevious, &QToolButton::clicked, this, [this] { findNext(true); });
    connect(btnNext, &QToolButton::clicked, this, [this] { findNext(); });
    connect(btnClose, &QToolButton::clicked, this, &FindBar::close);
    showHits(FindHits());
    hide();
}

QToolButton *FindBar::button(const QString &icon, int text)
{
    auto *button = new QToolButton(this);
    button->setIcon(QIcon(u":/icons/page/%1.svg"_s.arg(icon)));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(LoadResString(text));
    button->setAccessibleName(LoadResString(text));
    return button;
}

void FindBar::open()
{
    setVisible(true);
    raise();
    txtFind->setFocus(Qt::ShortcutFocusReason);
    txtFind->selectAll();
}

void FindBar::close()
{
    tmrTyping->stop();
    ++m_question;
    // Hiding hands the focus to whatever comes next in the window.
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    hide();
    m_find.endFind();
    if (hadFocus)
        emit focusLeft();
}

void FindBar::findNext(bool backward)
{
    tmrTyping->stop();
    find(backward, false);
}

void FindBar::pageChanged()
{
    tmrTyping->stop();
    ++m_question;
    showHits(FindHits());
    lblHits->clear();
}

void FindBar::find(bool backward, bool typing)
{
    FindOptions options;
    options.backward = backward;
    options.matchCase = chkCase->isChecked();
    options.highlightAll = chkHighlight->isChecked();
    options.typing = typing;
    const QPointer<FindBar> guard(this);
    m_find.find(txtFind->text(), options, [guard, question = ++m_question](const FindHits &hits) {
        if (guard && guard->m_question == question)
            guard->showHits(hits);
    });
}

void FindBar::showHits(const FindHits &hits)
{
    const bool isEmpty = txtFind->text().isEmpty();
    const bool isMissing = !isEmpty && hits.count == 0;
    lblHits->setText(isEmpty     ? QString()
                     : isMissing ? LoadResString(20474)
                                 : LoadResString(20473).arg(hits.active).arg(hits.count));
    btnPrevious->setEnabled(!isEmpty);
    btnNext->setEnabled(!isEmpty);
}

bool FindBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != txtFind || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return false;
    findNext(key->modifiers().testFlag(Qt::ShiftModifier));
    return true;
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else if (event->key() == Qt::Key_F3)
        findNext(event->modifiers().testFlag(Qt::ShiftModifier));
    else
        QWidget::keyPressEvent(event);
}

void FindBar::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(0, 0, width(), 1, palette().color(QPalette::Mid));
}

} // namespace engine
