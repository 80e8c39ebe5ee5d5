#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QTimer;
class QToolButton;

namespace engine {

class FindFacet;
struct FindHits;

/// The bar at the bottom of a page that finds text in it. Enter and F3 go to the next hit, with Shift to the one
/// before, Esc closes.
class FindBar : public QWidget
{
    Q_OBJECT
public:
    FindBar(FindFacet &find, QWidget *parent);

    /// Shows the bar with the focus on its text, all of it selected.
    void open();
    /// Hides the bar and the marks in the page.
    void close();
    void findNext(bool backward = false);
    /// Another page has come: nothing is marked in it.
    void pageChanged();

signals:
    /// The focus was in the bar and belongs to the page now.
    void focusLeft();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QToolButton *button(const QString &icon, int text);
    void find(bool backward, bool typing);
    void showHits(const FindHits &hits);

    FindFacet &m_find;
    QLineEdit *txtFind;
    QLabel *lblHits;
    QToolButton *btnPrevious;
    QToolButton *btnNext;
    QCheckBox *chkCase;
    QCheckBox *chkHighlight;
    QTimer *tmrTyping;
    /// Number of the last question; answers to earlier ones come too late.
    int m_question = 0;
};

} // namespace engine
