#pragma once

#include "controls/signal.hpp"
#include "controls/text_box.hpp"
#include "mainwindow/look_commands.hpp"
#include "mainwindow/texture_levels.hpp"
#include "mainwindow/viewer/texture_viewer.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"

#include <functional>
#include <optional>
#include <string>

namespace pelrath {

/// A picture that leaves the window.
struct NamedPicture {
    LevelPicture picture;
    std::string name; ///< of its file, without an extension
};

/// Lets the user look closer at the texture that is shown, and says in the strip what is seen. Places are
/// pixels of the screen, from the viewport's top left corner.
class TextureLook {
public:
    TextureLook(TextBox& texelStrip, Session& session, TextureViewer& viewer, MessageBoxes& boxes);

    /// The viewer shows that texture. One that it showed before is looked at as it was.
    void begin(std::int16_t texture);
    /// The chosen texture may be changed now; as it is, it can be compared with then.
    void keepBefore() { levels_.keepBefore(session_.selectedTexture); }

    [[nodiscard]] bool isEnabled(LookCommand command);
    /// Nothing for a command that switches nothing.
    [[nodiscard]] std::optional<bool> isChecked(LookCommand command);
    /// By key or menu. Copy is the window's: picture() is what it takes.
    void perform(LookCommand command);

    void zoomBy(int steps, Point about);
    void panBy(double right, double down);
    void pointAt(Point pointer);

    /// The level that is shown, as a picture. Nothing, and the user knows why, where it cannot be read.
    [[nodiscard]] std::optional<NamedPicture> picture();

private:
    /// Looks otherwise, as long as all that is seen then can be read.
    void change(const std::function<void(Look& look)>& act);
    void act(Look& look, LookCommand command) const;
    [[nodiscard]] bool prepare();
    void tell(const std::string& reason);
    void describe();
    [[nodiscard]] std::string texelText(const Look& look);
    [[nodiscard]] std::string viewText(const Look& look);

    TextBox& texelStrip_;
    Session& session_;
    TextureViewer& viewer_;
    MessageBoxes& boxes_;
    TextureLevels levels_;
    std::int16_t texture_ = -1;
    std::string name_; ///< of the texture that is shown, which need not be the chosen one
    Connection emptied_;
};

} // namespace pelrath
