#pragma once

#include "engine/FormRecord.h"

#include <QString>
#include <QStringList>
#include <array>

class SettingsStore;

/// What the Forms page shows. A list is the number of its row: 0 is the blank row, -1 no row at all, and both mean that
/// nothing is chosen.
struct FormValues
{
    int title = 0;
    int sex = 0;
    QString firstname;
    QString lastname;
    QString phone;
    QString fax;
    int bday = 0;
    int bmonth = 0;
    QString byear;
    QString mail;
    QString job;

    QString address1;
    QString Address2;
    int Country = 0;
    QString City;
    QString State;
    QString ZipCode;

    int CardType = 0;
    QString CardNumber;
    QString ValidCode;
    int ExpMonth = 0;
    QString ExpYear;
    QString UserName;
    QString Bank;

    /// Fields that the user names himself.
    struct Own
    {
        QString Custom;
        QString Value;
    };
    std::array<Own, 6> own;

    using List = int FormValues::*;
    using Text = QString FormValues::*;
};

/// The rows of a list from 1 on. They are data for the forms of pages and not texts of the window: in every language
/// of the program they are the same.
QStringList rowsOf(FormValues::List list);

/// The key, in section "Settings", of the name of one of the user's own fields; `own` counts from 0.
QString keyOfOwnField(std::size_t own);

/// Rebuilds the record from the page and writes it to `path`. The order of its fields is part of the matching: of two
/// keys that fit, the first one counts. The names of the user's own fields go to `settings`. Throws ControlError when
/// the record cannot be written.
void BuildFormFields(const FormValues &values, engine::FormRecord &record, SettingsStore &settings,
                     const QString &path);

/// The page from the record: the reverse of BuildFormFields.
FormValues ReadFormFields(const engine::FormRecord &record, const SettingsStore &settings);
