#pragma once

#include "platform/KeyRecorder.h"

#include <utility>

namespace tarragon {

// The keys of a desktop in memory, pressed by the test.
class FakeKeyRecorder : public KeyRecorder {
public:
    void setAvailable(bool available) { _isAvailable = available; }
    bool isRecording() const { return _recording != nullptr; }

    // Does nothing while nobody records.
    void send(const RecordedKey& key) {
        const auto handler = _handler;
        if (_recording)
            handler(key);
    }
    // The desktop takes the keys away.
    void end() {
        const auto ended = std::exchange(_ended, nullptr);
        if (_recording && ended)
            ended();
    }

    std::unique_ptr<KeyRecording> recordKeys(
        std::function<void(const RecordedKey& key)> handler, std::function<void()> ended) override {
        if (!_isAvailable || _recording)
            return nullptr;
        _handler = std::move(handler);
        _ended = std::move(ended);
        auto recording = std::make_unique<Recording>(*this);
        _recording = recording.get();
        return recording;
    }

private:
    class Recording : public KeyRecording {
    public:
        explicit Recording(FakeKeyRecorder& recorder)
            : _recorder(recorder) { }
        ~Recording() override { _recorder._recording = nullptr; }
        Recording(const Recording&) = delete;
        Recording& operator=(const Recording&) = delete;

    private:
        FakeKeyRecorder& _recorder;
    };

    std::function<void(const RecordedKey& key)> _handler;
    std::function<void()> _ended;
    const Recording* _recording = nullptr;
    bool _isAvailable = true;
};

} // namespace tarragon
