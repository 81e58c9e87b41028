#include "batch/comparison.hpp"

#include "batch/level_texels.hpp"
#include "batch/opened_archive.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <utility>

namespace pelrath::batch {

namespace {

/// A name, and how many textures before have it as well.
using Numbered = std::pair<std::string, int>;

std::map<Numbered, std::size_t> numbered(const CddsArchive& archive) {
    std::map<std::string, int> counts;
    std::map<Numbered, std::size_t> indices;
    for (std::size_t i = 0; i < archive.textures.size(); ++i) {
        const std::string& name = archive.textures[i].name;
        indices[{name, counts[name]++}] = i;
    }
    return indices;
}

class Comparison {
public:
    Comparison(const Session& one, const Session& other, RunWatcher& watcher, const Tell& tell)
        : one_(one), other_(other), file_(one.archiveFile.open(one.archivePath, one.archive)),
          otherFile_(other.archiveFile.open(other.archivePath, other.archive)), watcher_(watcher),
          tell_(tell) {}

    std::size_t run() {
        const auto ours = numbered(one_.archive);
        auto theirs = numbered(other_.archive);
        std::size_t number = 0;
        for (const auto& [name, index] : ours) {
            if (watcher_.stopIsAsked()) return differences_;
            watcher_.begins(name.first, ++number, ours.size());
            const auto found = theirs.find(name);
            if (found == theirs.end()) {
                tell(name.first + ": only in " + one_.archivePath);
                continue;
            }
            compare(one_.archive.textures[index], other_.archive.textures[found->second]);
            theirs.erase(found);
        }
        for (const auto& [name, index] : theirs) {
            tell(name.first + ": only in " + other_.archivePath);
        }
        return differences_;
    }

private:
    void tell(const std::string& text) {
        ++differences_;
        tell_(visibleText(text));
    }

    void compare(const TextureRecord& one, const TextureRecord& other) {
        if (one.fourCC != other.fourCC) tell(one.name + ": " + one.fourCC + " and " + other.fourCC);
        const std::size_t count = std::min(one.mipmaps.size(), other.mipmaps.size());
        if (one.mipmaps.size() != other.mipmaps.size()) {
            tell(one.name + ": " + std::to_string(one.mipmaps.size()) + " and " +
                 std::to_string(other.mipmaps.size()) + " levels");
        }
        for (std::size_t i = 0; i < count; ++i) {
            const std::string difference = differenceOf(one, other, i);
            if (!difference.empty()) tell(one.name + ", level " + std::to_string(i) + ": " + difference);
        }
    }

    [[nodiscard]] std::string differenceOf(const TextureRecord& one, const TextureRecord& other,
                                           std::size_t index) const {
        const MipmapRecord& a = one.mipmaps[index];
        const MipmapRecord& b = other.mipmaps[index];
        if (a.width != b.width || a.height != b.height) {
            return std::to_string(a.width) + " x " + std::to_string(a.height) + " and " +
                   std::to_string(b.width) + " x " + std::to_string(b.height) + " pixels";
        }
        const std::vector<std::byte> data = dataOf(file_, a);
        const std::vector<std::byte> otherData = dataOf(otherFile_, b);
        if (one.fourCC == other.fourCC && data == otherData) return {};
        if (!whyNotDecoded(one, a).empty() || !whyNotDecoded(other, b).empty()) return "other data";
        const double near = decibels(texelsOf(one, a, data), texelsOf(other, b, otherData));
        if (std::isinf(near)) return "other data of the same picture";
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%.1f dB", near);
        return text.data();
    }

    const Session& one_;
    const Session& other_;
    InputFile file_;
    InputFile otherFile_;
    RunWatcher& watcher_;
    const Tell& tell_;
    std::size_t differences_ = 0;
};

} // namespace

double decibels(Bytes one, Bytes other) {
    std::uint64_t squares = 0;
    for (std::size_t i = 0; i < one.size(); ++i) {
        const int difference = std::to_integer<int>(one[i]) - std::to_integer<int>(other[i]);
        squares += static_cast<std::uint64_t>(difference * difference);
    }
    constexpr double peak = 255.0 * 255.0;
    return 10 * std::log10(peak * static_cast<double>(one.size()) / static_cast<double>(squares));
}

std::size_t compareArchives(const Session& one, const Session& other, RunWatcher& watcher, const Tell& tell) {
    return Comparison{one, other, watcher, tell}.run();
}

} // namespace pelrath::batch
