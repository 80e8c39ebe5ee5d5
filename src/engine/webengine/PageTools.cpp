#include "engine/webengine/PageTools.h"

#include "base/Strings.h"
#include "controls/PageBox.h"
#include "engine/PageZoom.h"
#include "engine/WebBrowser.h"

#include <QKeyEvent>
#include <QWebEnginePage>

namespace engine {

namespace {

PageCommands::Warn boxIn(WebBrowser &browser)
{
    return [&browser](const QString &title, const QString &text) {
        controls::PageBox::Content content;
        content.title = title;
        content.text = text;
        content.acceptCaption = LoadResString(111);
        new controls::PageBox(&browser, content, [](bool, const QString &, const QString &) {});
    };
}

} // namespace

PageTools::PageTools(WebBrowser &browser, QWebEnginePage &page, PageMemory &memory, PageReader::Known known,
                     PageCommands::Tell tell)
    : m_browser(browser)
    , m_page(page)
    , m_tell(tell)
    , m_printer(page)
    , m_saver(page)
    , m_reader(page, std::move(known))
    , m_finder(page)
    , m_commands(browser, {m_printer, m_saver, m_reader}, memory, std::move(tell), boxIn(browser))
{
    connect(&page, &QWebEnginePage::loadStarted, this, [this] {
        if (m_bar)
            m_bar->pageChanged();
    });
    // The script that asks stands still only until this returns, and a dialog would stop all other pages meanwhile.
    connect(
        &page, &QWebEnginePage::printRequested, this,
        [this] {
            if (!m_browser.Silent())
                m_commands.printForPage();
        },
        Qt::QueuedConnection);
}

void PageTools::find(const QString &text, const FindOptions &options, std::function<void(FindHits)> done)
{
    m_finder.find(text, options, std::move(done));
}

void PageTools::endFind()
{
    m_finder.endFind();
}

/// The bar is made when it is wanted for the first time: most documents are never searched.
FindBar &PageTools::bar()
{
    if (!m_bar) {
        m_bar = new FindBar(*this, &m_browser);
        m_bar->installEventFilter(this);
        connect(m_bar, &FindBar::focusLeft, &m_browser, [this] { m_browser.setFocus(); });
    }
    return *m_bar;
}

void PageTools::showFindBar()
{
    bar().open();
}

void PageTools::hideFindBar()
{
    if (m_bar)
        m_bar->close();
}

bool PageTools::keyPressed(const QKeyEvent &event)
{
    const bool isOpen = m_bar && m_bar->isVisible();
    if (event.key() == Qt::Key_F && event.modifiers() == Qt::ControlModifier)
        showFindBar();
    else if (event.key() == Qt::Key_F3 && !isOpen)
        showFindBar();
    else if (event.key() == Qt::Key_F3)
        m_bar->findNext(event.modifiers().testFlag(Qt::ShiftModifier));
    else if (event.key() == Qt::Key_Escape && isOpen)
        hideFindBar();
    else
        return zoomKeyPressed(event);
    return true;
}

bool PageTools::zoomKeyPressed(const QKeyEvent &event)
{
    const double factor = zoomForKey(event, m_page.zoomFactor());
    if (factor == 0)
        return false;
    m_page.setZoomFactor(factor);
    m_tell(LoadResString(20574).arg(qRound(factor * 100)));
    return true;
}

QRect PageTools::layOut(const QRect &room)
{
    if (!hasFindBar())
        return room;
    const int height = std::min(m_bar->sizeHint().height(), room.height());
    m_bar->setGeometry(room.left(), room.bottom() + 1 - height, room.width(), height);
    return room.adjusted(0, 0, 0, -height);
}

bool PageTools::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_bar && (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent))
        emit roomChanged();
    return QObject::eventFilter(watched, event);
}

} // namespace engine
