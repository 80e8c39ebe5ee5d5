#pragma once

#include <cstdint>

struct Settings;
namespace desktop {
class Sound;
}

/// What a request for a window is judged by, under the names of the values.
struct WindowRequest
{
    bool PopupKillerEnable = false;
    /// Holding Alt lets windows through.
    bool PopupCtrlEnable = false;
    bool AltDown = false;
    /// The latch of the page: not 0 when the user has acted in it since its last request for a window.
    int32_t userClick = 0;
    bool bLoading = false;
    bool bClosing = false;
};

/// Whether a window that a page asks for is a popup. There is no list and no time: a page at rest may open what it
/// wants, a page that comes or goes only what the user has just asked for.
bool isPopup(const WindowRequest &request);

/// Starts the sound of a refused window, when the user wants one.
void PlayPopupSound(const Settings &settings, desktop::Sound &sound);

/// Pictures of the status bar panel `Item4`; the light one belongs to the blink.
inline constexpr int kPopupKillerOff = 1;
inline constexpr int kPopupKillerOn = 3;
inline constexpr int kPopupKillerLight = 5;

/// The picture at rest.
constexpr int popupKillerIcon(bool enabled)
{
    return enabled ? kPopupKillerOn : kPopupKillerOff;
}
