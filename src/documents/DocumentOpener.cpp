#include "documents/DocumentOpener.h"

#include "base/ShortcutFile.h"
#include "base/step.h"
#include "controls/ComboBox.h"
#include "controls/ListView.h"
#include "controls/MdiFrame.h"
#include "controls/TabControl.h"
#include "documents/AddressBarRules.h"
#include "documents/frmDocument.h"
#include "documents/frmNavigator.h"

#include <QPointer>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {
/// Icon of a line of the Navigator, counted from 1.
constexpr int kSiteIcon = 1;

/// Path of a shortcut file without its extension, from a path or a file address.
QString shortcutPath(const QString &url)
{
    const QString path = url.chopped(4);
    if (path.left(8).toLower() != u"file:///")
        return path;
    // The third slash begins the path; addresses of files are percent-encoded.
    return QUrl::fromPercentEncoding(path.mid(7).toUtf8());
}
} // namespace

DocumentOpener::DocumentOpener(DocumentContext &context)
    : m_context(context)
{
    const auto forward = [](auto act) {
        return [act](QWidget *form, auto... arguments) {
            if (auto *document = qobject_cast<frmDocument *>(form))
                (document->*act)(arguments...);
        };
    };
    controls::MdiFrame *mdi = &context.mdi;
    connect(mdi, &controls::MdiFrame::formActivated, this, forward(&frmDocument::Form_Activate));
    connect(mdi, &controls::MdiFrame::formDeactivated, this, forward(&frmDocument::Form_Deactivate));
    connect(mdi, &controls::MdiFrame::formCloseRequested, this, forward(&frmDocument::Unload));
    connect(mdi, &controls::MdiFrame::formExposed, this, [](QWidget *form, bool exposed) {
        if (auto *document = qobject_cast<frmDocument *>(form))
            document->setExposed(exposed);
    });
}

void DocumentOpener::LoadNewDoc(QString &url)
{
    if (url.right(4).toLower() == u".url")
        url = ReadShortcutURL(shortcutPath(url));
    openDocument(url);
    addAddress(url);
}

void DocumentOpener::addToRegister(frmDocument &document, const QString &url)
{
    auto &list = m_context.navigator.ListView1;
    step([&] {
        controls::ListItem &line = list.ListItems().Add(url, kSiteIcon);
        line.AddListSubItem();
        document.setPosition(line.Index());
        line.setTag(&document);
    });
    step([&] { m_context.vbalDTabControl1.Tabs().Add(url, 0); });
}

void DocumentOpener::openDocument(const QString &url)
{
    const QPointer<frmDocument> document = new frmDocument(m_context);
    addToRegister(*document, url);
    document->SetDownloadOptions();
    // That may have let events through, and one of them may have closed the document.
    if (!document || document->isClosing())
        return;
    document->setCaption(url);
    step([&] { document->RegisterAsBrowser(); });
    step([&] { document->NavigateDoc(url); });
    step([&] { document->setCaption(document->LocationURL()); });
    document->Show();

    const auto tab = [&]() -> controls::Tab & { return m_context.vbalDTabControl1.Tabs(document->position()); };
    step([&] { tab().setTag(QString()); });
    step([&] { document->ModifyTabCaption(tab(), document->LocationName()); });
}

void DocumentOpener::addAddress(const QString &url)
{
    auto &list = m_context.AddressBar;
    step([&] {
        if (list.ListCount() == 0 || list.List(0) != url)
            list.InsertItem(0, url, AddressBarRules::kAddressIcon);
    });
}
