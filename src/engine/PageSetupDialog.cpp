#include "engine/PageSetupDialog.h"

#include "base/Strings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

constexpr double kMillimetersPerInch = 25.4;

constexpr std::array kPapers = {QPageSize::A3,        QPageSize::A4,      QPageSize::A5,         QPageSize::A6,
                                QPageSize::B4,        QPageSize::B5,      QPageSize::Letter,     QPageSize::Legal,
                                QPageSize::Executive, QPageSize::Tabloid, QPageSize::EnvelopeDL, QPageSize::Envelope10};

} // namespace

/// The sheet as it will lie on the table, with lines where text would stand.
class PageSetupDialog::Sheet : public QWidget
{
public:
    using QWidget::QWidget;
    QSize sizeHint() const override { return {150, 190}; }
    void showLayout(const QPageLayout &layout)
    {
        m_layout = layout;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const QRectF paper = m_layout.fullRect(QPageLayout::Millimeter);
        const double scale = std::min((width() - 8) / paper.width(), (height() - 8) / paper.height());
        QRect sheet(QPoint(), (paper.size() * scale).toSize());
        sheet.moveCenter(rect().center());
        painter.fillRect(sheet.translated(3, 3), palette().color(QPalette::Mid));
        painter.fillRect(sheet, Qt::white);
        painter.setPen(palette().color(QPalette::Dark));
        painter.drawRect(sheet.adjusted(0, 0, -1, -1));

        const QMarginsF margins = m_layout.margins(QPageLayout::Millimeter) * scale;
        const QRect text = sheet.marginsRemoved(margins.toMargins());
        for (int y = text.top(), line = 0; y + 2 <= text.bottom(); y += 5, ++line) {
            // Every fifth line ends a paragraph.
            const int width = line % 5 == 4 ? text.width() / 2 : text.width();
            painter.fillRect(text.left(), y, width, 2, QColor(0xc8, 0xce, 0xd6));
        }
    }

private:
    QPageLayout m_layout = PageSetup::standardLayout();
};

PageSetupDialog::PageSetupDialog(const PageSetup &setup, QWidget *parent)
    : QDialog(parent)
    , m_isMetric(QLocale().measurementSystem() == QLocale::MetricSystem)
    , cmbPaper(new QComboBox(this))
    , optPortrait(new QRadioButton(LoadResString(20427), this))
    , optLandscape(new QRadioButton(LoadResString(20428), this))
    , chkBackground(new QCheckBox(LoadResString(20444), this))
    , m_sheet(new Sheet(this))
{
    setObjectName(u"PageSetupDialog"_s);
    setWindowTitle(LoadResString(20435));
    setAttribute(Qt::WA_DeleteOnClose);
    cmbPaper->setObjectName(u"cmbPaper"_s);
    optLandscape->setObjectName(u"optLandscape"_s);
    chkBackground->setObjectName(u"chkBackground"_s);

    addPapers(setup.layout.pageSize());
    (setup.layout.orientation() == QPageLayout::Landscape ? optLandscape : optPortrait)->setChecked(true);
    chkBackground->setChecked(setup.background);

    auto *paperRow = new QHBoxLayout;
    auto *paperLabel = new QLabel(LoadResString(20436), this);
    paperLabel->setBuddy(cmbPaper);
    paperRow->addWidget(paperLabel);
    paperRow->addWidget(cmbPaper, 1);
    auto *orientation = new QGroupBox(LoadResString(20437), this);
    auto *orientationRow = new QHBoxLayout(orientation);
    orientationRow->addWidget(optPortrait);
    orientationRow->addWidget(optLandscape);
    orientationRow->addStretch();

    auto *choices = new QVBoxLayout;
    choices->addLayout(paperRow);
    choices->addWidget(orientation);
    choices->addWidget(marginsBox(setup.layout.margins(QPageLayout::Millimeter)));
    choices->addWidget(chkBackground);
    choices->addStretch();
    auto *columns = new QHBoxLayout;
    columns->setSpacing(16);
    columns->addLayout(choices, 1);
    columns->addWidget(m_sheet, 0, Qt::AlignTop);

    auto *buttons = new QDialogButtonBox(this);
    btnOk = buttons->addButton(LoadResString(111), QDialogButtonBox::AcceptRole);
    btnOk->setDefault(true);
    buttons->addButton(LoadResString(112), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *all = new QVBoxLayout(this);
    all->addLayout(columns);
    all->addWidget(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);

    connect(cmbPaper, &QComboBox::currentIndexChanged, this, &PageSetupDialog::changed);
    connect(optLandscape, &QRadioButton::toggled, this, &PageSetupDialog::changed);
    for (QDoubleSpinBox *margin : txtMargins)
        connect(margin, &QDoubleSpinBox::valueChanged, this, &PageSetupDialog::changed);
    connect(this, &QDialog::accepted, this, [this] { emit chosen(this->setup()); });
    changed();
    cmbPaper->setFocus();
}

void PageSetupDialog::addPapers(const QPageSize &present)
{
    for (const QPageSize::PageSizeId id : kPapers)
        cmbPaper->addItem(QPageSize::name(id), id);
    int index = cmbPaper->findData(present.id());
    if (index < 0) {
        cmbPaper->addItem(present.name(), present.id());
        index = cmbPaper->count() - 1;
    }
    cmbPaper->setCurrentIndex(index);
}

QWidget *PageSetupDialog::marginsBox(const QMarginsF &margins)
{
    auto *box = new QGroupBox(LoadResString(m_isMetric ? 20438 : 20439), this);
    auto *grid = new QGridLayout(box);
    const double perUnit = m_isMetric ? 1 : kMillimetersPerInch;
    const double values[] = {margins.left(), margins.right(), margins.top(), margins.bottom()};
    for (int side = 0; side < 4; ++side) {
        auto *margin = new QDoubleSpinBox(box);
        margin->setObjectName(u"txtMargin%1"_s.arg(side));
        margin->setDecimals(m_isMetric ? 1 : 2);
        margin->setSingleStep(m_isMetric ? 1 : 0.1);
        margin->setRange(0, PageSetup::kLargestMargin / perUnit);
        margin->setValue(values[side] / perUnit);
        auto *label = new QLabel(LoadResString(20440 + side), box);
        label->setBuddy(margin);
        grid->addWidget(label, side / 2, side % 2 * 3);
        grid->addWidget(margin, side / 2, side % 2 * 3 + 1);
        txtMargins[side] = margin;
    }
    grid->setColumnMinimumWidth(2, 12);
    return box;
}

PageSetup PageSetupDialog::setup() const
{
    const double perUnit = m_isMetric ? 1 : kMillimetersPerInch;
    const auto margin = [&](int side) { return txtMargins[side]->value() * perUnit; };
    PageSetup setup;
    setup.layout.setUnits(QPageLayout::Millimeter);
    setup.layout.setPageSize(QPageSize(static_cast<QPageSize::PageSizeId>(cmbPaper->currentData().toInt())));
    setup.layout.setOrientation(optLandscape->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait);
    setup.layout.setMargins({margin(0), margin(2), margin(1), margin(3)});
    setup.background = chkBackground->isChecked();
    return setup;
}

void PageSetupDialog::changed()
{
    const PageSetup setup = this->setup();
    m_sheet->showLayout(setup.layout);
    btnOk->setEnabled(setup.isPrintable());
}

} // namespace engine
