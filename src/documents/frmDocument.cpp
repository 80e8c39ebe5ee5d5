#include "documents/frmDocument.h"

#include "base/Strings.h"
#include "base/step.h"
#include "base/units.h"
#include "controls/BandContainer.h"
#include "controls/ComboBox.h"
#include "controls/Focus.h"
#include "controls/ListView.h"
#include "controls/MdiFrame.h"
#include "controls/PageBox.h"
#include "controls/StatusBar.h"
#include "controls/TabControl.h"
#include "core/state/MainWindow.h"
#include "core/state/ProcessFlags.h"
#include "core/state/Settings.h"
#include "desktop/Paths.h"
#include "documents/ContentPolicy.h"
#include "documents/frmNavigator.h"
#include "engine/Engine.h"
#include "engine/WebBrowser.h"
#include "forms/FormLock.h"
#include "forms/FormStore.h"

#include <QCoreApplication>
#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr int kNoTitle = 20301;
/// A form's size is its client size plus these margins, in twips: borders to the sides, borders and title bar above.
constexpr int kMarginWidth = 150;
constexpr int kMarginHeight = 500;
/// Characters of a title on a tab.
constexpr int kCaptionLength = 50;
constexpr int kShrunkLength = 3;
/// Tab icons of a load that has ended, and of its flash; the next number is the shrunk tab's.
constexpr int kFinishedIcon = 8;
constexpr int kFlashIcon = 10;
constexpr int kFlashTicks = 8;

/// Given to sites only where the user has chosen to be taken for this browser.
QString ambientUserAgent()
{
    return u"Mozilla/4.0 (compatible; MSIE 5.5; Windows NT 5.0)"_s;
}

/// The first `count` code units, less one where that would leave half a character.
QString firstCharacters(const QString &text, int count)
{
    if (text.size() > count && text.at(count - 1).isHighSurrogate())
        --count;
    return text.left(count);
}

/// The page's size along one side in pixels: the form's in twips less the margin, cut to 16 bits, never negative.
/// 32767 twips are only 2184 pixels, so a value at that limit stands for all the room there is.
int pageSize(int clientPixels, int margin)
{
    const double form = toTwips(clientPixels) + margin;
    const double size = form - margin;
    if (size >= std::numeric_limits<int16_t>::max())
        return clientPixels;
    return toPixels(std::max(0.0, size));
}
} // namespace

void DoEvents(const DocumentContext &context)
{
    if (context.engineCalls == 0)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

frmDocument::frmDocument(DocumentContext &context)
    : Document(&context.mdi)
    , m_context(context)
{
    hide();
    connect(&tmrKillWindow, &QTimer::timeout, this, &frmDocument::tmrKillWindow_Timer);
    connect(&tmrKillPopup, &QTimer::timeout, this, &frmDocument::tmrKillPopup_Timer);
    connect(&Highlight, &QTimer::timeout, this, &frmDocument::Highlight_Timer);
    connect(&tmrSilent, &QTimer::timeout, this, &frmDocument::tmrSilent_Timer);
    Form_Load();
}

frmDocument::~frmDocument()
{
    if (WebBro) {
        WebBro->setEventSink(nullptr);
        WebBro->setMessageSink(nullptr);
    }
    // A page's question is answered, as a refusal, while its browser still exists.
    qDeleteAll(findChildren<controls::PageBox *>(QString(), Qt::FindDirectChildrenOnly));
}

void frmDocument::Form_Load()
{
    m_caption = LoadResString(kNoTitle);
    LocalizeForm(this);
    ++m_context.flags.OpenDocumentCount;
    m_context.frmMain.ModifyMenu();

    WebBrowser = m_context.engine.createBrowser(this);
    setFocusProxy(WebBrowser);
    WebBro = WebBrowser;
    WebBro->setEventSink(this);

    WebBrowser->setAmbientProperty(engine::DISPID_AMBIENT_USERAGENT, ambientUserAgent());
    WebBrowser->setHostFlags(engine::DOCHOSTUIFLAG_THEME);
    WebBrowser->setMessageSink(this);
    SetDownloadOptions();

    CustomWB = std::make_unique<engine::WBCustomizer>(std::make_shared<FormStore>(m_context.formKeys));
    CustomWB->AttachBrowser(WebBro);
    CustomWB->LoadFormData(formFileIn(m_context.paths.programFolder));
}

void frmDocument::Form_Unload()
{
    bClosing = true;
    auto &count = m_context.flags.OpenDocumentCount;
    count = count > 0 ? static_cast<int16_t>(count - 1) : int16_t{0};

    auto &navigator = m_context.navigator;
    const int pos = position();
    for (int i = pos + 1; i <= navigator.ListView1.ListItems().Count(); ++i) {
        step([&] {
            Document &behind = navigator.document(i);
            behind.setPosition(behind.position() - 1);
        });
    }
    WebBrowser->setVisible(false);
    step([&] { navigator.ListView1.ListItems().Remove(pos); });
    if (!bTabAlreadyDeleted)
        step([&] { m_context.vbalDTabControl1.Tabs().Remove(pos); });

    step([&] { m_context.vbalStatusBar1.setPanelText(1, QString()); });
    m_context.vbalStatusBar1.setTag(u"0"_s);
    step([&] { m_context.vbalStatusBar1.RedrawPanel(u"Item6"_s); });
    step([&] { m_context.frmMain.ModifyMenu(); });

    for (Timer *timer : {&tmrKillWindow, &tmrKillPopup, &Highlight, &tmrSilent, &tmrAutoRefresh})
        timer->setEnabled(false);
    WebBro->setEventSink(nullptr);
    WebBro->setMessageSink(nullptr);
    CustomWB->ClearFormData();
    WebBro = nullptr;
    CustomWB.reset();
}

void frmDocument::Unload()
{
    if (bClosing)
        return;
    Form_Unload();
    m_context.mdi.removeForm(this);
    deleteLater();
}

void frmDocument::Show()
{
    m_context.mdi.showForm(this);
    // Every document comes up maximised, and with it the others.
    if (m_context.mdi.WindowState(this) != controls::vbMaximized)
        m_context.mdi.setWindowState(this, controls::vbMaximized);
    m_context.mdi.setCaption(this, m_caption);
}

void frmDocument::Form_Activate()
{
    if (bClosing)
        return;
    auto &line = m_context.navigator.ListView1;
    auto &tabs = m_context.vbalDTabControl1;
    auto &status = m_context.vbalStatusBar1;

    bActive = true;
    step([&] { line.ListItems(position()).setBold(true); });
    step([&] { line.ListItems(position()).ListSubItems(1).setBold(true); });

    // The Tag tells the tab click handler that this selection is not the user's.
    tabs.setTag(u"1"_s);
    step([&] { tab().setSelected(true); });
    tabs.setTag(u"0"_s);

    step([&] { m_context.AddressBar.setText(LocationURL()); });

    step([&] { status.setPanelText(1, QString()); });
    status.setTag(QString::number(nProgress));
    step([&] { status.RedrawPanel(u"Item6"_s); });
    step([&] { status.setPanelIcon(u"Item5"_s, bSecure ? 2 : -1); });
    step([&] { m_context.cReBar1.RecalculateLayout(); });

    m_context.AddressBar.setFocus();
    const Document *active = m_context.frmMain.ActiveForm();
    if (active && active->browser())
        controls::giveFocus(*active->browser());
    step([&] { openBrowser().setSilent(m_context.settings.SuppressScriptErrors); });
}

void frmDocument::Form_Deactivate()
{
    bActive = false;
    // A closed form has no line any more: its number is another document's by now.
    if (bClosing)
        return;
    auto &line = m_context.navigator.ListView1;
    step([&] { line.ListItems(position()).setBold(false); });
    step([&] { line.ListItems(position()).ListSubItems(1).setBold(false); });
}

void frmDocument::Form_Resize()
{
    WebBrowser->setGeometry(0, 0, pageSize(width(), kMarginWidth), pageSize(height(), kMarginHeight));
}

void frmDocument::resizeEvent(QResizeEvent *event)
{
    Document::resizeEvent(event);
    Form_Resize();
}

void frmDocument::setExposed(bool exposed)
{
    WebBrowser->setExposed(exposed);
}

void frmDocument::setCaption(const QString &caption)
{
    m_caption = caption;
    m_context.mdi.setCaption(this, caption);
}

int frmDocument::position() const
{
    return WebBrowser->Tag().toInt();
}

void frmDocument::setPosition(int position)
{
    WebBrowser->setTag(QString::number(position));
}

engine::WebBrowser &frmDocument::openBrowser() const
{
    if (!WebBro)
        throw ControlError("the document is closed");
    return *WebBro;
}

controls::Tab &frmDocument::tab() const
{
    return m_context.vbalDTabControl1.Tabs(position());
}

void frmDocument::SetDownloadOptions()
{
    step([&] {
        const int32_t value = DownloadControl(m_context.settings);
        const QVariant present = openBrowser().ambientProperty(engine::DISPID_AMBIENT_DLCONTROL);
        if (present.isValid() && present.toInt() == value)
            return;
        openBrowser().setAmbientProperty(engine::DISPID_AMBIENT_DLCONTROL, value);
        DoEvents(m_context);
    });
}

void frmDocument::ModifyTabCaption(controls::Tab &theTab, const QString &sTitle)
{
    const bool shrunk = !theTab.Tag().isEmpty();
    if (shrunk)
        theTab.setCaption(firstCharacters(sTitle, kShrunkLength));
    else if (sTitle.size() > kCaptionLength)
        theTab.setCaption(firstCharacters(sTitle, kCaptionLength) + u"..."_s);
    else
        theTab.setCaption(sTitle);

    const bool odd = theTab.IconIndex() % 2 != 0;
    if (shrunk && !odd)
        theTab.setIconIndex(theTab.IconIndex() + 1);
    else if (!shrunk && odd)
        theTab.setIconIndex(theTab.IconIndex() - 1);
}

QString frmDocument::LocationURL() const
{
    return openBrowser().LocationURL();
}

QString frmDocument::LocationName() const
{
    return openBrowser().LocationName();
}

void frmDocument::RefreshDoc()
{
    openBrowser().Refresh2(engine::REFRESH_COMPLETELY);
}

void frmDocument::StopDoc()
{
    openBrowser().Stop();
}

void frmDocument::NavigateDoc(const QString &url)
{
    openBrowser().Navigate2(url);
}

void frmDocument::SilentDoc(bool bSilent)
{
    openBrowser().setSilent(bSilent);
}

void frmDocument::GoBackDoc()
{
    openBrowser().GoBack();
}

void frmDocument::GoForwardDoc()
{
    step([&] { openBrowser().GoForward(); });
}

void frmDocument::RegisterAsBrowser()
{
    openBrowser().setRegisterAsBrowser(true);
}

QVariant frmDocument::ExecWBDoc(int cmdid, int cmdexecopt, const QVariant &invar)
{
    QVariant out;
    step([&] { out = openBrowser().ExecWB(cmdid, cmdexecopt, invar); });
    return out;
}

std::optional<int> frmDocument::autoRefreshInterval() const
{
    // The timer's interval in milliseconds is the period in seconds: every 1000th tick reloads.
    return tmrAutoRefresh.Enabled() ? std::optional(tmrAutoRefresh.interval()) : std::nullopt;
}

void frmDocument::Highlight_Timer()
{
    const auto replaceIcon = [&](int from, int to) {
        controls::Tab &theTab = tab();
        if (theTab.IconIndex() / 2 * 2 == from)
            theTab.setIconIndex(theTab.IconIndex() - from + to);
    };
    step([&] {
        const bool flashing = tab().IconIndex() / 2 * 2 == kFlashIcon;
        replaceIcon(flashing ? kFlashIcon : kFinishedIcon, flashing ? kFinishedIcon : kFlashIcon);
    });
    const int ticks = Highlight.Tag().toInt() + 1;
    Highlight.setTag(QString::number(ticks));
    if (ticks == kFlashTicks || bActive) {
        Highlight.setEnabled(false);
        Highlight.setTag(u"0"_s);
        step([&] { replaceIcon(kFlashIcon, kFinishedIcon); });
    }
}
