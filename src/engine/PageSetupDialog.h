#pragma once

#include "engine/PageSetup.h"

#include <QDialog>
#include <array>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QPushButton;
class QRadioButton;

namespace engine {

/// Asks for paper, orientation, margins and background, with a small picture of the sheet. Margins are shown in the
/// unit of the user's country. It runs no event loop: `chosen` comes when it is accepted.
class PageSetupDialog : public QDialog
{
    Q_OBJECT
public:
    PageSetupDialog(const PageSetup &setup, QWidget *parent);

    PageSetup setup() const;

signals:
    void chosen(const engine::PageSetup &setup);

private:
    class Sheet;
    void addPapers(const QPageSize &present);
    QWidget *marginsBox(const QMarginsF &margins);
    void changed();

    bool m_isMetric;
    QComboBox *cmbPaper;
    QRadioButton *optPortrait;
    QRadioButton *optLandscape;
    /// Left, right, top, bottom.
    std::array<QDoubleSpinBox *, 4> txtMargins;
    QCheckBox *chkBackground;
    QPushButton *btnOk = nullptr;
    Sheet *m_sheet;
};

} // namespace engine
