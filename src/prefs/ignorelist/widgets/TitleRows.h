#pragma once

#include "prefs/ignorelist/DetailTableViewController.h"
#include "prefs/ignorelist/widgets/IdentifiedRows.h"

#include <cstddef>
#include <optional>
#include <string>

namespace tarragon {

// The window titles and patterns of the selected application, as rows of a table that can be edited.
class TitleRows : public IdentifiedRows {
    Q_OBJECT

public:
    // The controller outlives the rows.
    TitleRows(DetailTableViewController& controller, QObject* parent);

    bool reload() override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Edit {
        std::size_t row;
        std::string value;
    };

    // The titles are those of before but for the row that was edited, which is the last one now.
    bool haveOnlyMoved(const Identities& titles, const Edit& edit) const;

    DetailTableViewController& _controller;
    std::string _masterKey; // of the application whose rows these are
    bool _isReloading = false;
    std::optional<Edit> _edit; // by the user, and not shown yet
};

} // namespace tarragon
