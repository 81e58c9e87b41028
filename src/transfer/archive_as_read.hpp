#pragma once

#include "archive/reader.hpp"
#include "session/session.hpp"

#include <stdexcept>

namespace pelrath {

/// The archive must not be written into; the text says why and what to do.
class ArchiveRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The tables of the session's archive, read again, when it is still the file that the catalogue was made of:
/// same path, same size, same textures and levels at the same places. ArchiveRefused otherwise, and where it
/// cannot be read.
ArchiveContents requireArchiveAsRead(const Session& session);

} // namespace pelrath
