#include "engine/webengine/PageBoxes.h"

#include "engine/WebBrowser.h"

#include <QWebEngineUrlRequestJob>

namespace engine {

struct PageBoxes::Open : QObject
{
    BoxRequest::Kind kind = BoxRequest::Kind::Alert;
    QPointer<QWebEngineUrlRequestJob> job;

    void answer(bool accepted, const QString &text)
    {
        QWebEngineUrlRequestJob *waiting = job;
        job = nullptr;
        if (!waiting)
            return;
        QByteArray content;
        if (accepted)
            content = kind == BoxRequest::Kind::Prompt ? '=' + text.toUtf8() : QByteArray("1");
        PageChannel::answer(waiting, content);
    }
};

PageBoxes::PageBoxes(WebBrowser &browser)
    : m_browser(browser)
{}

PageBoxes::~PageBoxes()
{
    withdraw();
}

void PageBoxes::ask(const BoxRequest &request)
{
    auto box = std::make_unique<Open>();
    box->kind = request.kind;
    box->job = request.job;
    show(std::move(box), request.message, request.defaultText, request.origin);
}

void PageBoxes::tell(const QString &origin, const QString &message)
{
    show(std::make_unique<Open>(), message, {}, origin);
}

void PageBoxes::show(std::unique_ptr<Open> box, const QString &message, const QString &defaultText,
                     const QString &origin)
{
    WBMessages *sink = m_browser.MessageSink();
    if (m_leaving || m_browser.Silent() || !sink) {
        box->answer(false, {});
        return;
    }
    PageMessage shown;
    shown.Prompt = message;
    shown.buttons = box->kind == BoxRequest::Kind::Alert ? MessageButtons::Ok : MessageButtons::OkCancel;
    shown.origin = origin;
    shown.wantsText = box->kind == BoxRequest::Kind::Prompt;
    shown.defaultText = defaultText;
    shown.asker = box.get();
    shown.reply = [this, asker = QPointer<Open>(box.get())](bool accepted, const QString &text) {
        if (!asker)
            return;
        asker->answer(accepted, text);
        std::erase_if(m_open, [&](const auto &open) { return open.get() == asker; });
    };
    m_open.push_back(std::move(box));
    sink->WBMessages_ShowMessage(std::move(shown));
}

void PageBoxes::withdraw()
{
    for (const auto &open : std::exchange(m_open, {}))
        open->answer(false, {});
}

void PageBoxes::setLeaving(bool leaving)
{
    m_leaving = leaving;
    if (leaving)
        withdraw();
}

} // namespace engine
