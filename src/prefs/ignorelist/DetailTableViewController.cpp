#include "prefs/ignorelist/DetailTableViewController.h"

#include "platform/Texts.h"

#include <utility>

namespace tarragon {

DetailTableViewController::DetailTableViewController(
    Defaults& defaults, TableView& appDetailTableView, TableView& appMasterTableView, StateButton& ignoreAppButton)
    : _defaults(defaults)
    , _appDetailTableView(appDetailTableView)
    , _appMasterTableView(appMasterTableView)
    , _ignoreAppButton(ignoreAppButton) { }

const DetailTableViewController::Titles& DetailTableViewController::titles() const {
    static const Titles none;
    return _blackList && _blackList->windowsWithTitlesToIgnore() ? *_blackList->windowsWithTitlesToIgnore() : none;
}

std::size_t DetailTableViewController::numberOfRowsInTableView() const {
    return titles().size();
}

std::string DetailTableViewController::tableViewObjectValueForTableColumn(std::size_t row) const {
    return row < titles().size() ? titles()[row] : std::string();
}

void DetailTableViewController::tableViewSetObjectValue(const std::string& value, std::size_t row) {
    if (!canEdit() || row >= titles().size())
        return;
    Titles changed = titles();
    changed.erase(changed.begin() + static_cast<std::ptrdiff_t>(row));
    changed.push_back(value);
    saveTitles(std::move(changed));
}

void DetailTableViewController::removeWindow() {
    const std::optional<std::size_t> row = _appDetailTableView.selectedRow();
    if (!canEdit() || !row || *row >= titles().size())
        return;
    Titles changed = titles();
    changed.erase(changed.begin() + static_cast<std::ptrdiff_t>(*row));
    saveTitles(std::move(changed));
}

void DetailTableViewController::addWindow() {
    if (!canEdit())
        return;
    Titles changed = titles();
    changed.push_back(translated("IgnoreListView", "Type new window title or wildcard pattern here"));
    saveTitles(std::move(changed));
}

void DetailTableViewController::saveTitles(Titles titles) {
    _blackList->setWindowsWithTitlesToIgnore(std::move(titles));
    saveIgnore();
    _appDetailTableView.reloadData();
}

void DetailTableViewController::switchSetIgnoreAllApp() {
    if (!canEdit())
        return;
    _blackList->setIgnoreAllAppWindows(_ignoreAllApp);
    saveIgnore();
}

void DetailTableViewController::saveIgnore() {
    if (!_blackList || !_masterDictionary)
        return;
    // Whoever observes the setting hands over another dictionary and another entry while this one is being stored.
    const std::shared_ptr<IgnoreDictionary> dictionary = _masterDictionary;
    if (!dictionary->setEntry(_masterKey, *_blackList) || !dictionary->store(_defaults))
        setBlackList(_masterDictionary->entry(_masterKey));
}

void DetailTableViewController::setIgnoreAllApp(bool ignore) {
    _ignoreAllApp = ignore;
    _ignoreAppButton.setState(ignore);
}

} // namespace tarragon
