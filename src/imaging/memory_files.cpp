#include "imaging/memory_files.hpp"

#include "platform/runtime_error.hpp"

#include <IL/il.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace pelrath {

namespace {

/// The library passes no word of ours along when it opens a file, so that the file in use stands here. As the
/// library itself, it is the process's own, and one user at a time has it.
struct MemoryFile {
    Bytes reading;
    std::vector<std::byte> written;
    bool inUse = false;
    bool outOfMemory = false;
    std::size_t at = 0;

    void take() {
        if (std::exchange(inUse, true)) throw makeError(ErrorNumber::InvalidCall, "MemoryFile");
        outOfMemory = false;
        at = 0;
    }

    void release() {
        inUse = false;
        reading = {};
        std::vector<std::byte>{}.swap(written);
    }
};
MemoryFile readFile;
MemoryFile writtenFile;

MemoryFile& fileOf(ILHANDLE handle) { return *static_cast<MemoryFile*>(handle); }

ILHANDLE open(MemoryFile& file) {
    file.at = 0;
    return &file;
}
ILHANDLE openForReading(ILconst_string) { return open(readFile); }
ILHANDLE openForWriting(ILconst_string) {
    writtenFile.written.clear();
    return open(writtenFile);
}
void close(ILHANDLE) {}

ILint seek(MemoryFile& file, std::size_t size, ILint offset, ILint from) {
    std::int64_t base = 0;
    if (from == IL_SEEK_CUR) base = static_cast<std::int64_t>(file.at);
    if (from == IL_SEEK_END) base = static_cast<std::int64_t>(size);
    const std::int64_t wanted = base + offset;
    if (wanted < 0 || wanted > static_cast<std::int64_t>(size)) return -1;
    file.at = static_cast<std::size_t>(wanted);
    return 0;
}
ILint tell(ILHANDLE handle) { return static_cast<ILint>(fileOf(handle).at); }

ILboolean atEnd(ILHANDLE handle) {
    const MemoryFile& file = fileOf(handle);
    return file.at >= file.reading.size() ? IL_TRUE : IL_FALSE;
}
ILint readByte(ILHANDLE handle) {
    MemoryFile& file = fileOf(handle);
    return file.at < file.reading.size() ? std::to_integer<ILint>(file.reading[file.at++]) : IL_EOF;
}
ILint read(void* into, ILuint size, ILuint count, ILHANDLE handle) {
    MemoryFile& file = fileOf(handle);
    if (size == 0) return 0;
    const std::size_t whole = std::min<std::size_t>(count, (file.reading.size() - file.at) / size);
    if (whole == 0) return 0;
    std::memcpy(into, file.reading.data() + file.at, whole * size);
    file.at += whole * size;
    return static_cast<ILint>(whole);
}
ILint seekReading(ILHANDLE handle, ILint offset, ILint from) {
    return seek(fileOf(handle), fileOf(handle).reading.size(), offset, from);
}

// An exception must not pass through the library.
bool makeRoom(MemoryFile& file, std::size_t bytes) try {
    if (file.at + bytes > file.written.size()) file.written.resize(file.at + bytes);
    return true;
} catch (const std::bad_alloc&) {
    file.outOfMemory = true;
    return false;
}
ILint write(const void* from, ILuint size, ILuint count, ILHANDLE handle) {
    MemoryFile& file = fileOf(handle);
    const std::size_t bytes = std::size_t{size} * count;
    if (bytes == 0 || !makeRoom(file, bytes)) return 0;
    std::memcpy(file.written.data() + file.at, from, bytes);
    file.at += bytes;
    return static_cast<ILint>(count);
}
ILint writeByte(ILubyte byte, ILHANDLE handle) { return write(&byte, 1, 1, handle) == 1 ? byte : IL_EOF; }
ILint seekWriting(ILHANDLE handle, ILint offset, ILint from) {
    return seek(fileOf(handle), fileOf(handle).written.size(), offset, from);
}

} // namespace

ReadingFromMemory::ReadingFromMemory(Bytes bytes) {
    readFile.take();
    readFile.reading = bytes;
    ::ilSetRead(openForReading, close, atEnd, readByte, read, seekReading, tell);
}

ReadingFromMemory::~ReadingFromMemory() {
    ::ilResetRead();
    readFile.release();
}

WritingToMemory::WritingToMemory() {
    writtenFile.take();
    ::ilSetWrite(openForWriting, close, writeByte, seekWriting, tell, write);
}

WritingToMemory::~WritingToMemory() {
    ::ilResetWrite();
    writtenFile.release();
}

std::vector<std::byte> WritingToMemory::take() { return std::move(writtenFile.written); }

bool WritingToMemory::outOfMemory() const { return writtenFile.outOfMemory; }

} // namespace pelrath
