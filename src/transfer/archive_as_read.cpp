#include "transfer/archive_as_read.hpp"

#include "platform/files.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace pelrath {

namespace {

CddsArchive catalogueOf(const ArchiveContents& contents) {
    if (const auto* tables = std::get_if<Tables0C>(&contents)) return makeCatalogue(*tables);
    if (const auto* tables = std::get_if<TablesCdds>(&contents)) return makeCatalogue(*tables);
    return {};
}

/// Nothing where it is another file by now, or none.
std::optional<ArchiveContents> archiveAsRead(const Session& session) try {
    const ReadFile& file = session.archiveFile;
    if (session.archivePath != file.path || InputFile{file.path}.size() != file.size) return std::nullopt;
    ArchiveContents contents = readArchive(file.path);
    if (catalogueOf(contents) != session.archive) return std::nullopt;
    return contents;
} catch (const DamagedArchive&) {
    return std::nullopt;
} catch (const RuntimeError& error) {
    constexpr std::array another{ErrorNumber::FileNotFound, ErrorNumber::PathNotFound,
                                 ErrorNumber::InputPastEnd, ErrorNumber::PathFileAccess};
    const auto same = [&error](ErrorNumber number) { return static_cast<int>(number) == error.number(); };
    if (std::none_of(another.begin(), another.end(), same)) throw; // nobody knows whether it has changed
    return std::nullopt;
}

} // namespace

ArchiveContents requireArchiveAsRead(const Session& session) {
    if (auto contents = archiveAsRead(session)) return *std::move(contents);
    throw ArchiveRefused{session.archivePath +
                         " is no longer the file that was read: it has been changed, replaced or "
                         "removed.\r\n\r\nPlease read it again before you insert."};
}

} // namespace pelrath
