#pragma once

#include "options/OptionsPage.h"

#include <QDialog>
#include <vector>

class QPushButton;
class QStackedWidget;
class QTreeWidget;
class QTreeWidgetItem;

/// The settings of the whole program: pages behind a tree. The pages write into the program's values when the dialog is
/// confirmed; what comes of the values is the main window's, once finished() has been raised.
class frmOptions1 : public QDialog
{
    Q_OBJECT
public:
    frmOptions1(QWidget *owner, const OptionsContext &context);
    ~frmOptions1() override;

    /// Shows a page, 1 to 10, and selects its node. A number that has no page does nothing.
    void ShowPage(int page);
    void LoadAllPages();
    /// True when the dialog may close. A page that is not valid ends the run: those before it are saved.
    bool SaveAllPages();

    QTreeWidget *TreeView1 = nullptr;
    QPushButton *btnOk = nullptr;
    QPushButton *btnCancel = nullptr;

private:
    struct Place
    {
        int number;
        OptionsPage *frame;
        QTreeWidgetItem *node;
    };

    void buildControls();
    void buildTree();
    void Form_Load();
    void moveToMiddle();
    void TreeView1_NodeClick();
    void btnOk_Click();

    const OptionsContext m_context;
    QStackedWidget *m_frames = nullptr;
    /// In the order of their numbers.
    std::vector<Place> m_pages;
};
