#pragma once

#include "platform/Defaults.h"
#include "platform/InstalledApplications.h"
#include "platform/WindowPicker.h"
#include "prefs/ignorelist/MasterTableOwner.h"
#include "prefs/ignorelist/StateButton.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>
#include <string>

class QCheckBox;
class QLabel;
class QPushButton;

namespace tarragon {

class ApplicationChooser;
class RowTable;

// The editor of the ignore list: its applications, and for the one that is selected the window titles and patterns
// that are ignored. Changes are stored at once, and changes by others are shown at once.
class IgnoreListView : public QWidget, private MasterTableOwner, private StateButton {
    Q_OBJECT

public:
    explicit IgnoreListView(QWidget* parent = nullptr);
    ~IgnoreListView() override;

    // To be called once, before which nothing can be edited. They outlive the view. applications and windowPicker may
    // be nullptr: their buttons are then not shown.
    void setServices(Defaults& defaults, InstalledApplications* applications, WindowPicker* windowPicker);

protected:
    void showEvent(QShowEvent* event) override;
    // Nobody is asked for a window while the view cannot be seen.
    void hideEvent(QHideEvent* event) override;

private:
    struct Editor;

    void runOpenPanel(const std::string& folder, OpenPanelAnswer answer) override;
    void setState(bool isOn) override;

    void makeApplicationControls();
    void makeTitleControls();
    void arrangeControls();
    void connectControls();
    void updateControls();
    void removeApplication();
    void addTitle();
    void removeTitle();
    void pickWindow();
    void cancelPicking();
    void endPicking(const std::optional<PickedWindow>& window);
    void showMessage(const std::string& message);

    RowTable* _masterTable;
    RowTable* _detailTable;
    QPushButton* _addApplicationButton;
    QPushButton* _removeApplicationButton;
    QCheckBox* _ignoreAppButton;
    QPushButton* _addTitleButton;
    QPushButton* _removeTitleButton;
    QPushButton* _pickButton;
    QLabel* _message;
    WindowPicker* _windowPicker = nullptr;
    bool _isPicking = false;
    QPointer<ApplicationChooser> _chooser; // while one is open
    std::unique_ptr<Editor> _editor; // once there are services
};

} // namespace tarragon
