#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tarragon {

// What the table of ignored applications asks of the window that it is in.
class MasterTableOwner {
public:
    // The file that stands for an application; nothing when the user chose none.
    using OpenPanelAnswer = std::function<void(const std::optional<std::string>& path)>;

    virtual ~MasterTableOwner() = default;
    // Lets the user choose one application, beginning in that folder, which is empty when there is none to begin in.
    // Returns at once; the answer is called once at most, and not after the owner is gone.
    virtual void runOpenPanel(const std::string& folder, OpenPanelAnswer answer) = 0;
};

} // namespace tarragon
