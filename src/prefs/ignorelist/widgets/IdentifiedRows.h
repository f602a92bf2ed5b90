#pragma once

#include <QAbstractListModel>

#include <cstddef>
#include <string>
#include <vector>

namespace tarragon {

// Rows that are asked for anew again and again, and of which the table keeps what has not changed: its selection, its
// place and an editor that is open.
class IdentifiedRows : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    // Takes the rows over as they are now. False when they are those of something else than before, so that nothing of
    // what was selected has a meaning any more.
    virtual bool reload() = 0;

    int rowCount(const QModelIndex& parent = {}) const override;

protected:
    using Identities = std::vector<std::string>;

    // Removes and inserts rows between those at the beginning and at the end that stay.
    void setIdentities(Identities identities);
    void replaceAll(Identities identities);
    // The row becomes the last one and stands for something else.
    void moveToEnd(std::size_t row, std::string identity);
    const Identities& identities() const { return _identities; }

private:
    Identities _identities;
};

} // namespace tarragon
