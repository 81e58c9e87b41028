#include "calls/aftermath.hpp"

#include "calls/sitting.hpp"

namespace pelrath::calls {

namespace {

constexpr const char* archiveName = "a.cdds";
constexpr const char* safeCopyName = "copies/a-0.cdds";

} // namespace

Restarted restart(const std::string& folder) {
    Restarted made{inventoryOf(folder), {}, {}};
    {
        Sitting sitting{folder};
        sitting.boxes.told = [&made](const test::ShownBox& box) {
            made.boxes.push_back(box.title + " | " + box.text);
        };
        sitting.start();
        sitting.quit();
    }
    made.left = inventoryOf(folder);
    return made;
}

Aftermath::Aftermath(Inventory before, Inventory after, bool safeCopyWanted)
    : before_(std::move(before)), after_(std::move(after)), safeCopyWanted_(safeCopyWanted) {
    if (extentOf(after_.bytesOf(archiveName)) != All) throw std::logic_error{"nothing is inserted"};
    for (const auto& [name, key] : after_.names) {
        const bool known = before_.at(name) != nullptr || (safeCopyWanted_ && name == safeCopyName);
        if (!known) throw std::logic_error{"the insertion leaves " + name};
    }
}

Aftermath::Extent Aftermath::extentOf(const std::string& archive) const {
    const std::string &old = before_.bytesOf(archiveName), &fresh = after_.bytesOf(archiveName);
    if (archive.size() != old.size()) return Foreign;
    bool someOld = false, someNew = false;
    for (std::size_t i = 0; i < archive.size(); ++i) {
        if (archive[i] != old[i] && archive[i] != fresh[i]) return Foreign;
        if (old[i] != fresh[i]) (archive[i] == old[i] ? someOld : someNew) = true;
    }
    return !someNew ? None : someOld ? Some : All;
}

std::string Aftermath::wrongs(const Restarted& first, const Restarted& second) const {
    std::string all =
        aboutArchive(first.left) + aboutCopies(first.left) + aboutOthers(first.left) + aboutBoxes(first);
    if (!same(first.left, second.left) || !second.boxes.empty()) all += "a second start changes something; ";
    return all;
}

std::string Aftermath::aboutArchive(const Inventory& left) const {
    const StoredFile* const archive = left.at(archiveName);
    if (archive == nullptr) return "the archive is gone; ";
    std::string wrong;
    if (left.names.at(archiveName) != before_.names.at(archiveName)) wrong += "the archive is another file; ";
    if (archive->mode != before_.at(archiveName)->mode) wrong += "the archive's permissions are others; ";
    const Extent extent = extentOf(*archive->bytes);
    if (extent == Some) wrong += "the archive is partly new; ";
    if (extent == Foreign) wrong += "the archive has bytes of neither; ";
    const bool isNew = extent != None;
    if (isNew && safeCopyWanted_ && left.at(safeCopyName) == nullptr)
        wrong += "the archive is new without a safe copy; ";
    return wrong;
}

std::string Aftermath::aboutCopies(const Inventory& left) const {
    std::string wrong;
    for (const auto& [name, key] : left.names) {
        if (folderOf(name) != "copies" || !name.ends_with(".cdds")) continue;
        if (*left.files.at(key).bytes != before_.bytesOf(archiveName)) wrong += name + " is not whole; ";
    }
    return wrong;
}

// Nothing but what was there before or what the insertion leaves.
std::string Aftermath::aboutOthers(const Inventory& left) const {
    std::string wrong;
    for (const auto& [name, key] : left.names) {
        const StoredFile& file = left.files.at(key);
        const StoredFile *const old = before_.at(name), *const fresh = after_.at(name);
        if (old == nullptr && fresh == nullptr) {
            wrong += name + " is left over; ";
        } else if (name != archiveName && !(old != nullptr && *old->bytes == *file.bytes) &&
                   !(fresh != nullptr && *fresh->bytes == *file.bytes)) {
            wrong += name + " has become another; ";
        }
    }
    for (const auto& [name, key] : before_.names) {
        if (left.at(name) == nullptr) wrong += name + " is lost; ";
    }
    return wrong;
}

// One tells of what was done to the archive, and there is no other.
std::string Aftermath::aboutBoxes(const Restarted& first) const {
    const StoredFile *const found = first.found.at(archiveName), *const left = first.left.at(archiveName);
    if (found == nullptr || left == nullptr) return {};
    const bool changed = *found->bytes != *left->bytes || found->mode != left->mode;
    if (changed && first.boxes.empty()) return "nothing is told of what was done to the archive; ";
    std::string wrong;
    for (const std::string& box : first.boxes) {
        if (!box.starts_with("Pelrath - Interrupted insertion | "))
            wrong += "unexpected message: " + box + "; ";
    }
    return first.boxes.size() > 1 ? wrong + "more than one message; " : wrong;
}

} // namespace pelrath::calls
