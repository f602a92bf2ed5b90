#pragma once

#include "platform/Log.h"

#include <string>
#include <utility>
#include <vector>

namespace tarragon {

// The log for the time of its life, with every category switched on: "settings: a line", errors as
// "settings error: a line". One thread only.
class RecordingLog : public LogSink {
public:
    RecordingLog() { setLogSink(this); }
    ~RecordingLog() override { setLogSink(nullptr); }
    RecordingLog(const RecordingLog&) = delete;
    RecordingLog& operator=(const RecordingLog&) = delete;

    // What was written since the last call.
    std::vector<std::string> takeLines() { return std::exchange(_lines, {}); }

    bool isOn(LogCategory) const override { return true; }
    void write(LogCategory category, const std::string& line) override {
        _lines.push_back(nameOf(category) + ": " + line);
    }
    void writeError(LogCategory category, const std::string& line) override {
        _lines.push_back(nameOf(category) + " error: " + line);
    }

private:
    static std::string nameOf(LogCategory category) {
        return std::string(LogCategoryNames[static_cast<std::size_t>(category)]);
    }

    std::vector<std::string> _lines;
};

} // namespace tarragon
