#pragma once

#include <QObject>
#include <QTimer>

/// Stops the blinking of the caret when nobody has typed or clicked for ten seconds, the time that other desktops take
/// too. Every blink paints the whole window anew as long as a page is in it, day and night.
class CaretRest : public QObject
{
    Q_OBJECT
public:
    explicit CaretRest(QObject *parent = nullptr);
    ~CaretRest() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Period of the blinking as the desktop has it, in ms.
    const int m_period;
    QTimer m_rest;
};
