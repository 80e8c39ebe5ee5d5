#pragma once

#include <cstdint>

struct Settings;

/// Bits of the download control value, with their published numbers.
inline constexpr int32_t DLCTL_DLIMAGES = 0x10;
inline constexpr int32_t DLCTL_VIDEOS = 0x20;
inline constexpr int32_t DLCTL_BGSOUNDS = 0x40;
inline constexpr int32_t DLCTL_NO_SCRIPTS = 0x80;
inline constexpr int32_t DLCTL_NO_JAVA = 0x100;
inline constexpr int32_t DLCTL_NO_RUNACTIVEXCTLS = 0x200;
inline constexpr int32_t DLCTL_NO_DLACTIVEXCTLS = 0x400;

/// What pages may load and run, as the one number that the browser asks its host for. The first three bits allow, the
/// others forbid: 0x70 with everything allowed, 0x780 with nothing.
int32_t DownloadControl(const Settings &settings);
