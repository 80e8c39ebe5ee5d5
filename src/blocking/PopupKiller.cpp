#include "blocking/PopupKiller.h"

#include "core/state/Settings.h"
#include "desktop/Sound.h"

bool isPopup(const WindowRequest &request)
{
    const bool letThrough = request.PopupCtrlEnable && request.AltDown;
    const bool comesOrGoes = request.bLoading || request.bClosing;
    return request.PopupKillerEnable && !letThrough && request.userClick == 0 && comesOrGoes;
}

void PlayPopupSound(const Settings &settings, desktop::Sound &sound)
{
    if (settings.PopupPlaySound)
        sound.play(settings.PopupSoundFile);
}
