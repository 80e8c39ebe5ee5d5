#include "engine/webengine/PagePrinter.h"

#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineSettings>

namespace engine {

namespace {

/// A book of a thousand pages takes a few seconds.
constexpr int kPatienceMs = 60'000;

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
    m_patience.start();
    m_page.settings()->setAttribute(QWebEngineSettings::PrintElementBackgrounds, m_orders.front().setup.background);
    // The engine tells its pages of a setting with the next turn of the event loop.
    QTimer::singleShot(0, this, [this, number] {
        if (m_number == number)
            make();
    });
}

void PagePrinter::make()
{
    // The engine dies of an order for a page whose process has ended.
    if (m_page.renderProcessPid() == 0) {
        finish({});
        return;
    }
    const Order &order = m_orders.front();
    const int number = m_number;
    const QPointer<PagePrinter> guard(this);
    m_page.printToPdf(
        [guard, number](const QByteArray &pdf) {
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
