#pragma once

#include "platform/LogCategories.h"

#include <mutex>
#include <string>
#include <vector>

namespace tarragon {

// Keeps the lines of the log, "menus: line" and "error: line", as long as it lives. It is the program's sink meanwhile.
class RecordingLogSink : public LogSink {
public:
    explicit RecordingLogSink(LogCategorySet on)
        : _on(on) {
        setLogSink(this);
    }
    ~RecordingLogSink() override { setLogSink(nullptr); }
    RecordingLogSink(const RecordingLogSink&) = delete;
    RecordingLogSink& operator=(const RecordingLogSink&) = delete;

    std::vector<std::string> lines() const {
        const std::lock_guard lock(_mutex);
        return _lines;
    }

    bool isOn(LogCategory category) const override { return _on[static_cast<std::size_t>(category)]; }
    void write(LogCategory category, const std::string& line) override {
        add(std::string(LogCategoryNames[static_cast<std::size_t>(category)]) + ": " + line);
    }
    void writeError(LogCategory /*category*/, const std::string& line) override { add("error: " + line); }

private:
    void add(std::string line) {
        const std::lock_guard lock(_mutex);
        _lines.push_back(std::move(line));
    }

    mutable std::mutex _mutex;
    LogCategorySet _on;
    std::vector<std::string> _lines;
};

} // namespace tarragon
