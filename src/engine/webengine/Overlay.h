#pragma once

#include <QWidget>
#include <functional>
#include <vector>

namespace engine {

/// A notice over the page of one document, drawn by the program itself: it works when the page's process is gone.
class Overlay : public QWidget
{
    Q_OBJECT
public:
    struct Choice
    {
        /// With a mnemonic.
        QString caption;
        std::function<void()> act;
        /// Return takes this one.
        bool isDefault = false;
    };

    /// Covers `page` until it is deleted. `text` may hold several paragraphs.
    Overlay(QWidget *page, const QString &title, const QString &text, const std::vector<Choice> &choices);

    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace engine
