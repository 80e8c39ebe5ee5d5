#pragma once

#include <QFrame>

class FormKeys;
class SettingsStore;
struct ProcessFlags;
struct Settings;
namespace desktop {
class Dialogs;
struct Paths;
} // namespace desktop

/// What the pages of the options work on. It outlives the dialog.
struct OptionsContext
{
    Settings &settings;
    ProcessFlags &flags;
    SettingsStore &store;
    desktop::Dialogs &dialogs;
    const desktop::Paths &paths;
    FormKeys &formKeys;
};

/// One page of the options: shows its block of the settings and writes it back when the dialog is confirmed.
class OptionsPage : public QFrame
{
    Q_OBJECT
public:
    using QFrame::QFrame;
    /// Runs before any page loads.
    virtual void Prepare() {}
    virtual void LoadPage() = 0;
    /// False: the page is not valid, which it has told the user, and the dialog stays.
    virtual bool SavePage() = 0;
};
