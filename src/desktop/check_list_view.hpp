#pragma once

#include "controls/check_list_box.hpp"
#include "desktop/bind.hpp"

#include <QAbstractListModel>
#include <QListView>

#include <cstdint>

namespace pelrath::desktop {

/// The lines and check marks of a list as they are when sync() is called; holds none of them itself.
class CheckListModel : public QAbstractListModel {
public:
    CheckListModel(CheckListBox& list, Refresh& refresh, QObject* parent)
        : QAbstractListModel(parent), list_(list), refresh_(refresh) {}

    void sync();

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// The user's check mark.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    CheckListBox& list_;
    Refresh& refresh_;
    int rows_ = 0;
    std::uint64_t clearances_ = 0;
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
    CheckListBox* list_ = nullptr;
    Refresh* refresh_ = nullptr;
    CheckListModel* lines_ = nullptr;
    bool pushing_ = false;
};

} // namespace pelrath::desktop
