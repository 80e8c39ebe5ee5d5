#pragma once

#include "engine/WebBrowser.h"

namespace engine {

/// The page helper of a document: what lies between the rules and the inside of a page.
class WBCustomizer
{
public:
    /// Binds the helper to a browser. The browser may go before the helper does.
    void AttachBrowser(WebBrowser *browser);

    /// Not 0: the user has acted in the page since the last ClearUserClick.
    void GetUserClick(int32_t &clicks) const;
    void ClearUserClick();

    int BackCount() const;
    int ForwardCount() const;
    /// `position` counts from 1, 1 is the nearest page. Throws ControlError for a position outside the list.
    void GetHistoryElement(bool isBack, int position, QString &title, QString &address) const;

private:
    QPointer<WebBrowser> m_browser;
};

} // namespace engine
