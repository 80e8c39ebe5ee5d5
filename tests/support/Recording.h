#pragma once

#include "desktop/Dialogs.h"
#include "desktop/Sound.h"
#include "desktop/TrayIcon.h"

#include <QStringList>

/// The dialogs of the desktop without a screen: records what was asked and gives the prepared answers.
class RecordingDialogs : public desktop::Dialogs
{
public:
    int messageBox(QWidget *, const QString &prompt, int style, const QString &title = {}) override
    {
        messages += prompt;
        styles += style;
        titles += title;
        return answer;
    }
    QString openFile(QWidget *, const QString &title, const QString &filter) override
    {
        asked += title + u'|' + filter;
        return file;
    }
    QString saveFile(QWidget *, const QString &title, const QString &proposedPath, const QString &filter) override
    {
        asked += title + u'|' + proposedPath + u'|' + filter;
        return file;
    }

    QStringList messages;
    QList<int> styles;
    QStringList titles;
    /// File dialogs: what they showed, separated by "|".
    QStringList asked;
    /// Button that answers every message box.
    int answer = desktop::IDOK;
    /// File that every file dialog gives.
    QString file;
};

/// Sounds without a loudspeaker: records the files that were to be played.
class RecordingSound : public desktop::Sound
{
public:
    void play(const QString &file) override { played += file; }

    QStringList played;
};

/// A tray that may be missing.
class RecordingTray : public desktop::TrayIcon
{
public:
    bool isAvailable() const override { return available; }
    void AddTrayIcon(const QString &text) override { tip = text; }
    void RemoveTrayIcon() override { tip.clear(); }

    bool available = true;
    /// Empty while there is no icon.
    QString tip;
};
