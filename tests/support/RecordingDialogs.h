#pragma once

#include "desktop/Dialogs.h"

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
