#pragma once

#include <QString>
#include <memory>

class QWidget;

namespace engine {

class WebBrowser;
class VisitLog;

/// Makes browsers and owns what they share (the profile, the visit file, the program's own site).
class Engine
{
public:
    virtual ~Engine() = default;
    /// Starts what takes long (the first profile) before the first browser is asked for. May be called more than once.
    virtual void warmUp() = 0;
    /// A new browser. The caller owns it through its parent; every browser must be gone before the engine.
    virtual WebBrowser *createBrowser(QWidget *parent) = 0;
    /// Every visit of every browser ends here.
    virtual VisitLog &visits() = 0;

    /// Where the page "this is no address" sends somebody who wants to search. "%s" in it stands for the words.
    void setSearchAddress(const QString &address) { m_searchAddress = address; }
    const QString &searchAddress() const { return m_searchAddress; }

private:
    QString m_searchAddress;
};

} // namespace engine
