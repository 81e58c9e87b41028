#include "several/told_lines.hpp"

#include <utility>

namespace pelrath::several {

namespace {

/// What of a texture need not be done.
batch::TextureReport leftOutOf(const batch::TextureReport& texture) {
    batch::TextureReport leftOut{texture.texture, texture.name, {}, {}};
    for (const batch::FileReport& file : texture.files) {
        if (file.outcome == batch::Outcome::LeftOut) leftOut.files.push_back(file);
    }
    return leftOut;
}

void add(ToldLines& lines, std::vector<std::string> texts, bool areProblems) {
    for (std::string& text : texts) {
        lines.push_back({std::move(text), areProblems});
    }
}

} // namespace

ToldLines linesOf(const batch::Report& report, batch::DoneLine doneLine) {
    ToldLines lines;
    if (!report.ended.empty()) lines.push_back({report.ended, true});
    for (const batch::TextureReport& texture : report.textures) {
        add(lines, batch::reasonLines(texture, false), true);
    }
    for (const batch::TextureReport& texture : report.textures) {
        add(lines, batch::reasonLines(leftOutOf(texture)), false);
    }
    if (!report.safeCopy.empty()) lines.push_back({"safe copy: " + report.safeCopy});
    for (const batch::TextureReport& texture : report.textures) {
        for (const batch::FileReport& file : texture.files) {
            if (file.outcome == batch::Outcome::Done) lines.push_back({doneLine(texture, file)});
        }
    }
    return lines;
}

} // namespace pelrath::several
