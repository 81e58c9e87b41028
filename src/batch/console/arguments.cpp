#include "batch/console/arguments.hpp"

#include "batch/console/console.hpp"
#include "platform/version.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <utility>

namespace pelrath::batch {

namespace {

// By their places in the dialog's list.
constexpr std::array filters{"nearest", "linear",  "bilinear", "box",     "triangle",
                             "bell",    "bspline", "lanczos",  "mitchell"};

// The library takes "[a,b]" for a list and "[]" for none. Textures and files may be called so: such a
// word goes through it behind this.
constexpr char guard = '\x01';

std::string guarded(const std::string& word) {
    const bool list = word.starts_with('[') && word.ends_with(']');
    return list || word.starts_with(guard) ? guard + word : word;
}

void unguard(std::string& word) {
    if (word.starts_with(guard)) word.erase(0, 1);
}

class Parser {
public:
    explicit Parser(Arguments& arguments) : a_(arguments) {
        app_.set_version_flag("--version", std::string{"pelrath-batch "} + programVersion);
        app_.require_subcommand(1);
        app_.footer(
            "Exit codes: 0 all well, 1 something differs or was not done, 2 wrong usage, 3 an archive\n"
            "cannot be read, 4 stopped by a signal.");
        list();
        extract();
        insert();
        check();
        diff();
        restore();
        work();
    }

    CLI::App& app() { return app_; }

private:
    static std::string whyNotFolder(const std::string& path) {
        return path.empty() ? "an empty path is no folder" : "";
    }
    CLI::App& command(Command command, const char* name, const char* what) {
        CLI::App& sub = *app_.add_subcommand(name, what);
        sub.callback([this, command] { a_.command = command; });
        sub.add_option("ARCHIVE", a_.archive, "the archive")->required();
        return sub;
    }
    /// An option that takes one of these words; `choose` gets its place.
    static CLI::Option& choice(CLI::App& sub, const char* name, const std::vector<std::string>& words,
                               const char* what, const std::function<void(std::size_t)>& choose) {
        const auto take = [words, choose](const std::string& word) {
            const auto found = std::ranges::find(words, word);
            if (found == words.end())
                throw CLI::ValidationError{"it is one of " + CLI::detail::join(words, ", ")};
            choose(static_cast<std::size_t>(found - words.begin()));
        };
        return *sub.add_option_function<std::string>(name, take, what)
                    ->type_name(CLI::detail::join(words, "|"));
    }
    void patterns(CLI::App& sub) {
        sub.add_option("TEXTURE", a_.chosen,
                       "names of textures, with or without extension; * and ? stand for other characters");
    }
    void quiet(CLI::App& sub) { sub.add_flag("-q,--quiet", a_.quiet, "tell only what is not well"); }
    void writing(CLI::App& sub) {
        CLI::Option_group& copy = *sub.add_option_group("safe copy", "one of them is required");
        copy.add_option("--safe-copy", a_.safeCopyFolder, "copy the whole archive into this folder before")
            ->type_name("DIR")
            ->check(whyNotFolder, "");
        copy.add_flag("--no-safe-copy", a_.noSafeCopy, "make no copy of the archive");
        copy.require_option(1);
        sub.add_flag("--write-read-only", a_.writeReadOnly, "write into a read-only archive, too");
        sub.add_flag("-n,--dry-run", a_.dryRun, "only say what would be done");
        quiet(sub);
    }

    void list() {
        CLI::App& sub = command(Command::List, "list", "List the textures of an archive");
        sub.add_flag("--json", a_.json, "as JSON");
    }
    void extract() {
        CLI::App& sub = command(Command::Extract, "extract", "Write textures to files");
        patterns(sub);
        ExtractionWish& wish = a_.extraction;
        sub.add_option("--to", wish.folder, "folder of the files")
            ->type_name("DIR")
            ->check(whyNotFolder, "")
            ->required();
        choice(sub, "--as", {"dds", "image"}, "DDS files, or images: BMP of DXT1 and TGA of DXT5",
               [&wish](std::size_t i) { wish.images = i == 1; })
            .required();
        choice(sub, "--levels", {"largest", "all", "chain"},
               "the largest level, each in a file, or all in one file",
               [&wish](std::size_t i) { wish.levels = static_cast<Levels>(i); })
            .required();
        sub.add_flag("--overwrite", wish.overwrite, "replace files that are there");
        quiet(sub);
    }
    void insert() {
        CLI::App& sub = command(Command::Insert, "insert", "Put files, named as by extract, into an archive");
        sub.add_option("FILE", a_.chosen, "files, and folders of such files")->required();
        CLI::Option& create =
            *sub.add_flag("--create", a_.create, "make all levels of the largest one's file");
        choice(sub, "--filter", {filters.begin(), filters.end()},
               "how --create makes them; bilinear where it is not given",
               [this](std::size_t i) { a_.filter = static_cast<std::int16_t>(i); })
            .needs(&create);
        writing(sub);
    }
    void check() { command(Command::Check, "check", "Check all tables and levels of an archive"); }
    void diff() {
        CLI::App& sub = command(Command::Diff, "diff", "Tell which levels of two archives differ");
        sub.add_option("OTHER", a_.other, "the other archive")->required();
    }
    void restore() {
        CLI::App& sub =
            command(Command::Restore, "restore", "Put textures of an archive's copy back into it");
        sub.add_option("COPY", a_.other, "the copy")->required();
        patterns(sub);
        writing(sub);
    }
    // For the program itself: it extracts what it reads.
    void work() {
        CLI::App& sub = command(Command::Work, "work", "");
        sub.group("");
        sub.add_option("--tables", a_.tables)->required();
        sub.add_flag("--overwrite", a_.extraction.overwrite);
    }

    CLI::App app_{"Works on the textures of CDDS archives.", "pelrath-batch"};
    Arguments& a_;
};

} // namespace

std::optional<Arguments> parseArguments(const std::vector<std::string>& line, std::ostream& out,
                                        std::ostream& err, int& exitCode) {
    Arguments arguments;
    Parser parser{arguments};
    try {
        std::vector<std::string> words(line.size());
        std::transform(line.rbegin(), line.rend(), words.begin(), guarded); // as the library wants it
        parser.app().parse(std::move(words));
        for (std::string* word : {&arguments.archive, &arguments.other, &arguments.extraction.folder,
                                  &arguments.safeCopyFolder}) {
            unguard(*word);
        }
        std::ranges::for_each(arguments.chosen, unguard);
        return arguments;
    } catch (const CLI::ParseError& error) {
        exitCode = parser.app().exit(error, out, err) == 0 ? AllWell : WrongUsage;
        return std::nullopt;
    }
}

} // namespace pelrath::batch
