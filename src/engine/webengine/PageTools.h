#pragma once

#include "engine/FindBar.h"
#include "engine/PageCommands.h"
#include "engine/webengine/PageFinder.h"
#include "engine/webengine/PagePrinter.h"
#include "engine/webengine/PageReader.h"
#include "engine/webengine/PageSaver.h"

class QKeyEvent;

namespace engine {

class WebBrowser;

/// What the commands of one document need of its page, and the find bar below it. Goes before the page does.
class PageTools : public QObject, public FindFacet
{
    Q_OBJECT
public:
    PageTools(WebBrowser &browser, QWebEnginePage &page, PageMemory &memory, PageReader::Known known,
              PageCommands::Tell tell);

    PrintFacet &print() { return m_printer; }
    PrintDebt &printDebt() { return *m_printer.debt(); }
    SaveFacet &save() { return m_saver; }
    InfoFacet &info() { return m_reader; }

    void find(const QString &text, const FindOptions &options, std::function<void(FindHits)> done) override;
    void endFind() override;
    void showFindBar() override;
    void hideFindBar() override;

    /// Runs the command OLECMDID_...; false for one that is not of this kind.
    bool run(int cmdid) { return m_commands.run(cmdid); }
    /// A key that the page has not used. False: it means nothing here either.
    bool keyPressed(const QKeyEvent &event);
    /// Whether the download is a page that is being saved.
    bool takes(QWebEngineDownloadRequest &download) { return m_saver.takes(download); }
    bool hasFindBar() const { return m_bar && !m_bar->isHidden(); }
    /// Puts the find bar, if it is open, to the bottom of `room`; gives what is left of it.
    QRect layOut(const QRect &room);

signals:
    /// layOut() has to run again.
    void roomChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    FindBar &bar();
    bool zoomKeyPressed(const QKeyEvent &event);

    WebBrowser &m_browser;
    QWebEnginePage &m_page;
    PageCommands::Tell m_tell;
    PagePrinter m_printer;
    PageSaver m_saver;
    PageReader m_reader;
    PageFinder m_finder;
    PageCommands m_commands;
    QPointer<FindBar> m_bar;
};

} // namespace engine
