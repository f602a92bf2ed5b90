#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tarragon {

using Data = std::vector<std::uint8_t>;
using DefaultsValue = std::variant<bool, std::int64_t, double, std::string, Data>;

// One registered key with its value, in the order of registration.
using DefaultsDictionary = std::vector<std::pair<std::string, DefaultsValue>>;

// A boolean or number as it stands; a string by its leading number, or for booleans by a leading digit 1 to 9, "y",
// "Y", "t" or "T". Anything else, and nothing, is false or 0.
bool boolValue(const std::optional<DefaultsValue>& value);
std::int64_t integerValue(const std::optional<DefaultsValue>& value);
// Nothing unless the value is a string.
std::optional<std::string> stringValue(const std::optional<DefaultsValue>& value);

// Names an observer of one store of settings; 0 is none.
using DefaultsObserver = std::uint64_t;

// Whose observers are told when hasUnwrittenChanges answers something else than before.
constexpr std::string_view UnwrittenChangesKeyPath = "hasUnwrittenChanges";

// The user's settings, a persistent store shared by all processes of the program. Main thread only.
class Defaults {
public:
    // Called after the value of the observed key has changed, by this process or another.
    using Observer = std::function<void(const std::string& keyPath)>;

    virtual ~Defaults() = default;

    // Values answered for keys that the user has not set; never written to the store.
    virtual void registerDefaults(const DefaultsDictionary& values) = 0;
    // What revertToInitialValues restores.
    virtual void setInitialValues(const DefaultsDictionary& values) = 0;

    // The user's value, else the registered one, else nothing.
    [[nodiscard]] virtual std::optional<DefaultsValue> value(std::string_view key) = 0;
    // Stores the user's value, on disk before the call returns. False when it could not be written; the value then
    // holds for this process only.
    [[nodiscard]] virtual bool setValue(std::string_view key, const DefaultsValue& value) = 0;
    [[nodiscard]] virtual bool removeValue(std::string_view key) = 0;
    // Gives every key of the initial values its initial value again and tells the observers.
    virtual void revertToInitialValues() = 0;
    // Writes what is not written yet and takes over what other processes wrote. False when writing failed.
    virtual bool synchronize() = 0;
    // Something that was set could not be written: it holds for this process only. Unless no store can hold it, that is
    // tried again with the next change, from time to time, and at the end.
    [[nodiscard]] virtual bool hasUnwrittenChanges() = 0;

    // keyPath is "values." followed by the key, or UnwrittenChangesKeyPath. Observers are called on the main thread
    // until they are removed, which whoever lives as long as the settings need not do.
    virtual DefaultsObserver addObserver(const std::string& keyPath, Observer observer) = 0;
    // May be called by any observer, for itself too; the removed one is not called any more. Does nothing for one that
    // was removed before.
    virtual void removeObserver(DefaultsObserver observer) = 0;
};

} // namespace tarragon
