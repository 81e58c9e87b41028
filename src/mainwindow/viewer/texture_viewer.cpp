#include "mainwindow/viewer/texture_viewer.hpp"

#include "mainwindow/viewer/image_info.hpp"
#include "platform/posix/files.hpp"
#include "platform/scoped_flag.hpp"

#include <algorithm>
#include <cerrno>
#include <cmath>

namespace pelrath {

namespace {

// A frame without a device: the number of a call on an object that is not there.
constexpr int noObject = 91;

std::string spacedNumber(int number) { return (number < 0 ? "" : " ") + std::to_string(number); }

std::string deviceMessage(const RuntimeError& error, const std::string& reason, int systemError,
                          const std::string& origin = {}) {
    return "Error: " + std::to_string(error.number()) + reason + "\r\n" + error.description() +
           (origin.empty() ? "" : " " + origin) + " \r\n" + "DLL error:" + spacedNumber(systemError);
}

// Nothing for a failure that loading has no words for.
std::optional<std::string> loadReason(int number) {
    switch (static_cast<DeviceFailure>(number)) {
    case DeviceFailure::InvalidCall:
        return " . The method call is invalid.";
    case DeviceFailure::OutOfMemory:
        return " . Direct3D does not have enough display memory.";
    case DeviceFailure::NotAvailable:
        return " . The queried technique is not supported by this device.";
    case DeviceFailure::InvalidData:
        return " . The data is invalid.";
    default:
        return std::nullopt;
    }
}

std::string renderReason(int number) {
    const bool invalidCall = number == static_cast<int>(DeviceFailure::InvalidCall);
    return invalidCall ? " . The method call is invalid." : " . Unknown error.";
}

} // namespace

bool TextureViewer::createDirect3D() {
    try {
        device_ = world_.surface.createDevice(world_.state.referenceWidth, world_.state.referenceHeight);
    } catch (const RuntimeError& error) {
        device_.reset();
        whyNoDevice_ = error.description();
    }
    if (!device_) {
        world_.boxes.exclamation("An error occurred while creating Direct3D.", "ERROR!");
        return false;
    }
    world_.state.d3dCreated = true;
    return true;
}

void TextureViewer::startRendering() {
    if (!world_.state.d3dCreated) createDirect3D();
    world_.state.Running = true;
    Render();
}

std::string TextureViewer::withoutDevice() const {
    return "There is no rendering device. " + whyNoDevice_ + " All but the picture works without one.";
}

void TextureViewer::release() {
    device_.reset();
    world_.state.d3dCreated = false;
    shown_.reset();
}

void TextureViewer::showStatus(const std::string& caption) {
    world_.Label11.setCaption(caption);
    world_.Label11.setVisible(true);
}

bool TextureViewer::showTexture(const std::string& path, const std::string& origin) {
    ImageInfo info;
    getImageInfo(path, info, world_.boxes);
    if (info.width == 0 || info.height == 0) {
        showStatus("Invalid DXT Format");
        return false;
    }
    const Quad quad = fitQuad(info.width, info.height, world_.state);
    if (!loadTextureFile(path, origin)) {
        showStatus("File not found !");
        return false;
    }
    offerModesOf(device_->textureFormat());
    quad_ = quad;
    textureWidth_ = info.width;
    images_ = {ImageKey{}};
    return true;
}

void TextureViewer::showNothing() {
    quad_ = {};
    look_.begin({});
    emptied.emit();
}

Look& TextureViewer::look() {
    const ViewerState& state = world_.state;
    const double unit = device_ ? device_->scale() : 1;
    const double shrunk = static_cast<double>(state.viewPortWidth) / std::max<int>(state.referenceWidth, 1);
    look_.setRoom({static_cast<std::int32_t>(std::lround(state.viewPortWidth * unit)),
                   static_cast<std::int32_t>(std::lround(state.viewPortHeight * unit)), unit,
                   quad_[3].x > 0 ? quad_[3].x * shrunk * unit / textureWidth_ : unit});
    return look_;
}

void TextureViewer::putImage(const ImageKey& key, const LevelImage& image) {
    if (!device_) return;
    device_->putImage(key, image);
    images_.insert(key);
}

bool TextureViewer::loadTextureFile(const std::string& path, const std::string& origin) {
    constexpr const char* title = "loadTextureFile Error";
    if (!fileExists(path)) {
        world_.boxes.critical(path + " Texture file not found", title);
        return false;
    }
    errno = 0;
    try {
        if (!device_) throw deviceError(DeviceFailure::InvalidCall, withoutDevice());
        device_->loadTexture(path);
        ++texturesLoaded_;
        return true;
    } catch (const RuntimeError& error) {
        const int systemError = errno;
        const auto reason = loadReason(error.number());
        world_.boxes.critical(reason ? deviceMessage(error, *reason, systemError, origin) : "", title);
        return false;
    }
}

void TextureViewer::offerModesOf(PixelFormat format) {
    const bool alpha = format == PixelFormat::Dxt5;
    if (!alpha) world_.cmdShow[0].select();
    world_.cmdShow[1].setEnabled(alpha);
    world_.cmdShow[2].setEnabled(alpha);
}

FramePicture TextureViewer::pictureNow() {
    switch (world_.state.displayMode) {
    case DisplayMode::Texture:
        world_.state.alphaBlendOn = false;
        break;
    case DisplayMode::Mask:
        blend_ = Blend::Mask;
        world_.state.alphaBlendOn = true;
        break;
    case DisplayMode::AlphaChannel:
        blend_ = Blend::InverseBoth;
        world_.state.alphaBlendOn = true;
        break;
    }
    FramePicture picture{world_.state.clearColor, world_.state.alphaBlendOn ? blend_ : Blend::None,
                         texturesLoaded_, quad_, device_->scale()};
    if (look().hasTexture() && !look_.isGiven()) lookCloser(picture);
    return picture;
}

void TextureViewer::lookCloser(FramePicture& picture) const {
    const ViewerState& state = world_.state;
    picture.scale *= static_cast<double>(state.viewPortWidth) / std::max<int>(state.referenceWidth, 1);
    picture.sheets = look_.sheets();
    picture.picks = look_.picks;
    picture.marker = look_.marker();
    if (picture.picks.channel == Channel::All) return;
    picture.blend = picture.picks.channel == Channel::ClearTexels ? Blend::Mask : Blend::None;
}

void TextureViewer::drawFrame() {
    if (!device_) throw RuntimeError{noObject, "Render", withoutDevice()};
    const FramePicture picture = pictureNow();
    // The same picture again would cost a frame and change nothing; whatever changes it is an event.
    if (picture == shown_ || !device_->readyForFrame()) return;
    device_->drawFrame(picture);
    shown_ = picture;
}

void TextureViewer::Render() {
    if (looping_) return; // a loop further up the stack goes on as long as Running is set
    const ScopedFlag looping{looping_};
    while (world_.state.Running) {
        errno = 0;
        try {
            drawFrame();
        } catch (const RuntimeError& error) {
            const int systemError = errno;
            world_.boxes.critical(deviceMessage(error, renderReason(error.number()), systemError),
                                  "Render Error");
            return;
        }
        // Nothing but an event changes the picture, or makes the device ready for the next one.
        world_.pump.waitForEvents();
    }
}

} // namespace pelrath
