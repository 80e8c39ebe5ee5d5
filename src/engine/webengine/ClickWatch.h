#pragma once

#include <QObject>

namespace engine {

/// Watches the whole application for what counts as the user's own act inside a page: a mouse press, Enter or Space
/// without Ctrl, Alt or Meta that the page receives. Filters that were installed later (the keyboard hook) come first,
/// so a key that they swallow does not count.
class ClickWatch : public QObject
{
    Q_OBJECT
public:
    ClickWatch();
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace engine
