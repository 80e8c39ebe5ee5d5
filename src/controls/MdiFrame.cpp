#include "controls/MdiFrame.h"

#include "base/step.h"
#include "controls/GlyphButton.h"
#include "controls/MdiChild.h"
#include "controls/Texts.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

namespace controls {

namespace {

/// A title bar shows no more; a page's title may have a megabyte.
constexpr int kCaptionLimit = 250;

/// The buttons of the active child. They are seen only where the main window has put them.
class ChildControls : public QWidget
{
public:
    using QWidget::QWidget;
    void setWanted(bool wanted)
    {
        m_wanted = wanted;
        apply();
    }

protected:
    bool event(QEvent *event) override
    {
        const bool done = QWidget::event(event);
        if (event->type() == QEvent::ParentChange)
            apply();
        return done;
    }

private:
    void apply() { setVisible(m_wanted && parentWidget() && !qobject_cast<MdiFrame *>(parentWidget())); }
    bool m_wanted = false;
};

} // namespace

MdiFrame::MdiFrame(QWidget *parent)
    : QMdiArea(parent)
{
    setAccessibleName(ownText(20205));
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setOption(DontMaximizeSubWindowOnActivation);
    viewport()->setMouseTracking(true);
    paintBackground();
    connect(this, &QMdiArea::subWindowActivated, this, &MdiFrame::subWindowCameUp);
    m_controls = makeChildControls();
}

MdiFrame::~MdiFrame()
{
    // The forms belong to others: whoever made them still finds them, without a word to anybody.
    disconnect();
    ++m_working;
    for (MdiChild *child : m_children) {
        child->disconnect(this);
        child->release();
    }
}

void MdiFrame::paintBackground()
{
    const QColor window = palette().color(QPalette::Window);
    const bool dark = window.lightness() < 128;
    setBackground(dark ? window.lighter(130) : window.darker(125));
}

MdiChild *MdiFrame::childOf(const QWidget *form) const
{
    const auto found = std::find_if(m_children.begin(), m_children.end(),
                                    [&](const MdiChild *child) { return child->form() == form; });
    return form && found != m_children.end() ? *found : nullptr;
}

/// The child that was used last; a minimised one only when there is no other.
MdiChild *MdiFrame::lastUsedChild() const
{
    const auto rank = [](const MdiChild *child) { return std::pair(!child->isMinimized(), child->lastUsed); };
    const auto best = std::max_element(m_children.begin(), m_children.end(),
                                       [&](const MdiChild *a, const MdiChild *b) { return rank(a) < rank(b); });
    return best == m_children.end() ? nullptr : *best;
}

void MdiFrame::connectChild(MdiChild *child)
{
    connect(child, &MdiChild::maximiseRequested, this, [this, child] {
        setMaximised(true);
        setActive(child, true);
    });
    connect(child, &MdiChild::minimiseStarts, this, [this] { setMaximised(false); });
    connect(child, &MdiChild::minimisedChanged, this, [this, child](bool now) { minimisedChanged(child, now); });
    connect(child, &MdiChild::placed, this, [this] {
        if (m_working == 0)
            m_tiled = false;
    });
    connect(child, &MdiChild::bordersChanged, this, [this, child] {
        if (m_working == 0 && m_maximised && child == m_active)
            place(child);
    });
    // Later, because the answer ends the child, and this is still inside one of its mouse events.
    connect(
        child, &MdiChild::closeRequested, this,
        [this, child = QPointer(child)] {
            if (child && child->form())
                emit formCloseRequested(child->form());
        },
        Qt::QueuedConnection);
    // A form that its maker deletes without a word leaves the frame like any other.
    connect(child->form(), &QObject::destroyed, child, [this, child] {
        child->forget();
        leave(child);
    });
}

void MdiFrame::showForm(QWidget *form)
{
    if (MdiChild *present = childOf(form)) {
        setActive(present, true);
        return;
    }
    MdiChild *child = nullptr;
    {
        const QScopedValueRollback working(m_working, m_working + 1);
        child = new MdiChild(*this, form);
        // A place of its own before QMdiArea sees it, which would look for a free one among all others.
        child->setGeometry(QRect(QPoint(), viewport()->size()));
        addSubWindow(child);
        m_children.push_back(child);
        connectChild(child);
        m_tiled = false;
    }
    setActive(child, false);
}

void MdiFrame::removeForm(QWidget *form)
{
    if (MdiChild *child = childOf(form))
        leave(child);
}

void MdiFrame::leave(MdiChild *child)
{
    const bool wasActive = child == m_active;
    {
        const QScopedValueRollback working(m_working, m_working + 1);
        m_children.erase(std::find(m_children.begin(), m_children.end(), child));
        if (wasActive) {
            m_active = lastUsedChild();
            // The next one comes up first: the focus goes straight there and nothing else is seen between the two.
            if (m_active)
                bringUp(m_active, false);
        }
        child->disconnect(this);
        if (child->form())
            child->form()->disconnect(child);
        child->hide();
        child->release();
        removeSubWindow(child);
        child->deleteLater();
    }
    if (m_children.empty())
        m_cascadeStep = 0;
    showOrCover();
    if (wasActive) {
        m_told = nullptr;
        announce(true);
    }
}

void MdiFrame::activateForm(QWidget *form)
{
    if (MdiChild *child = childOf(form))
        setActive(child, true);
}

QWidget *MdiFrame::activeForm() const
{
    return m_active ? m_active->form() : nullptr;
}

QList<QWidget *> MdiFrame::forms() const
{
    QList<QWidget *> all;
    all.reserve(static_cast<qsizetype>(m_children.size()));
    for (const MdiChild *child : m_children)
        all.push_back(child->form());
    return all;
}

/// QMdiArea has activated a child by itself, because the user clicked into it. It also tells of losing all activation
/// and of the same child again; neither is news.
void MdiFrame::subWindowCameUp(QMdiSubWindow *window)
{
    if (m_working > 0 || !window)
        return;
    auto *child = static_cast<MdiChild *>(window);
    if (std::find(m_children.begin(), m_children.end(), child) != m_children.end())
        setActive(child, false);
}

void MdiFrame::setActive(MdiChild *child, bool restore)
{
    const bool change = m_active != child;
    m_active = child;
    {
        const QScopedValueRollback working(m_working, m_working + 1);
        bringUp(child, restore);
    }
    if (change) {
        showOrCover();
        announce(false);
    }
}

/// Tells of the active form, unless that was told already. A handler may itself activate or remove a form, and tells of
/// that on its own; so each form is told active once, and inactive once before the next.
void MdiFrame::announce(bool anyway)
{
    if (!anyway && m_told == activeForm())
        return;
    const QPointer<QWidget> before = std::exchange(m_told, nullptr);
    emit formDeactivated(before);
    QWidget *now = activeForm();
    if (m_told && m_told == now)
        return;
    m_told = now;
    emit formActivated(now);
}

/// Shows a child on top of the others, laid out for the present state. A covered one keeps the size that it had, so
/// this is where it learns of a new one, once.
void MdiFrame::bringUp(MdiChild *child, bool restore)
{
    child->lastUsed = ++m_uses;
    if (child->isMinimized() && (restore || m_maximised))
        child->setWindowState(child->windowState() & ~Qt::WindowMinimized);
    if (child->isHidden()) {
        place(child);
        child->show();
    }
    setActiveSubWindow(child);
    child->raise();
}

/// Hides what the maximised child covers, shows all in the other state, and tells whose lot has changed.
void MdiFrame::showOrCover()
{
    std::vector<std::pair<QPointer<MdiChild>, bool>> changed;
    {
        const QScopedValueRollback working(m_working, m_working + 1);
        for (MdiChild *child : m_children) {
            const bool minimised = child->isMinimized();
            const bool shown = !m_maximised || child == m_active;
            if (shown && child->isHidden())
                place(child);
            if (shown == child->isHidden())
                child->setVisible(shown);
            const bool exposed = shown && !minimised;
            if (exposed != child->exposed) {
                child->exposed = exposed;
                changed.emplace_back(child, exposed);
            }
        }
    }
    if (m_controls)
        static_cast<ChildControls *>(m_controls.data())->setWanted(m_maximised && m_active);
    for (const auto &[child, exposed] : changed) {
        if (child && child->form())
            emit formExposed(child->form(), exposed);
    }
}

void MdiFrame::setMaximised(bool maximised)
{
    if (m_maximised == maximised)
        return;
    for (MdiChild *child : m_children) {
        if (maximised && !child->isMinimized() && !child->isHidden())
            child->normalPlace = child->geometry();
    }
    m_maximised = maximised;
    m_tiled = false;
    {
        const QScopedValueRollback working(m_working, m_working + 1);
        if (m_active && !m_active->isMinimized())
            place(m_active);
    }
    showOrCover();
    if (m_active)
        m_active->raise();
}

void MdiFrame::minimisedChanged(MdiChild *child, bool minimised)
{
    m_tiled = false;
    if (!minimised) {
        const QScopedValueRollback working(m_working, m_working + 1);
        place(child);
    }
    MdiChild *next = lastUsedChild();
    if (minimised && child == m_active && next && !next->isMinimized())
        setActive(next, false);
    showOrCover();
}

int MdiFrame::WindowState(QWidget *form) const
{
    const MdiChild *child = childOf(form);
    if (!child)
        throw ControlError("no such form");
    return child->isMinimized() ? vbMinimized : m_maximised ? vbMaximized : vbNormal;
}

void MdiFrame::setWindowState(QWidget *form, int state)
{
    MdiChild *child = childOf(form);
    if (!child)
        throw ControlError("no such form");
    const QPointer<MdiChild> still(child);
    if (state == vbMinimized) {
        if (!child->isMinimized())
            child->showMinimized();
        return;
    }
    if (child->isMinimized())
        child->setWindowState(child->windowState() & ~Qt::WindowMinimized);
    setMaximised(state == vbMaximized);
    if (still && state == vbMaximized)
        setActive(child, true);
}

void MdiFrame::setCaption(QWidget *form, const QString &caption)
{
    if (MdiChild *child = childOf(form))
        child->setWindowTitle(drawableLine(caption, kCaptionLimit));
}

void MdiFrame::activateNext()
{
    activateNeighbour(1);
}

void MdiFrame::activatePrevious()
{
    activateNeighbour(-1);
}

void MdiFrame::activateNeighbour(int step)
{
    const auto at = std::find(m_children.begin(), m_children.end(), m_active.data());
    if (at == m_children.end())
        return;
    const auto count = static_cast<int>(m_children.size());
    const auto index = (static_cast<int>(at - m_children.begin()) + step + count) % count;
    setActive(m_children[static_cast<size_t>(index)], true);
}

bool MdiFrame::eventFilter(QObject *object, QEvent *event)
{
    // QMdiArea takes Ctrl+Tab from every widget below it; those keys belong to the program.
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)
        return false;
    return QMdiArea::eventFilter(object, event);
}

bool MdiFrame::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::MouseMove) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        const Qt::MouseButtons down = mouse->buttons();
        const Qt::KeyboardModifiers keys = mouse->modifiers();
        const QPoint point = mouse->position().toPoint();
        emit mouseMoved((down & Qt::LeftButton ? 1 : 0) + (down & Qt::RightButton ? 2 : 0) +
                            (down & Qt::MiddleButton ? 4 : 0),
                        (keys & Qt::ShiftModifier ? 1 : 0) + (keys & Qt::ControlModifier ? 2 : 0) +
                            (keys & Qt::AltModifier ? 4 : 0),
                        point.x(), point.y());
    }
    return QMdiArea::viewportEvent(event);
}

void MdiFrame::resizeEvent(QResizeEvent *event)
{
    const QScopedValueRollback working(m_working, m_working + 1);
    QMdiArea::resizeEvent(event);
    placeAll();
}

void MdiFrame::changeEvent(QEvent *event)
{
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        paintBackground();
}

QWidget *MdiFrame::childControls()
{
    return m_controls;
}

QWidget *MdiFrame::makeChildControls()
{
    constexpr int kEdge = 18;
    auto *controls = new ChildControls(this);
    auto *row = new QHBoxLayout(controls);
    row->setContentsMargins(2, 0, 2, 0);
    row->setSpacing(1);
    const auto button = [&](GlyphButton::Glyph glyph, int name, auto act) {
        auto *made = new GlyphButton(glyph, ownText(name), kEdge, controls);
        made->setFixedSize(kEdge, kEdge);
        row->addWidget(made);
        connect(made, &GlyphButton::clicked, this, [this, act] {
            if (QWidget *form = activeForm())
                act(form);
        });
    };
    button(GlyphButton::Glyph::Minimise, 20201, [this](QWidget *form) { setWindowState(form, vbMinimized); });
    button(GlyphButton::Glyph::Restore, 20202, [this](QWidget *form) { setWindowState(form, vbNormal); });
    button(GlyphButton::Glyph::Close, 20203, [this](QWidget *form) { emit formCloseRequested(form); });
    controls->hide();
    return controls;
}

} // namespace controls
