#pragma once

#include "archive_builder.hpp"
#include "batch/console/console.hpp"
#include "support/temporary_folder.hpp"
#include "texture_bytes.hpp"

#include <sstream>

namespace pelrath::test {

/// The console program beside the archive a.cdds in a folder; its own is "program", safe copies go to
/// "copies".
struct ConsoleHarness {
    ConsoleHarness() {
        for (const char* name : {"program", "copies"}) {
            folder.makeFolder(name);
        }
    }
    explicit ConsoleHarness(std::vector<TexturePlan> textures, CddsType type = CddsType::TypeCdds)
        : ConsoleHarness() {
        (void)folder.write("a.cdds", ArchiveBuilder{type, std::move(textures)}.build());
    }

    /// The exit code of a command line of words, in which @ stands for the folder and _ for a blank inside
    /// a word. `out` and `err` have what was said, with @ for the folder.
    int operator()(const std::string& line) {
        std::vector<std::string> words;
        std::istringstream in{line};
        for (std::string word; in >> word;) {
            std::replace(word.begin(), word.end(), '_', ' ');
            for (std::size_t at = 0; (at = word.find("@", at)) != std::string::npos;) {
                word.replace(at, 1, folder.path());
            }
            words.push_back(word);
        }
        std::istringstream input;
        std::ostringstream output, errors;
        const int code = batch::run(words, {input, output, errors, false, folder.file("program"), executable,
                                            [this] { return stop(); }});
        out = shortened(output.str());
        err = shortened(errors.str());
        return code;
    }
    std::string shortened(std::string text) const {
        for (std::size_t at = 0; (at = text.find(folder.path(), at)) != std::string::npos;) {
            text.replace(at, folder.path().size(), "@");
        }
        return text;
    }
    [[nodiscard]] std::string archive() const { return folder.read("a.cdds"); }

    TemporaryFolder folder;
    std::string executable, out, err;
    std::function<bool()> stop = [] { return false; };
};

} // namespace pelrath::test
