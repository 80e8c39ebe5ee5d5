#include "engine/webengine/FullScreenWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QWebEngineView>

namespace engine {

FullScreenWindow::FullScreenWindow(QWidget &browser, QWebEngineView &view, KeyPress keyPress)
    : QWidget(&browser, Qt::Window)
    , m_browser(&browser)
    , m_view(&view)
    , m_keyPress(std::move(keyPress))
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setWindowTitle(browser.window()->windowTitle());
    for (const int key : {Qt::Key_Escape, Qt::Key_F11})
        connect(new QShortcut(key, this), &QShortcut::activated, this, &FullScreenWindow::leaveRequested);
    addActions(browser.window()->actions()); // the program's keys
    view.setParent(this);
    view.show();
    if (const QScreen *screen = browser.screen())
        setGeometry(screen->geometry());
    showFullScreen();
    view.setFocus();
}

FullScreenWindow::~FullScreenWindow()
{
    // Whose view it is deletes it.
    if (m_view && m_view->parentWidget() == this)
        m_view->setParent(nullptr);
}

void FullScreenWindow::giveBack()
{
    const bool wasActive = isActiveWindow();
    if (m_view && m_browser) {
        m_view->setParent(m_browser);
        m_view->show();
    }
    hide();
    if (wasActive && m_browser)
        m_browser->window()->activateWindow();
    deleteLater();
}

void FullScreenWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_view)
        m_view->setGeometry(rect());
}

void FullScreenWindow::keyPressEvent(QKeyEvent *event)
{
    m_keyPress(*event);
}

void FullScreenWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    emit leaveRequested();
}

} // namespace engine
