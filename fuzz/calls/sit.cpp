#include "calls/sitting.hpp"

#include <iostream>

#include <sys/stat.h>
#include <unistd.h>

// One whole sitting at the program, to be watched. Usage:
//
//     sitting --prepare FOLDER [SIDE=64] [read-only]   makes the folder (see calls/sitting.hpp)
//     sitting FOLDER [texture=N] [noextract] WORD...   starts, opens, chooses, extracts, inserts as the words
//                                                      say (see stepOf()), quits
//     sitting --recover FOLDER                         starts and quits
//
// Each line of output is one write() to descriptor 1; line breaks in it are \r and \n:
//
//     act NAME              before an act begins; "ready" before the first, "done" behind the last
//     box TITLE | TEXT      a message box; each is answered with Ok
//     summary TEXT          of an operation in the dialog
//     say WORDS VALUE       what the act led to

namespace pelrath::calls {
namespace {

using namespace test;

void tell(const std::string& line) {
    std::string visible;
    for (const char c : line) {
        visible += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
    }
    visible += '\n';
    // Nobody else writes there, and a pipe or a file takes a line at once.
    if (::write(1, visible.data(), visible.size()) < 0) std::exit(3);
}

/// As the face does: what no reaction handled is told.
template <class Work>
void act(const char* name, const Work& work) {
    tell(std::string{"act "} + name);
    try {
        work();
    } catch (const std::exception& failure) {
        tell(std::string{"box Pelrath | "} + failure.what());
    }
}

struct Wanted {
    int texture = 1;
    bool extract = true;
    Steps insertion;
};

void sit(const std::string& folder, const Wanted& wanted, bool recoverOnly) {
    Sitting sitting{folder};
    Session& session = sitting.session;
    sitting.boxes.told = [](const ShownBox& box) { tell("box " + box.title + " | " + box.text); };
    tell("act ready");
    act("start", [&] { sitting.start(); });
    tell("say settings " + session.settings.extractionFolder + " " + session.settings.cddsBackupFolder + " " +
         session.settings.bazarTempFolder + " " + std::to_string(session.settings.mainTop));
    if (!recoverOnly) {
        act("open", [&] { sitting.open(); });
        tell("say textures " + std::to_string(session.archive.textures.size()));
        const auto& shown = sitting.surface.record.loaded;
        tell("say pictures " + std::to_string(shown.size()));
        act("choose", [&] { sitting.choose(wanted.texture); });
        tell("say chosen " + session.selectedBaseName);
        tell("say pictures " + std::to_string(shown.size()));
        if (wanted.extract) {
            act("extract-dds", [&] { tell("summary " + sitting.extract({embedded, allLevels})); });
            act("extract-image", [&] { tell("summary " + sitting.extract({images, overwriting})); });
        }
        act("insert", [&] { tell("summary " + sitting.insert(wanted.insertion)); });
    }
    act("quit", [&] { sitting.quit(); });
    tell("act done");
}

Wanted wantedBy(int count, char* words[]) {
    Wanted wanted;
    for (int i = 0; i < count; ++i) {
        const std::string word = words[i];
        if (word.starts_with("texture=")) {
            wanted.texture = std::stoi(word.substr(8));
        } else if (word == "noextract") {
            wanted.extract = false;
        } else {
            wanted.insertion.push_back(stepOf(word));
        }
    }
    return wanted;
}

int run(int count, char* words[]) {
    const std::string first = count > 1 ? words[1] : "", second = count > 2 ? words[2] : "";
    if (first == "--prepare" && count > 2) {
        prepare(second, count > 3 ? std::stoi(words[3]) : 64);
        if (count > 4 && chmod((second + "/a.cdds").c_str(), 0444) != 0) return 3;
    } else if (first == "--recover" && count > 2) {
        sit(second, {}, true);
    } else if (count > 1 && !first.starts_with("--")) {
        sit(first, wantedBy(count - 2, words + 2), false);
    } else {
        std::cerr << "sitting --prepare FOLDER [SIDE] [read-only] | --recover FOLDER | FOLDER WORD...\n";
        return 2;
    }
    return 0;
}

} // namespace
} // namespace pelrath::calls

int main(int argc, char* argv[]) { return pelrath::calls::run(argc, argv); }
