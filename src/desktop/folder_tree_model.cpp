#include "desktop/folder_tree_model.hpp"

#include "desktop/units.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/full_path.hpp"
#include "platform/posix/special_folders.hpp"
#include "platform/text.hpp"

#include <QApplication>
#include <QSet>
#include <QTimer>

#include <algorithm>

namespace pelrath::desktop {

struct FolderTreeModel::Node {
    enum class Read { NotYet, Running, Slow, Done };

    Node* parent = nullptr;
    QString name;
    QString path; // empty: no folder
    QStyle::StandardPixmap icon = QStyle::SP_DirIcon;
    int place = INT_MAX;
    bool revealed = false; // on the way to what was asked for, hidden or not
    Read read = Read::NotYet;
    int systemError = 0;
    std::vector<std::unique_ptr<Node>> children;
};

namespace {

constexpr int shortRead = 400; // milliseconds; one that takes longer is shown to be going on

QString below(const QString& folder, const QString& name) {
    return toQString(joinPath(toUtf8(folder), toUtf8(name)));
}

bool holds(const QString& folder, const QString& path) {
    return path == folder || folder == "/" || path.startsWith(folder + '/');
}

} // namespace

FolderTreeModel::FolderTreeModel(QObject* parent)
    : QAbstractItemModel(parent), top_(std::make_unique<Node>()) {}

FolderTreeModel::~FolderTreeModel() = default;

const FolderTreeModel::Node& FolderTreeModel::at(const QModelIndex& index) const {
    return index.isValid() ? *static_cast<const Node*>(index.constInternalPointer()) : *top_;
}

FolderTreeModel::Node& FolderTreeModel::at(const QModelIndex& index) {
    return index.isValid() ? *static_cast<Node*>(index.internalPointer()) : *top_;
}

void FolderTreeModel::setRoot(const QString& folder) {
    beginResetModel();
    top_ = std::make_unique<Node>();
    top_->read = Node::Read::Done;
    endResetModel();
    if (!folder.isEmpty()) {
        addPlace({}, folder == "/" ? folder : toQString(fileName(toUtf8(folder))), folder,
                 QStyle::SP_DirIcon);
        return;
    }
    const QModelIndex computer = addPlace({}, "Computer", {}, QStyle::SP_ComputerIcon);
    const QString home = toQString(fullPath(specialFolderPath(special_folder::home)).path);
    if (!home.isEmpty() && home != "/") addPlace(computer, "Home", home, QStyle::SP_DirHomeIcon);
    addPlace(computer, "File System", "/", QStyle::SP_DriveHDIcon);
}

QModelIndex FolderTreeModel::addPlace(const QModelIndex& parent, const QString& name, const QString& path,
                                      QStyle::StandardPixmap icon) {
    const int row = rowCount(parent);
    add(parent, {name});
    Node& place = *at(parent).children.back();
    place.path = path;
    place.icon = icon;
    place.place = row;
    if (path.isEmpty()) place.read = Node::Read::Done;
    const QModelIndex added = index(row, 0, parent);
    Q_EMIT dataChanged(added, added); // it came in as an ordinary folder
    return added;
}

QString FolderTreeModel::path(const QModelIndex& index) {
    if (!index.isValid()) return {};
    const QString& path = static_cast<const Node*>(index.constInternalPointer())->path;
    return characterCount(toUtf8(path)) > longestFolderPath ? QString{} : path;
}

QModelIndex FolderTreeModel::childByName(const QModelIndex& parent, const QString& name) const {
    const auto& children = at(parent).children;
    const auto found =
        std::find_if(children.begin(), children.end(), [&name](const auto& c) { return c->name == name; });
    if (found == children.end()) return {};
    return index(static_cast<int>(found - children.begin()), 0, parent);
}

// Of the places that hold the path, the one nearest to it.
QModelIndex FolderTreeModel::placeHolding(const QString& path) const {
    const QModelIndex root = index(0, 0, {});
    if (!root.isValid()) return {};
    if (!at(root).path.isEmpty()) return holds(at(root).path, path) ? root : QModelIndex{};
    QModelIndex nearest;
    for (int i = 0; i < rowCount(root); ++i) {
        const QModelIndex place = index(i, 0, root);
        if (!holds(at(place).path, path)) continue;
        if (!nearest.isValid() || at(place).path.size() > at(nearest).path.size()) nearest = place;
    }
    return nearest;
}

QModelIndex FolderTreeModel::reveal(const QString& path) {
    QModelIndex reached = placeHolding(path);
    if (!reached.isValid()) return {};
    const QString rest = path.mid(at(reached).path.size());
    for (const QString& name : rest.split('/', Qt::SkipEmptyParts)) {
        if (!childByName(reached, name).isValid()) {
            add(reached, {name});
            // A listing that began before must not take it for one that has gone.
            for (auto& [number, reading] : readings_) {
                if (reading.folder == reached) reading.found << name;
            }
        }
        reached = childByName(reached, name);
        at(reached).revealed = true;
        Q_EMIT dataChanged(reached, reached, {HiddenRole});
    }
    return reached;
}

void FolderTreeModel::add(const QModelIndex& parent, const QStringList& names) {
    if (names.isEmpty()) return;
    Node& folder = at(parent);
    const int first = rowCount(parent);
    beginInsertRows(parent, first, first + static_cast<int>(names.size()) - 1);
    for (const QString& name : names) {
        auto child = std::make_unique<Node>();
        child->parent = &folder;
        child->name = name;
        child->path = below(folder.path, name);
        folder.children.push_back(std::move(child));
    }
    endInsertRows();
}

void FolderTreeModel::removeAllBut(const QModelIndex& parent, const QStringList& names) {
    const QSet<QString> kept{names.begin(), names.end()};
    Node& folder = at(parent);
    for (int i = rowCount(parent) - 1; i >= 0; --i) {
        if (kept.contains(folder.children[static_cast<std::size_t>(i)]->name)) continue;
        beginRemoveRows(parent, i, i);
        folder.children.erase(folder.children.begin() + i);
        endRemoveRows();
    }
}

void FolderTreeModel::reread(const QModelIndex& index) {
    if (!at(index).path.isEmpty() && at(index).read == Node::Read::Done) read(index);
}

void FolderTreeModel::read(const QModelIndex& folder) {
    at(folder).read = Node::Read::Running;
    const int number = ++lastReading_;
    readings_[number] = {folder, {}};
    const auto listed = [this, number](const FolderListing& listing) {
        Reading& reading = readings_.at(number);
        reading.found << listing.found;
        if (reading.folder.isValid())
            takeOver(reading.folder, {reading.found, listing.whole, listing.systemError});
        if (listing.whole) readings_.erase(number);
    };
    listFolders(background_, at(folder).path, listed);
    QTimer::singleShot(shortRead, this, [this, number] {
        const auto running = readings_.find(number);
        if (running == readings_.end() || !running->second.folder.isValid()) return;
        const QModelIndex slow = running->second.folder;
        at(slow).read = Node::Read::Slow;
        Q_EMIT dataChanged(slow, slow, {Qt::DisplayRole});
    });
}

void FolderTreeModel::takeOver(const QModelIndex& folder, const FolderListing& listing) {
    const QPersistentModelIndex stays{folder};
    QSet<QString> known;
    for (const auto& child : at(folder).children) {
        known << child->name;
    }
    QStringList fresh;
    for (const QString& name : listing.found) {
        if (!known.contains(name)) fresh << name;
    }
    if (listing.whole) {
        at(folder).read = Node::Read::Done;
        at(folder).systemError = listing.systemError;
    }
    add(folder, fresh);
    if (!stays.isValid()) return;
    if (listing.whole && listing.systemError == 0) removeAllBut(stays, listing.found);
    if (stays.isValid()) Q_EMIT dataChanged(stays, stays, {Qt::DisplayRole, Qt::ToolTipRole});
}

QModelIndex FolderTreeModel::index(int row, int column, const QModelIndex& parent) const {
    if (row < 0 || row >= rowCount(parent) || column != 0) return {};
    return createIndex(row, column, at(parent).children[static_cast<std::size_t>(row)].get());
}

QModelIndex FolderTreeModel::parent(const QModelIndex& index) const {
    if (!index.isValid()) return {};
    const Node* folder = at(index).parent;
    if (folder == top_.get()) return {};
    const auto& siblings = folder->parent->children;
    const auto found = std::find_if(siblings.begin(), siblings.end(),
                                    [folder](const auto& sibling) { return sibling.get() == folder; });
    return createIndex(static_cast<int>(found - siblings.begin()), 0, folder);
}

int FolderTreeModel::rowCount(const QModelIndex& parent) const {
    return static_cast<int>(at(parent).children.size());
}

int FolderTreeModel::columnCount(const QModelIndex& /*parent*/) const { return 1; }

bool FolderTreeModel::hasChildren(const QModelIndex& parent) const {
    return at(parent).read != Node::Read::Done || rowCount(parent) > 0;
}

bool FolderTreeModel::canFetchMore(const QModelIndex& parent) const {
    return at(parent).read != Node::Read::Done;
}

void FolderTreeModel::fetchMore(const QModelIndex& parent) {
    if (at(parent).read == Node::Read::NotYet) read(parent);
}

const QIcon& FolderTreeModel::icon(QStyle::StandardPixmap picture) const {
    QIcon& kept = icons_[picture];
    if (kept.isNull()) kept = QApplication::style()->standardIcon(picture);
    return kept;
}

QVariant FolderTreeModel::data(const QModelIndex& index, int role) const {
    const Node& folder = at(index);
    switch (role) {
    case Qt::DisplayRole:
        return folder.read == Node::Read::Slow ? folder.name + " (reading \u2026)" : folder.name;
    case Qt::DecorationRole:
        return icon(folder.icon);
    case Qt::ToolTipRole:
        return folder.systemError == 0 ? QVariant{} : toQString(systemMessage(folder.systemError));
    case NameRole:
        return folder.name;
    case PlaceRole:
        return folder.place;
    case HiddenRole:
        return folder.name.startsWith('.') && !folder.revealed && folder.place == INT_MAX;
    default:
        return {};
    }
}

} // namespace pelrath::desktop
