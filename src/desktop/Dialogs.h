#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace desktop {

/// Icon word of a message box style: 48 warning, 64 information, 32 question.
inline constexpr int MB_ICONQUESTION = 32;
inline constexpr int MB_ICONEXCLAMATION = 48;
inline constexpr int MB_ICONINFORMATION = 64;
inline constexpr int MB_YESNO = 4;
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

/// The dialogs of the desktop. Never call one from inside an engine callback.
class Dialogs
{
public:
    virtual ~Dialogs() = default;
    /// A modal message box; gives the number of the button. An empty title means the program's name.
    virtual int messageBox(QWidget *owner, const QString &prompt, int style, const QString &title = {}) = 0;
    /// `filter` in the form "Text|*.a;*.b". Empty when the user cancels.
    virtual QString openFile(QWidget *owner, const QString &title, const QString &filter) = 0;
    virtual QString saveFile(QWidget *owner, const QString &title, const QString &proposedPath,
                             const QString &filter) = 0;
};

} // namespace desktop
