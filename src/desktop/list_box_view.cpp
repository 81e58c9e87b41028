#include "desktop/list_box_view.hpp"

#include "platform/scoped_flag.hpp"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace pelrath::desktop {

void ListBoxModel::sync() { syncRows(list_.count(), list_.clearances()); }

QVariant ListBoxModel::data(const QModelIndex& index, int role) const {
    const bool known = index.isValid() && index.row() < std::min(rowCount(), list_.count());
    if (!known || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) return {};
    return toQString(list_.line(index.row()));
}

ListBoxView::ListBoxView(QWidget* parent) : QListView(parent), delegate_(new LineDelegate{this}) {
    setItemDelegate(delegate_);
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerItem);
    setTabKeyNavigation(false);
    viewport()->setAttribute(Qt::WA_Hover, false);
}

void ListBoxView::fitRows(int rows) {
    fittedRows_ = rows;
    fit();
}

void ListBoxView::fit() {
    if (fittedRows_ == 0) return;
    const int room = contentsRect().height();
    const int height = std::max(room / fittedRows_, 1);
    setViewportMargins(0, 0, 0, std::max(room - height * fittedRows_, 0)); // no sliver of another row
    delegate_->fitTo(height, font());
    scheduleDelayedItemsLayout();
}

void ListBoxView::changeEvent(QEvent* event) {
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange) fit();
}

void ListBoxView::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    fit();
}

void ListBoxView::bindTo(ListBox& list, Binder& binder) {
    list_ = &list;
    lines_ = new ListBoxModel{list, this};
    setSelectionMode(list.choice() == ListBox::Choice::Single ? SingleSelection : ExtendedSelection);
    setModel(lines_);
    refresh_ = &binder.refresh(); // what came before is no act of the user's
    binder.attach(list, *this, [this] { push(); });
}

void ListBoxView::push() {
    const ScopedFlag pushing{pushing_};
    lines_->sync();
    if (selections_ != list_->selections() ||
        selectionModel()->hasSelection() == list_->selectedRuns().empty()) {
        pushSelection();
    }
}

void ListBoxView::pushSelection() {
    selections_ = list_->selections();
    QItemSelection selection;
    for (const ListBox::Run& run : list_->selectedRuns()) {
        selection.append(QItemSelectionRange{lines_->index(run.first), lines_->index(run.last)});
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (list_->selectedRuns().empty()) return;
    const QModelIndex first = lines_->index(list_->selectedRuns().front().first);
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    scrollTo(lines_->index(list_->selectedRuns().front().last), EnsureVisible);
    scrollTo(first, EnsureVisible);
}

std::vector<ListBox::Run> ListBoxView::chosenRuns() const {
    std::vector<ListBox::Run> runs;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        runs.push_back({range.top(), range.bottom()});
    }
    std::sort(runs.begin(), runs.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<ListBox::Run> joined;
    for (const ListBox::Run& run : runs) {
        if (!joined.empty() && joined.back().last + 1 >= run.first) {
            joined.back().last = std::max(joined.back().last, run.last);
        } else {
            joined.push_back(run);
        }
    }
    return joined;
}

void ListBoxView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    if (pushing_ || refresh_ == nullptr) return;
    const bool admitted = refresh_->act(*this, [this] {
        const std::uint64_t own = list_->selections() + 1;
        list_->choose(chosenRuns());
        if (list_->selections() == own) selections_ = own; // shown already, unless a reaction chose anew
    });
    if (!admitted) selections_ = noneShown;
}

QItemSelectionModel::SelectionFlags ListBoxView::selectionCommand(const QModelIndex& index,
                                                                  const QEvent* event) const {
    // The only chosen row cannot be given up, not even with Ctrl.
    if (!isSingle()) return QListView::selectionCommand(index, event);
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void ListBoxView::deliver(const Signal<>& event) {
    refresh_->act(*this, [&event] { event.emit(); });
}

void ListBoxView::pressRow(const QModelIndex& index) {
    if (!index.isValid()) return;
    refresh_->act(*this, [this, row = index.row()] { list_->press(row); });
}

void ListBoxView::mousePressEvent(QMouseEvent* event) {
    const std::uint64_t before = list_->selections();
    QListView::mousePressEvent(event);
    const bool again = list_->selections() == before && event->button() == Qt::LeftButton;
    if (again && isSingle()) pressRow(indexAt(event->position().toPoint()));
    deliver(list_->mouseDown);
}

void ListBoxView::mouseMoveEvent(QMouseEvent* event) {
    QListView::mouseMoveEvent(event);
    deliver(list_->mouseMove);
}

void ListBoxView::keyPressEvent(QKeyEvent* event) {
    const bool left = event->key() == Qt::Key_Left;
    if (sideways_ != nullptr && (left || event->key() == Qt::Key_Right) && sideways_->isVisible()) {
        sideways_->triggerAction(left ? QAbstractSlider::SliderSingleStepSub
                                      : QAbstractSlider::SliderSingleStepAdd);
        return;
    }
    const bool presses =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (presses && isSingle()) {
        pressRow(currentIndex());
        return;
    }
    QListView::keyPressEvent(event);
}

void ListBoxView::wheelEvent(QWheelEvent* event) {
    const bool shifted = event->modifiers().testFlag(Qt::ShiftModifier);
    const int turn = event->angleDelta().x() != 0 ? event->angleDelta().x()
                     : shifted                    ? event->angleDelta().y()
                                                  : 0;
    if (sideways_ != nullptr && turn != 0 && sideways_->isVisible()) {
        sideways_->setValue(sideways_->value() -
                            turn * sideways_->singleStep() / QWheelEvent::DefaultDeltasPerStep);
        return;
    }
    QListView::wheelEvent(event);
}

} // namespace pelrath::desktop
