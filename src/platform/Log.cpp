#include "platform/Log.h"

namespace tarragon {

namespace {

LogSink* currentSink = nullptr;

} // namespace

void setLogSink(LogSink* sink) {
    currentSink = sink;
}

LogSink* logSink() {
    return currentSink;
}

} // namespace tarragon
