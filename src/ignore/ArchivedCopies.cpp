#include "ignore/ArchivedCopies.h"

#include <memory>
#include <utility>

namespace tarragon {

namespace {

constexpr int MaximumDepth = 100;

Mutability mutabilityOf(bool isMutable) {
    return isMutable ? Mutability::Mutable : Mutability::Immutable;
}

} // namespace

std::optional<ArchiveValue> ArchivedCopies::copyOf(const ArchivedObject& object) {
    return copyAt(object, 0);
}

std::optional<ArchiveValue> ArchivedCopies::copyAt(const ArchivedObject& object, int depth) {
    if (object.isNil())
        return ArchiveValue();
    // Every number has a truth value, so the booleans come last.
    if (const auto integer = object.integerValue())
        return ArchiveValue(*integer);
    if (const auto real = object.realValue())
        return ArchiveValue(*real);
    if (const auto boolean = object.boolValue())
        return ArchiveValue(*boolean);
    if (auto text = object.string())
        return ArchiveValue(std::move(*text));

    // While its contents are being copied an object counts as none: it may hold itself.
    const auto [known, isNew] = _containers.try_emplace(object.uid(), std::nullopt);
    if (!isNew || depth > MaximumDepth)
        return known->second;
    std::optional<ArchiveValue> copy = copyOfContainer(object, depth);
    _containers[object.uid()] = copy;
    return copy;
}

std::optional<ArchiveValue> ArchivedCopies::copyOfContainer(const ArchivedObject& object, int depth) {
    if (const auto bytes = object.data()) {
        if (bytes->size() > _remainingDataSize)
            return std::nullopt;
        _remainingDataSize -= bytes->size();
        return ArchiveValue(std::make_shared<const Data>(bytes->begin(), bytes->end()));
    }
    if (const auto elements = object.array()) {
        ArchiveArray array;
        array.mutability = mutabilityOf(object.isKindOfClass("NSMutableArray"));
        for (const ArchivedObject& element : *elements) {
            std::optional<ArchiveValue> value = copyAt(element, depth + 1);
            if (!value)
                return std::nullopt;
            array.elements.push_back(std::move(*value));
        }
        return ArchiveValue(std::make_shared<const ArchiveArray>(std::move(array)));
    }
    if (const auto entries = object.dictionary()) {
        ArchiveDictionary dictionary;
        dictionary.mutability = mutabilityOf(object.isKindOfClass("NSMutableDictionary"));
        for (const auto& [key, entry] : *entries) {
            std::optional<ArchiveValue> value = copyAt(entry, depth + 1);
            if (!value)
                return std::nullopt;
            dictionary.entries.emplace_back(key, std::move(*value));
        }
        return ArchiveValue(std::make_shared<const ArchiveDictionary>(std::move(dictionary)));
    }
    return std::nullopt;
}

} // namespace tarragon
