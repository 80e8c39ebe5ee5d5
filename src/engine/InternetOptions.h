#pragma once

#include "engine/EngineSettings.h"

#include <QDialog>
#include <QFlags>
#include <vector>

class QLabel;
class QPushButton;
class QTabWidget;

namespace engine {

class OptionPage;

/// What browsing leaves behind, as the bits of one number.
enum class Trace {
    /// Pages and pictures in the cache.
    TemporaryFiles = 1,
    /// Cookies, and what sites have stored by script.
    Cookies = 2,
    /// Visits, and the links that are shown as visited.
    History = 4,
};
Q_DECLARE_FLAGS(Traces, Trace)
Q_DECLARE_OPERATORS_FOR_FLAGS(Traces)

/// What the dialog asks of the engine.
class OptionsHost
{
public:
    virtual ~OptionsHost() = default;
    virtual const EngineSettings &settings() const = 0;
    /// The settings hold from now on, also for pages that are open. False: they could not be stored as well.
    virtual bool apply(const EngineSettings &settings) = 0;
    /// Removes at once what can be removed while pages are open, and the rest before the next start.
    virtual void clear(Traces traces) = 0;
    /// What sites are told with Agent::Own.
    virtual QString ownAgent() const = 0;
    /// Where downloads go while the user has chosen no folder.
    virtual QString systemDownloadFolder() const = 0;
};

/// The settings of the engine on six tabs. It runs no event loop. What is wrong is told in a line above the buttons,
/// and nothing can be applied until it is right.
class InternetOptions : public QDialog
{
    Q_OBJECT
public:
    /// `host` outlives the dialog.
    InternetOptions(OptionsHost &host, QWidget *parent);

private:
    void addPages();
    void addPage(const char *name, int caption, OptionPage *page);
    void addTurningKeys();
    void changed();
    bool apply();
    EngineSettings collected() const;

    OptionsHost &m_host;
    QTabWidget *tabPages;
    QLabel *lblProblem;
    QPushButton *btnOk;
    QPushButton *btnApply;
    std::vector<OptionPage *> m_pages;
};

} // namespace engine
