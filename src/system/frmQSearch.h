#pragma once

#include <QDialog>

class MainWindow;
class QComboBox;
class QLabel;
class QToolButton;
class SettingsStore;
struct ProcessFlags;
namespace controls {
class ComboBox;
}

/// Quick search: sends a query straight to a search service and opens the answer in a new document. Once made it stays
/// loaded, hidden between two searches, until the main window ends it; its queries, type and place survive the run.
class frmQSearch : public QDialog
{
    Q_OBJECT
public:
    /// Reads what the last run stored.
    frmQSearch(QWidget *owner, MainWindow &frmMain, SettingsStore &store, ProcessFlags &flags);

    /// Shows the window, modal, unless it is on the screen already; returns at once. The shortcuts of the main window
    /// rest while it is seen.
    void ask();
    /// Forgets the remembered queries.
    void ClearList();
    /// Stores queries, type and place.
    void Unload();

    QLabel *Label1 = nullptr;
    QLabel *Picture1 = nullptr;
    QLabel *Label2 = nullptr;
    controls::ComboBox *vbalCboEx1 = nullptr;
    QLabel *Label3 = nullptr;
    QComboBox *vbalCboEx2 = nullptr;
    QToolButton *Command1 = nullptr;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void createControls();
    void layOut();
    void load();
    void vbalCboEx1_Key(int &keyCode);
    void Command1_Click();
    void putAway();

    MainWindow &m_frmMain;
    SettingsStore &m_store;
    ProcessFlags &m_flags;
};
