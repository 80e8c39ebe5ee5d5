// The commands that open sites and that act on documents.

#include "core/frmMainCommands.h"

#include "core/frmMain.h"

#include "base/step.h"
#include "controls/TabControl.h"
#include "core/state/Document.h"
#include "desktop/Dialogs.h"
#include "documents/frmNavigator.h"
#include "engine/PageFacets.h"
#include "engine/WebBrowser.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <algorithm>

#include "base/Strings.h"

using namespace Qt::StringLiterals;

namespace {

/// The browser's text size runs from 0 to 4.
constexpr int kSmallestText = 0;
constexpr int kMiddleText = 2;
constexpr int kLargestText = 4;

} // namespace

void Commands::Back()
{
    if (Document *document = active())
        step([&] { document->GoBackDoc(); });
}

void Commands::Forward()
{
    if (Document *document = active())
        step([&] { document->GoForwardDoc(); });
}

void Commands::mnuNavigateStop()
{
    if (Document *document = active())
        step([&] { document->StopDoc(); });
}

void Commands::mnuNavigateRefresh()
{
    const QPointer<Document> document = active();
    if (!document)
        return;
    // Lets events through, so the document may have gone.
    document->SetDownloadOptions();
    if (document)
        step([&] { document->RefreshDoc(); });
}

void Commands::sameTab(const QString &address)
{
    if (!active())
        m_main.LoadNewDoc(address);
    if (Document *document = active())
        step([&] { document->NavigateDoc(address); });
}

void Commands::Home1()
{
    sameTab(settings().SitesHome1);
}

void Commands::mnuNavigateHome2()
{
    // Unlike the other sites this one is not sent a second time into a document that it has just opened.
    if (active())
        sameTab(settings().SitesHome2);
    else
        m_main.LoadNewDoc(settings().SitesHome2);
}

void Commands::mnuNavigateMail()
{
    sameTab(settings().SitesMail);
}

void Commands::mnuNavigateSearch()
{
    sameTab(settings().SitesSearch);
}

void Commands::mnuNavigateNews()
{
    sameTab(settings().SitesNews);
}

void Commands::mnuNewHome1()
{
    m_main.LoadNewDoc(settings().SitesHome1);
}

void Commands::mnuNewHome2()
{
    m_main.LoadNewDoc(settings().SitesHome2);
}

void Commands::mnuNewBlank()
{
    m_main.LoadNewDoc(u"about:blank"_s);
}

void Commands::mnuNewCurrent()
{
    m_main.LoadNewDoc(active() ? active()->LocationURL() : settings().SitesHome1);
}

void Commands::mnuNewClipboard()
{
    m_main.LoadNewDoc(QGuiApplication::clipboard()->text());
}

void Commands::mnuNewEmail()
{
    m_main.LoadNewDoc(settings().SitesMail);
}

void Commands::mnuNewSearch()
{
    m_main.LoadNewDoc(settings().SitesSearch);
}

void Commands::mnuNewNews()
{
    m_main.LoadNewDoc(settings().SitesNews);
}

void Commands::forEachDocument(void (*act)(Document &))
{
    // What runs here may let events through, and a document that closes meanwhile moves those behind it.
    QList<QPointer<Document>> documents;
    for (int n = 1; n <= m_main.vbalDTabControl1->Tabs().Count(); ++n)
        step([&] { documents += &m_main.navigator->document(n); });
    for (const QPointer<Document> &document : documents) {
        if (document)
            step([&] { act(*document); });
    }
}

void Commands::m_cRefresh_Click(int)
{
    forEachDocument([](Document &document) {
        const QPointer<Document> still(&document);
        document.SetDownloadOptions();
        if (still)
            still->RefreshDoc();
    });
}

void Commands::m_cStop_Click(int)
{
    forEachDocument([](Document &document) { document.StopDoc(); });
}

void Commands::refreshAll()
{
    m_cRefresh_Click(0);
}

void Commands::stopAll()
{
    m_cStop_Click(0);
}

void Commands::mnuFileOpen()
{
    const QString file = m_main.mainCode().ground().dialogs.openFile(&m_main, LoadResString(1036),
                                                                     LoadResString(20058) + u"|*.htm;*html;*.url"_s);
    if (file.isEmpty() || m_main.isUnloaded())
        return;
    m_main.LoadNewDoc(file);
    if (Document *document = active())
        document->setCaption(file);
}

void Commands::execWB(int cmdid)
{
    if (Document *document = active())
        document->ExecWBDoc(cmdid, engine::OLECMDEXECOPT_DODEFAULT);
}

void Commands::mnuFileSaveAs()
{
    execWB(engine::OLECMDID_SAVEAS);
}

void Commands::mnuFileProperties()
{
    execWB(engine::OLECMDID_PROPERTIES);
}

void Commands::mnuFilePageSetup()
{
    execWB(engine::OLECMDID_PAGESETUP);
}

void Commands::mnuFilePrintPreview()
{
    execWB(engine::OLECMDID_PRINTPREVIEW);
}

void Commands::mnuFilePrint()
{
    execWB(engine::OLECMDID_PRINT);
}

void Commands::mnuEditSelectAll()
{
    if (Document *document = active(); document && document->browser())
        step([&] { document->browser()->Exec(engine::IDM_SELECTALL, 1, 2); });
}

void Commands::mnuEditFind()
{
    Document *document = active();
    if (!document || !document->browser())
        return;
    document->browser()->setFocus();
    if (engine::FindFacet *find = document->browser()->findFacet())
        find->showFindBar();
}

void Commands::mnuViewSource()
{
    if (Document *document = active(); document && document->browser())
        step([&] { document->browser()->Exec(engine::IDM_VIEWSOURCE, 0); });
}

void Commands::mnuViewInternetOptions()
{
    if (Document *document = active(); document && document->browser())
        step([&] { document->browser()->Exec(engine::IDM_OPTIONS, 0); });
}

int Commands::zoom() const
{
    const QVariant size =
        active() ? active()->ExecWBDoc(engine::OLECMDID_ZOOM, engine::OLECMDEXECOPT_DONTPROMPTUSER) : QVariant();
    return size.isValid() ? size.toInt() : kMiddleText;
}

void Commands::setZoom(int size)
{
    if (Document *document = active())
        document->ExecWBDoc(engine::OLECMDID_ZOOM, engine::OLECMDEXECOPT_DONTPROMPTUSER, size);
}

void Commands::mnuEditIncFont()
{
    if (active())
        setZoom(std::min(zoom() + 1, kLargestText));
}

void Commands::mnuEditDecFont()
{
    if (active())
        setZoom(std::max(zoom() - 1, kSmallestText));
}

void Commands::mnuEditResetFont()
{
    if (!active())
        return;
    int size = zoom();
    for (; size > kMiddleText; --size)
        mnuEditDecFont();
    for (; size < kMiddleText; ++size)
        mnuEditIncFont();
}
