#include "TemporaryFolder.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace tarragon::e2e {

namespace {

std::filesystem::path& parentFolder() {
    static std::filesystem::path parent = std::filesystem::temp_directory_path();
    return parent;
}

} // namespace

void TemporaryFolder::setParent(const std::filesystem::path& parent) {
    parentFolder() = parent;
}

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (parentFolder() / "desktop-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("cannot make a folder in " + parentFolder().string());
    _path = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(_path, ignored);
}

} // namespace tarragon::e2e
