#pragma once

#include "controls/list_box.hpp"
#include "desktop/bind.hpp"
#include "desktop/line_delegate.hpp"
#include "desktop/lines_model.hpp"

#include <QListView>

#include <cstdint>

namespace pelrath::desktop {

/// The lines of a list box as they are when sync() is called; holds none of them itself.
class ListBoxModel : public LinesModel {
public:
    ListBoxModel(const ListBox& list, QObject* parent) : LinesModel(parent), list_(list) {}

    /// Takes notice of the lines that came or went.
    void sync();

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    const ListBox& list_;
};

/// Shows a list box of any number of lines at the cost of the visible ones.
class ListBoxView : public QListView {
public:
    explicit ListBoxView(QWidget* parent);

    void bindTo(ListBox& list, Binder& binder);

    /// As many rows as that fill the view from top to bottom.
    void fitRows(int rows);

    /// Left, Right and sideways wheels move this bar, which belongs to no tab order itself.
    void scrollSidewaysBy(QScrollBar& bar) { sideways_ = &bar; }

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;

private:
    void fit();
    void push();
    void pushSelection();
    void deliver(const Signal<>& event);
    /// Of a list of one choice; also where the row is chosen already, which is no change of the selection.
    void pressRow(const QModelIndex& index);
    [[nodiscard]] bool isSingle() const { return selectionMode() == SingleSelection; }
    [[nodiscard]] std::vector<ListBox::Run> chosenRuns() const;

    LineDelegate* delegate_;
    int fittedRows_ = 0;
    ListBox* list_ = nullptr;
    ListBoxModel* lines_ = nullptr;
    Refresh* refresh_ = nullptr;
    QScrollBar* sideways_ = nullptr;
    static constexpr std::uint64_t noneShown = ~std::uint64_t{0};
    std::uint64_t selections_ = 0; ///< which of the list's is shown
    bool pushing_ = false;
};

} // namespace pelrath::desktop
