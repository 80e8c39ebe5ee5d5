#pragma once

#include <QDialog>
#include <array>

class MainWindow;
class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;
struct ProcessFlags;
struct Settings;

/// Asks at start whether the saved documents shall open. Keyboard shortcuts of the main window rest while it is up.
class frmLoad : public QDialog
{
    Q_OBJECT
public:
    frmLoad(QWidget *owner, MainWindow &frmMain, Settings &settings, ProcessFlags &flags);
    ~frmLoad() override;

    QLabel *label1;
    /// 0 loads the documents, 1 loads nothing.
    std::array<QRadioButton *, 2> Option1;
    QCheckBox *chkDontAskAgain;
    QPushButton *btnOk;
    QPushButton *btnCancel;

public slots:
    void done(int result) override;

private:
    void Form_Load();
    void Form_Unload();
    void btnOk_Click();

    MainWindow &m_frmMain;
    Settings &m_settings;
    ProcessFlags &m_flags;
    bool m_loaded = false;
};
