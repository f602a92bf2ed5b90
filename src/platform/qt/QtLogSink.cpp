#include "platform/qt/QtLogSink.h"

#include <ctime>

namespace tarragon {

namespace {

std::size_t indexOf(LogCategory category) {
    return static_cast<std::size_t>(category);
}

// The time of day where the user is, to the millisecond.
std::string timeOfDay() {
    std::timespec now{};
    std::timespec_get(&now, TIME_UTC);
    std::tm local{};
    // The toolkit's clock reads the time zone anew each time, and several threads may ask here.
    localtime_r(&now.tv_sec, &local);
    std::array<char, sizeof "23:59:60.000"> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%H:%M:%S.", &local);
    const std::string milliseconds = std::to_string(now.tv_nsec / 1000000);
    return std::string(text.data(), length).append(3 - milliseconds.size(), '0') + milliseconds;
}

// One call writes the whole line: the file is locked meanwhile.
void writeLine(std::FILE* file, std::string line) {
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), file);
    std::fflush(file);
}

} // namespace

// Of the toolkit's levels only the one for debugging is used, which is off at first: errors are told anyway.
QtLogSink::QtLogSink(LogCategorySet on, std::FILE* file)
    : _categories{QLoggingCategory("tarragon.front", QtWarningMsg), QLoggingCategory("tarragon.menus", QtWarningMsg),
        QLoggingCategory("tarragon.accessibility", QtWarningMsg), QLoggingCategory("tarragon.x11", QtWarningMsg),
        QLoggingCategory("tarragon.panel", QtWarningMsg), QLoggingCategory("tarragon.settings", QtWarningMsg),
        QLoggingCategory("tarragon.triggers", QtWarningMsg)}
    , _file(file) {
    for (std::size_t index = 0; index < on.size(); ++index) {
        if (on[index])
            _categories[index].setEnabled(QtDebugMsg, true);
    }
}

bool QtLogSink::isOn(LogCategory category) const {
    return _categories[indexOf(category)].isDebugEnabled();
}

void QtLogSink::write(LogCategory category, const std::string& line) {
    writeLine(_file, timeOfDay() + ' ' + std::string(LogCategoryNames[indexOf(category)]) + ": " + line);
}

void QtLogSink::writeError(LogCategory /*category*/, const std::string& line) {
    writeLine(_file, "tarragon: " + line);
}

} // namespace tarragon
