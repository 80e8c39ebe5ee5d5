#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
struct ProcessFlags;

/// Name and version of the program.
class frmAbout : public QDialog
{
public:
    frmAbout(QWidget *owner, ProcessFlags &flags);
    ~frmAbout() override;

    QLabel *label1 = nullptr;
    QLabel *label2 = nullptr;
    QPushButton *cmdOK = nullptr;

private:
    ProcessFlags &m_flags;
};
