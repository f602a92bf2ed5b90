#pragma once

#include "prefs/ignorelist/MasterTableViewController.h"
#include "prefs/ignorelist/widgets/ApplicationIcons.h"
#include "prefs/ignorelist/widgets/IdentifiedRows.h"

#include <optional>
#include <vector>

namespace tarragon {

// The applications on the ignore list, as rows of a table. Names and pictures are fetched when they are shown.
class ApplicationRows : public IdentifiedRows {
    Q_OBJECT

public:
    // Both outlive the rows.
    ApplicationRows(const MasterTableViewController& controller, ApplicationIcons& icons, QObject* parent);

    bool reload() override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QString nameAt(std::size_t row) const;

    const MasterTableViewController& _controller;
    ApplicationIcons& _icons;
    mutable std::vector<std::optional<QString>> _names; // those that were shown
};

} // namespace tarragon
