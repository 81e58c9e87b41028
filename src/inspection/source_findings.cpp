#include "inspection/source_findings.hpp"

#include "platform/text.hpp"

#include <algorithm>

namespace pelrath::inspection {

namespace {

std::string sidesText(std::int64_t width, std::int64_t height) {
    return std::to_string(width) + " x " + std::to_string(height);
}

std::string counted(std::uint64_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

bool isDxt1(const TextureRecord& texture) { return texture.fourCC == "DXT1"; }

/// The type that a header names, in words.
std::string typeOf(const DdsHeader& header) {
    if (header.fourCC == 0) return "not compressed";
    std::string name;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        name += static_cast<char>(header.fourCC >> shift & 0x7FU);
    }
    return "of the type " + visibleText(name);
}

} // namespace

void lookAtSides(const std::string& path, Sides sides, const MipmapRecord& level,
                 std::vector<Finding>& findings) {
    const std::string has = sidesText(sides.width, sides.height);
    const std::string wanted = sidesText(level.width, level.height);
    if (has == wanted) {
        findings.push_back({Grade::Well, path + " has the level's " + has + " pixels."});
    } else {
        findings.push_back({Grade::Note, path + ": " + has + " does not fit " + wanted +
                                             ", and is not scaled. Please save it with " + wanted +
                                             " pixels, or it arrives scrambled."});
    }
}

void lookAtHeader(const TakenFile& file, const DdsHeader& header, const TextureRecord& texture,
                  std::vector<Finding>& findings) {
    if (header.magic != ddsMagic) {
        findings.push_back({Grade::Note, file.path + " is no DDS file. What is in it is taken as it is."});
        return;
    }
    lookAtSides(file.path, {header.width, header.height},
                texture.mipmaps.at(static_cast<std::size_t>(file.level)), findings);
    const bool ofType = header.fourCC == (isDxt1(texture) ? dxt1Code : dxt5Code);
    if (!ofType) {
        findings.push_back(
            {Grade::Note, file.path + " is " + typeOf(header) + ", the texture " + texture.fourCC +
                              ". It is taken as it is, and arrives scrambled. \"Create\" would "
                              "compress it anew."});
    }
    const std::size_t levels = std::max(header.mipmapCount, 1U);
    const std::size_t all = texture.mipmaps.size();
    if (file.chain && levels < all) {
        findings.push_back({Grade::Note, file.path + " has " + counted(levels, "level") + ", the texture " +
                                             std::to_string(all) + ". Levels are missing."});
    } else if (file.chain && levels > all) {
        findings.push_back({Grade::Well, file.path + " has " + counted(levels, "level") +
                                             ", of which the first " + std::to_string(all) + " are taken."});
    }
}

void lookAtAlpha(const Transparency& texels, const AlphaUse* source, const TextureRecord& texture,
                 std::vector<Finding>& findings) {
    if (texels.before > 0 && texels.after == 0) {
        std::string text = "The transparency is lost: " + counted(texels.before, "texel") +
                           " of the largest level that is written become solid.";
        if (source != nullptr && !source->channel) {
            text += " The picture has no alpha channel";
            text += isDxt1(texture) ? "; a DDS file with \"Create\" can have one." : ".";
        }
        findings.push_back({Grade::Note, text});
    } else if (texels.before > 0) {
        findings.push_back({Grade::Well, "Transparency is kept: " + counted(texels.after, "texel") + ", " +
                                             std::to_string(texels.before) + " now."});
    } else if (texels.after > 0) {
        findings.push_back({Grade::Note, counted(texels.after, "texel") +
                                             " become transparent, in a texture that is solid now."});
    }
    if (source != nullptr && isDxt1(texture) && source->soft > 0) {
        findings.push_back({Grade::Note, "Soft alpha is lost: DXT1 knows clear and solid texels only, and " +
                                             counted(source->soft, "pixel") +
                                             " of the picture are in between."});
    }
}

} // namespace pelrath::inspection
