#pragma once

#include "platform/Accessibility.h"
#include "platform/linux/accessibletree/AtspiNodes.h"
#include "platform/linux/accessibletree/AtspiTree.h"
#include "platform/linux/atspi/AccessibleWindows.h"
#include "platform/linux/atspi/AttributeValueCache.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace tarragon {

// What one thread has read since it opened the outermost of its read batches. Used by that thread alone.
struct BatchMemory {
    // Which window of an application has the focus. The application is named as its element names it: by process, or
    // by a window alone.
    struct Focus {
        std::int64_t processIdentifier;
        std::uint32_t window;
        std::optional<FocusedWindow> focusedWindow;
    };

    std::thread::id thread;
    int nesting = 0;
    bool hasAskedBus = false;
    bool isLook = false; // the window in front is looked at once until the batch ends
    AtspiTree::Reading reading = AtspiTree::Reading::SomeAttributes;
    AtspiNodes nodes;
    AttributeValueCache values; // of the whole system, of applications and windows
    std::optional<Focus> focus;
};

// The memories of all threads that have a read batch open. Never waits for anybody's answer, and may be used from any
// thread.
class BatchMemories {
public:
    void begin(ReadBatchDepth depth);
    void end();
    // nullptr when the calling thread has no batch open.
    BatchMemory* ofThread() const;

private:
    mutable std::mutex _mutex;
    std::vector<std::unique_ptr<BatchMemory>> _memories;
};

} // namespace tarragon
