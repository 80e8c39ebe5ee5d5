#include "blocking/SiteBlocker.h"

#include "base/Files.h"
#include "blocking/BlackListFile.h"
#include "core/state/Settings.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

SiteBlocker::SiteBlocker(Settings &settings, const QString &programFolder)
    : m_settings(settings)
    , m_file(programFolder + u"/blacklist.cvd"_s)
{}

void SiteBlocker::ReadBlackList()
{
    const std::optional<QByteArray> content = readFile(m_file);
    m_unread = !content && QFileInfo::exists(m_file);
    m_settings.BlackList = QStringList{QString()};
    if (content)
        m_settings.BlackList += parseBlackList(*content);
    m_settings.BlackListCount = static_cast<int32_t>(m_settings.BlackList.size() - 1);
}

QStringList SiteBlocker::entries() const
{
    return m_settings.BlackList.mid(1, m_settings.BlackListCount);
}

void SiteBlocker::WriteBlackList()
{
    if (m_unread && !keepAside(m_file) && QFileInfo::exists(m_file))
        return;
    m_unread = !writeFileWhole(m_file, blackListContent(entries())) && m_unread;
}

bool SiteBlocker::isListed(const QString &URL)
{
    if (m_searchedCount != m_settings.BlackListCount || m_searchedList != m_settings.BlackList) {
        m_searchedCount = m_settings.BlackListCount;
        m_searchedList = m_settings.BlackList;
        m_search = BlackListSearch(entries());
    }
    return m_search.findsAnyIn(URL);
}
