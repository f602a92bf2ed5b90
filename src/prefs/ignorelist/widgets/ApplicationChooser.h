#pragma once

#include "platform/InstalledApplications.h"
#include "prefs/ignorelist/widgets/ApplicationIcons.h"

#include <QDialog>

#include <optional>
#include <string>

class QLineEdit;
class QPushButton;

namespace tarragon {

class EntryTable;
class InstalledRows;

// Lets the user choose one application: among those that are installed, or any file.
class ApplicationChooser : public QDialog {
    Q_OBJECT

public:
    // The files begin in that folder, which may be empty. The services outlive the dialog.
    ApplicationChooser(
        InstalledApplications& applications, ApplicationIcons& icons, std::string folder, QWidget* parent = nullptr);

    // What the user has chosen; nothing as long as that is nothing.
    const std::optional<std::string>& chosenPath() const { return _chosenPath; }

protected:
    // Moves the selection from within the search field.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void search(const QString& searched);
    void updateAddButton();
    void takeSelected();
    void openFileDialog();
    void take(const std::string& path);

    std::string _folder;
    QLineEdit* _searchField;
    EntryTable* _table;
    QPushButton* _addButton;
    InstalledRows* _rows;
    std::optional<std::string> _chosenPath;
};

} // namespace tarragon
