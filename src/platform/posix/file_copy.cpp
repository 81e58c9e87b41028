#include "platform/posix/file_copy.hpp"

#include "platform/runtime_error.hpp"

#include <cerrno>
#include <utility>

namespace pelrath {

FileCopy::FileCopy(const InputFile& source, const std::string& folder, const Progress& progress)
    : folder_(folder), progress_(progress) {
    copy(source.handle(), NewFile::Start::Nameless);
}

void FileCopy::copy(int from, NewFile::Start start) {
    if (const int error = copyToNewFile(from, folder_, start, progress_, file_); error != 0) fail(error);
}

void FileCopy::fail(int systemError) const { throw makeSystemError(systemError, "FileCopy", folder_); }

bool FileCopy::takeName(const std::string& path) {
    const std::string name{fileName(path)};
    int error = file_.takeName(name);
    if (file_.mustBeHidden(error)) {
        const NewFile nameless = std::move(file_);
        copy(nameless.handle(), NewFile::Start::Hidden);
        error = file_.takeName(name);
    }
    if (error == EEXIST) return false;
    if (NewFile::hasNoWay(error)) {
        throw makeError(ErrorNumber::PathFileAccess, "FileCopy",
                        folder_ + ": its file system can give a copy no name without the danger of replacing "
                                  "another file; please choose a folder on another disk");
    }
    if (error != 0) fail(error);
    if (file_.flushFolder()) return true;
    file_.dropName(name); // one that may be gone after a power cut is no promise
    fail(EIO);
}

} // namespace pelrath
