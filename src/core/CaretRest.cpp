#include "core/CaretRest.h"

#include <QApplication>
#include <QEvent>
#include <chrono>

using namespace std::chrono_literals;

CaretRest::CaretRest(QObject *parent)
    : QObject(parent)
    , m_period(QApplication::cursorFlashTime())
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(10s);
    connect(&m_rest, &QTimer::timeout, this, [] { QApplication::setCursorFlashTime(0); });
    m_rest.start();
    qApp->installEventFilter(this);
}

CaretRest::~CaretRest()
{
    QApplication::setCursorFlashTime(m_period);
}

bool CaretRest::eventFilter(QObject *watched, QEvent *event)
{
    if ((event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) && watched->isWidgetType()) {
        if (!m_rest.isActive())
            QApplication::setCursorFlashTime(m_period);
        m_rest.start();
    }
    return false;
}
