#pragma once

#include <filesystem>

namespace tarragon::e2e {

// A folder of our own that is gone, with everything in it, when this object goes.
class TemporaryFolder {
public:
    // Throws std::runtime_error when the folder cannot be made.
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return _path; }

    // The parent of all our folders. Whoever outlives a crash removes it.
    static void setParent(const std::filesystem::path& parent);

private:
    std::filesystem::path _path;
};

} // namespace tarragon::e2e
