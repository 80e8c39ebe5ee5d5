#pragma once

#include <QString>

class Document;

/// What other rooms may ask of the main window. frmMain implements it.
class MainWindow
{
public:
    virtual ~MainWindow() = default;

    /// The active document, null when none is open.
    virtual Document *ActiveForm() const = 0;
    /// Opens an address in a new document. `url` becomes the address inside when it names an internet shortcut file.
    virtual void LoadNewDoc(QString &url) = 0;
    void LoadNewDoc(QString &&url) { LoadNewDoc(url); }
    void LoadNewDoc(const QString &url)
    {
        QString copy = url;
        LoadNewDoc(copy);
    }
    /// Takes the commands that need a document in and out of service.
    virtual void ModifyMenu() = 0;
    virtual void SaveAllDocuments() = 0;
    virtual void LoadAllDocuments() = 0;
    virtual void mnuContentFlash() = 0;
    /// The caret is in AddressBar.
    virtual bool g_Focus() const = 0;
    /// Clears or sets the check mark of a menu entry, found by its key. Throws ControlError for an unknown key.
    virtual void setMenuChecked(const QString &key, bool checked) = 0;
    /// Opens the options dialog on its start page.
    virtual void ShowOptions() = 0;
};
