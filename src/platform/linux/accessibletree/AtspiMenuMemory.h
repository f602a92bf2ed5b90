#pragma once

#include "platform/linux/accessibletree/AtspiNodes.h"

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <unordered_map>

namespace tarragon {

// What was asked of the items of menus when these were last read. Most likely the same is to be asked the next time, so
// it can be asked together with the question which items there are, instead of after its answer. Nothing that was
// answered is kept. May be used by several threads at once.
class AtspiMenuMemory {
public:
    // Nothing of a menu, or menu bar, that was not read before, or is too long to be kept.
    AtspiNodes::Wanted itemsOf(const AtspiReference& menu) const;
    void remember(const AtspiReference& menu, AtspiNodes::Wanted items);
    // Which accessibility bus it is about; forgets all when that is another than before.
    void useBus(std::uint64_t identity);
    void forget();

private:
    mutable std::mutex _mutex;
    std::unordered_map<AtspiReference, AtspiNodes::Wanted, AtspiReferenceHash> _items; // by menu
    std::size_t _count = 0; // of all items
    std::uint64_t _bus = 0;
};

} // namespace tarragon
