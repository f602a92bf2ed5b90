#include "prefs/ignorelist/widgets/RowTable.h"

#include "prefs/ignorelist/widgets/IdentifiedRows.h"

#include <QScrollBar>
#include <QTest>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace tarragon {
namespace {

using testing::Optional;

class Rows : public IdentifiedRows {
public:
    explicit Rows(std::vector<std::string> rows)
        : next(std::move(rows)) { }
    bool reload() override {
        setIdentities(next);
        return true;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? QVariant(index.row()) : QVariant();
    }
    std::vector<std::string> next; // as they are at the next reload
};

class RowTableTest : public testing::Test {
protected:
    RowTableTest() {
        table.setRows(&rows);
        table.reloadData();
    }
    ~RowTableTest() override { table.setRows(nullptr); }

    Rows rows{{"a", "b", "c"}};
    RowTable table;
};

TEST_F(RowTableTest, HasNoRowsBeforeItIsGivenAny) {
    RowTable bare;
    bare.selectRow(1);
    bare.reloadData();
    bare.choose(0);
    EXPECT_EQ(bare.model(), nullptr);
}

TEST_F(RowTableTest, ForgetsItsSelectionWithItsRows) {
    table.choose(1);
    Rows others({"d", "e"});
    table.setRows(&others);
    EXPECT_EQ(table.selectedRow(), std::nullopt);
    table.setRows(nullptr);
}

TEST_F(RowTableTest, SelectsARowThatTheNextReloadBrings) {
    table.selectRow(3);
    EXPECT_THAT(table.selectedRow(), Optional(3U));
    rows.next = {"a", "b", "c", "d"};
    table.reloadData();
    EXPECT_THAT(table.selectedRow(), Optional(3U));
    EXPECT_EQ(table.currentIndex().row(), 3);
}

TEST_F(RowTableTest, SelectsNothingWhereTheReloadDoesNotBringTheRow) {
    table.selectRow(3);
    table.reloadData();
    EXPECT_EQ(table.selectedRow(), std::nullopt);
}

TEST_F(RowTableTest, KeepsTheRowThatTheUserHasSelectedMeanwhile) {
    table.selectRow(2);
    table.choose(0);
    rows.next = {"new", "a", "b", "c"};
    table.reloadData();
    EXPECT_THAT(table.selectedRow(), Optional(1U));
}

TEST_F(RowTableTest, StaysWhereTheUserHasScrolledTo) {
    for (int number = 0; number < 300; ++number)
        rows.next.push_back(std::to_string(number));
    table.resize(200, 200);
    table.show();
    table.reloadData();
    table.choose(0);
    table.scrollToBottom();
    const int place = table.verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    table.reloadData();
    EXPECT_EQ(table.verticalScrollBar()->value(), place);
}

} // namespace
} // namespace tarragon
