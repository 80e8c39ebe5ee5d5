#include "engine/webengine/PagePrinter.h"

#include <QFile>
#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <csignal>

using namespace Qt::StringLiterals;

namespace engine {

namespace {

/// World of the script that only answers.
constexpr quint32 kPrinterWorld = QWebEngineScript::UserWorld + 8;
/// A book of a thousand pages takes a few seconds.
constexpr int kPatienceMs = 60'000;

/// Whether the process still runs. The engine notices the end of one a moment late, and dies itself of an order to
/// print that it sends in between.
bool isRunning(qint64 process)
{
    QFile file(u"/proc/%1/stat"_s.arg(process));
    if (process == 0 || !file.open(QIODevice::ReadOnly))
        return false;
    // "pid (name) state parent group session terminal foreground flags ...". State Z is a process that has ended, X one
    // that is just gone. One that was killed keeps its old state until it has given its memory back; its flags and its
    // pending signals tell.
    const QByteArray stat = file.readAll();
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    constexpr qsizetype kState = 0;
    constexpr qsizetype kFlags = 6;
    constexpr qsizetype kPendingSignals = 28;
    constexpr uint kExiting = 0x4; // PF_EXITING of the kernel
    constexpr qulonglong kKill = 1U << (SIGKILL - 1);
    if (fields.size() <= kPendingSignals || fields[kState] == "Z" || fields[kState] == "X")
        return false;
    return (fields[kFlags].toUInt() & kExiting) == 0 && (fields[kPendingSignals].toULongLong() & kKill) == 0;
}

} // namespace

PagePrinter::PagePrinter(QWebEnginePage &page)
    : m_page(page)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatienceMs);
    connect(&m_patience, &QTimer::timeout, this, [this] { finish({}); });
    connect(
        &page, &QWebEnginePage::renderProcessTerminated, this, [this] { finish({}); }, Qt::QueuedConnection);
}

void PagePrinter::makePdf(const PageSetup &setup, const QPageRanges &ranges,
                          std::function<void(const QByteArray &)> done)
{
    m_orders.push_back({setup, ranges, std::move(done)});
    if (m_orders.size() == 1)
        begin();
}

void PagePrinter::begin()
{
    const int number = ++m_number;
    if (m_page.renderProcessPid() == 0) {
        QTimer::singleShot(0, this, [this] { finish({}); });
        return;
    }
    m_patience.start();
    m_page.settings()->setAttribute(QWebEngineSettings::PrintElementBackgrounds, m_orders.front().setup.background);
    // The setting is told to the page in a later turn of the event loop. When the page answers it has been told.
    const QPointer<PagePrinter> guard(this);
    m_page.runJavaScript(u"1"_s, kPrinterWorld, [guard, number](const QVariant &answer) {
        // A process that ends leaves its questions behind with an empty answer.
        if (!guard || answer.toInt() != 1)
            return;
        QTimer::singleShot(0, guard, [guard, number] {
            if (guard->m_number == number && isRunning(guard->m_page.renderProcessPid()))
                guard->make();
        });
    });
}

void PagePrinter::make()
{
    const Order &order = m_orders.front();
    const int number = m_number;
    const QPointer<PagePrinter> guard(this);
    m_debt->isOpen = true;
    m_page.printToPdf(
        [guard, number, debt = m_debt](const QByteArray &pdf) {
            debt->isOpen = false;
            if (debt->onPaid)
                debt->onPaid();
            if (!guard)
                return;
            QTimer::singleShot(0, guard, [guard, number, pdf] {
                if (guard->m_number == number)
                    guard->finish(pdf);
            });
        },
        order.setup.layout, order.ranges);
}

void PagePrinter::finish(const QByteArray &pdf)
{
    if (m_orders.empty())
        return;
    m_patience.stop();
    ++m_number;
    const QPointer<PagePrinter> guard(this);
    const Order order = std::move(m_orders.front());
    m_orders.pop_front();
    order.done(pdf);
    if (guard && !m_orders.empty())
        begin();
}

} // namespace engine
