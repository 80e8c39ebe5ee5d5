#pragma once

#include <QString>
#include <QVariant>
#include <QWidget>
#include <optional>

namespace engine {
class WebBrowser;
class WBCustomizer;
} // namespace engine
namespace controls {
class Tab;
}

/// One open site, as the rooms beside and above the documents see it. frmDocument implements it.
class Document : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// 1-based position: index of the document's line in the register and of its tab.
    virtual int position() const = 0;
    virtual void setPosition(int position) = 0;

    virtual void SetDownloadOptions() = 0;
    virtual void ModifyTabCaption(controls::Tab &theTab, const QString &sTitle) = 0;
    virtual QString LocationURL() const = 0;
    virtual QString LocationName() const = 0;
    virtual void RefreshDoc() = 0;
    virtual void StopDoc() = 0;
    virtual void NavigateDoc(const QString &url) = 0;
    virtual void SilentDoc(bool bSilent) = 0;
    virtual void GoBackDoc() = 0;
    virtual void GoForwardDoc() = 0;
    virtual void RegisterAsBrowser() = 0;
    /// ExecWB of the browser; an error is ignored and gives an invalid value.
    virtual QVariant ExecWBDoc(int cmdid, int cmdexecopt, const QVariant &invar = {}) = 0;
    virtual void PlayPopupSound() = 0;
    /// Period of the auto-refresh in seconds, nothing while it is off.
    virtual std::optional<int> autoRefreshInterval() const { return std::nullopt; }

    /// The form's caption (title of the MDI child).
    virtual QString Caption() const = 0;
    virtual void setCaption(const QString &caption) = 0;

    /// The browser host control and the page tools of this document. Null after Form_Unload.
    virtual engine::WebBrowser *browser() const = 0;
    virtual engine::WBCustomizer *customWB() const = 0;

    /// The tab of this document was removed by the tab control itself (close button), so that the unload must not
    /// remove it.
    virtual void setTabAlreadyDeleted(bool deleted) = 0;

    /// Closes the form: runs Form_Unload at once and deletes the form later, so that it is safe inside its own events.
    virtual void Unload() = 0;
};
