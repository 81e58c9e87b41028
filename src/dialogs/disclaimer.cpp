#include "dialogs/disclaimer.hpp"

#include "dialogs/disclaimer_texts.hpp"
#include "platform/version.hpp"

namespace pelrath {

Disclaimer::Disclaimer(bool& accepted, const Screen& screen, ModalWindows& windows)
    : accepted_(accepted), screen_(screen), windows_(windows) {
    window.setBox({0, 0, 12150, 7050});
    Image1.setBox({150, 150, 2700, 6750});
    Text2.setBox({3000, 150, 9000, 4050});
    Text2.setAccessibleName("Letter from the author");
    Text1.setBox({3000, 4350, 9000, 1950});
    Text1.setAccessibleName("What you undertake");
    Option1[0].setBox({3000, 6450, 1500, 450});
    Option1[0].setCaption("Francais");
    Option1[1].setBox({4500, 6450, 1500, 450});
    Option1[1].setCaption("English");
    Command1[0].setBox({8100, 6450, 1875, 450});
    Command1[1].setBox({10125, 6450, 1875, 450});
    for (TextBox* text : {&Text1, &Text2}) {
        text->setLocked(true);
    }
    for (std::size_t i = 0; i < 2; ++i) {
        connections_.push_back(Option1[i].click.connect([this, i] { Option1_Click(i); }));
        connections_.push_back(Command1.at(i).click.connect([this, i] { Command1_Click(i); }));
    }
}

void Disclaimer::show() {
    load();
    windows_.showModal(window);
}

void Disclaimer::load() {
    window.load();
    window.setCaption(std::string{"Pelrath V"} + programVersion + " - Disclaimer");
    window.moveTo(screen_.left() + (screen_.width() - window.box().width) / 2,
                  screen_.top() + (screen_.height() - window.box().height) / 2);
    Option1[0].deselect();
    Option1[1].deselect(); // so that it becomes selected, whatever was chosen last time
    Option1[1].select();
}

void Disclaimer::Option1_Click(std::size_t index) {
    const DisclaimerTexts& texts = index == 0 ? frenchDisclaimer : englishDisclaimer;
    Command1[0].setCaption(texts.accept);
    Command1[1].setCaption(texts.refuse);
    Text2.setText(texts.letter);
    Text1.setText(texts.commitment);
}

void Disclaimer::Command1_Click(std::size_t index) {
    accepted_ = index == 0;
    window.unload();
}

} // namespace pelrath
