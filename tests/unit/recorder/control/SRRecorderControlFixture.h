#pragma once

#include "fake/FakeKeyRecorder.h"
#include "fake/FakeKeyboard.h"
#include "mirror/Menu.h"
#include "platform/ModifierFlags.h"
#include "recorder/SRKeyCodeTransformer.h"
#include "recorder/control/SRRecorderButton.h"
#include "recorder/control/SRRecorderControl.h"
#include "recorder/control/SRRecorderField.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace tarragon {

class RecordingDelegate : public SRRecorderControlDelegate {
public:
    bool shortcutRecorderIsKeyCodeAndFlagsTaken(
        SRRecorderControl&, std::int16_t keyCode, std::uint32_t flags, std::string& reason) override {
        asked.push_back({keyCode, flags});
        reason = because;
        return !because.empty();
    }
    void shortcutRecorderKeyComboDidChange(SRRecorderControl& recorder, const KeyCombo& combination) override {
        EXPECT_EQ(recorder.keyCombo(), combination);
        EXPECT_FALSE(recorder.isRecording());
        told.push_back(combination);
    }
    std::string because;
    std::vector<KeyCombo> asked;
    std::vector<KeyCombo> told;
};

// Counts how often the desktop is asked for its combinations.
class CountingKeyboard : public FakeKeyboard {
public:
    std::optional<std::vector<SymbolicHotKey>> copySymbolicHotKeys() override {
        ++timesAsked;
        return FakeKeyboard::copySymbolicHotKeys();
    }
    int timesAsked = 0;
};

// A recorder between two fields of a window, with keys in memory.
class SRRecorderControlFixture : public testing::Test {
protected:
    SRRecorderControlFixture() {
        control.setServices({&keyboard, &keys, &transformer, [this] { return menu; }});
        control.setDelegate(&delegate);
        control.setKeyCombo({49, modifier::Option});
        QObject::connect(&control, &SRRecorderControl::refused,
            [this](const SRValidationError& error) { refusals.push_back(error); });
        auto* const column = new QVBoxLayout(&host);
        column->addWidget(&before);
        column->addWidget(&control);
        column->addWidget(&after);
        host.show();
        QApplication::setActiveWindow(&host);
        before.setFocus();
    }
    ~SRRecorderControlFixture() override {
        for (QWidget* child :
            {static_cast<QWidget*>(&before), static_cast<QWidget*>(&control), static_cast<QWidget*>(&after)})
            child->setParent(nullptr);
    }

    SRRecorderField& field() { return *control.findChild<SRRecorderField*>(); }
    SRRecorderButton& button() { return *control.findChild<SRRecorderButton*>(); }
    QLabel& message() { return *control.findChild<QLabel*>(); }
    std::string shown() { return field().text().toStdString(); }
    std::string said() { return message().isVisibleTo(&control) ? message().text().toStdString() : std::string(); }
    void press(std::uint16_t keyCode, std::uint32_t flags) { keys.send({keyCode, flags, true, false}); }
    void release(std::uint16_t keyCode) { keys.send({keyCode, 0, false, false}); }
    void hold(std::uint32_t flags) { keys.send({std::nullopt, flags, true, true}); }

    CountingKeyboard keyboard;
    SRKeyCodeTransformer transformer{keyboard};
    FakeKeyRecorder keys;
    std::shared_ptr<Menu> menu = std::make_shared<Menu>("Main");
    RecordingDelegate delegate;
    std::vector<SRValidationError> refusals;
    QWidget host;
    QLineEdit before;
    SRRecorderControl control;
    QLineEdit after;
};

} // namespace tarragon
