#include "prefs/ignorelist/widgets/TitleRows.h"

#include "../StoredListFixture.h"

#include <QSignalSpy>

#include <functional>

namespace tarragon {
namespace {

using testing::ElementsAre;

// A table that does with its rows what a test says.
class Table : public TableView {
public:
    std::optional<std::size_t> selectedRow() const override { return row; }
    void selectRow(std::optional<std::size_t>) override { }
    void reloadData() override { reload(); }
    std::function<void()> reload = [] {};
    std::optional<std::size_t> row = 0;
};

class Button : public StateButton {
public:
    void setState(bool) override { }
};

// The rows alone, of an application with two titles.
class TitleRowsTest : public StoredListFixture {
protected:
    TitleRowsTest() {
        controller.setBlackList(entry("Editor", {"a", "b"}));
        rows.reload();
    }
    std::vector<std::string> texts() const {
        std::vector<std::string> found;
        for (int row = 0; row < rows.rowCount(); ++row)
            found.push_back(rows.index(row).data(Qt::EditRole).toString().toStdString());
        return found;
    }

    Table table;
    Button button;
    DetailTableViewController controller{defaults, table, table, button};
    TitleRows rows{controller, nullptr};
};

TEST_F(TitleRowsTest, MoveTheOneThatWasEditedToTheEnd) {
    table.reload = [this] { EXPECT_TRUE(rows.reload()); };
    const QSignalSpy moved(&rows, &QAbstractItemModel::rowsMoved);
    EXPECT_TRUE(rows.setData(rows.index(0), "x", Qt::EditRole));
    EXPECT_THAT(texts(), ElementsAre("b", "x"));
    EXPECT_EQ(moved.count(), 1);
}

TEST_F(TitleRowsTest, AreThoseThatThereAreWhereOthersHaveChangedThemMeanwhile) {
    table.reload = [this] {
        controller.setBlackList(entry("Editor", {"new", "b", "x"}));
        rows.reload();
    };
    rows.setData(rows.index(0), "x", Qt::EditRole);
    EXPECT_THAT(texts(), ElementsAre("new", "b", "x"));
}

TEST_F(TitleRowsTest, ForgetAnEditThatIsRefused) {
    // Nothing is edited without an application.
    table.row.reset();
    rows.setData(rows.index(0), "x", Qt::EditRole);
    EXPECT_THAT(texts(), ElementsAre("a", "b"));
    const QSignalSpy moved(&rows, &QAbstractItemModel::rowsMoved);
    controller.setBlackList(entry("Editor", {"b", "x"}));
    rows.reload();
    EXPECT_THAT(texts(), ElementsAre("b", "x"));
    EXPECT_EQ(moved.count(), 0);
}

TEST_F(TitleRowsTest, HaveNothingToDoWithThoseOfAnotherApplication) {
    const QSignalSpy reset(&rows, &QAbstractItemModel::modelReset);
    controller.setMasterKey("org.example.Clock");
    controller.setBlackList(entry("Clock", {"a", "b"}));
    EXPECT_FALSE(rows.reload());
    EXPECT_EQ(reset.count(), 1);
    EXPECT_THAT(texts(), ElementsAre("a", "b"));
}

} // namespace
} // namespace tarragon
