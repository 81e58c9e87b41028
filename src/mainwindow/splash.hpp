#pragma once

#include "controls/control.hpp"
#include "controls/text_box.hpp"
#include "platform/screen.hpp"

#include <array>

namespace pelrath {

/// The panel over the viewport until the first archive is read.
class Splash {
public:
    struct Controls {
        Frame& SplashFrame;
        std::array<TextBox, 2>& SplashText;
        PictureBox& SplashPicture;
        const Frame& Frame1;
        const TextBox& Text9;
        const PictureBox& dynImage;
    };

    Splash(const Controls& controls, const Screen& screen);

    [[nodiscard]] bool splashDismissed() const { return splashDismissed_; }

    /// Lays the panel out, or takes it down for good.
    void layoutSplash(bool show);

private:
    Controls c_;
    bool splashDismissed_ = false;
};

} // namespace pelrath
