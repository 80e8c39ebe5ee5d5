#include "engine/WBCustomizer.h"

#include "base/step.h"
#include "engine/PageFacets.h"

namespace engine {

WBCustomizer::WBCustomizer(std::shared_ptr<FormRecord> record)
    : m_record(std::move(record))
{}

void WBCustomizer::AttachBrowser(WebBrowser *browser)
{
    m_browser = browser;
}

void WBCustomizer::GetUserClick(int32_t &clicks) const
{
    clicks = m_browser ? m_browser->userClicks() : 0;
}

void WBCustomizer::ClearUserClick()
{
    if (m_browser)
        m_browser->clearUserClicks();
}

void WBCustomizer::BlockFlash()
{
    if (ContentFacet *content = m_browser ? m_browser->contentFacet() : nullptr)
        content->blockFlash();
}

int WBCustomizer::BackCount() const
{
    return m_browser ? static_cast<int>(m_browser->backEntries().size()) : 0;
}

int WBCustomizer::ForwardCount() const
{
    return m_browser ? static_cast<int>(m_browser->forwardEntries().size()) : 0;
}

void WBCustomizer::GetHistoryElement(bool isBack, int position, QString &title, QString &address) const
{
    if (!m_browser)
        throw ControlError("no browser is attached");
    const std::vector<HistoryEntry> entries = isBack ? m_browser->backEntries() : m_browser->forwardEntries();
    if (position < 1 || position > static_cast<int>(entries.size()))
        throw ControlError("no such page in the list");
    title = entries[position - 1].title;
    address = entries[position - 1].address;
}

void WBCustomizer::LoadFormData(const QString &path)
{
    if (m_record)
        m_record->LoadFormData(path);
}

void WBCustomizer::ClearFormData()
{
    if (m_record)
        m_record->ClearFormData();
}

void WBCustomizer::AddFormField(const QString &key, const QString &value, bool isProtected)
{
    if (m_record)
        m_record->AddFormField(key, value, isProtected);
}

void WBCustomizer::SaveFormData(const QString &path)
{
    if (m_record)
        m_record->SaveFormData(path);
}

void WBCustomizer::GetFormField(const QString &key, QString &value, bool &isProtected) const
{
    value.clear();
    isProtected = false;
    if (m_record)
        m_record->GetFormField(key, value, isProtected);
}

void WBCustomizer::FillForm(bool locked)
{
    FormFacet *forms = m_browser ? m_browser->formFacet() : nullptr;
    if (!forms || !m_record)
        throw ControlError("no page to fill");
    forms->fill(m_record, locked);
}

} // namespace engine
