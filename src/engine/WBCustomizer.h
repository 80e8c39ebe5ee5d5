#pragma once

#include "engine/FormRecord.h"
#include "engine/WebBrowser.h"

#include <memory>

namespace engine {

/// The page helper of a document: what lies between the rules and the inside of a page.
class WBCustomizer
{
public:
    /// Without a record the form operations do nothing and find nothing.
    explicit WBCustomizer(std::shared_ptr<FormRecord> record = nullptr);

    /// Binds the helper to a browser. The browser may go before the helper does.
    void AttachBrowser(WebBrowser *browser);

    /// Not 0: the user has acted in the page since the last ClearUserClick.
    void GetUserClick(int32_t &clicks) const;
    void ClearUserClick();

    /// Flash of the page, that is there or comes later, gives way to a box with a link whose address ends in
    /// "ENABLEFLASH". Holds until the next load.
    void BlockFlash();

    int BackCount() const;
    int ForwardCount() const;
    /// `position` counts from 1, 1 is the nearest page. Throws ControlError for a position outside the list.
    void GetHistoryElement(bool isBack, int position, QString &title, QString &address) const;

    // --- the user's record for web forms; see FormRecord ---
    void LoadFormData(const QString &path);
    void ClearFormData();
    void AddFormField(const QString &key, const QString &value, bool isProtected);
    void SaveFormData(const QString &path);
    void GetFormField(const QString &key, QString &value, bool &isProtected) const;
    /// Fills the page that the browser shows. Throws ControlError when there is no browser or no page to fill.
    void FillForm(bool locked);
    /// Whether protected fields stay out of fills that begin by themselves.
    void SetFormLocked(bool locked) { m_formLocked = locked; }
    bool formLocked() const { return m_formLocked; }

private:
    QPointer<WebBrowser> m_browser;
    std::shared_ptr<FormRecord> m_record;
    bool m_formLocked = true;
};

} // namespace engine
