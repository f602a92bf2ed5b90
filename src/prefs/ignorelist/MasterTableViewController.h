#pragma once

#include "ignore/IgnoreDictionary.h"
#include "platform/Defaults.h"
#include "platform/InstalledApplications.h"
#include "platform/WindowPicker.h"
#include "prefs/ignorelist/DetailTableViewController.h"
#include "prefs/ignorelist/MasterTableOwner.h"
#include "prefs/ignorelist/TableView.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace tarragon {

// The table of the applications on the stored ignore list. Follows every change of the list, and stores its own at
// once. A list that cannot be read shows as empty and stays as it is until the user changes something. The selection
// stays on its application through all changes. Main thread only.
class MasterTableViewController {
public:
    // All of them outlive the controller. applications is nullptr where none can be chosen.
    MasterTableViewController(Defaults& defaults, InstalledApplications* applications, TableView& appMasterTableView,
        TableView& appDetailTableView, DetailTableViewController& zdDetail, MasterTableOwner& owner);
    ~MasterTableViewController();
    MasterTableViewController(const MasterTableViewController&) = delete;
    MasterTableViewController& operator=(const MasterTableViewController&) = delete;

    void awakeFromNib();

    // The applications in stored order.
    std::size_t numberOfRowsInTableView() const { return _ignoreDictionary->count(); }
    // The application's name; the key where the entry has none or cannot be read. Empty where there is no such row.
    std::string tableViewObjectValueForTableColumn(std::size_t row) const;
    // Does nothing: an edited name is discarded.
    void tableViewSetObjectValue(const std::string& /*value*/, std::size_t /*row*/) { }
    // Hands the selected entry to the detail table.
    void tableViewSelectionDidChange();
    // The list has changed, by whoever.
    void observeValueForKeyPath(const std::string& keyPath);

    // Removes the selected application without asking. No application is selected then.
    void removeApplication();
    // Lets the user choose an application and lists it, unless it is listed or has no bundle identifier. Either way
    // the application is selected if it is on the list then.
    void addApplication();
    // Lists an application with all its windows ignored, unlike the quick actions beside the panel, which list one
    // without ignoring anything. Adds nothing when the stored list has a readable entry.
    void ignoreCurrentAppWithBundleID(const std::string& bundleIdentifier, const std::string& appName);
    // Ignores the windows of that title, listing the application without ignoring its other windows if need be, and
    // selects the application and the title. False, and nothing done, when the window has no title or nobody knows its
    // application.
    [[nodiscard]] bool ignoreWindow(const PickedWindow& window);

    // The working copy of the stored list. Another object after each change of the stored list.
    const std::shared_ptr<IgnoreDictionary>& ignoreDictionary() const { return _ignoreDictionary; }

private:
    void setNotifications();
    void loadIgnoreDictionary();
    void storeIgnoreDictionary();
    void addBundle(const ApplicationBundle& bundle);
    std::optional<std::string> selectedKey() const;
    // Selects nothing where there is no such key.
    void selectKey(const std::optional<std::string>& key);
    // In the detail table, where there is such a title.
    void selectTitle(const std::string& title);

    Defaults& _defaults;
    InstalledApplications* _applications;
    TableView& _appMasterTableView;
    TableView& _appDetailTableView;
    DetailTableViewController& _zdDetail;
    MasterTableOwner& _owner;
    std::shared_ptr<IgnoreDictionary> _ignoreDictionary = std::make_shared<IgnoreDictionary>(); // never nullptr
    DefaultsObserver _observer = 0;
};

} // namespace tarragon
