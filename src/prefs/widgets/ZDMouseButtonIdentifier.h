#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>

#include <QWidget>

namespace tarragon {

class InputEvents;
class RunLoop;
class Timer;

// Learns which mouse button the user wants: the user clicks into it with that button, and it shows the button's number
// and sends its action.
//
// The number comes from a tap on the presses of the whole desktop, and so counts buttons as the trigger does. The tap
// and the number that it told last exist once in the process, whichever control has set the tap up. Main thread only.
class ZDMouseButtonIdentifier : public QWidget {
    Q_OBJECT

public:
    explicit ZDMouseButtonIdentifier(QWidget* parent = nullptr);
    ~ZDMouseButtonIdentifier() override;

    // nullptr for a desktop that does not tell of input. standardError is where a person learns why the program ends.
    // They outlive the control. Before this, no tap can be set up.
    void setServices(InputEvents* inputEvents, RunLoop& runLoop, std::ostream& standardError);

    // Listens from now on. Where presses cannot be had, the program says so and ends with status 1.
    void setupTap();
    // The same without enabling the tap once more. To presses, in spite of the name.
    void setupMouseUpEventTap();
    // Does nothing while there is no tap.
    void disableAndReleaseTap();

    // Shows the button that was pressed last, according to the tap, and sends the action.
    void otherMouseUp();

    // 0 at first.
    std::uint32_t buttonNumber() const { return _buttonNumber; }
    // Sends no action.
    void setButtonNumber(std::uint32_t buttonNumber);

    std::int64_t tag() const { return _tag; }
    void setTag(std::int64_t tag) { _tag = tag; }

    // Deliberately does nothing.
    void resetButtonNumber() { }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    // A button was captured; buttonNumber() tells which.
    void actionSent();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QString shownText() const;
    void showNumber();

    InputEvents* _inputEvents = nullptr;
    RunLoop* _runLoop = nullptr;
    std::ostream* _standardError = nullptr;
    std::uint32_t _buttonNumber = 0;
    std::int64_t _tag = 0;
    std::unique_ptr<Timer> _release; // that is still to be seen to
};

} // namespace tarragon
