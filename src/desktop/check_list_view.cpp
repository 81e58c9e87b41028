#include "desktop/check_list_view.hpp"

#include "platform/scoped_flag.hpp"

#include <QMouseEvent>

#include <algorithm>
#include <cstdlib>

namespace pelrath::desktop {

void CheckListModel::sync() {
    syncRows(list_.count(), list_.clearances());
    if (rowCount() > 0) Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::CheckStateRole});
}

QVariant CheckListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= std::min(rowCount(), list_.count())) return {};
    if (role == Qt::CheckStateRole) return list_.isChecked(index.row()) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) return toQString(list_.line(index.row()));
    return {};
}

Qt::ItemFlags CheckListModel::flags(const QModelIndex& index) const {
    return QAbstractListModel::flags(index) | Qt::ItemIsUserCheckable;
}

bool CheckListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::CheckStateRole) return false;
    const int row = index.row();
    const bool checked = value.toInt() == Qt::Checked;
    refresh_.act(view_, [this, row, checked] { list_.setChecked(row, checked); });
    return true;
}

CheckListView::CheckListView(QWidget* parent) : QListView(parent) {
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setTextElideMode(Qt::ElideNone);
}

void CheckListView::bindTo(CheckListBox& list, Binder& binder) {
    refresh_ = &binder.refresh();
    lines_ = new CheckListModel{list, *refresh_, *this};
    setModel(lines_);
    list_ = &list; // what came before is no act of the user's
    binder.attach(list, *this, [this] {
        const ScopedFlag pushing{pushing_};
        lines_->sync();
        if (list_->currentRow() != currentIndex().row()) setCurrentIndex(lines_->index(list_->currentRow()));
    });
}

void CheckListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (pushing_ || list_ == nullptr) return;
    const int row = current.row();
    refresh_->act(*this, [this, row] { list_->setCurrentRow(row); });
}

void CheckListView::initViewItemOption(QStyleOptionViewItem* option) const {
    QListView::initViewItemOption(option);
    if (hasFocus()) return;
    option->palette.setBrush(QPalette::Highlight, palette().brush(QPalette::Midlight));
    option->palette.setBrush(QPalette::HighlightedText, textOn(QPalette::Midlight));
}

// The usual text, but where a theme has made it of the same colour.
QBrush CheckListView::textOn(QPalette::ColorRole ground) const {
    constexpr int readable = 60; // of 255
    const int light = palette().color(ground).lightness();
    const bool seen = std::abs(palette().color(QPalette::Text).lightness() - light) > readable;
    return palette().brush(seen ? QPalette::Text : QPalette::Base);
}

// All of a click happens at its press: the base class, having seen only a part of it, would turn the mark
// over once more.
void CheckListView::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }

void CheckListView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex line = indexAt(event->pos());
    if (event->button() != Qt::LeftButton || !line.isValid()) return event->accept();
    setFocus(Qt::MouseFocusReason);
    setCurrentIndex(line);
    const bool checked = line.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    lines_->setData(line, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

} // namespace pelrath::desktop
