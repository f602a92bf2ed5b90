#include "MirrorProbe.h"

#include "Desktop.h"

#include <atomic>
#include <stdexcept>

#include <sys/stat.h>

namespace tarragon::e2e {

MirrorProbe::MirrorProbe(Desktop& desktop) {
    static std::atomic<int> count{0};
    std::filesystem::path pipe = desktop.home() / ("probe-" + std::to_string(++count));
    if (mkfifo(pipe.c_str(), 0600) != 0)
        throw std::runtime_error("cannot make " + pipe.string());
    _process = desktop.start({E2E_MIRROR_PROBE, pipe});
    // For reading, too, so that this does not wait for a probe that fails to start.
    _questions.open(pipe, std::ios::in | std::ios::out);
    _answers.open(_process->outputFile());
}

MirrorProbe::~MirrorProbe() = default;

nlohmann::json MirrorProbe::ask(const std::string& line) {
    _questions << line << std::endl;
    std::string answer;
    bool complete = waitUntil(
        [&] {
            std::string part;
            _answers.clear();
            std::getline(_answers, part);
            answer += part;
            return !_answers.eof() || !_process->isRunning();
        },
        Duration(20000));
    if (!complete || answer.empty())
        throw std::runtime_error("the probe does not answer '" + line + "': " + _process->standardError());
    nlohmann::json result = nlohmann::json::parse(answer);
    if (result.is_object() && result.contains("error"))
        throw std::runtime_error("the probe on '" + line + "': " + result["error"].get<std::string>());
    return result;
}

std::vector<std::string> MirrorProbe::update() {
    return ask("update").get<std::vector<std::string>>();
}

MirrorProbe::Opening MirrorProbe::open(const std::string& title) {
    nlohmann::json answer = ask("open " + title);
    return {answer.at("cached"), withNormalShortcuts(menuFromJson(answer.at("items")))};
}

} // namespace tarragon::e2e
