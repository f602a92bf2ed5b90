#pragma once

#include "platform/LogCategories.h"

#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace tarragon {

// Is the program's log for the time of its life and keeps the lines: "settings: a line", and errors, which are told
// whatever is switched on, as "settings error: a line". Any thread may write.
class RecordingLog : public LogSink {
public:
    // With every category switched on.
    RecordingLog()
        : RecordingLog(LogCategorySet().set()) { }
    // With one category switched on.
    explicit RecordingLog(LogCategory category)
        : RecordingLog(LogCategorySet().set(static_cast<std::size_t>(category))) { }
    ~RecordingLog() override { setLogSink(nullptr); }
    RecordingLog(const RecordingLog&) = delete;
    RecordingLog& operator=(const RecordingLog&) = delete;

    // What was written so far, or since the last call of takeLines.
    std::vector<std::string> lines() const {
        const std::lock_guard lock(_mutex);
        return _lines;
    }
    std::vector<std::string> takeLines() {
        const std::lock_guard lock(_mutex);
        return std::exchange(_lines, {});
    }

    bool isOn(LogCategory category) const override { return _on[static_cast<std::size_t>(category)]; }
    void write(LogCategory category, const std::string& line) override { add(nameOf(category) + ": " + line); }
    void writeError(LogCategory category, const std::string& line) override {
        add(nameOf(category) + " error: " + line);
    }

private:
    explicit RecordingLog(LogCategorySet on)
        : _on(on) {
        setLogSink(this);
    }

    static std::string nameOf(LogCategory category) {
        return std::string(LogCategoryNames[static_cast<std::size_t>(category)]);
    }

    void add(std::string line) {
        const std::lock_guard lock(_mutex);
        _lines.push_back(std::move(line));
    }

    const LogCategorySet _on;
    mutable std::mutex _mutex;
    std::vector<std::string> _lines;
};

} // namespace tarragon
