#pragma once

#include "desktop/background.hpp"
#include "desktop/folder_listing.hpp"

#include <QAbstractItemModel>
#include <QIcon>
#include <QStyle>

#include <map>
#include <memory>
#include <vector>

namespace pelrath::desktop {

/// Folders as a tree of one column. A folder is read, in the background, when its rows are asked for.
class FolderTreeModel : public QAbstractItemModel {
public:
    /// Besides the usual roles.
    enum Role {
        NameRole = Qt::UserRole, ///< the folder's own, whatever is shown
        PlaceRole,               ///< the number of a place among its siblings; a large one for all others
        HiddenRole,              ///< to be left out unless hidden folders are shown
    };

    explicit FolderTreeModel(QObject* parent);
    ~FolderTreeModel() override;

    /// One row with this folder, or, for an empty one, a computer with all there is.
    void setRoot(const QString& folder);

    /// The row of a folder that is there, with rows made for what leads to it; invalid outside the root.
    [[nodiscard]] QModelIndex reveal(const QString& path);

    /// Empty for a row that is no folder, or whose path is longer than a folder dialog's can be.
    [[nodiscard]] static QString path(const QModelIndex& index);

    /// Reads a folder again that may have changed.
    void reread(const QModelIndex& index);

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    struct Node;

    [[nodiscard]] const Node& at(const QModelIndex& index) const;
    [[nodiscard]] Node& at(const QModelIndex& index);
    [[nodiscard]] QModelIndex childByName(const QModelIndex& parent, const QString& name) const;
    [[nodiscard]] QModelIndex placeHolding(const QString& path) const;
    QModelIndex addPlace(const QModelIndex& parent, const QString& name, const QString& path,
                         QStyle::StandardPixmap icon);
    void add(const QModelIndex& parent, const QStringList& names);
    void removeAllBut(const QModelIndex& parent, const QStringList& names);
    void read(const QModelIndex& folder);
    void takeOver(const QModelIndex& folder, const FolderListing& listing);

    [[nodiscard]] const QIcon& icon(QStyle::StandardPixmap picture) const;

    /// A folder that is being read.
    struct Reading {
        QPersistentModelIndex folder;
        QStringList found;
    };

    std::unique_ptr<Node> top_; // over the root's row, in no row itself
    std::map<int, Reading> readings_;
    int lastReading_ = 0;
    mutable std::map<QStyle::StandardPixmap, QIcon> icons_; // a style reads its own anew each time
    Background background_;
};

} // namespace pelrath::desktop
