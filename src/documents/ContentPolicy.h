#pragma once

#include "engine/ContentControl.h"

#include <cstdint>

struct Settings;

using engine::DLCTL_BGSOUNDS;
using engine::DLCTL_DLIMAGES;
using engine::DLCTL_NO_DLACTIVEXCTLS;
using engine::DLCTL_NO_JAVA;
using engine::DLCTL_NO_RUNACTIVEXCTLS;
using engine::DLCTL_NO_SCRIPTS;
using engine::DLCTL_VIDEOS;

/// What pages may load and run, as the one number that the browser asks its host for. The first three bits allow, the
/// others forbid: 0x70 with everything allowed, 0x780 with nothing.
int32_t DownloadControl(const Settings &settings);
