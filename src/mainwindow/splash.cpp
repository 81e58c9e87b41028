#include "mainwindow/splash.hpp"

#include "platform/version.hpp"

namespace pelrath {

namespace {

constexpr const char* credits = "\r\n"
                                "\r\n"
                                "The textures of CDDS archives:\r\n"
                                "seen, taken out, painted, put back.\r\n"
                                "With Qt, OpenGL and DevIL.";

constexpr const char* disclaimer =
    "This program is provided AS IS. While this software has been tested thoroughly, no guarantees are made "
    "for you about the safety of your data. Do backups of your data before using it. We will be glad to hear "
    "from you any suggestions, bug reports and offers. Write to pelrath@example.org; updates are at "
    "https://pelrath.example.org.";

} // namespace

Splash::Splash(const Controls& controls, const Screen& screen) : c_(controls) {
    c_.SplashPicture.setBox({0, 0, 512 * screen.twipsPerPixel(), 428 * screen.twipsPerPixel()});
    c_.SplashText[0].setText(std::string{"Pelrath\r\nV"} + programVersion + credits);
    c_.SplashText[1].setText(disclaimer);
}

void Splash::layoutSplash(bool show) {
    if (!show || !c_.SplashFrame.visible()) {
        c_.SplashFrame.setVisible(false);
        splashDismissed_ = true;
        return;
    }
    const Box frame{c_.Frame1.box().left, c_.Text9.box().top, c_.SplashPicture.box().width,
                    c_.dynImage.box().height};
    c_.SplashFrame.setBox(frame);
    const double textWidth = frame.width / 2;
    const double textHeight = frame.height - c_.SplashPicture.box().height;
    c_.SplashText[0].setBox({0, 0, textWidth, textHeight});
    c_.SplashText[1].setBox({textWidth, 0, textWidth, textHeight});
    c_.SplashPicture.moveTo(0, textHeight);
}

} // namespace pelrath
