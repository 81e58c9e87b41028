#include "transfer/resolution_list.hpp"

#include "archive/number_text.hpp"
#include "platform/scoped_flag.hpp"

namespace pelrath {

ResolutionList::ResolutionList(const Controls& controls, const Session& session, const TransferState& state)
    : c_(controls), session_(session), state_(state) {
    connections_.push_back(c_.List1.itemCheck.connect([this](int row) { List1_ItemCheck(row); }));
    connections_.push_back(c_.cmdSelAllResolution.click.connect([this] { selectAll(); }));
    connections_.push_back(c_.cmdSelNoneResolution.click.connect([this] { selectNone(); }));
}

void ResolutionList::fill() {
    const ScopedFlag settling{settling_};
    constexpr std::size_t width = 7;
    c_.List1.clear();
    std::string line;
    for (const MipmapRecord& mipmap : session_.chosenTexture().mipmaps) {
        line.clear();
        appendRightAligned(line, std::to_string(mipmap.width), width, 1);
        line += 'x';
        appendRightAligned(line, std::to_string(mipmap.height), width, 1);
        c_.List1.append(line);
        if (session_.mode == DialogMode::Insertion) c_.List1.setChecked(c_.List1.count() - 1, true);
    }
}

void ResolutionList::selectFirst() {
    c_.List1.setChecked(0, true);
    c_.List1.setCurrentRow(0);
}

bool ResolutionList::singleChoice() const {
    if (session_.mode == DialogMode::Insertion) return state_.mipmapOperation == Single;
    return state_.imageFileKind != ImageFileKind::Dds || state_.mipmapOperation == Single;
}

bool ResolutionList::wholeChain() const {
    const bool oneFile = state_.imageFileKind == ImageFileKind::Dds && state_.mipmapOperation == Embedded;
    return oneFile || state_.mipmapOperation == Create;
}

// A rule's own changes lead where the rule is going already; followed one by one they would nest as deep as
// the list is long.

void ResolutionList::selectAll() {
    const ScopedFlag settling{settling_};
    for (int row = 0; row < c_.List1.count(); ++row) {
        c_.List1.setChecked(row, row == 0 || !singleChoice());
    }
    c_.List1.setCurrentRow(0);
}

void ResolutionList::selectNone() {
    uncheckAllBut(-1);
    if (wholeChain()) selectAll(); // nothing less can be chosen
    c_.List1.setCurrentRow(0);
}

void ResolutionList::List1_ItemCheck(int row) {
    if (settling_) return;
    if (singleChoice()) uncheckAllBut(row);
    if (wholeChain()) selectAll();
}

void ResolutionList::uncheckAllBut(int kept) {
    const ScopedFlag settling{settling_};
    for (int row = 0; row < c_.List1.count(); ++row) {
        if (row != kept) c_.List1.setChecked(row, false);
    }
}

} // namespace pelrath
