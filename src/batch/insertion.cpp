#include "batch/insertion.hpp"

#include "batch/library_run.hpp"
#include "platform/posix/scratch_file.hpp"
#include "platform/runtime_error.hpp"
#include "transfer/dds_builder.hpp"
#include "transfer/transfer_controls.hpp"

namespace pelrath::batch {

namespace {

[[noreturn]] void refuse(const std::string& reason) {
    throw RuntimeError{static_cast<int>(ErrorNumber::PathFileAccess), "Insertion", reason};
}

class Insertion {
public:
    Insertion(Session& session, const InsertionWish& wish, CollectedMessages& messages)
        : session_(session), wish_(wish), library_(messages),
          builder_(library_.imaging(), session.programFolder) {}

    bool hold(const PlannedTexture& texture, HeldArchive& archive, LevelWriter& writer) {
        for (const PlannedFile& file : texture.files) {
            if (file.fate == Fate::Planned && !holdFile(file, archive, writer)) return false;
        }
        return true;
    }

private:
    bool holdFile(const PlannedFile& file, HeldArchive& archive, LevelWriter& writer) try {
        if (file.kind != ImageFileKind::Dds || wish_.create) return holdPicture(file, archive, writer);
        holdLevels(file.path, file, writer);
        return true;
    } catch (const SourceTooShort&) {
        refuse(file.path + " is too short");
    }

    void holdLevels(const std::string& path, const PlannedFile& file, LevelWriter& writer) const {
        const bool chain = file.level == wholeChain;
        writer.readMipmapLevels(path, session_.selectedTexture, chain,
                                chain ? LevelWriter::everyLevel : file.level);
    }

    bool holdPicture(const PlannedFile& file, HeldArchive& archive, LevelWriter& writer) {
        if (!library_.start()) return false;
        LoadedImage image{library_.imaging().facade, library_.imaging().images, file.path};
        if (!image) return false;
        requireSides(file, library_.imaging().facade.boundSides());
        if (!builder_.chooseFormat(session_.chosenTexture())) return false;
        const ScratchFile built{session_.programFolder.pathFor("tmp1.dds")};
        if (!build(built.path(), file, image.id(), archive)) return false;
        holdLevels(built.path(), file, writer);
        built.remove();
        image.remove();
        return true;
    }

    // It may have been saved anew since it was planned.
    void requireSides(const PlannedFile& file, Sides sides) const {
        const MipmapRecord& level = session_.chosenTexture().mipmaps.at(
            static_cast<std::size_t>(file.level == wholeChain ? 0 : file.level));
        const bool same = sides.width == static_cast<std::int64_t>(level.width) &&
                          sides.height == static_cast<std::int64_t>(level.height);
        if (!same) refuse(file.path + " has other sides than the level by now");
    }

    bool build(const std::string& path, const PlannedFile& file, std::uint32_t image, HeldArchive& archive) {
        const bool chain = file.level == wholeChain;
        if (chain && wish_.filter != bilinearFilter) {
            return builder_.buildScaled(path, archive, image, wish_.filter);
        }
        const std::size_t all = session_.chosenTexture().mipmaps.size();
        return builder_.buildWithLibraryChain(path, archive, chain ? 0 : static_cast<std::size_t>(file.level),
                                              chain ? all : 1);
    }

    Session& session_;
    InsertionWish wish_;
    LibraryRun library_;
    DdsBuilder builder_;
};

} // namespace

Report runInsertion(Session& session, const Plan& plan, const InsertionWish& wish, const WritingTerms& terms,
                    RunWatcher& watcher) {
    CollectedMessages messages{terms.writeReadOnly};
    Insertion insertion{session, wish, messages};
    Writing writing{session, terms, messages,
                    [&](const PlannedTexture& texture, HeldArchive& archive, LevelWriter& writer) {
                        return insertion.hold(texture, archive, writer);
                    }};
    return writing.run(plan, watcher);
}

} // namespace pelrath::batch
