#include "desktop/disclaimer_dialog.hpp"

#include "desktop/artwork.hpp"

#include <QButtonGroup>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include <array>

namespace pelrath::desktop {

DisclaimerDialog::DisclaimerDialog(Disclaimer& model, Binder& binder) : ModelDialog(model.window, binder) {
    setObjectName("Disclaimer");
    const auto make = [this](auto* view, const char* name) {
        view->setParent(this);
        view->setObjectName(name);
        return view;
    };
    binder.attach(model.Image1, *make(new DisclaimerArt, "Image1"), [] {});
    for (const auto& [text, name] : {std::pair{&model.Text2, "Text2"}, {&model.Text1, "Text1"}}) {
        binder.bind(*text, *make(new QPlainTextEdit, name));
    }
    auto* languages = new QButtonGroup{this};
    constexpr std::array<char16_t, 2> languageKeys{u'F', u'E'};
    for (std::size_t i = 0; i < 2; ++i) {
        const QString name = "Option1" + QString::number(i);
        binder.bind(model.Option1[i], *make(new QRadioButton, qPrintable(name)), *languages,
                    languageKeys.at(i));
    }
    constexpr std::array<char16_t, 2> answerKeys{u'a', u'r'};
    for (std::size_t i = 0; i < 2; ++i) {
        const QString name = "Command1" + QString::number(i);
        auto* button = make(new QPushButton, qPrintable(name));
        button->setAutoDefault(false); // Enter alone must not accept
        binder.bind(model.Command1.at(i), *button, answerKeys.at(i));
    }
}

} // namespace pelrath::desktop
