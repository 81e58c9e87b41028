#include "batch/plan.hpp"

#include <algorithm>

namespace pelrath::batch {

void PlannedFile::refuse(const std::string& why) {
    if (fate != Fate::Planned) return;
    fate = Fate::Refused;
    reason = why;
}

PlannedFile refusedFile(const std::string& reason, const std::string& path) {
    PlannedFile file;
    file.path = path;
    file.refuse(reason);
    return file;
}

bool PlannedTexture::hasWork() const {
    return std::ranges::any_of(files, [](const PlannedFile& file) { return file.fate == Fate::Planned; });
}

void refuseAll(PlannedTexture& texture, const std::string& reason) {
    for (PlannedFile& file : texture.files) {
        file.refuse(reason);
    }
}

} // namespace pelrath::batch
