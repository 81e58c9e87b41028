#pragma once

#include "controls/check_list_box.hpp"
#include "desktop/bind.hpp"
#include "desktop/lines_model.hpp"

#include <QListView>

namespace pelrath::desktop {

/// The lines and check marks of a list as they are when sync() is called; holds none of them itself.
class CheckListModel : public LinesModel {
public:
    CheckListModel(CheckListBox& list, Refresh& refresh, QWidget& view)
        : LinesModel(&view), list_(list), refresh_(refresh), view_(view) {}

    void sync();

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// The user's check mark.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    CheckListBox& list_;
    Refresh& refresh_;
    const QWidget& view_;
};

/// Shows a list with check marks: a click anywhere on a line and the space bar turn its mark over.
class CheckListView : public QListView {
public:
    explicit CheckListView(QWidget* parent);

    void bindTo(CheckListBox& list, Binder& binder);

protected:
    /// The current line stands out while the list has the focus.
    void initViewItemOption(QStyleOptionViewItem* option) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    [[nodiscard]] QBrush textOn(QPalette::ColorRole ground) const;

    CheckListBox* list_ = nullptr;
    Refresh* refresh_ = nullptr;
    CheckListModel* lines_ = nullptr;
    bool pushing_ = false;
};

} // namespace pelrath::desktop
