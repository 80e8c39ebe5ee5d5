#pragma once

#include "controls/ImageList.h"
#include "controls/ListView.h"
#include "documents/Timer.h"

#include <QToolBar>
#include <QToolButton>
#include <QWidget>

class Document;
class MainWindow;
struct Settings;

namespace controls {
class MdiFrame;
}

/// A small window above the main window that lists all open sites with their load state. It shrinks to a strip when it
/// loses the focus and grows back when the mouse comes near.
///
/// Its list is the program's only register of open documents: line n is the document at position n. So the object
/// lives, shown or hidden, until the last document has gone; closing the window hides it.
class frmNavigator : public QWidget
{
    Q_OBJECT
public:
    frmNavigator(QWidget *owner, MainWindow &frmMain, const Settings &settings, controls::MdiFrame &mdi);
    ~frmNavigator() override;

    /// The document at a position, counted from 1. Throws ControlError when there is none.
    Document &document(int position);

    QString Caption() const { return windowTitle(); }
    void setCaption(const QString &caption) { setWindowTitle(caption); }
    /// Stops the animation of the caption.
    void endLoading();

    /// "1" once the program ends: only then does the form unload.
    QString Tag() const { return m_tag; }
    void setTag(const QString &tag) { m_tag = tag; }
    /// Hides the window and, at the end of the program, ends its timers. False: the form stays loaded, hidden. The
    /// register serves the documents in either case.
    bool Unload();

    /// False for a window that was closed; the main window may have taken an open one away with it.
    bool Visible() const { return m_awayWithOwner || !isHidden(); }
    /// Waits for the main window where that is not on the screen: coming up first, this one would not belong to it and
    /// lie behind it.
    void setVisible(bool visible) override;
    /// The window goes from the screen with the main window, and comes back with it, without taking the focus.
    void hideWithOwner();
    void showWithOwner();

    /// Position and size in twips. What would not fit on the desktop is cut.
    double Left() const;
    void setLeft(double twips);
    double Top() const;
    void setTop(double twips);
    double Width() const;
    void setWidth(double twips);
    double Height() const;
    void setHeight(double twips);

    /// The mouse moved over the empty client area of the main window: the Navigator shrinks.
    void MDIForm_MouseMove();

    controls::ImageList ImageList1;
    controls::ListView ListView1;
    QToolBar Toolbar1;
    /// Down: the window keeps its height.
    QToolButton Check1;
    /// Height animation; its Tag is the direction, "0" grow, "1" shrink.
    Timer Timer1{50, QStringLiteral("0")};
    /// Caption animation.
    Timer tmrLoading{300};
    /// Step of the caption animation, 0 to 5.
    int16_t nDots = 0;

signals:
    /// The arrow beside the button New was pressed: the menu of new documents shall open at this point of the screen.
    void newMenuRequested(const QPoint &position);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Form_Load();
    void Form_Resize();
    void Form_Activate();
    void Form_Deactivate();
    void Timer1_Timer();
    void tmrLoading_Timer();
    void Check1_Click();
    void ListView1_Click();
    void Toolbar1_ButtonClick(const QString &key);
    void makeToolbar();
    QAction *addButton(int icon, int caption, int toolTip, const QString &key);
    /// The document of the selected line, null when no line is selected.
    Document *selectedDocument();

    MainWindow &m_frmMain;
    const Settings &m_settings;
    controls::MdiFrame &m_mdi;
    QString m_tag = QStringLiteral("0");
    /// Not on the screen only because the main window is not.
    bool m_awayWithOwner = false;
    /// Timer1 would run, but the window keeps its height.
    bool m_timerWaits = false;
};
