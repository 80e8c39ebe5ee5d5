#pragma once

#include <QStringList>
#include <array>
#include <cstdint>

/// The values in memory of the keys of the settings store, one for each key, under the key's name. They start as False,
/// 0 or empty, not as the key's default: a stored text that does not convert leaves its value as it was.
struct Settings
{
    // Section "Settings"
    bool MainMaximized = false;

    // Section "General"
    bool SaveDocumentOnExit = false;
    /// 1 load the saved documents, 2 ask, anything else nothing.
    int16_t LoadAction = 0;
    bool MinimizeToTray = false;
    QString TrayPassword;
    bool CheckIfDefault = false;

    // Section "History"
    bool CleanAddress = false;
    bool CleanSearch = false;
    bool CleanCookies = false;
    bool CleanHistory = false;
    bool CleanTemp = false;

    // Section "Sites"
    QString SitesHome1;
    QString SitesHome2;
    QString SitesSearch;
    QString SitesNews;
    QString SitesMail;

    // Section "Sidebar"
    bool EnableSidebar = false;
    QString QNFontName;
    int16_t QNFontSize = 0;
    /// 0x00BBGGRR.
    int32_t QNColor = 0;
    bool QNBold = false;
    bool QNItalic = false;
    bool QNUnderline = false;
    /// Minutes.
    int16_t FavRefresh = 0;
    int16_t HistRefresh = 0;

    // Section "CustomLinks": entries 1 to count, index 0 unused.
    struct Links
    {
        int16_t Count = 0;
        std::array<QString, 11> Names;
        std::array<QString, 11> URLs;
    } CustomLinks;

    // Section "Skins"
    QString CurrentSkin;
    QString ToolbarLargeBitmap;
    QString ToolbarSmallBitmap;

    // Section "Control"
    bool ControlNavNew = false;
    bool ControlSitesNew = false;
    bool ControlFavNew = false;
    bool ControlHistNew = false;
    int16_t ControlLeft = 0;
    int16_t ControlShiftLeft = 0;
    int16_t ControlRight = 0;
    int16_t ControlShiftRight = 0;
    int16_t ControlDouble = 0;

    // Section "Content"
    bool EnableImages = false;
    bool EnableSound = false;
    bool EnableVideo = false;
    bool EnableScripts = false;
    bool EnableJava = false;
    bool EnableActiveXDL = false;
    bool EnableActiveXRUN = false;
    bool EnableFlash = false;
    bool SuppressErrors = false;
    bool SuppressScriptErrors = false;

    // Section "Forms"
    bool AutoFormFill = false;
    bool ProtectCreditInfo = false;
    QString CreditInfoPassword;

    // Section "Popup", with the black list (entries 1 to BlackListCount, index 0 unused)
    bool PopupKillerEnable = false;
    bool PopupCtrlEnable = false;
    bool PopupPlaySound = false;
    QString PopupSoundFile;
    int32_t BlackListCount = 0;
    QStringList BlackList{QString()};
};
