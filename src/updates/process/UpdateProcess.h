#pragma once

#include "updates/UpdateChecker.h"

#include <QObject>
#include <QProcess>
#include <QTimer>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

namespace tarragon {

// Asks through a tool of its own, so that neither the network and its certificates nor a hostile list are ever in the
// memory of the program that runs all day. The tool ends with this object.
class UpdateProcess : public UpdateChecker {
public:
    struct Options {
        std::filesystem::path tool; // its full path
        std::string runningVersion;
        std::string builtInFeed; // empty when there is none
        // Longer than the tool takes by itself; it is ended then.
        std::chrono::milliseconds patience = std::chrono::seconds(20);
    };

    explicit UpdateProcess(Options options);
    ~UpdateProcess() override;
    UpdateProcess(const UpdateProcess&) = delete;
    UpdateProcess& operator=(const UpdateProcess&) = delete;

    std::string builtInFeed() const override { return _options.builtInFeed; }
    bool isChecking() const override { return _handler != nullptr; }
    void check(const std::string& address, Handler handler) override;

private:
    void readMore();
    void fail(UpdateProblem problem, const std::string& why);
    void answer(const UpdateOutcome& outcome);
    void endTool();

    const Options _options;
    std::unique_ptr<QProcess> _process;
    QObject _endingTools; // owns those that have answered and not ended yet
    QTimer _patience;
    QByteArray _message;
    Handler _handler;
};

} // namespace tarragon
