#pragma once

#include <QWidget>

class QLabel;
struct ProcessFlags;

/// The picture that stands while the main window loads. It takes no input and has no timer.
class frmSplash : public QWidget
{
public:
    explicit frmSplash(ProcessFlags &flags);
    ~frmSplash() override;

    void Unload();

    QLabel *Picture2 = nullptr;
    /// Version text.
    QLabel *label1 = nullptr;
    /// Application title.
    QLabel *label2 = nullptr;

private:
    void Form_Load();

    ProcessFlags &m_flags;
    bool m_loaded = false;
};
