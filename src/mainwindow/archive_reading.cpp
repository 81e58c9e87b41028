#include "mainwindow/archive_reading.hpp"

#include "archive/listing.hpp"
#include "archive/number_text.hpp"
#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <string_view>

namespace pelrath {

namespace {

/// What the panes show of a layout.
struct LayoutWords {
    std::string_view type;
    std::string_view headerTitle;
    std::string_view textureTitle;
};

LayoutWords wordsOf(const Tables0C& /*layout*/) {
    return {"0C", listing::headerTitle0C, listing::textureTitle0C};
}
LayoutWords wordsOf(const TablesCdds& /*layout*/) {
    return {"cdds", listing::headerTitleCdds, listing::textureTitleCdds};
}

class CommandsDisabled {
public:
    explicit CommandsDisabled(const std::vector<CommandButton*>& commands) : commands_(commands) {
        enable(false);
    }
    ~CommandsDisabled() { enable(true); }
    CommandsDisabled(const CommandsDisabled&) = delete;
    CommandsDisabled& operator=(const CommandsDisabled&) = delete;

private:
    void enable(bool enabled) {
        for (CommandButton* command : commands_) {
            command->setEnabled(enabled);
        }
    }
    const std::vector<CommandButton*>& commands_;
};

// The contents' tables of a layout, none where they are of another.
template <class Tables>
std::shared_ptr<const Tables> tablesOf(const std::shared_ptr<const ArchiveContents>& contents) {
    return {contents, std::get_if<Tables>(contents.get())};
}

constexpr int texturesPerPump = 10;
constexpr const char* notFoundTitle = "Pelrath - File not found";

} // namespace

ArchiveReading::ArchiveReading(const Controls& controls, const Services& services, Session& session,
                               ListingPanes& listing, WindowLayout& layout, Splash& splash,
                               TextureViewer& viewer)
    : c_(controls), services_(services), session_(session), listing_(listing), layout_(layout),
      splash_(splash), viewer_(viewer) {
    connections_.push_back(c_.Command1.click.connect([this] { browse(); }));
    connections_.push_back(c_.cmdReadCDDS.click.connect([this] { openArchive(); }));
}

void ArchiveReading::browse() {
    listing_.resetArchiveDisplay();
    const auto chosen = services_.fileOpen.choose({"Select .CDDS file to analyse", "Cdds File (*.cdds)",
                                                   std::string{parentFolder(session_.archivePath)}});
    if (chosen) take(*chosen);
}

void ArchiveReading::open(const std::string& path) {
    listing_.resetArchiveDisplay();
    take(path);
}

void ArchiveReading::take(const std::string& path) {
    session_.archivePath = path;
    c_.Text1.setText(path);
    openArchive();
}

void ArchiveReading::openArchive() {
    const CommandsDisabled reading{c_.archiveCommands};
    c_.dynImage.setVisible(false);
    if (session_.archivePath.empty()) {
        services_.boxes.exclamation("No CDDS file selected. Please try again.", notFoundTitle);
    } else if (!fileExists(session_.archivePath)) {
        services_.boxes.exclamation("Selected file was not found. Please try again.", notFoundTitle);
    } else {
        readFile();
    }
    if (c_.window.isUnloaded()) return; // closed meanwhile
    c_.Output[TexturePane].setSelected(0, true);
    splash_.layoutSplash(false);
    c_.dynImage.setVisible(true);
    ended.emit();
}

std::optional<ArchiveReading::ReadTables> ArchiveReading::readTables() {
    try {
        const InputFile file{session_.archivePath};
        ArchiveFile known{file}; // before its tables are read
        return ReadTables{std::move(known), std::make_shared<const ArchiveContents>(readArchive(file))};
    } catch (const DamagedArchive& damage) {
        refuse(session_.archivePath + " is damaged and was not opened.\r\n\r\n" + damage.what() +
                   "\r\n\r\nPlease take a fresh copy of the file.",
               "Pelrath - Invalid CDDS file");
    } catch (const RuntimeError& error) {
        refuse("The file cannot be read: " + error.description() + ".\r\n\r\nPlease check it and try again.",
               "Pelrath - File not readable");
    }
    return std::nullopt;
}

void ArchiveReading::readFile() {
    services_.recovery.look();
    if (c_.window.isUnloaded()) return; // closed behind its message
    const std::optional<ReadTables> read = readTables();
    if (!read) return;
    if (!std::holds_alternative<NotAnArchive>(*read->contents))
        session_.settings.recentArchives.add(session_.archivePath);
    if (const auto tables = tablesOf<Tables0C>(read->contents)) show(tables, read->file);
    if (const auto tables = tablesOf<TablesCdds>(read->contents)) show(tables, read->file);
}

void ArchiveReading::refuse(const std::string& text, const char* title) {
    // The catalogue of another file must not be used on this one. No row outlives its texture, and the
    // message lets events run.
    listing_.resetArchiveDisplay();
    takeOver({}, {});
    services_.boxes.exclamation(text, title);
}

void ArchiveReading::takeOver(CddsArchive archive, const ArchiveFile& file) {
    session_.archive = std::move(archive);
    session_.archiveFile = file;
    session_.selectedTexture = -1;
    session_.selectedBaseName.clear();
    viewer_.showNothing(); // where the first texture cannot be shown, no picture of another archive is
    if (!session_.archive.textures.empty()) return;
    // Nothing is going to take the place of these.
    c_.incrementalSearchText.setText("");
    c_.Text5.setText("");
}

template <class Tables>
void ArchiveReading::show(const std::shared_ptr<const Tables>& tables, const ArchiveFile& file) {
    CddsArchive archive = makeCatalogue(*tables);
    const LayoutWords words = wordsOf(*tables);
    listing_.clearListingPane(c_.Output[HeaderPane]);
    c_.Text9.setText(std::string{words.headerTitle});
    c_.Text3.setText(std::string{words.type});
    c_.Text4.setText(fileNumberText(tables->header.textureCount));
    listing_.appendListingLine(c_.Output[HeaderPane], listing::headerLine(tables->header));

    beginPane(TexturePane, words.textureTitle);
    beginPane(MipmapPane, listing::mipmapTitle);
    takeOver(std::move(archive), file);
    c_.Output[TexturePane].setMaker([tables](int row, std::string& line) {
        const auto& texture = tables->textures[static_cast<std::size_t>(row)];
        listing::textureLine(texture, row, fieldText(texture.entry.name), line);
    });
    c_.Output[MipmapPane].setMaker([tables](int row, std::string& line) {
        listing::mipmapLine(tables->mipmaps[static_cast<std::size_t>(row)], row + 1, line);
    });
    c_.incrementalSearchList.setMaker([tables](int row, std::string& line) {
        const auto& texture = tables->textures[static_cast<std::size_t>(row)];
        line = listing::nameListEntry(fieldText(texture.entry.name));
    });
    fillPanes(*tables);
}

void ArchiveReading::beginPane(Pane pane, std::string_view title) {
    listing_.clearListingPane(c_.Output[pane]);
    c_.Text2[pane].setText(std::string{title});
    layout_.layoutListPane(pane);
}

template <class Tables>
void ArchiveReading::fillPanes(const Tables& tables) {
    const auto textures = static_cast<std::int32_t>(tables.textures.size());
    std::int32_t number = 0;
    for (std::int32_t i = 0; i < textures; ++i) {
        if (i % texturesPerPump == 0) services_.pump.processPending();
        if (c_.window.isUnloaded()) return;
        const auto& texture = tables.textures[static_cast<std::size_t>(i)];
        c_.Text7.setText(std::to_string(i + 1));
        c_.Output[TexturePane].appendMade();
        c_.incrementalSearchList.appendMade();
        const std::int32_t last = number + mipmapCountOf(texture);
        while (number < last) {
            c_.Text5.setText(indexText(++number));
            c_.Output[MipmapPane].appendMade();
        }
        if (mipmapCountOf(texture) == 0) c_.Text5.setText("");
    }
    c_.Text7.setText(std::to_string(textures));
    deselectAll();
}

// The choice of the first texture that follows changes all of them, and finds its catalogue and panes whole.
void ArchiveReading::deselectAll() {
    for (ListBox* list : {&c_.incrementalSearchList, &c_.Output[TexturePane]}) {
        list->setSelected(list->selectedRow(), false);
    }
}

} // namespace pelrath
