#include "desktop/texture_table.hpp"

#include "platform/scoped_flag.hpp"

#include <QHeaderView>
#include <QMouseEvent>

#include <array>

namespace pelrath::desktop {

using several::TextureList;

namespace {

constexpr int rowRoom = 4; // pixels
constexpr std::array titles{"Name", "Size", "Type", "Levels"};
// The widest that a column gets beside the names.
constexpr std::array widest{"", "16384 x 16384", "DXT5_", "Levels_"};

} // namespace

void TextureTableModel::sync() {
    if (fillings_ != list_.fillings()) {
        beginResetModel();
        fillings_ = list_.fillings();
        rows_ = list_.count();
        endResetModel();
    } else if (rows_ > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, 0), {Qt::CheckStateRole});
    }
}

int TextureTableModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int TextureTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : TextureList::columns;
}

QVariant TextureTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || fillings_ != list_.fillings()) return {};
    const auto text = [&](TextureList::Column column) { return toQString(list_.text(index.row(), column)); };
    const auto column = static_cast<TextureList::Column>(index.column());
    const bool isName = column == TextureList::Name;
    if (role == Qt::CheckStateRole && isName)
        return list_.isChecked(index.row()) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::DisplayRole) return text(column);
    if (role == Qt::ToolTipRole && isName) return "<span>" + text(column).toHtmlEscaped() + "</span>";
    if (role == Qt::AccessibleTextRole && isName) {
        return text(column) + ", " + text(TextureList::Sides) + ", " + text(TextureList::Type) + ", " +
               text(TextureList::Levels) + " levels";
    }
    if (role == Qt::SizeHintRole) return QSize{1, view_.fontMetrics().height() + rowRoom};
    if (role == Qt::TextAlignmentRole && column == TextureList::Levels)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant TextureTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return titles.at(static_cast<std::size_t>(section));
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((section == TextureList::Levels ? Qt::AlignRight : Qt::AlignLeft) |
                                Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags TextureTableModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    return index.column() == TextureList::Name ? flags | Qt::ItemIsUserCheckable : flags;
}

bool TextureTableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::CheckStateRole) return false;
    const int row = index.row();
    const bool checked = value.toInt() == Qt::Checked;
    refresh_.act(view_, [this, row, checked] { list_.setChecked(row, checked); });
    return true;
}

TextureTable::TextureTable(QWidget* parent) : QTreeView(parent) {
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setTextElideMode(Qt::ElideMiddle);
}

void TextureTable::bindTo(TextureList& list, Binder& binder) {
    refresh_ = &binder.refresh();
    rows_ = new TextureTableModel{list, *refresh_, *this};
    setModel(rows_);
    header()->setStretchLastSection(false);
    header()->setSectionsClickable(false);
    header()->setSectionsMovable(false);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setSectionResizeMode(TextureList::Name, QHeaderView::Stretch);
    for (int column = 1; column < TextureList::columns; ++column) {
        header()->resizeSection(
            column, fontMetrics().horizontalAdvance(widest.at(static_cast<std::size_t>(column))) + 12);
    }
    list_ = &list; // what came before is no act of the user's
    binder.attach(list, *this, [this] {
        const ScopedFlag pushing{pushing_};
        rows_->sync();
        if (list_->currentRow() == currentIndex().row()) return;
        setCurrentIndex(rows_->index(list_->currentRow(), 0));
        scrollTo(currentIndex(), PositionAtCenter);
    });
}

void TextureTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeView::currentChanged(current, previous);
    if (pushing_ || list_ == nullptr || !current.isValid()) return;
    const int row = current.row();
    refresh_->act(*this, [this, row] { list_->setCurrentRow(row); });
}

void TextureTable::turn(const QModelIndex& row) {
    if (!row.isValid()) return;
    const QModelIndex mark = row.siblingAtColumn(TextureList::Name);
    const bool checked = mark.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    rows_->setData(mark, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

// All of a click happens at its press: the base class, having seen only a part of it, would turn the mark
// over once more.
void TextureTable::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }
void TextureTable::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void TextureTable::mousePressEvent(QMouseEvent* event) {
    const QModelIndex row = indexAt(event->pos());
    event->accept();
    if (event->button() != Qt::LeftButton || !row.isValid()) return;
    setFocus(Qt::MouseFocusReason);
    setCurrentIndex(row.siblingAtColumn(TextureList::Name));
    turn(row);
}

void TextureTable::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
        turn(currentIndex());
    } else if (event->matches(QKeySequence::SelectAll)) {
        refresh_->act(*this, [this] { list_->checkShown(true); });
    } else {
        QTreeView::keyPressEvent(event);
    }
}

} // namespace pelrath::desktop
