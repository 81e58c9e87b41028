#pragma once

#include "session/session.hpp"
#include "several/planning.hpp"
#include "several/several_controls.hpp"

#include <functional>

namespace pelrath::several {

/// The choices at the right: which of them there are, which follow from others, what they mean, and how they
/// are remembered.
class Choices {
public:
    /// Lets the user choose a folder, under that title and from that one on; empty where none was chosen.
    using ChooseFolder = std::function<std::string(const std::string& title, const std::string& start)>;

    Choices(SeveralControls& controls, Session& session, ChooseFolder chooseFolder);

    Signal<> changed;

    /// As they are remembered or, where they are not, as given, with this folder.
    void begin(const std::string& folder);
    /// Puts them into the session's settings.
    void remember() const;
    /// Shows those of the chosen direction, to be changed or not.
    void show(bool enabled);

    [[nodiscard]] bool isInsertion() const { return c_.direction[Insert].selected(); }
    [[nodiscard]] Wish wish() const;

private:
    void follow(Signal<>& event, void (Choices::*reaction)());
    void kindChosen();
    void tell() { changed.emit(); }
    void browse(TextBox& box, const char* title);

    SeveralControls& c_;
    Session& session_;
    ChooseFolder chooseFolder_;
    Connections connections_;
};

} // namespace pelrath::several
