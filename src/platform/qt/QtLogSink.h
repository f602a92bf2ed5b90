#pragma once

#include "platform/LogCategories.h"

#include <QLoggingCategory>

#include <array>
#include <cstdio>

namespace tarragon {

// The log in the toolkit's own logging categories, "tarragon.menus" and so on: besides those that the program switches
// on, the toolkit's own rules (QT_LOGGING_RULES) switch categories on and off. Each line is written at once and whole,
// so that lines of several threads do not mix.
class QtLogSink : public LogSink {
public:
    // The file is not owned and outlives the sink.
    explicit QtLogSink(LogCategorySet on, std::FILE* file = stderr);

    bool isOn(LogCategory category) const override;
    // The time of day and the category stand before the line.
    void write(LogCategory category, const std::string& line) override;
    // The name of the program stands before the line, as a command's user expects it.
    void writeError(LogCategory category, const std::string& line) override;

private:
    std::array<QLoggingCategory, LogCategoryNames.size()> _categories;
    std::FILE* _file;
};

} // namespace tarragon
