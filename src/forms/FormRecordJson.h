#pragma once

#include "forms/FieldTable.h"

#include <QByteArray>

class SettingsStore;

/// A record as a JSON object, for moving one between machines: "title", "sex", "firstname", "lastname", "phone", "fax",
/// "bday", "bmonth", "byear", "mail", "job", "address1", "address2", "country", "city", "state", "zip", "cardtype",
/// "cardnumber", "validcode", "expmonth", "expyear", "username", "bank", and "custom", an object with up to six names
/// and values of the user's own. Whatever is not there stays empty; without "custom" the names in `settings` stay.
///
/// A list takes the number of its row, its text in any letters, or the code of the country. Throws ControlError, with
/// the reason, for anything else that is no record.
FormValues ReadFormJson(const QByteArray &json, const SettingsStore &settings);
