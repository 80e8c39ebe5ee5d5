#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

class QWebEngineView;

namespace engine {

/// A window that shows one page alone on the whole screen. The view comes from its browser and goes back there when
/// this ends. Esc, F11 and whatever else closes a window ask to leave, before the page sees the key.
class FullScreenWindow final : public QWidget
{
    Q_OBJECT
public:
    /// What is to happen with a key that the page has not used.
    using KeyPress = std::function<void(QKeyEvent &)>;

    FullScreenWindow(QWidget &browser, QWebEngineView &view, KeyPress keyPress);
    ~FullScreenWindow() override;

    /// Ends: the view is its browser's again, and the window deletes itself.
    void giveBack();

signals:
    /// The user wants to leave.
    void leaveRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QPointer<QWidget> m_browser;
    QPointer<QWebEngineView> m_view;
    KeyPress m_keyPress;
};

} // namespace engine
