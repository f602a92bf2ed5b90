#pragma once

#include "recorder/KeyCombo.h"
#include "recorder/SRRecorderState.h"
#include "recorder/SRValidator.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <QWidget>

class QLabel;

namespace tarragon {

class KeyRecorder;
class KeyRecording;
class Keyboard;
class Menu;
class SRKeyCodeTransformer;
class SRRecorderButton;
class SRRecorderControl;
class SRRecorderField;

// What a recorder control asks and tells. flags are Cocoa flags.
class SRRecorderControlDelegate {
public:
    virtual ~SRRecorderControlDelegate() = default;
    // True when the combination cannot be used; reason then continues the sentence "can't be used because …".
    virtual bool shortcutRecorderIsKeyCodeAndFlagsTaken(
        SRRecorderControl& recorder, std::int16_t keyCode, std::uint32_t flags, std::string& reason) = 0;
    // The user has recorded or cleared a combination.
    virtual void shortcutRecorderKeyComboDidChange(SRRecorderControl& recorder, const KeyCombo& combination) = 0;
};

// Shows a key combination and records another one. A click, Space or Enter begins a recording; while it lasts, no key
// goes anywhere else. Beside the field is a button that clears the combination or ends the recording, and below it,
// where there is something to say, a message; whoever shows it must let the control grow.
//
// Its accessible name says what the combination is for. Main thread only.
class SRRecorderControl : public QWidget, private SRValidatorDelegate {
    Q_OBJECT

public:
    // All of them outlive the control. Without a key recorder nothing can be recorded: the toolkit's own key events do
    // not tell virtual key codes. mainMenu gives the program's main menu at the moment of asking, or nullptr.
    struct Services {
        Keyboard* keyboard = nullptr;
        KeyRecorder* keyRecorder = nullptr; // nullptr where the desktop has none
        const SRKeyCodeTransformer* transformer = nullptr;
        std::function<std::shared_ptr<const Menu>()> mainMenu;
    };

    explicit SRRecorderControl(QWidget* parent = nullptr);
    ~SRRecorderControl() override;

    // Nothing can be recorded before. Keyboard and transformer are given.
    void setServices(Services services);
    // nullptr for none, as at first; outlives the control.
    void setDelegate(SRRecorderControlDelegate* delegate) { _delegate = delegate; }

    const KeyCombo& keyCombo() const { return _state.keyCombo(); }
    // Does not tell the delegate.
    void setKeyCombo(const KeyCombo& combination);
    // The combination in glyphs; nothing when it is empty.
    std::optional<std::string> keyComboString() const;

    bool isRecording() const { return _state.isRecording(); }
    // As a click on the control. In a window that keys do not go to, recording begins once they do.
    void startRecording();

signals:
    // The combination that was pressed is taken, and the former one stays. The control's own message says why.
    void refused(const tarragon::SRValidationError& error);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool shortcutValidatorIsKeyCodeAndFlagsTaken(
        SRValidator& validator, std::int16_t keyCode, std::uint32_t flags, std::string& reason) override;
    bool isTaken(const KeyCombo& combination, SRValidationError& error);
    void startWhenAsked();
    void take(const RecordedKey& key);
    void cancel();
    void pressButton();
    // Gives the keys back where they are not needed any more, and shows what the state has become.
    void follow();
    void showMessage();
    void tell(SRRecorderResult result);

    Services _services;
    std::optional<SRValidator> _validator;
    SRRecorderControlDelegate* _delegate = nullptr;
    SRRecorderState _state;
    std::unique_ptr<KeyRecording> _keys; // nullptr while they go elsewhere
    bool _isAskedToRecord = false; // and waits for the focus
    SRRecorderField* _field;
    SRRecorderButton* _button;
    QLabel* _message;
};

} // namespace tarragon
