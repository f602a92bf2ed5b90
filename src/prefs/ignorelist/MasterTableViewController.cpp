#include "prefs/ignorelist/MasterTableViewController.h"

#include "platform/Log.h"
#include "platform/PreferenceKeys.h"
#include "prefs/ignorelist/BundleName.h"
#include "propertylist/PropertyListNode.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tarragon {

MasterTableViewController::MasterTableViewController(Defaults& defaults, InstalledApplications* applications,
    TableView& appMasterTableView, TableView& appDetailTableView, DetailTableViewController& zdDetail,
    MasterTableOwner& owner)
    : _defaults(defaults)
    , _applications(applications)
    , _appMasterTableView(appMasterTableView)
    , _appDetailTableView(appDetailTableView)
    , _zdDetail(zdDetail)
    , _owner(owner) { }

MasterTableViewController::~MasterTableViewController() {
    if (_observer != 0)
        _defaults.removeObserver(_observer);
}

void MasterTableViewController::awakeFromNib() {
    setNotifications();
    loadIgnoreDictionary();
}

void MasterTableViewController::setNotifications() {
    _observer = _defaults.addObserver(keyPathOfPreference(preference::IgnoreWindowList),
        [this](const std::string& keyPath) { observeValueForKeyPath(keyPath); });
}

void MasterTableViewController::loadIgnoreDictionary() {
    _ignoreDictionary =
        std::make_shared<IgnoreDictionary>(IgnoreDictionary::load(_defaults).value_or(IgnoreDictionary()));
}

void MasterTableViewController::storeIgnoreDictionary() {
    // The change of the setting replaces the dictionary while it is being stored.
    const std::shared_ptr<IgnoreDictionary> dictionary = _ignoreDictionary;
    if (!dictionary->store(_defaults))
        observeValueForKeyPath(keyPathOfPreference(preference::IgnoreWindowList)); // shows what is stored instead
}

std::string MasterTableViewController::tableViewObjectValueForTableColumn(std::size_t row) const {
    if (row >= _ignoreDictionary->count())
        return {};
    const std::optional<TarragonBlacklist> entry = _ignoreDictionary->entryAt(row);
    const std::string name = entry ? entry->appName().value_or(std::string()) : std::string();
    return name.empty() ? _ignoreDictionary->keyAt(row) : name;
}

std::optional<std::string> MasterTableViewController::selectedKey() const {
    const std::optional<std::size_t> row = _appMasterTableView.selectedRow();
    return row && *row < _ignoreDictionary->count() ? std::optional(_ignoreDictionary->keyAt(*row)) : std::nullopt;
}

void MasterTableViewController::selectKey(const std::optional<std::string>& key) {
    _appMasterTableView.selectRow(key ? _ignoreDictionary->placeOf(*key) : std::nullopt);
}

void MasterTableViewController::tableViewSelectionDidChange() {
    if (const std::optional<std::string> key = selectedKey()) {
        const std::optional<TarragonBlacklist> entry = _ignoreDictionary->entry(*key);
        _zdDetail.setBlackList(entry);
        _zdDetail.setIgnoreAllApp(entry && entry->ignoreAllAppWindows().value_or(false));
        _zdDetail.setMasterKey(*key);
        _zdDetail.setMasterDictionary(_ignoreDictionary);
    } else {
        _zdDetail.setBlackList(std::nullopt);
    }
    _appDetailTableView.reloadData();
}

void MasterTableViewController::observeValueForKeyPath(const std::string& /*keyPath*/) {
    const std::optional<std::string> key = selectedKey();
    loadIgnoreDictionary();
    selectKey(key);
    tableViewSelectionDidChange();
    _appMasterTableView.reloadData();
}

void MasterTableViewController::removeApplication() {
    const std::optional<std::string> key = selectedKey();
    if (!key)
        return;
    _ignoreDictionary->removeEntry(*key);
    // The row that moves up into the place of the removed one is not what the user selected.
    selectKey(std::nullopt);
    _appMasterTableView.reloadData();
    storeIgnoreDictionary();
    tableViewSelectionDidChange();
}

void MasterTableViewController::addApplication() {
    if (!_applications)
        return;
    _owner.runOpenPanel(_applications->applicationsFolder(), [this](const std::optional<std::string>& path) {
        const std::optional<ApplicationBundle> bundle = path ? _applications->bundleAtPath(*path) : std::nullopt;
        if (bundle)
            addBundle(*bundle);
        else if (path)
            log(LogCategory::Settings, [&path] { return "not ignored, for it is no application: " + *path; });
    });
}

void MasterTableViewController::addBundle(const ApplicationBundle& bundle) {
    const std::string name = nameOfBundle(bundle);
    if (bundle.bundleIdentifier.empty() || name == UnknownApplicationName) {
        log(LogCategory::Settings,
            [&bundle] { return "not ignored, for nothing tells the application apart: " + bundle.path; });
        return;
    }
    if (!_ignoreDictionary->placeOf(bundle.bundleIdentifier))
        ignoreCurrentAppWithBundleID(bundle.bundleIdentifier, name);
    selectKey(bundle.bundleIdentifier);
    tableViewSelectionDidChange();
}

void MasterTableViewController::ignoreCurrentAppWithBundleID(
    const std::string& bundleIdentifier, const std::string& appName) {
    const std::optional<IgnoreDictionary> stored = IgnoreDictionary::load(_defaults);
    if (stored && stored->entry(bundleIdentifier))
        return;
    TarragonBlacklist entry;
    entry.setAppBundleID(bundleIdentifier);
    entry.setAppName(appName);
    entry.setIgnoreAllAppWindows(true);
    if (_ignoreDictionary->setEntry(bundleIdentifier, entry))
        storeIgnoreDictionary();
    _appMasterTableView.reloadData();
}

void MasterTableViewController::selectTitle(const std::string& title) {
    for (std::size_t row = 0; row < _zdDetail.numberOfRowsInTableView(); ++row) {
        if (_zdDetail.tableViewObjectValueForTableColumn(row) == title)
            _appDetailTableView.selectRow(row);
    }
    _appDetailTableView.reloadData();
}

bool MasterTableViewController::ignoreWindow(const PickedWindow& window) {
    const std::string& identifier = window.application.bundleIdentifier;
    if (identifier.empty() || !window.title || window.title->empty())
        return false;
    TarragonBlacklist unlisted;
    unlisted.setAppBundleID(identifier);
    unlisted.setAppName(window.application.name);
    TarragonBlacklist entry = _ignoreDictionary->entry(identifier).value_or(unlisted);
    std::vector<std::string> titles = entry.windowsWithTitlesToIgnore().value_or(std::vector<std::string>());
    // As it reads once it is stored, which not every character survives.
    const std::string title = propertyListText(*window.title);
    if (std::ranges::find(titles, title) == titles.end()) {
        titles.push_back(title);
        entry.setWindowsWithTitlesToIgnore(std::move(titles));
        // The change of the setting shows the application.
        if (_ignoreDictionary->setEntry(identifier, entry))
            storeIgnoreDictionary();
    }
    selectKey(identifier);
    tableViewSelectionDidChange();
    selectTitle(title);
    return true;
}

} // namespace tarragon
