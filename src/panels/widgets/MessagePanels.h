#pragma once

#include "panels/UserPanels.h"

#include <QPointer>

#include <string>

class QMessageBox;
class QWidget;

namespace tarragon {

// The program's small windows as message boxes. None of them blocks; each is shown at most once at a time. Main thread
// only, after the application object was made.
class MessagePanels : public UserPanels {
public:
    explicit MessagePanels(std::string version);
    ~MessagePanels() override;
    MessagePanels(const MessagePanels&) = delete;
    MessagePanels& operator=(const MessagePanels&) = delete;

    void showAboutPanel() override;
    void showUpdateOutcome(const UpdateOutcome& outcome, std::function<void()> openLink) override;
    void showFailure(const std::string& message) override;

private:
    std::string _version;
    QPointer<QMessageBox> _aboutPanel;
    QPointer<QMessageBox> _updatePanel;
    QPointer<QMessageBox> _failurePanel;
};

} // namespace tarragon
