#include "calls/sitting.hpp"

#include <atomic>
#include <iostream>
#include <map>
#include <set>
#include <vector>

#include <pthread.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

// Two processes of the program insert at the same time, with one program folder and one Export/Import folder.
// Usage: race-insertions [COUNT=1000]. Every texture is of one colour, so that what an insertion should have
// left is known from one that nobody disturbs.

namespace pelrath::calls {
namespace {

using namespace test;
namespace fs = std::filesystem;

constexpr int side = 64;
constexpr std::int16_t levels = 7;
constexpr int colors = 5;

/// One of the two users in a race.
struct Role {
    const char* archive;
    int texture;
    const char* source; ///< which a fresh colour is put into before each insertion
    std::vector<const char*> ways;
};

struct Race {
    const char* name;
    Role roles[2];
    bool oneTexture = false; ///< both write the same bytes: who comes last leaves its own
};

// The files that an image insertion builds are named after the source without its extension.
const std::vector<const char*> imageWays{"images create", "images create filter=3", "images create filter=7"};
const Race races[] = {
    {"two archives",
     {{"a.cdds", 0, "wall-64x64.bmp", imageWays}, {"b.cdds", 0, "wall-64x64.tga", imageWays}}},
    {"two textures of one archive",
     {{"a.cdds", 0, "wall-64x64.bmp", imageWays}, {"a.cdds", 1, "roof-64x64.tga", imageWays}}},
    {"one texture",
     {{"a.cdds", 0, "wall-64x64.bmp", imageWays}, {"a.cdds", 0, "wall-64x64.dds", {"embedded"}}},
     true},
};

std::string pixel(int color) {
    return little(40 * color + 20, 1) + little(200 - 40 * color, 1) + little(17 * color, 1);
}

std::string sourceOf(const std::string& name, int color) {
    std::string pixels;
    for (int i = 0; i < side * side; ++i) {
        pixels += pixel(color) + (name.ends_with(".tga") ? little(60 + 30 * color, 1) : "");
    }
    if (name.ends_with(".tga"))
        return bytesOf("00 00 02 9*00") + little(side, 2) + little(side, 2) + bytesOf("20 28") + pixels;
    if (name.ends_with(".bmp"))
        return "BM" + little(54 + side * side * 3, 4) + bytesOf("d0 d54 d40") + little(side, 4) +
               little(side, 4) + bytesOf("w1 w24 d0") + little(side * side * 3, 4) + bytesOf("16*00") +
               pixels;
    std::string blocks;
    for (std::uint32_t sides = side; sides > 0; sides /= 2) {
        blocks += plainBlocks(sides, sides, static_cast<std::uint16_t>(0x1111 * (color + 1)));
    }
    return ddsFile("DXT1", side, side, blocks);
}

void write(const std::string& path, const std::string& bytes) {
    std::ofstream{path, std::ios::binary} << bytes;
}
std::string read(const std::string& path) {
    std::ifstream in{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{in}, {}};
}

void makeFolder(const std::string& folder) {
    for (const char* name : {"out", "copies", "bazar", "program", "tmp"}) {
        fs::create_directories(folder + "/" + name);
    }
    write(folder + "/a.cdds",
          ArchiveBuilder{CddsType::TypeCdds,
                         {chainOf("wall.bmp", "DXT1", side, side), chainOf("roof.tga", "DXT5", side, side)}}
              .build());
    write(folder + "/b.cdds",
          ArchiveBuilder{CddsType::TypeCdds, {chainOf("wall.tga", "DXT5", side, side)}}.build());
    write(folder + "/program/Pelrath.ini",
          "[Setup]\nfirsttimedone=True\n[Settings]\ncddsbackupfolder=" + folder + "/copies\n");
}

/// What both processes count, in memory that they share.
struct Shared {
    std::atomic<int> inserted, again, wrong;
    pthread_barrier_t both;
};

/// All levels of a texture, from the archive's bytes.
std::string levelsIn(const std::string& bytes, const TextureRecord& texture) {
    std::string all;
    for (const MipmapRecord& level : texture.mipmaps) {
        all += bytes.substr(static_cast<std::size_t>(level.dataOffset),
                            static_cast<std::size_t>(level.dataSize));
    }
    return all;
}

/// A user at the program who inserts one colour after another.
class User {
public:
    User(const Role& role, const std::string& folder, Shared& shared)
        : role_(role), shared_(shared), sitting_(folder) {
        sitting_.boxes.told = [this](const ShownBox& box) { told_ += box.title + ": " + box.text + "\n"; };
        sitting_.start();
        open();
    }

    /// Until it is done, however often it is told to try again. False when something else was told.
    bool insert(int color, const std::string& way) {
        write(sitting_.file("out/") + role_.source, sourceOf(role_.source, color));
        Steps steps;
        std::istringstream words{way};
        for (std::string word; words >> word;) {
            steps.push_back(stepOf(word));
        }
        constexpr int mostTimes = 10'000;
        for (int time = 0; time < mostTimes; ++time) {
            told_.clear();
            told_ += sitting_.insert(steps);
            const std::string count = std::to_string(levels);
            for (const char* counted : {" mipmaps(s) inserted.", " Mipmap(s) inserted."}) {
                if (told_.find("\n" + count + counted) != std::string::npos) return true;
            }
            if (!saysTryAgain()) return false;
            ++shared_.again;
            open();
        }
        return false;
    }
    [[nodiscard]] const std::string& told() const { return told_; }
    [[nodiscard]] std::string result() const {
        return levelsIn(read(sitting_.file(role_.archive)),
                        sitting_.session.archive.textures.at(static_cast<std::size_t>(role_.texture)));
    }
    void quit() { sitting_.quit(); }

private:
    void open() {
        // The archive may be in use as it is read.
        do {
            told_.clear();
            sitting_.open(role_.archive);
            sitting_.choose(role_.texture);
        } while (saysTryAgain());
    }
    /// Somebody else is at it, or has been.
    [[nodiscard]] bool saysTryAgain() const {
        return told_.find("Please try again") != std::string::npos ||
               told_.find("Please read it again") != std::string::npos;
    }

    const Role& role_;
    Shared& shared_;
    Sitting sitting_;
    std::string told_;
};

/// What each insertion leaves, by way and colour.
using Results = std::map<std::pair<std::string, int>, std::string>;

Results learn(const Role& role, const std::string& folder, Shared& shared) {
    User user{role, folder, shared};
    Results results;
    for (const char* way : role.ways) {
        for (int color = 0; color < colors; ++color) {
            if (!user.insert(color, way)) throw std::runtime_error{"alone, it is told: " + user.told()};
            results[{way, color}] = user.result();
        }
    }
    user.quit();
    return results;
}

void take(const Race& race, int number, const std::string& folder, int count,
          const std::array<Results, 2>& results, Shared& shared) {
    const Role& role = race.roles[number];
    User user{role, folder, shared};
    const auto wrong = [&](const std::string& what) {
        ++shared.wrong;
        std::cout << "WRONG " << race.name << ", " << role.source << ": " << what << std::endl;
    };
    std::set<std::string> all;
    for (const Results& ofOne : results) {
        for (const auto& [how, bytes] : ofOne) {
            all.insert(bytes);
        }
    }
    for (int i = 0; i < count; ++i) {
        const char* const way = role.ways[static_cast<std::size_t>(i) % role.ways.size()];
        const int color = (i + 2 * number) % colors;
        const bool inserted = user.insert(color, way);
        shared.inserted += inserted ? 1 : 0;
        if (!inserted) wrong(user.told());
        if (race.oneTexture) {
            pthread_barrier_wait(&shared.both); // now nobody writes
            if (all.count(user.result()) == 0) wrong("the levels are of several insertions");
            pthread_barrier_wait(&shared.both); // now both have looked
        } else if (inserted &&
                   user.result() != results.at(static_cast<std::size_t>(number)).at({way, color})) {
            wrong("told as done, and the levels are other ones");
        }
    }
    user.quit();
}

/// Every safe copy has each texture wholly from one insertion, or as it was.
void judgeCopies(const std::string& folder, const std::set<std::string>& known, Shared& shared) {
    for (const fs::directory_entry& entry : fs::directory_iterator{folder + "/copies"}) {
        const InputFile file{entry.path().string()};
        const CddsArchive archive = makeCatalogue(readArchive(file));
        for (const TextureRecord& texture : archive.textures) {
            if (known.count(levelsIn(read(file.path()), texture)) != 0) continue;
            ++shared.wrong;
            std::cout << "WRONG safe copy " << file.path() << ": " << texture.name << " is torn" << std::endl;
        }
    }
}

void judgeLeftovers(const std::string& folder, Shared& shared) {
    const std::set<std::string> wanted{"wall-64x64.bmp", "wall-64x64.tga", "roof-64x64.tga", "wall-64x64.dds",
                                       "Pelrath.ini"};
    for (const char* name : {"out", "program", "tmp"}) {
        for (const fs::directory_entry& entry : fs::directory_iterator{folder + "/" + name}) {
            if (wanted.count(entry.path().filename().string()) != 0) continue;
            ++shared.wrong;
            std::cout << "WRONG " << entry.path().string() << " is left over" << std::endl;
        }
    }
}

/// Both users of a race, each in a process of its own; false where one does not come to its end.
bool runBoth(const Race& race, const std::string& folder, int count, const std::array<Results, 2>& results,
             Shared& shared) {
    pid_t processes[2];
    for (int number = 0; number < 2; ++number) {
        processes[number] = fork();
        if (processes[number] != 0) continue;
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        take(race, number, folder, count, results, shared);
        std::_Exit(0);
    }
    bool well = true;
    for (const pid_t process : processes) {
        int status = 0;
        waitpid(process, &status, 0);
        well = well && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    return well;
}

bool run(const Race& race, const std::string& folder, int count, Shared& shared) {
    makeFolder(folder);
    std::set<std::string> known;
    for (const char* name : {"a.cdds", "b.cdds"}) {
        for (const TextureRecord& texture :
             makeCatalogue(readArchive(InputFile{folder + "/" + name})).textures) {
            known.insert(levelsIn(read(folder + "/" + name), texture));
        }
    }
    const std::array<Results, 2> results{learn(race.roles[0], folder, shared),
                                         learn(race.roles[1], folder, shared)};
    const int before = shared.inserted, again = shared.again;
    const bool well = runBoth(race, folder, count, results, shared);
    for (const Results& ofOne : results) {
        for (const auto& [how, bytes] : ofOne) {
            known.insert(bytes);
        }
    }
    judgeCopies(folder, known, shared);
    judgeLeftovers(folder, shared);
    std::cout << race.name << ": " << shared.inserted - before << " insertions, " << shared.again - again
              << " told to try again" << (well ? "" : ", NOT TO ITS END") << std::endl;
    return well;
}

int raceInsertions(int count) {
    std::string folder = (fs::temp_directory_path() / "pelrath-race-XXXXXX").string();
    void* const memory =
        mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (mkdtemp(folder.data()) == nullptr || memory == MAP_FAILED) return 2;
    auto& shared = *new (memory) Shared{};
    pthread_barrierattr_t processes;
    pthread_barrierattr_init(&processes);
    pthread_barrierattr_setpshared(&processes, PTHREAD_PROCESS_SHARED);
    pthread_barrier_init(&shared.both, &processes, 2);
    bool well = true;
    const int each =
        (count + 2 * static_cast<int>(std::size(races)) - 1) / (2 * static_cast<int>(std::size(races)));
    for (const Race& race : races) {
        const std::string own = folder + "/" + std::to_string(&race - races);
        fs::create_directories(own + "/tmp");
        setenv("TMPDIR", (own + "/tmp").c_str(), 1);
        well = run(race, own, each, shared) && well;
    }
    fs::remove_all(folder);
    std::cout << shared.wrong << " wrong" << std::endl;
    return well && shared.wrong == 0 ? 0 : 1;
}

} // namespace
} // namespace pelrath::calls

int main(int argc, char* argv[]) {
    return pelrath::calls::raceInsertions(argc > 1 ? std::stoi(argv[1]) : 1000);
}
