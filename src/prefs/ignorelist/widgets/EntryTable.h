#pragma once

#include <QTreeView>

namespace tarragon {

// A table of one column. Long texts end in an ellipsis; an empty table says in words what could be in it.
class EntryTable : public QTreeView {
    Q_OBJECT

public:
    explicit EntryTable(QWidget* parent = nullptr);

    // Shown in place of the rows, and read to those who cannot see, while there are none.
    void setEmptyText(const QString& text);
    void setModel(QAbstractItemModel* rows) override;

    QSize minimumSizeHint() const override;

signals:
    // The Delete key, while no row is edited.
    void removePressed();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    bool isEmpty() const;
    void updateDescription();
    void updateIconSize();

    QString _emptyText;
};

} // namespace tarragon
