#include "forms/FormStore.h"

#include "base/Files.h"
#include "base/step.h"
#include "forms/FormFile.h"
#include "forms/Matching.h"

#include <QFile>
#include <algorithm>

FormStore::FormStore(FormKeys &keys)
    : m_keys(keys)
{
    QObject::connect(&keys, &FormKeys::found, &m_listener, [this] {
        if (m_awaited.isEmpty())
            return;
        readFields();
        if (loadedLate)
            loadedLate();
    });
}

void FormStore::LoadFormData(const QString &path)
{
    m_awaited = path;
    readFields();
}

void FormStore::readFields()
{
    const QString path = m_awaited;
    const auto file = readFile(path, formfile::kLimit);
    const auto id = file ? formfile::keyIdOf(*file) : std::nullopt;
    if (!id) {
        m_awaited.clear();
        return;
    }
    const FormKey *key = m_keys.find(*id);
    if (!key)
        return;
    m_awaited.clear();
    formfile::Content content = formfile::read(*file, *key);
    std::move(content.fields.begin(), content.fields.end(), std::back_inserter(m_fields));
    if (content.isWhole)
        m_known = path;
}

void FormStore::ClearFormData()
{
    m_fields.clear();
    m_awaited.clear();
}

void FormStore::AddFormField(const QString &key, const QString &value, bool isProtected)
{
    m_awaited.clear();
    m_fields.push_back({key, value, isProtected});
}

void FormStore::SaveFormData(const QString &path)
{
    const QByteArray file = formfile::write(m_fields, m_keys.present());
    if (m_known != path && QFile::exists(path) && !keepAside(path))
        throw ControlError("the old record is in the way");
    if (!writeFileWhole(path, file))
        throw ControlError("the record cannot be written");
    m_known = path;
}

void FormStore::GetFormField(const QString &key, QString &value, bool &isProtected) const
{
    const auto field = std::find_if(m_fields.begin(), m_fields.end(), [&](const FormField &one) {
        return one.key.compare(key, Qt::CaseInsensitive) == 0;
    });
    value = field != m_fields.end() ? field->value : QString();
    isProtected = field != m_fields.end() && field->isProtected;
}

std::vector<engine::FormAnswer> FormStore::matchForm(const engine::FrameForm &frame, bool locked) const
{
    return MatchForm(m_fields, frame, locked);
}
