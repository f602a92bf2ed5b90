#include "platform/qt/QtLogSink.h"

#include <QTime>

namespace tarragon {

namespace {

std::size_t indexOf(LogCategory category) {
    return static_cast<std::size_t>(category);
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
    const std::string time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz")).toStdString();
    writeLine(_file, time + ' ' + std::string(LogCategoryNames[indexOf(category)]) + ": " + line);
}

void QtLogSink::writeError(LogCategory /*category*/, const std::string& line) {
    writeLine(_file, "tarragon: " + line);
}

} // namespace tarragon
