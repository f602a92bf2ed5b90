#pragma once

#include "platform/InstalledApplications.h"
#include "prefs/ignorelist/widgets/ApplicationIcons.h"

#include <QAbstractListModel>

#include <cstddef>
#include <string>
#include <vector>

namespace tarragon {

// Applications to choose from, in the order of their names, as far as they match what is searched for.
class InstalledRows : public QAbstractListModel {
    Q_OBJECT

public:
    // Applications that nothing tells apart are left out. The icons outlive the rows.
    InstalledRows(const std::vector<ApplicationBundle>& bundles, ApplicationIcons& icons, QObject* parent);

    // Keeps the applications whose name, program or bundle identifier holds every word, in upper or lower case.
    void setSearchText(const QString& text);
    std::string pathAt(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Row {
        QString name;
        QString searched;
        ApplicationBundle bundle;
    };

    ApplicationIcons& _icons;
    std::vector<Row> _all;
    std::vector<std::size_t> _shown; // places in _all
};

} // namespace tarragon
