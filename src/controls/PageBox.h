#pragma once

#include <QWidget>
#include <functional>

class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace controls {

/// A message inside the page area of one document: dims the page, shows who asks, a plain text, an optional input line
/// and one or two buttons. It runs no event loop and stops nothing but its own page. Answers exactly once, also when it
/// is destroyed (then as a refusal). Enter accepts, Esc refuses, Tab stays inside. It takes the focus only from its
/// page.
class PageBox : public QWidget
{
    Q_OBJECT
public:
    struct Content
    {
        QString title;
        /// Who asks, such as an origin; empty for none.
        QString from;
        /// Plain text; long ones scroll.
        QString text;
        QString acceptCaption;
        /// Empty: there is no second button.
        QString rejectCaption;
        bool wantsText = false;
        QString defaultText;
        /// A second input line for a password.
        bool wantsPassword = false;
    };
    using Reply = std::function<void(bool accepted, const QString &text, const QString &password)>;

    /// Covers `page` until it is answered, then deletes itself.
    PageBox(QWidget *page, const Content &content, Reply reply);
    ~PageBox() override;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void buildTexts(QVBoxLayout *column, const QString &title, const QString &from, const Content &content);
    void buildInputs(QVBoxLayout *column, const Content &content);
    void buildButtons(QVBoxLayout *column, const Content &content);
    QWidget *firstStop() const;
    void keepFocus(QWidget *now);
    void layOut();
    void answer(bool accepted);

    Reply m_reply;
    QFrame *m_panel = nullptr;
    QScrollArea *m_scroll = nullptr;
    QLabel *m_message = nullptr;
    QLineEdit *m_text = nullptr;
    QLineEdit *m_password = nullptr;
    QPushButton *m_accept = nullptr;
    QPushButton *m_reject = nullptr;
};

} // namespace controls
