#pragma once

#include <QWidget>
#include <functional>

class QLineEdit;

namespace controls {

/// A message inside the page area of one document: dims the page, shows who asks, a plain text, an optional input line
/// and one or two buttons. It runs no event loop and stops nothing but its own page. Answers exactly once, also when it
/// is destroyed (then as a refusal).
class PageBox : public QWidget
{
    Q_OBJECT
public:
    struct Content {
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

private:
    void answer(bool accepted);
    Reply m_reply;
    QLineEdit *m_text = nullptr;
    QLineEdit *m_password = nullptr;
};

} // namespace controls
