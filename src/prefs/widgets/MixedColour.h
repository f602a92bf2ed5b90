#pragma once

#include <QColor>

namespace tarragon {

// A part of one colour, from 0 to 1, and the rest of another.
inline QColor mixedColour(const QColor& one, const QColor& other, double part) {
    const auto mixed = [part](float a, float b) { return float(a * part + b * (1 - part)); };
    return QColor::fromRgbF(
        mixed(one.redF(), other.redF()), mixed(one.greenF(), other.greenF()), mixed(one.blueF(), other.blueF()));
}

} // namespace tarragon
