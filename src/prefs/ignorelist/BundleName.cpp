#include "prefs/ignorelist/BundleName.h"

#include <filesystem>

namespace tarragon {

std::string nameOfBundle(const ApplicationBundle& bundle) {
    for (const std::optional<std::string>& name : {bundle.displayName, bundle.name, bundle.executable}) {
        if (name)
            return *name;
    }
    // Of "org.example.Editor" this leaves "org.example": the name is made from the identifier, not from the file's.
    std::string identifier = bundle.bundleIdentifier;
    while (identifier.ends_with('/'))
        identifier.pop_back();
    const std::string name = std::filesystem::path(identifier).stem().string();
    return name.empty() ? std::string(UnknownApplicationName) : name;
}

} // namespace tarragon
