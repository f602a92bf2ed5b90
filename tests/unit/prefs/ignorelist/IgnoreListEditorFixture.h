#pragma once

#include "StoredListFixture.h"
#include "prefs/ignorelist/DetailTableViewController.h"
#include "prefs/ignorelist/MasterTableViewController.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarragon {

// A table in memory: its rows are whatever those who give it its rows say.
class FakeTableView : public TableView {
public:
    FakeTableView(std::string name, std::vector<std::string>& calls)
        : _name(std::move(name))
        , _calls(calls) { }

    std::optional<std::size_t> selectedRow() const override { return selected; }
    void selectRow(std::optional<std::size_t> row) override { selected = row; }
    void reloadData() override { _calls.push_back("reload " + _name); }

    std::optional<std::size_t> selected;

private:
    std::string _name;
    std::vector<std::string>& _calls;
};

class FakeStateButton : public StateButton {
public:
    void setState(bool on) override { isOn = on; }
    bool isOn = false;
};

class FakeMasterTableOwner : public MasterTableOwner {
public:
    void runOpenPanel(const std::string& folder, OpenPanelAnswer answer) override {
        folders.push_back(folder);
        pending = std::move(answer);
    }

    std::vector<std::string> folders; // one for each panel that was run
    OpenPanelAnswer pending;
};

// The two controllers of the editor over tables in memory.
class IgnoreListEditorFixture : public StoredListFixture {
protected:
    // As the user selects a row.
    void select(std::optional<std::size_t> row) {
        masterTable.selected = row;
        master.tableViewSelectionDidChange();
    }
    std::vector<std::string> applications() const {
        std::vector<std::string> names;
        for (std::size_t row = 0; row < master.numberOfRowsInTableView(); ++row)
            names.push_back(master.tableViewObjectValueForTableColumn(row));
        return names;
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> shown;
        for (std::size_t row = 0; row < detail.numberOfRowsInTableView(); ++row)
            shown.push_back(detail.tableViewObjectValueForTableColumn(row));
        return shown;
    }
    // How often the list was stored.
    std::size_t storeCount() const { return defaults.changedKeys().size(); }

    FakeMasterTableOwner owner;
    std::vector<std::string> calls; // of the tables, in order
    FakeTableView masterTable{"master", calls};
    FakeTableView detailTable{"detail", calls};
    FakeStateButton button;
    DetailTableViewController detail{defaults, detailTable, masterTable, button};
    MasterTableViewController master{defaults, &installed, masterTable, detailTable, detail, owner};
};

} // namespace tarragon
