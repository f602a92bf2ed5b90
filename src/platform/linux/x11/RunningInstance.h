#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace tarragon {

class RunLoop;
class X11Connection;

// Sees to it that one agent runs on a display: the agent owns a selection of the X server, which is free again as soon
// as its process ends, however it ends. Main thread only.
class RunningInstance {
public:
    // displayName as for X11Connection. nullptr when no server answers.
    [[nodiscard]] static std::unique_ptr<RunningInstance> connect(const std::string& displayName = {});
    ~RunningInstance();

    // True when this process is now the agent of the display. False when another one is; that one is told that the
    // program was started again.
    [[nodiscard]] bool claimOrReopen();
    // The handler is called when the program is started again while this process is the agent.
    void watchReopen(RunLoop& runLoop, std::function<void()> handler);

private:
    explicit RunningInstance(std::unique_ptr<X11Connection> connection);
    void handleEvents(const std::function<void()>& handler);

    std::unique_ptr<X11Connection> _connection;
    std::uint32_t _window = 0;
    std::uint32_t _selection = 0;
};

} // namespace tarragon
