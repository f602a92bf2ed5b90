#pragma once

#include "platform/Log.h"

#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace tarragon {

// Keeps the lines of one category for as long as it lives.
class LogLines : public LogSink {
public:
    explicit LogLines(LogCategory category)
        : _category(category) {
        setLogSink(this);
    }
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;
    ~LogLines() override { setLogSink(nullptr); }

    // The lines since the last call.
    std::vector<std::string> take() {
        const std::lock_guard lock(_mutex);
        return std::exchange(_lines, {});
    }

    bool isOn(LogCategory category) const override { return category == _category; }
    void write(LogCategory /*category*/, const std::string& line) override {
        const std::lock_guard lock(_mutex);
        _lines.push_back(line);
    }
    void writeError(LogCategory category, const std::string& line) override { write(category, line); }

private:
    LogCategory _category;
    std::mutex _mutex;
    std::vector<std::string> _lines;
};

} // namespace tarragon
