#include "prefs/ignorelist/widgets/ApplicationChooser.h"

#include "platform/Texts.h"
#include "prefs/ignorelist/widgets/EntryTable.h"
#include "prefs/ignorelist/widgets/InstalledRows.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

namespace tarragon {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

bool movesSelection(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

} // namespace

ApplicationChooser::ApplicationChooser(
    InstalledApplications& applications, ApplicationIcons& icons, std::string folder, QWidget* parent)
    : QDialog(parent)
    , _folder(std::move(folder))
    , _searchField(new QLineEdit(this))
    , _table(new EntryTable(this))
    , _rows(new InstalledRows(applications.installedApplications(), icons, this)) {
    setWindowTitle(text(translated("ApplicationChooser", "Add Application")));

    const QString searchWords = text(translated("ApplicationChooser", "Search applications"));
    _searchField->setObjectName("searchField");
    _searchField->setAccessibleName(searchWords);
    _searchField->setPlaceholderText(searchWords);
    _searchField->setToolTip(text(translated("ApplicationChooser", "Type a part of the application's name")));
    _searchField->setClearButtonEnabled(true);
    _searchField->findChild<QToolButton*>()->setAccessibleName(
        text(translated("ApplicationChooser", "Clear the search")));
    _searchField->installEventFilter(this);

    _table->setObjectName("applications");
    _table->setModel(_rows);
    _table->setAccessibleName(text(translated("ApplicationChooser", "Installed applications")));
    _table->setEmptyText(text(translated(
        "ApplicationChooser", "No installed application matches. \"Other\" finds an application by its file.")));

    auto* const buttons = new QDialogButtonBox(this);
    _addButton = buttons->addButton(text(translated("ApplicationChooser", "Add")), QDialogButtonBox::AcceptRole);
    _addButton->setObjectName("add");
    QPushButton* const cancelButton =
        buttons->addButton(text(translated("ApplicationChooser", "Cancel")), QDialogButtonBox::RejectRole);
    cancelButton->setObjectName("cancel");
    QPushButton* const otherButton =
        buttons->addButton(text(translated("ApplicationChooser", "Other…")), QDialogButtonBox::ActionRole);
    otherButton->setObjectName("other");
    otherButton->setToolTip(
        text(translated("ApplicationChooser", "Choose an application that is not in the list by its file")));

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(_searchField);
    layout->addWidget(_table, 1);
    layout->addWidget(buttons);

    connect(_searchField, &QLineEdit::textChanged, this, &ApplicationChooser::search);
    connect(
        _table->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ApplicationChooser::updateAddButton);
    connect(_table, &QAbstractItemView::doubleClicked, this, &ApplicationChooser::takeSelected);
    connect(buttons, &QDialogButtonBox::accepted, this, &ApplicationChooser::takeSelected);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(otherButton, &QPushButton::clicked, this, &ApplicationChooser::openFileDialog);
    resize(sizeHint().expandedTo({fontMetrics().averageCharWidth() * 56, fontMetrics().lineSpacing() * 24}));
    updateAddButton();
}

bool ApplicationChooser::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && movesSelection(static_cast<QKeyEvent*>(event)->key())) {
        QCoreApplication::sendEvent(_table, event);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void ApplicationChooser::search(const QString& searched) {
    _rows->setSearchText(searched);
    // Enter takes the first match. Without a search there is nothing that the user has pointed to.
    if (!searched.trimmed().isEmpty())
        _table->setCurrentIndex(_rows->index(0));
    updateAddButton();
}

void ApplicationChooser::updateAddButton() {
    _addButton->setEnabled(_table->selectionModel()->hasSelection());
}

void ApplicationChooser::takeSelected() {
    const QModelIndexList selected = _table->selectionModel()->selectedRows();
    if (!selected.isEmpty())
        take(_rows->pathAt(selected.first().row()));
}

void ApplicationChooser::openFileDialog() {
    auto* const dialog = new QFileDialog(
        this, text(translated("ApplicationChooser", "Choose an Application")), QString::fromStdString(_folder));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this,
        [this](const QString& path) { take(QFile::encodeName(path).toStdString()); });
    dialog->open();
}

void ApplicationChooser::take(const std::string& path) {
    _chosenPath = path;
    accept();
}

} // namespace tarragon
