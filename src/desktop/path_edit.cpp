#include "desktop/path_edit.hpp"

#include "desktop/folder_listing.hpp"
#include "desktop/units.hpp"
#include "platform/posix/full_path.hpp"
#include "platform/posix/special_folders.hpp"

#include <QAbstractItemView>
#include <QCompleter>

namespace pelrath::desktop {

namespace {

QString homeFolder() { return toQString(specialFolderPath(special_folder::home)); }

} // namespace

PathEdit::PathEdit(QWidget* parent)
    : QLineEdit(parent), base_(homeFolder()), found_(new QStringListModel{this}),
      completer_(new QCompleter{found_, this}) {
    setCompleter(completer_);
    connect(this, &QLineEdit::textEdited, this, [this] { lookUp(); });
    connect(this, &QLineEdit::returnPressed, this, [this] {
        const QAbstractItemView* offers = completer_->popup();
        const bool ignored = offers->isVisible() && !offers->currentIndex().isValid();
        if (ignored && confirmed) confirmed();
    });
}

void PathEdit::setBase(const QString& folder) {
    base_ = folder.isEmpty() ? homeFolder() : folder;
    listed_.reset();
}

QString PathEdit::meaningOf(const QString& typed) { return toQString(meaningOfPath(toUtf8(typed))); }

void PathEdit::lookUp() {
    const QString folder = text().left(text().lastIndexOf('/') + 1);
    if (folder == listed_) return;
    listed_ = folder;
    found_->setStringList({});
    const FullPath full = fullPath(folder.isEmpty() ? "." : toUtf8(meaningOf(folder)), toUtf8(base_));
    if (full.systemError != 0) return;
    listFolders(background_, toQString(full.path),
                [this, folder, number = ++lookUps_](const FolderListing& listing) {
                    if (number != lookUps_) return;
                    QStringList paths = found_->stringList();
                    for (const QString& name : listing.found) {
                        paths << folder + name;
                    }
                    paths.sort();
                    found_->setStringList(paths);
                    offer();
                });
}

void PathEdit::offer() {
    if (!hasFocus() || text() == listed_) return;
    completer_->setCompletionPrefix(text());
    const bool more = completer_->completionCount() > 1 || completer_->currentCompletion() != text();
    if (completer_->completionCount() > 0 && more) completer_->complete();
}

} // namespace pelrath::desktop
