#include "platform/linux/atspi/BatchMemories.h"

#include <algorithm>

namespace tarragon {

namespace {

AtspiTree::Reading readingOf(ReadBatchDepth depth) {
    switch (depth) {
    case ReadBatchDepth::AsAsked:
        return AtspiTree::Reading::SomeAttributes;
    case ReadBatchDepth::OneLevel:
        return AtspiTree::Reading::OneLevel;
    case ReadBatchDepth::AllLevels:
        return AtspiTree::Reading::AllLevels;
    }
    return AtspiTree::Reading::OneAttribute;
}

} // namespace

void BatchMemories::begin(ReadBatchDepth depth) {
    BatchMemory* memory = ofThread();
    if (memory == nullptr) {
        const std::lock_guard lock(_mutex);
        memory = _memories.emplace_back(std::make_unique<BatchMemory>()).get();
        memory->thread = std::this_thread::get_id();
    }
    ++memory->nesting;
    memory->reading = std::max(memory->reading, readingOf(depth));
}

void BatchMemories::end() {
    BatchMemory* const memory = ofThread();
    if (memory == nullptr || --memory->nesting > 0)
        return;
    const std::lock_guard lock(_mutex);
    std::erase_if(_memories, [memory](const auto& owned) { return owned.get() == memory; });
}

BatchMemory* BatchMemories::ofThread() const {
    const std::lock_guard lock(_mutex);
    const auto found =
        std::ranges::find(_memories, std::this_thread::get_id(), [](const auto& memory) { return memory->thread; });
    return found != _memories.end() ? found->get() : nullptr;
}

} // namespace tarragon
