#pragma once

#include "ignore/IgnoreDictionary.h"
#include "ignore/TarragonBlacklist.h"
#include "platform/Defaults.h"
#include "prefs/ignorelist/StateButton.h"
#include "prefs/ignorelist/TableView.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// The table of window titles and patterns of the application that is selected in the master table, and the check box
// that ignores all of its windows. Every change is stored at once; without a selected application, or with one whose
// entry cannot be read, nothing is changed. Main thread only.
class DetailTableViewController {
public:
    // All of them outlive the controller.
    DetailTableViewController(
        Defaults& defaults, TableView& appDetailTableView, TableView& appMasterTableView, StateButton& ignoreAppButton);

    // Does nothing: there is nothing to show before an application is selected.
    void awakeFromNib() { }

    std::size_t numberOfRowsInTableView() const;
    // The title or pattern in that row; empty where there is no such row.
    std::string tableViewObjectValueForTableColumn(std::size_t row) const;
    // The new value goes to the end of the list, and so the edited row moves to the bottom.
    void tableViewSetObjectValue(const std::string& value, std::size_t row);
    void removeWindow();
    // Appends words that ask for a pattern. They are a pattern like any other until the user edits them.
    void addWindow();
    // Takes ignoreAllApp over into the entry.
    void switchSetIgnoreAllApp();
    // Writes the entry back. One that cannot be stored is taken back.
    void saveIgnore();

    // The state of the check box. It stays as it was when no application is selected any more.
    bool ignoreAllApp() const { return _ignoreAllApp; }
    void setIgnoreAllApp(bool ignore);
    // The entry being edited; nothing when no application is selected, or its entry cannot be read.
    const std::optional<TarragonBlacklist>& blackList() const { return _blackList; }
    void setBlackList(std::optional<TarragonBlacklist> entry) { _blackList = std::move(entry); }
    // The bundle identifier under which the entry is stored.
    const std::string& masterKey() const { return _masterKey; }
    void setMasterKey(std::string key) { _masterKey = std::move(key); }
    // The master table's own dictionary, not a copy, until that one is loaded anew. nullptr before an application was
    // selected.
    const std::shared_ptr<IgnoreDictionary>& masterDictionary() const { return _masterDictionary; }
    void setMasterDictionary(std::shared_ptr<IgnoreDictionary> dictionary) {
        _masterDictionary = std::move(dictionary);
    }

private:
    using Titles = std::vector<std::string>;

    bool canEdit() const { return _appMasterTableView.selectedRow() && _blackList; }
    const Titles& titles() const;
    void saveTitles(Titles titles);

    Defaults& _defaults;
    TableView& _appDetailTableView;
    TableView& _appMasterTableView;
    StateButton& _ignoreAppButton;
    bool _ignoreAllApp = false;
    std::optional<TarragonBlacklist> _blackList;
    std::string _masterKey;
    std::shared_ptr<IgnoreDictionary> _masterDictionary;
};

} // namespace tarragon
