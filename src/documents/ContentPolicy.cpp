#include "documents/ContentPolicy.h"

#include "core/state/Settings.h"

int32_t DownloadControl(const Settings &settings)
{
    int32_t value = 0;
    if (settings.EnableImages)
        value |= DLCTL_DLIMAGES;
    if (settings.EnableSound)
        value |= DLCTL_BGSOUNDS;
    if (settings.EnableVideo)
        value |= DLCTL_VIDEOS;
    if (!settings.EnableScripts)
        value |= DLCTL_NO_SCRIPTS;
    if (!settings.EnableJava)
        value |= DLCTL_NO_JAVA;
    if (!settings.EnableActiveXDL)
        value |= DLCTL_NO_DLACTIVEXCTLS;
    if (!settings.EnableActiveXRUN)
        value |= DLCTL_NO_RUNACTIVEXCTLS;
    return value;
}
