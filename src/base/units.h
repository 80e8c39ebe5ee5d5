#pragma once

#include <cmath>

/// Positions and sizes in the rules are twips; 15 of them make one device-independent pixel (1440 twips to the inch,
/// 96 pixels to the inch).
inline constexpr int kTwipsPerPixel = 15;

inline constexpr double toTwips(double pixels)
{
    return pixels * kTwipsPerPixel;
}

/// Rounded to the nearest whole pixel.
inline int toPixels(double twips)
{
    return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}
