#pragma once

#include "platform/Log.h"

#include <string>
#include <vector>

namespace tarragon {

// Keeps the lines that are logged about menus while it lives.
class LinesOfLog : public LogSink {
public:
    LinesOfLog() { setLogSink(this); }
    ~LinesOfLog() override { setLogSink(nullptr); }
    LinesOfLog(const LinesOfLog&) = delete;
    LinesOfLog& operator=(const LinesOfLog&) = delete;

    bool isOn(LogCategory category) const override { return category == LogCategory::Menus; }
    void write(LogCategory, const std::string& line) override { lines.push_back(line); }
    void writeError(LogCategory, const std::string&) override { }

    std::vector<std::string> lines;
};

} // namespace tarragon
