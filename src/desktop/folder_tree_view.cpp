#include "desktop/folder_tree_view.hpp"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

namespace pelrath::desktop {

namespace {

// Without a language letters would stand in the order of their codes.
QLocale language() { return QLocale{}.language() == QLocale::C ? QLocale{QLocale::English} : QLocale{}; }

} // namespace

OrderedFolders::OrderedFolders(QObject* parent) : QSortFilterProxyModel(parent), order_(language()) {
    order_.setNumericMode(true);
    order_.setCaseSensitivity(Qt::CaseInsensitive);
    setSortRole(FolderTreeModel::NameRole);
    sort(0);
}

void OrderedFolders::showHidden(bool shown) {
    hiddenShown_ = shown;
    invalidateFilter();
}

bool OrderedFolders::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const int leftPlace = left.data(FolderTreeModel::PlaceRole).toInt();
    const int rightPlace = right.data(FolderTreeModel::PlaceRole).toInt();
    if (leftPlace != rightPlace) return leftPlace < rightPlace;
    return order_.compare(left.data(FolderTreeModel::NameRole).toString(),
                          right.data(FolderTreeModel::NameRole).toString()) < 0;
}

bool OrderedFolders::filterAcceptsRow(int row, const QModelIndex& parent) const {
    return hiddenShown_ || !sourceModel()->index(row, 0, parent).data(FolderTreeModel::HiddenRole).toBool();
}

FolderTreeView::FolderTreeView(QWidget* parent)
    : QTreeView(parent), folders_(new FolderTreeModel{this}), shown_(new OrderedFolders{this}) {
    shown_->setSourceModel(folders_);
    setModel(shown_);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents); // long names scroll sideways
    header()->setResizeContentsPrecision(100);
    connect(this, &QTreeView::expanded, folders_,
            [this](const QModelIndex& index) { folders_->reread(shown_->mapToSource(index)); });
    // A folder that was read may turn out to have nothing inside.
    connect(shown_, &QAbstractItemModel::dataChanged, this, [this] { scheduleDelayedItemsLayout(); });
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, [this] { following_ = false; });
    connect(shown_, &QAbstractItemModel::rowsInserted, this, &FolderTreeView::keepInSight,
            Qt::QueuedConnection);
}

void FolderTreeView::resizeEvent(QResizeEvent* event) {
    QTreeView::resizeEvent(event);
    header()->setMinimumSectionSize(viewport()->width()); // a row reaches from edge to edge
}

void FolderTreeView::keyPressEvent(QKeyEvent* event) {
    following_ = false;
    if (event->key() == Qt::Key_Asterisk) return; // would read every folder below at once
    QTreeView::keyPressEvent(event);
}

void FolderTreeView::mousePressEvent(QMouseEvent* event) {
    following_ = false;
    QTreeView::mousePressEvent(event);
}

void FolderTreeView::begin(const QString& rootFolder) {
    folders_->setRoot(rootFolder);
    expand(shown_->index(0, 0));
    selectionModel()->setCurrentIndex(shown_->index(0, 0),
                                      QItemSelectionModel::NoUpdate); // the keys start there
}

void FolderTreeView::choose(const QString& folder) {
    const QModelIndex found = shown_->mapFromSource(folders_->reveal(folder));
    if (!found.isValid()) return;
    for (QModelIndex above = found.parent(); above.isValid(); above = above.parent()) {
        expand(above);
    }
    following_ = true;
    setCurrentIndex(found);
    scrollTo(found, PositionAtCenter);
}

void FolderTreeView::keepInSight() {
    if (following_) scrollTo(currentIndex(), PositionAtCenter);
}

void FolderTreeView::showHidden(bool shown) {
    shown_->showHidden(shown);
    if (currentIndex().isValid()) scrollTo(currentIndex());
}

QString FolderTreeView::chosenPath() const {
    return hasChoice() ? FolderTreeModel::path(shown_->mapToSource(selectedIndexes().front())) : QString{};
}

QString FolderTreeView::chosenName() const {
    return hasChoice() ? selectedIndexes().front().data(FolderTreeModel::NameRole).toString() : QString{};
}

void FolderTreeView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTreeView::selectionChanged(selected, deselected);
    // Rows that move under a choice make another selection, but no other choice.
    const QModelIndex chosen = hasChoice() ? selectedIndexes().front() : QModelIndex{};
    if (chosen == told_ && hasChoice() == toldOne_) return;
    told_ = chosen;
    toldOne_ = hasChoice();
    if (choiceChanged) choiceChanged();
}

} // namespace pelrath::desktop
