#include "several/choices.hpp"

#include "platform/posix/full_path.hpp"

#include <utility>

namespace pelrath::several {

namespace {

std::string pathIn(const TextBox& box) { return box.text().empty() ? "" : pathFromRoot(box.text()); }

} // namespace

Choices::Choices(SeveralControls& controls, Session& session, ChooseFolder chooseFolder)
    : c_(controls), session_(session), chooseFolder_(std::move(chooseFolder)) {
    for (OptionButton& option : c_.direction) {
        follow(option.click, &Choices::tell);
    }
    for (OptionButton& option : c_.kind) {
        follow(option.click, &Choices::kindChosen);
    }
    for (OptionButton& option : c_.levels) {
        follow(option.click, &Choices::tell);
    }
    follow(c_.create.click, &Choices::tell);
    follow(c_.scaleFilter.click, &Choices::tell);
    follow(c_.folder.change, &Choices::tell);
    follow(c_.overwrite.click, &Choices::tell);
    follow(c_.safeCopy.click, &Choices::tell);
    follow(c_.safeCopyFolder.change, &Choices::tell);
    connections_.push_back(
        c_.chooseFolder.click.connect([this] { browse(c_.folder, "Select the folder of the files"); }));
    connections_.push_back(c_.chooseSafeCopyFolder.click.connect(
        [this] { browse(c_.safeCopyFolder, "Select CDDS Safe Copy folder"); }));
}

void Choices::follow(Signal<>& event, void (Choices::*reaction)()) {
    connections_.push_back(event.connect([this, reaction] { (this->*reaction)(); }));
}

void Choices::begin(const std::string& folder) {
    const SeveralChoices& kept = session_.settings.several;
    c_.remember.setChecked(kept.remembered);
    c_.direction[Extract].select();
    c_.kind[kept.images ? ImageFiles : DdsFiles].select();
    const bool chainOfImages = kept.images && kept.levels == LevelChain;
    c_.levels[chainOfImages ? LargestLevel : static_cast<std::size_t>(kept.levels)].select();
    c_.create.setChecked(kept.create);
    c_.scaleFilter.select(kept.filter);
    c_.folder.setText(kept.remembered ? kept.folder : folder);
    c_.overwrite.setChecked(kept.overwrite);
    c_.safeCopy.setChecked(true);
    c_.safeCopyFolder.setText(session_.settings.cddsBackupFolder);
}

void Choices::remember() const {
    SeveralChoices& kept = session_.settings.several;
    kept = {};
    if (!c_.remember.checked()) return;
    kept.remembered = true;
    kept.images = c_.kind[ImageFiles].selected();
    kept.levels = static_cast<std::int16_t>(c_.levels.selectedIndex());
    kept.create = c_.create.checked();
    kept.filter = static_cast<std::int16_t>(c_.scaleFilter.selectedRow());
    kept.folder = pathIn(c_.folder);
    kept.overwrite = c_.overwrite.checked();
}

void Choices::show(bool enabled) {
    const bool insertion = isInsertion();
    for (Control* of : std::initializer_list<Control*>{&c_.overwrite, &c_.levels[LargestLevel],
                                                       &c_.levels[AllLevels], &c_.levels[LevelChain]}) {
        of->setVisible(!insertion);
    }
    for (Control* of :
         std::initializer_list<Control*>{&c_.create, &c_.scaleFilterLabel, &c_.scaleFilter, &c_.safeCopy,
                                         &c_.safeCopyFolder, &c_.chooseSafeCopyFolder}) {
        of->setVisible(insertion);
    }
    for (Control* any : std::initializer_list<Control*>{
             &c_.direction[Extract], &c_.direction[Insert], &c_.kind[DdsFiles], &c_.kind[ImageFiles],
             &c_.levels[LargestLevel], &c_.levels[AllLevels], &c_.create, &c_.folder, &c_.chooseFolder,
             &c_.overwrite, &c_.safeCopy, &c_.remember}) {
        any->setEnabled(enabled);
    }
    c_.levels[LevelChain].setEnabled(enabled && !c_.kind[ImageFiles].selected());
    c_.scaleFilter.setEnabled(enabled && c_.create.checked());
    c_.safeCopyFolder.setEnabled(enabled && c_.safeCopy.checked());
    c_.chooseSafeCopyFolder.setEnabled(enabled && c_.safeCopy.checked());
}

Wish Choices::wish() const {
    Wish wish;
    const bool images = c_.kind[ImageFiles].selected();
    wish.insertion = isInsertion();
    wish.folder = pathIn(c_.folder);
    wish.extraction = {wish.folder, images, static_cast<batch::Levels>(c_.levels.selectedIndex()),
                       c_.overwrite.checked()};
    wish.files = {c_.create.checked(), static_cast<std::int16_t>(c_.scaleFilter.selectedRow()),
                  images ? batch::FilesOf::Images : batch::FilesOf::Dds};
    wish.safeCopy = c_.safeCopy.checked();
    wish.safeCopyFolder = pathIn(c_.safeCopyFolder);
    return wish;
}

// An image holds one level; of what an editor saves the others are mostly to be made.
void Choices::kindChosen() {
    const bool images = c_.kind[ImageFiles].selected();
    if (images && c_.levels[LevelChain].selected()) c_.levels[LargestLevel].select();
    c_.create.setChecked(images);
    tell();
}

void Choices::browse(TextBox& box, const char* title) {
    const std::string chosen = chooseFolder_(title, box.text());
    if (!chosen.empty()) box.setText(chosen);
}

} // namespace pelrath::several
