#include "panels/widgets/ButtonSizes.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QScreen>

namespace tarragon {

namespace {

// More than all panels together have buttons in all their states.
constexpr std::size_t MostSizes = 2000;

double dotsPerInchOfDesktop() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInch() : 0;
}

ButtonContent whatIsMeasured(ButtonContent content) {
    content.frame = {};
    content.highlighted = false;
    content.mouseIsOver = false;
    return content;
}

} // namespace

ButtonSizes::ButtonSizes(Measure measure)
    : _measure(std::move(measure)) {
    // Other fonts may stand in for those that have the same names as before.
    QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, &_fontWatch, [this] { _surroundings = {}; });
}

Size ButtonSizes::sizeThatFits(const ButtonContent& content, double widestTitle) {
    Surroundings now{QApplication::font("QMenuBar"), dotsPerInchOfDesktop(), widestTitle};
    if (now != _surroundings || _count == MostSizes) {
        _surroundings = std::move(now);
        _sizes.clear();
        _count = 0;
    }
    ButtonContent measured = whatIsMeasured(content);
    std::vector<Measured>& known = _sizes[content.title];
    const auto found = std::ranges::find(known, measured, &Measured::content);
    if (found != known.end())
        return found->size;
    const Size size = _measure(measured, widestTitle);
    known.push_back({std::move(measured), size});
    ++_count;
    return size;
}

} // namespace tarragon
