#include "engine/webengine/ClickWatch.h"

#include "engine/webengine/WebBrowserControl.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWebEngineView>

namespace engine {

namespace {

bool isUserAct(const QEvent &event)
{
    // The engine makes key presses of its own when it changes processes; those are not spontaneous.
    if (!event.spontaneous())
        return false;
    if (event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick)
        return true;
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto &key = static_cast<const QKeyEvent &>(event);
    if (key.isAutoRepeat() || (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
        return false;
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Space;
}

} // namespace

ClickWatch::ClickWatch()
{
    qApp->installEventFilter(this);
}

bool ClickWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (!isUserAct(*event))
        return false;
    bool inPage = false;
    for (auto *widget = qobject_cast<QWidget *>(watched); widget; widget = widget->parentWidget()) {
        inPage = inPage || qobject_cast<QWebEngineView *>(widget);
        if (auto *browser = qobject_cast<WebBrowserControl *>(widget)) {
            if (inPage)
                browser->noteUserAct();
            break;
        }
    }
    return false;
}

} // namespace engine
