#include "desktop/told_view.hpp"

#include <QAbstractListModel>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QStyle>

#include <algorithm>
#include <limits>

namespace pelrath::desktop {

namespace {

class ToldModel : public QAbstractListModel {
public:
    ToldModel(const several::ToldList& list, QWidget& view)
        : QAbstractListModel(&view), list_(list), lines_(list.lines()), view_(view),
          problem_(view.style()->standardIcon(QStyle::SP_MessageBoxWarning)) {}

    void sync() {
        if (lines_ == list_.lines()) return;
        beginResetModel();
        lines_ = list_.lines();
        endResetModel();
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(lines_->size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid()) return {};
        const several::ToldLine& line = lines_->at(static_cast<std::size_t>(index.row()));
        switch (role) {
        case Qt::DisplayRole:
        case Qt::AccessibleTextRole:
            return toQString(line.text);
        case Qt::ToolTipRole:
            return "<span>" + toQString(line.text).toHtmlEscaped() + "</span>"; // or it could be markup
        case Qt::DecorationRole:
            return line.isProblem ? problem_ : QVariant{};
        case Qt::SizeHintRole: // as wide as the view, which shortens it
            return QSize{1, view_.fontMetrics().height() + 4};
        default:
            return {};
        }
    }

private:
    const several::ToldList& list_;
    std::shared_ptr<const several::ToldLines> lines_;
    const QWidget& view_;
    QVariant problem_;
};

} // namespace

ToldView::ToldView(QWidget* parent) : QListView(parent) {
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setTextElideMode(Qt::ElideMiddle);
    const int side = fontMetrics().height();
    setIconSize({side, side});
}

void ToldView::bindTo(several::ToldList& list, Binder& binder) {
    auto* lines = new ToldModel{list, *this};
    setModel(lines);
    binder.attach(list, *this, [lines] { lines->sync(); });
}

QString ToldView::selectedText(qsizetype most) const {
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList texts;
    for (const QModelIndex& row : rows.first(std::min(rows.size(), most))) {
        texts << row.data().toString();
    }
    return texts.join('\n');
}

void ToldView::copy() const {
    const QString text = selectedText(std::numeric_limits<qsizetype>::max());
    if (!text.isEmpty()) QApplication::clipboard()->setText(text);
}

void ToldView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else {
        QListView::keyPressEvent(event);
    }
}

QMenu* ToldView::createStandardContextMenu() {
    auto* menu = new QMenu{this};
    QAction* copied = menu->addAction("&Copy");
    copied->setShortcut(QKeySequence::Copy);
    copied->setEnabled(selectionModel()->hasSelection());
    connect(copied, &QAction::triggered, this, [this] { copy(); });
    connect(menu->addAction("Select &All"), &QAction::triggered, this, [this] { selectAll(); });
    return menu;
}

void ToldView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

} // namespace pelrath::desktop
