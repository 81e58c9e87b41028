#include "platform/scratch_file.hpp"

#include "platform/files.hpp"

#include <utility>

#include <unistd.h>

namespace pelrath {

ScratchFile::ScratchFile(std::string path) : path_(std::move(path)) { removeFile(path_); }

ScratchFile::~ScratchFile() { ::unlink(path_.c_str()); }

} // namespace pelrath
