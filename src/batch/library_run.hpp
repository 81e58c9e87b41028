#pragma once

#include "batch/collected_messages.hpp"
#include "imaging/image_library_facade.hpp"
#include "transfer/image_library_use.hpp"
#include "transfer/loaded_level.hpp"

namespace pelrath::batch {

/// The image library for one run; its messages are collected. It is the process's own: nothing else uses it
/// meanwhile.
class LibraryRun {
public:
    explicit LibraryRun(CollectedMessages& messages) : facade_(messages, options_), use_(facade_, images_) {}
    ~LibraryRun();
    LibraryRun(const LibraryRun&) = delete;
    LibraryRun& operator=(const LibraryRun&) = delete;

    /// Starts it unless it runs. False where it is of a wrong version, which has been told; a failed start
    /// leaves as ImageLibraryError.
    bool start() { return use_.start(); }
    [[nodiscard]] TransferImaging imaging() { return {facade_, images_, options_, use_}; }

private:
    SaveImageOptions options_;
    ImageLibraryFacade facade_;
    LibraryImages images_;
    ImageLibraryUse use_;
};

} // namespace pelrath::batch
