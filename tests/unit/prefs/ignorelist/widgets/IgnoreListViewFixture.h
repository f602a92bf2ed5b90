#pragma once

#include "../StoredListFixture.h"
#include "fake/FakeWindowPicker.h"
#include "prefs/ignorelist/widgets/IgnoreListView.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// The editor of the ignore list in a window, with applications and windows in memory.
class IgnoreListViewFixture : public StoredListFixture {
protected:
    IgnoreListViewFixture() {
        installed.addApplication({"/apps/clock.desktop", "org.example.Clock", "Clock", {}, {}, ""});
        installed.addApplication({"/apps/editor.desktop", "org.example.Editor", "Editor", {}, {}, ""});
        installed.addApplication({"/apps/player.desktop", "org.example.Player", "Player", {}, {}, ""});
    }

    void open() {
        view = std::make_unique<IgnoreListView>();
        view->setServices(defaults, &installed, &picker);
        view->resize(560, 330);
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }
    template <typename Widget>
    Widget* child(const char* name) const {
        return view->findChild<Widget*>(name);
    }
    QTreeView* applications() const { return child<QTreeView>("applications"); }
    QTreeView* titles() const { return child<QTreeView>("titles"); }
    QPushButton* button(const char* name) const { return child<QPushButton>(name); }
    QCheckBox* ignoreAll() const { return child<QCheckBox>("ignoreAll"); }
    std::string message() const { return child<QLabel>("message")->text().toStdString(); }

    static std::vector<std::string> rows(const QTreeView* table) {
        std::vector<std::string> texts;
        for (int row = 0; row < table->model()->rowCount(); ++row)
            texts.push_back(table->model()->index(row, 0).data().toString().toStdString());
        return texts;
    }
    // The row that is selected, or -1.
    static int selectedRow(const QTreeView* table) {
        const QModelIndexList selected = table->selectionModel()->selectedRows();
        return selected.isEmpty() ? -1 : selected.first().row();
    }
    static void click(const QTreeView* table, int row) {
        QTest::mouseClick(
            table->viewport(), Qt::LeftButton, {}, table->visualRect(table->model()->index(row, 0)).center());
    }
    static void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    // The field in which a row is being edited, or nullptr.
    QLineEdit* editor() const { return titles()->viewport()->findChild<QLineEdit*>(); }
    // What the user types into the row being edited, in place of what it held.
    void type(const QString& text) const {
        ASSERT_NE(editor(), nullptr);
        editor()->selectAll();
        QTest::keyClicks(editor(), text);
    }
    // Lets what was put off until later happen.
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    FakeWindowPicker picker;
    std::unique_ptr<IgnoreListView> view;
};

} // namespace tarragon
