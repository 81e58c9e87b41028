#pragma once

#include "desktop/folder_tree_model.hpp"

#include <QCollator>
#include <QSortFilterProxyModel>
#include <QTreeView>

#include <functional>

namespace pelrath::desktop {

/// The folders of a tree as people look for them: places first, names in the language's order, hidden ones
/// only on demand.
class OrderedFolders : public QSortFilterProxyModel {
public:
    explicit OrderedFolders(QObject* parent);
    void showHidden(bool shown);

protected:
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    QCollator order_;
    bool hiddenShown_ = false;
};

/// A tree of folders, of which one can be chosen.
class FolderTreeView : public QTreeView {
public:
    explicit FolderTreeView(QWidget* parent);

    /// Fills the tree; an empty folder means all there is.
    void begin(const QString& rootFolder);
    /// Chooses a folder that is there, and keeps it in sight until the user does something in the tree;
    /// nothing for one outside the root.
    void choose(const QString& folder);
    void showHidden(bool shown);

    [[nodiscard]] bool hasChoice() const { return !selectedIndexes().isEmpty(); }
    /// Empty where nothing is chosen, or nothing that has a path.
    [[nodiscard]] QString chosenPath() const;
    [[nodiscard]] QString chosenName() const;

    std::function<void()> choiceChanged; ///< whoever chose

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void keepInSight();

    FolderTreeModel* folders_;
    OrderedFolders* shown_;
    QPersistentModelIndex told_; // the choice of the last notice
    bool toldOne_ = false;
    bool following_ = false; // rows that come do not push the choice out of sight
};

} // namespace pelrath::desktop
