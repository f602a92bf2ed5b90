#include "updates/process/UpdateProcess.h"

#include "platform/Log.h"
#include "updates/UpdateMessage.h"

#include <utility>

namespace tarragon {

UpdateProcess::UpdateProcess(Options options)
    : _options(std::move(options)) {
    _patience.setSingleShot(true);
    QObject::connect(
        &_patience, &QTimer::timeout, &_patience, [this] { fail(UpdateProblem::TimedOut, "does not come to an end"); });
}

UpdateProcess::~UpdateProcess() {
    if (!_process)
        return;
    // Nobody is told any more of what its end means.
    _process->disconnect();
    _process->kill();
    _process->waitForFinished();
}

void UpdateProcess::check(const std::string& address, Handler handler) {
    if (isChecking())
        return;
    _handler = std::move(handler);
    _message.clear();
    _process = std::make_unique<QProcess>();
    _process->setProgram(QString::fromStdString(_options.tool.string()));
    _process->setArguments({QString::fromStdString(address), QString::fromStdString(_options.runningVersion)});
    _process->setStandardInputFile(QProcess::nullDevice());
    _process->setStandardErrorFile(QProcess::nullDevice());
    QObject* const receiver = _process.get();
    QObject::connect(_process.get(), &QProcess::readyReadStandardOutput, receiver, [this] { readMore(); });
    QObject::connect(_process.get(), &QProcess::finished, receiver, [this] {
        readMore();
        if (isChecking())
            fail(UpdateProblem::Failed, "has ended without an answer");
    });
    QObject::connect(
        _process.get(), &QProcess::errorOccurred, receiver,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                fail(UpdateProblem::Failed, "cannot be started");
        },
        Qt::QueuedConnection);
    _patience.start(_options.patience);
    _process->start();
}

void UpdateProcess::readMore() {
    constexpr qsizetype MostBytes = 65536;
    _message.append(_process->readAllStandardOutput());
    // One line is the whole answer. The tool itself may linger over a name that is still being looked up.
    const qsizetype end = _message.indexOf('\n');
    if (end >= 0)
        answer(outcomeOfMessage(_message.left(end).toStdString()));
    else if (_message.size() > MostBytes)
        fail(UpdateProblem::Failed, "says more than it may");
}

void UpdateProcess::fail(UpdateProblem problem, const std::string& why) {
    log(LogCategory::Settings, [&] { return "the tool that asks for updates " + why + ": " + _options.tool.string(); });
    answer(UpdateUnknown{problem, {}});
}

void UpdateProcess::answer(const UpdateOutcome& outcome) {
    _patience.stop();
    endTool();
    if (const Handler handler = std::exchange(_handler, nullptr))
        handler(outcome);
}

void UpdateProcess::endTool() {
    if (!_process)
        return;
    // It goes once it has ended, and not at once: this may be called from a signal of its own.
    QProcess* const process = _process.release();
    process->disconnect();
    process->setParent(&_endingTools);
    if (process->state() == QProcess::NotRunning)
        return process->deleteLater();
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->kill();
}

} // namespace tarragon
