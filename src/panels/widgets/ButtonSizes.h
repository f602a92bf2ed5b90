#pragma once

#include "panels/PanelContent.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include <QFont>
#include <QObject>

namespace tarragon {

// How large buttons are, each measured once for as long as the desktop's fonts stay as they are: a panel asks again and
// again, and measuring a text takes time. Main thread only, after the application object was made.
class ButtonSizes {
public:
    using Measure = std::function<Size(const ButtonContent& content, double widestTitle)>;

    explicit ButtonSizes(Measure measure);

    // In points. Depends on everything but where the button is and whether it is pointed at or pressed.
    Size sizeThatFits(const ButtonContent& content, double widestTitle);

private:
    // What all sizes depend on.
    struct Surroundings {
        QFont font; // of menu bars
        double dotsPerInch = 0;
        double widestTitle = 0;
        bool operator==(const Surroundings&) const = default;
    };
    struct Measured {
        ButtonContent content;
        Size size;
    };

    Measure _measure;
    Surroundings _surroundings;
    std::unordered_map<std::string, std::vector<Measured>> _sizes; // by the title
    std::size_t _count = 0;
    QObject _fontWatch;
};

} // namespace tarragon
