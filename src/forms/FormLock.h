#pragma once

#include "core/state/ProcessFlags.h"
#include "core/state/Settings.h"

/// Works out FormLocked: the details of the card are behind a password that was not given in this run yet.
inline bool FormLocked(const Settings &settings, ProcessFlags &flags)
{
    flags.FormLocked = settings.ProtectCreditInfo && !flags.CreditUnlocked;
    return flags.FormLocked;
}

/// The file of the record.
inline QString formFileIn(const QString &programFolder)
{
    return programFolder + QStringLiteral("/form.bin");
}
