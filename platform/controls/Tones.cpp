// The arithmetic of colours.
#include "platform/controls/Tones.h"

#include <algorithm>
#include <cmath>

QColor mix(const QColor &from, const QColor &to, float share)
{
    const auto channel = [share](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
                            channel(from.blueF(), to.blueF()));
}

double contrast(const QColor &one, const QColor &other)
{
    // Relative luminance: the channels of sRGB made linear and weighed as the eye does.
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [&](const QColor &color) {
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}
