#include "desktop/safe_copies_window.hpp"

#include "desktop/check_list_view.hpp"
#include "desktop/elided_label.hpp"
#include "platform/scoped_flag.hpp"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <array>

namespace pelrath::desktop {

namespace {

constexpr int columnGap = 12; // pixels

enum Column { NumberColumn, DateColumn, SizeColumn, DifferenceColumn, Columns };

} // namespace

CopiesTable::CopiesTable(copies::SafeCopies& model, QObject* parent)
    : QAbstractTableModel(parent), model_(model),
      rowChanged_(model.lstCopies.rowChanged.connect([this](int row) {
          const QModelIndex cell = index(row, DifferenceColumn);
          if (cell.isValid()) Q_EMIT dataChanged(cell, cell);
      })) {}

void CopiesTable::sync() {
    if (fillings_ == model_.lstCopies.fillings()) return;
    beginResetModel();
    fillings_ = model_.lstCopies.fillings();
    rows_ = model_.lstCopies.count();
    endResetModel();
}

int CopiesTable::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int CopiesTable::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Columns; }

QVariant CopiesTable::data(const QModelIndex& index, int role) const {
    const bool text = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    if (!text || index.row() >= model_.lstCopies.count()) return {};
    const copies::CopyRow& row = model_.lstCopies.row(index.row());
    switch (index.column()) {
    case NumberColumn:
        return QString::number(row.copy.number);
    case DateColumn:
        return toQString(model_.dateText(row.copy));
    case SizeColumn:
        return toQString(model_.sizeText(row.copy));
    default:
        return toQString(copies::wordsOf(row.look));
    }
}

QVariant CopiesTable::headerData(int section, Qt::Orientation orientation, int role) const {
    constexpr std::array<const char*, Columns> titles{"Number", "Made", "Size", "Differs from now"};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return titles.at(static_cast<std::size_t>(section));
}

// The widgets are made in the order in which Tab goes through them.
SafeCopiesWindow::SafeCopiesWindow(copies::SafeCopies& model, Binder& binder)
    : ModelDialog(model.window, binder), model_(model), binder_(binder) {
    setObjectName("SafeCopies");
    QLabel& folder = make<QLabel>("lblFolder");
    binder_.bind(model_.lblFolder, folder, 'F');
    QLineEdit& path = make<QLineEdit>("txtFolder");
    folder.setBuddy(&path);
    binder_.bind(model_.txtFolder, path, SeenEnd::Last);
    QPushButton& browse = make<QPushButton>("cmdFolder");
    browse.setToolTip(toQString(model_.cmdFolder.accessibleName()));
    browse.setAutoDefault(false);
    binder_.bind(model_.cmdFolder, browse);
    buildCopies();
    buildTextures();
    buildBelow();
}

void SafeCopiesWindow::buildCopies() {
    ElidedLabel& caption = make<ElidedLabel>("lblCopies");
    binder_.bind(model_.lblCopies, caption);
    list_ = &make<QTreeView>("lstCopies");
    table_ = new CopiesTable{model_, list_};
    list_->setModel(table_);
    list_->setRootIsDecorated(false);
    list_->setItemsExpandable(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->header()->setSectionsMovable(false);
    list_->header()->setStretchLastSection(true);
    list_->header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    binder_.attach(model_.lstCopies, *list_, [this] { pushCopies(); });
    connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, list_,
            [this](const QModelIndex& current) {
                if (pushing_) return;
                binder_.refresh().act(*list_, [this, row = current.row()] { model_.lstCopies.choose(row); });
            });
}

void SafeCopiesWindow::pushCopies() {
    const ScopedFlag pushing{pushing_};
    const bool other = table_->rowCount() != model_.lstCopies.count();
    table_->sync();
    for (int column = NumberColumn; other && column < DifferenceColumn; ++column) {
        list_->resizeColumnToContents(column);
        list_->setColumnWidth(column, list_->columnWidth(column) + columnGap);
    }
    const int row = model_.lstCopies.chosenRow();
    if (row != list_->currentIndex().row()) list_->setCurrentIndex(table_->index(row, 0));
    list_->viewport()->update();
}

void SafeCopiesWindow::buildTextures() {
    ElidedLabel& caption = make<ElidedLabel>("lblTextures");
    binder_.bind(model_.lblTextures, caption, 'T');
    CheckListView& textures = make<CheckListView>("lstTextures");
    textures.bindTo(model_.lstTextures, binder_);
    caption.setBuddy(&textures);
    for (auto& [button, name, mnemonic] :
         {std::tuple{&model_.cmdAll, "cmdAll", 'A'}, std::tuple{&model_.cmdNone, "cmdNone", 'N'}}) {
        QPushButton& view = make<QPushButton>(name);
        view.setAutoDefault(false);
        binder_.bind(*button, view, QChar{mnemonic});
    }
}

void SafeCopiesWindow::buildBelow() {
    binder_.bind(model_.txtSummary, make<QPlainTextEdit>("txtSummary"));
    QPushButton& stop = make<QPushButton>("cmdStop");
    stop.setAutoDefault(false);
    binder_.bind(model_.cmdStop, stop, 'o');
    binder_.refresh().gate().stopsBy(stop);
    QPushButton& restore = make<QPushButton>("cmdRestore");
    restore.setDefault(true);
    binder_.bind(model_.cmdRestore, restore, 'R');
    QPushButton& close = make<QPushButton>("cmdClose");
    close.setAutoDefault(false);
    binder_.bind(model_.cmdClose, close, 'C');
}

void SafeCopiesWindow::showEvent(QShowEvent* event) {
    ModelDialog::showEvent(event);
    list_->setFocus();
}

} // namespace pelrath::desktop
