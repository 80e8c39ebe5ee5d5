#pragma once

#include "engine/FormRecord.h"
#include "forms/FormField.h"
#include "forms/FormKey.h"

#include <QObject>
#include <functional>
#include <vector>

/// One copy of the user's record. Everybody who needs it has an own one; the file is the only way from one to another.
///
/// A file whose key is still on its way from the desktop leaves the store empty at first; it fills when the key comes,
/// unless somebody has used the store otherwise by then.
class FormStore : public engine::FormRecord
{
public:
    /// Nothing but loading and saving needs `keys`, and only those need it alive.
    explicit FormStore(FormKeys &keys);
    FormStore(const FormStore &) = delete;
    FormStore &operator=(const FormStore &) = delete;

    void LoadFormData(const QString &path) override;
    void ClearFormData() override;
    void AddFormField(const QString &key, const QString &value, bool isProtected) override;
    /// A file that this store has not read to its end is kept aside under another name first.
    void SaveFormData(const QString &path) override;
    void GetFormField(const QString &key, QString &value, bool &isProtected) const override;
    std::vector<engine::FormAnswer> matchForm(const engine::FrameForm &frame, bool locked) const override;

    const std::vector<FormField> &fields() const { return m_fields; }
    /// Runs when a load has been finished by a key that came late.
    std::function<void()> loadedLate;

private:
    void readFields();

    FormKeys &m_keys;
    std::vector<FormField> m_fields;
    /// The file that is to be read as soon as its key is there; empty for none.
    QString m_awaited;
    /// The file that is known to hold nothing but what was read here or written from here.
    QString m_known;
    /// Ends the wait for the key together with the store.
    QObject m_listener;
};
