#pragma once

#include "engine/webengine/PageChannel.h"

#include <memory>
#include <vector>

namespace engine {

class WebBrowser;

/// The message boxes that one page has open. Each is answered exactly once: by the user, or as refused when the page
/// goes on or away, since its script stands still until then.
class PageBoxes
{
public:
    explicit PageBoxes(WebBrowser &browser);
    ~PageBoxes();

    void ask(const BoxRequest &request);
    /// An alert whose script does not wait for the answer.
    void tell(const QString &origin, const QString &message);

    /// Refuses all that are open.
    void withdraw();
    /// The user is on the way to another page: until the end of that, boxes of the old one are refused unseen, so that
    /// a page that asks again and again cannot hold anybody.
    void setLeaving(bool leaving);

private:
    struct Open;
    void show(std::unique_ptr<Open> box, const QString &message, const QString &defaultText, const QString &origin);

    WebBrowser &m_browser;
    std::vector<std::unique_ptr<Open>> m_open;
    bool m_leaving = false;
};

} // namespace engine
