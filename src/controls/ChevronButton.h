#pragma once

#include <QAbstractButton>

namespace controls {

/// The small button at the end of a band that does not show all of its content.
class ChevronButton : public QAbstractButton
{
    Q_OBJECT
public:
    explicit ChevronButton(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
};

} // namespace controls
