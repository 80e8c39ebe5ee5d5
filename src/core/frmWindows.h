#pragma once

#include <QDialog>
#include <QPointer>
#include <vector>

class QListWidget;
class QPushButton;
struct ProcessFlags;

/// A list of all documents to choose from, for more than the Window menu can show.
class frmWindows : public QDialog
{
    Q_OBJECT
public:
    struct Line
    {
        QString caption;
        QPointer<QWidget> form;
    };
    frmWindows(QWidget *owner, std::vector<Line> lines, int current, ProcessFlags &flags);
    ~frmWindows() override;

    QListWidget *lstWindows = nullptr;
    QPushButton *btnOk = nullptr;
    QPushButton *btnCancel = nullptr;

signals:
    /// A document that is still there was chosen.
    void chosen(QWidget *form);

private:
    void btnOk_Click();

    std::vector<Line> m_lines;
    ProcessFlags &m_flags;
};
