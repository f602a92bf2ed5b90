#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tarragon {

// What a line of the log is about. A reader switches the log on for each by itself.
enum class LogCategory : std::uint8_t { Front, Menus, Accessibility, X11, Panel, Settings, Triggers };

// The names that a person types, in the order of the categories.
inline constexpr std::array<std::string_view, 7> LogCategoryNames = {
    "front", "menus", "accessibility", "x11", "panel", "settings", "triggers"};

// Where lines go. May be called from any thread.
class LogSink {
public:
    virtual ~LogSink() = default;
    // The log is switched on for the category.
    virtual bool isOn(LogCategory category) const = 0;
    virtual void write(LogCategory category, const std::string& line) = 0;
    // What a user must know, and is told whether or not the log is on.
    virtual void writeError(LogCategory category, const std::string& line) = 0;
};

// The program's one sink, set before there are threads; not owned, and outlives all that is logged. nullptr, as at the
// start, for none: nothing is told then.
void setLogSink(LogSink* sink);
LogSink* logSink();

// Tells why something did not come about that a user might wonder at. The line, without an end of line, is only built
// when somebody reads the category: log(LogCategory::Menus, [&] { return "no menu bar in " + name; }). Any thread.
template <typename BuildLine>
void log(LogCategory category, BuildLine&& buildLine) {
    LogSink* const sink = logSink();
    if (sink != nullptr && sink->isOn(category))
        sink->write(category, std::forward<BuildLine>(buildLine)());
}

// Tells what a user must know. Any thread.
inline void logError(LogCategory category, const std::string& line) {
    if (LogSink* const sink = logSink())
        sink->writeError(category, line);
}

} // namespace tarragon
