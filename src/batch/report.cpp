#include "batch/report.hpp"

namespace pelrath::batch {

std::size_t Report::count(Outcome outcome) const {
    std::size_t found = 0;
    for (const TextureReport& texture : textures) {
        for (const FileReport& file : texture.files) {
            found += file.outcome == outcome ? 1 : 0;
        }
    }
    return found;
}

bool Report::allWell() const {
    const std::size_t undone = count(Outcome::Refused) + count(Outcome::Failed) + count(Outcome::NotReached);
    return undone == 0 && !stopped && ended.empty();
}

TextureReport untried(const PlannedTexture& texture) {
    TextureReport report{texture.texture, texture.name, {}, {}};
    for (const PlannedFile& file : texture.files) {
        switch (file.fate) {
        case Fate::Planned:
            report.files.push_back({file, Outcome::NotReached, {}});
            break;
        case Fate::LeftOut:
            report.files.push_back({file, Outcome::LeftOut, file.reason});
            break;
        case Fate::Refused:
            report.files.push_back({file, Outcome::Refused, file.reason});
            break;
        }
    }
    return report;
}

void settle(TextureReport& report, Outcome outcome, const std::string& message) {
    for (FileReport& file : report.files) {
        if (file.outcome != Outcome::NotReached) continue;
        file.outcome = outcome;
        file.message = message;
    }
}

} // namespace pelrath::batch
