#include "prefs/ignorelist/widgets/IgnoreListView.h"

#include "platform/Texts.h"
#include "prefs/ignorelist/DetailTableViewController.h"
#include "prefs/ignorelist/MasterTableViewController.h"
#include "prefs/ignorelist/widgets/ApplicationChooser.h"
#include "prefs/ignorelist/widgets/ApplicationIcons.h"
#include "prefs/ignorelist/widgets/ApplicationRows.h"
#include "prefs/ignorelist/widgets/RowTable.h"
#include "prefs/ignorelist/widgets/TitleRows.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace tarragon {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QPushButton* button(const char* name, const std::string& words, const std::string& whatItDoes) {
    auto* const made = new QPushButton(text(words));
    made->setObjectName(name);
    made->setAccessibleName(text(whatItDoes));
    made->setToolTip(text(whatItDoes));
    return made;
}

QHBoxLayout* rowOf(std::initializer_list<QWidget*> widgets) {
    auto* const row = new QHBoxLayout();
    for (QWidget* widget : widgets)
        row->addWidget(widget);
    row->addStretch();
    return row;
}

QString emptyTitlesText(bool isApplicationSelected, const DetailTableViewController& detail) {
    if (!isApplicationSelected)
        return text(translated("IgnoreListView", "Select an application to see which of its windows are ignored."));
    if (!detail.blackList())
        return text(translated(
            "IgnoreListView", "This entry cannot be read. Remove it and add the application again to change it."));
    if (detail.ignoreAllApp())
        return text(translated("IgnoreListView", "All windows of this application are ignored."));
    return text(translated("IgnoreListView",
        "Add the title of a window to ignore, or a pattern: * stands for any text, ? for one character."));
}

} // namespace

// What the view has once it knows the settings.
struct IgnoreListView::Editor {
    Editor(IgnoreListView& view, Defaults& defaults, InstalledApplications* installed)
        : applications(installed)
        , icons(installed)
        , detail(defaults, *view._detailTable, *view._masterTable, view)
        , master(defaults, installed, *view._masterTable, *view._detailTable, detail, view)
        , applicationRows(master, icons, nullptr)
        , titleRows(detail, nullptr) { }

    InstalledApplications* applications;
    ApplicationIcons icons;
    DetailTableViewController detail;
    MasterTableViewController master;
    ApplicationRows applicationRows;
    TitleRows titleRows;
};

IgnoreListView::IgnoreListView(QWidget* parent)
    : QWidget(parent)
    , _message(new QLabel()) {
    makeApplicationControls();
    makeTitleControls();
    _pickButton = button("pickWindow", translated("IgnoreListView", "Pick a Window…"),
        translated("IgnoreListView", "Ignore the window that you click next"));
    _message->setObjectName("message");
    _message->setWordWrap(true);
    arrangeControls();
    connectControls();
    updateControls();
}

IgnoreListView::~IgnoreListView() {
    cancelPicking();
    delete _chooser;
    _masterTable->setRows(nullptr);
    _detailTable->setRows(nullptr);
}

void IgnoreListView::makeApplicationControls() {
    _masterTable = new RowTable();
    _masterTable->setObjectName("applications");
    _masterTable->setAccessibleName(text(translated("IgnoreListView", "Ignored applications")));
    _masterTable->setEmptyText(text(
        translated("IgnoreListView", "No application is ignored yet. Add one to hide the panel over its windows.")));
    _addApplicationButton = button("addApplication", translated("IgnoreListView", "Add…"),
        translated("IgnoreListView", "Add an application to the list"));
    _removeApplicationButton = button("removeApplication", translated("IgnoreListView", "Remove"),
        translated("IgnoreListView", "Remove the selected application from the list"));
}

void IgnoreListView::makeTitleControls() {
    _ignoreAppButton = new QCheckBox(text(translated("IgnoreListView", "Ignore all windows of this application")));
    _ignoreAppButton->setObjectName("ignoreAll");
    _ignoreAppButton->setToolTip(
        text(translated("IgnoreListView", "Whatever their titles are. Without it, only windows with these titles.")));
    _detailTable = new RowTable();
    _detailTable->setObjectName("titles");
    _detailTable->setAccessibleName(text(translated("IgnoreListView", "Ignored window titles and patterns")));
    _detailTable->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    _addTitleButton = button("addTitle", translated("IgnoreListView", "Add Title"),
        translated("IgnoreListView", "Add a window title or pattern"));
    _removeTitleButton = button("removeTitle", translated("IgnoreListView", "Remove"),
        translated("IgnoreListView", "Remove the selected window title or pattern"));
}

void IgnoreListView::arrangeControls() {
    auto* const label = new QLabel(text(translated("IgnoreListView", "Applications:")));
    label->setBuddy(_masterTable);
    auto* const bottom = new QHBoxLayout();
    bottom->addWidget(_pickButton);
    bottom->addWidget(_message, 1);

    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins({});
    // A wider gap tells the two halves apart.
    grid->setColumnMinimumWidth(1, fontMetrics().averageCharWidth());
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(2, 3);
    grid->addWidget(label, 0, 0);
    grid->addWidget(_ignoreAppButton, 0, 2);
    grid->addWidget(_masterTable, 1, 0);
    grid->addWidget(_detailTable, 1, 2);
    grid->addLayout(rowOf({_addApplicationButton, _removeApplicationButton}), 2, 0);
    grid->addLayout(rowOf({_addTitleButton, _removeTitleButton}), 2, 2);
    grid->addLayout(bottom, 3, 0, 1, 3);

    // Column by column.
    const QList<QWidget*> order{_masterTable, _addApplicationButton, _removeApplicationButton, _ignoreAppButton,
        _detailTable, _addTitleButton, _removeTitleButton, _pickButton};
    for (qsizetype place = 1; place < order.size(); ++place)
        setTabOrder(order[place - 1], order[place]);
}

void IgnoreListView::connectControls() {
    connect(_masterTable, &RowTable::rowSelected, this, [this] { _editor->master.tableViewSelectionDidChange(); });
    connect(_masterTable, &EntryTable::removePressed, this, &IgnoreListView::removeApplication);
    connect(_addApplicationButton, &QPushButton::clicked, this, [this] { _editor->master.addApplication(); });
    connect(_removeApplicationButton, &QPushButton::clicked, this, &IgnoreListView::removeApplication);
    connect(_ignoreAppButton, &QCheckBox::clicked, this, [this](bool isOn) {
        _editor->detail.setIgnoreAllApp(isOn);
        _editor->detail.switchSetIgnoreAllApp();
    });
    connect(_detailTable, &EntryTable::removePressed, this, &IgnoreListView::removeTitle);
    connect(_addTitleButton, &QPushButton::clicked, this, &IgnoreListView::addTitle);
    connect(_removeTitleButton, &QPushButton::clicked, this, &IgnoreListView::removeTitle);
    connect(_pickButton, &QPushButton::clicked, this, &IgnoreListView::pickWindow);
    for (RowTable* table : {_masterTable, _detailTable}) {
        connect(table, &RowTable::rowSelected, this, &IgnoreListView::updateControls);
        connect(table, &RowTable::reloaded, this, &IgnoreListView::updateControls);
    }
}

void IgnoreListView::setServices(Defaults& defaults, InstalledApplications* applications, WindowPicker* windowPicker) {
    _windowPicker = windowPicker;
    _editor = std::make_unique<Editor>(*this, defaults, applications);
    _masterTable->setRows(&_editor->applicationRows);
    _detailTable->setRows(&_editor->titleRows);
    _addApplicationButton->setVisible(applications != nullptr);
    _pickButton->setVisible(windowPicker != nullptr);
    _editor->detail.awakeFromNib();
    _editor->master.awakeFromNib();
    _masterTable->reloadData();
}

void IgnoreListView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (_editor)
        _editor->icons.forget();
}

void IgnoreListView::hideEvent(QHideEvent* event) {
    cancelPicking();
    QWidget::hideEvent(event);
}

void IgnoreListView::setState(bool isOn) {
    _ignoreAppButton->setChecked(isOn);
}

void IgnoreListView::updateControls() {
    const bool isApplicationSelected = _masterTable->selectedRow().has_value();
    const bool canEdit = _editor && _editor->detail.blackList();
    _removeApplicationButton->setEnabled(isApplicationSelected);
    _ignoreAppButton->setEnabled(canEdit);
    _ignoreAppButton->setChecked(canEdit && _editor->detail.ignoreAllApp());
    _addTitleButton->setEnabled(canEdit);
    _removeTitleButton->setEnabled(canEdit && _detailTable->selectedRow());
    _addApplicationButton->setEnabled(_editor != nullptr);
    _pickButton->setEnabled(_editor && !_isPicking);
    if (_editor)
        _detailTable->setEmptyText(emptyTitlesText(isApplicationSelected, _editor->detail));
}

void IgnoreListView::removeApplication() {
    if (!_editor)
        return;
    // The button is of no use without a selection, and could not keep the keyboard.
    if (_removeApplicationButton->hasFocus())
        _masterTable->setFocus();
    _editor->master.removeApplication();
}

void IgnoreListView::addTitle() {
    const std::size_t before = _editor->detail.numberOfRowsInTableView();
    _editor->detail.addWindow();
    if (_editor->detail.numberOfRowsInTableView() == before)
        return;
    _detailTable->choose(before);
    _detailTable->edit(_detailTable->currentIndex());
}

void IgnoreListView::removeTitle() {
    if (!_editor)
        return;
    if (_removeTitleButton->hasFocus())
        _detailTable->setFocus();
    _editor->detail.removeWindow();
}

void IgnoreListView::runOpenPanel(const std::string& folder, OpenPanelAnswer answer) {
    if (_chooser)
        return;
    // One may have been installed while the view was open.
    _editor->icons.forget();
    _chooser = new ApplicationChooser(*_editor->applications, _editor->icons, folder, this);
    _chooser->setAttribute(Qt::WA_DeleteOnClose);
    connect(_chooser, &QDialog::finished, this, [this, answer = std::move(answer)] {
        const std::optional<std::string> path = _chooser->chosenPath();
        _chooser.clear();
        _masterTable->setFocus();
        answer(path);
    });
    _chooser->open();
}

void IgnoreListView::pickWindow() {
    _isPicking = _windowPicker->pickWindow([this](const std::optional<PickedWindow>& window) { endPicking(window); });
    showMessage(_isPicking ? translated("IgnoreListView", "Click the window to ignore. Escape cancels.")
                           : translated("IgnoreListView", "The pointer cannot be had just now. Please try again."));
    updateControls();
}

void IgnoreListView::cancelPicking() {
    if (!_isPicking)
        return;
    _windowPicker->cancel();
    endPicking(std::nullopt);
}

void IgnoreListView::endPicking(const std::optional<PickedWindow>& window) {
    _isPicking = false;
    showMessage({});
    updateControls();
    if (!window)
        return;
    if (!_editor->master.ignoreWindow(*window)) {
        showMessage(window->application.bundleIdentifier.empty()
                ? translated("IgnoreListView", "It is not known which application that window belongs to.")
                : translated("IgnoreListView", "That window has no title to know it by. Add its application instead."));
        return;
    }
    _detailTable->setFocus();
}

void IgnoreListView::showMessage(const std::string& message) {
    _message->setText(text(message));
}

} // namespace tarragon
