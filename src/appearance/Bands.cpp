#include "appearance/Bands.h"

#include "base/Files.h"
#include "base/step.h"
#include "base/units.h"
#include "controls/BandContainer.h"
#include "controls/MenuBar.h"
#include "controls/ToolBar.h"

#include <QEvent>

using namespace Qt::StringLiterals;

namespace {

/// What a band needs beside the address bar's and the tab strip's own width, in pixels.
constexpr int kAddressBandFrame = 10;
constexpr int kTabBandFrame = 7;

constexpr int kAlignTop = 1;
constexpr int kAlignBottom = 2;

/// Logo box: 540 by 240 twips.
constexpr QSize kLogoSize(540 / kTwipsPerPixel, 240 / kTwipsPerPixel);

} // namespace

Bands::Bands(const Controls &controls, const QString &programFolder, QObject *parent)
    : QObject(parent)
    , m_on(controls)
    , m_programFolder(programFolder)
{
    connect(&m_on.cReBar1, &controls::BandContainer::BandChildResize, this, &Bands::BandChildResize);
    connect(&m_on.cReBar1, &controls::BandContainer::ChevronPushed, this, &Bands::ChevronPushed);
    connect(&m_on.cReBar1, &controls::BandContainer::HeightChanged, this, &Bands::HeightChanged);
}

void Bands::LoadBandLayout(const QString &skinPath)
{
    CreateBands(skinPath);
}

void Bands::CreateBands(const QString &skinPath)
{
    controls::BandContainer &bar = m_on.cReBar1;
    QWidget &window = *m_on.picHolder.window();
    // Nobody needs to see six bands come in one by one.
    const bool updates = window.updatesEnabled();
    window.setUpdatesEnabled(false);

    bar.ResetBar();
    bar.setBackgroundBitmap(skinPath);
    bar.setParent(&m_on.picHolder);
    bar.move(0, 0);
    m_on.picTest.resize(kLogoSize);

    bar.AddBand(&m_on.tbhMenu, QString(), true, false, u"MenuBar"_s);
    bar.setBandMinHeight(0, 24);
    bar.setBandMinWidth(0, 24);
    bar.AddBand(&m_on.picTest, QString(), false, true, u"Logo"_s);
    bar.AddBand(&m_on.Toolbar1, QString(), true, false, u"Toolbar1"_s);
    bar.setBandMinHeight(2, 16);
    bar.AddBand(&m_on.Toolbar2, QString(), true, false, u"Toolbar2"_s);
    bar.setBandMinHeight(3, 16);
    bar.AddBand(&m_on.Picture1, QString(), true, false, u"Addressbar"_s);
    bar.setBandMinHeight(4, 24);
    bar.AddBand(&m_on.Picture6, QString(), true, false, u"Tabbar"_s);

    m_on.tbhMenu.setHostBackground(skinPath);
    m_on.tbhMenu.HostRefresh();

    m_on.picHolder.installEventFilter(this);
    bar.show();
    picHolderResized();
    window.setUpdatesEnabled(updates);
}

void Bands::SaveBandLayout() const
{
    writeFileWhole(m_programFolder + u"/layout.xml"_s, m_on.cReBar1.LayoutText().toUtf8());
}

void Bands::DestroyBands()
{
    m_on.picHolder.removeEventFilter(this);
    m_on.cReBar1.RemoveAllBands();
    m_on.cReBar1.DestroyBar();
}

void Bands::setAlign(int align)
{
    m_align = align;
    emit alignChanged(align);
}

bool Bands::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_on.picHolder && event->type() == QEvent::Resize)
        picHolderResized();
    return QObject::eventFilter(watched, event);
}

void Bands::picHolderResized()
{
    m_on.cReBar1.resize(m_on.picHolder.width(), m_on.cReBar1.height());
    m_on.cReBar1.RecalculateLayout();
    HeightChanged(m_on.cReBar1.BarHeight());
}

void Bands::BandChildResize(int index, const QRect &band, const QRect &)
{
    QString key;
    step([&] { key = m_on.cReBar1.BandKey(index); });
    if (key == u"Addressbar")
        m_on.Picture1.resize(std::max(0, band.width() - kAddressBandFrame), m_on.Picture1.height());
    else if (key == u"Tabbar")
        m_on.vbalDTabControl1.resize(std::max(0, band.width() - kTabBandFrame), m_on.vbalDTabControl1.height());
}

void Bands::ChevronPushed(int index, const QRectF &twips)
{
    QString key;
    step([&] { key = m_on.cReBar1.BandKey(index); });
    const int x = static_cast<int>(twips.right() / kTwipsPerPixel) + 1;
    const int y = static_cast<int>(twips.top() / kTwipsPerPixel);
    if (key == u"MenuBar")
        m_on.tbrMenu.ShowChevronMenu(x, y);
    else if (key == u"Toolbar1")
        m_on.Toolbar1.ShowChevronMenu(x, y);
    else if (key == u"Toolbar2")
        m_on.Toolbar2.ShowChevronMenu(x, y);
}

/// Fixed, so that the main window's layout leaves exactly this room.
void Bands::HeightChanged(int height)
{
    if (m_align == kAlignTop || m_align == kAlignBottom)
        m_on.picHolder.setFixedHeight(height);
    else
        m_on.picHolder.setFixedWidth(height);
}
