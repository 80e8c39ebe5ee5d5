#pragma once

#include <QObject>
#include <QString>

class MainWindow;
class QAbstractButton;
struct ProcessFlags;
namespace controls {
class ComboBox;
}
namespace engine {
class VisitLog;
}

/// The address bar: how an address that is typed or picked reaches a document, and how the list of typed addresses
/// grows.
class AddressBarRules : public QObject
{
    Q_OBJECT
public:
    struct Parts
    {
        MainWindow &frmMain;
        const ProcessFlags &flags;
        controls::ComboBox &AddressBar;
        QAbstractButton &Go;
        /// A check box: checked opens typed addresses in a new tab.
        QAbstractButton &goNew;
        /// Completions come from here and from the list; may be null.
        engine::VisitLog *visits = nullptr;
    };
    explicit AddressBarRules(const Parts &parts, QObject *parent = nullptr);

    /// The caret is in AddressBar: no load event of a document writes its text.
    bool g_Focus() const { return m_focus; }
    /// The edit field is in an edit: a click of the combo is ignored.
    bool bAddressEditing() const { return m_bAddressEditing; }

    /// A key press in the edit field; acts on Enter (13) only.
    void AddressBar_Key(int &keyCode, int shift);
    /// An entry was picked from the list.
    void AddressBar_Click();
    void Go_Click();
    /// Puts an address on top of the list.
    void AddAddress(const QString &s);

    /// Icon of the list's entries.
    static constexpr int kAddressIcon = 4;

signals:
    /// The user has sent an address on its way and is done with the bar.
    void addressSent();

private:
    void showMenu(const QPoint &at);
    void tellSent();

    Parts m_parts;
    bool m_focus = false;
    bool m_bAddressEditing = false;
};
