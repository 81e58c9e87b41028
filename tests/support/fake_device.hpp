#pragma once

#include "mainwindow/viewer/dds_picture.hpp"
#include "mainwindow/viewer/viewport_surface.hpp"
#include "platform/event_pump.hpp"

#include <functional>
#include <optional>

namespace pelrath::test {

/// What a FakeSurface's devices do and did.
struct DeviceRecord {
    std::vector<FramePicture> frames;
    std::vector<std::string> loaded;
    std::vector<ImageKey> images;
    int created = 0, alive = 0;
    bool creationFails = false, ready = true;
    double scale = 1;
    std::optional<int> nextLoadFails, nextFrameFails; ///< with this number
};

/// A device that reads its files for real and draws nothing.
class FakeDevice : public Device {
public:
    explicit FakeDevice(DeviceRecord& record) : record_(record) { ++record_.alive; }
    ~FakeDevice() override { --record_.alive; }

    void loadTexture(const std::string& path) override {
        fail(record_.nextLoadFails);
        format_ = readDdsPicture(path, 16384).format;
        record_.loaded.push_back(path);
    }
    void putImage(const ImageKey& key, const LevelImage& /*image*/) override {
        record_.images.push_back(key);
    }
    [[nodiscard]] PixelFormat textureFormat() const override { return format_; }
    [[nodiscard]] bool readyForFrame() const override { return record_.ready; }
    [[nodiscard]] double scale() const override { return record_.scale; }
    void drawFrame(const FramePicture& picture) override {
        fail(record_.nextFrameFails);
        record_.frames.push_back(picture);
    }

private:
    static void fail(std::optional<int>& next) {
        const std::optional<int> number = std::exchange(next, std::nullopt);
        if (number) throw RuntimeError{*number, "FakeDevice", "It does not work."};
    }

    DeviceRecord& record_;
    PixelFormat format_ = PixelFormat::Dxt1;
};

class FakeSurface : public ViewportSurface {
public:
    [[nodiscard]] std::unique_ptr<Device> createDevice(std::int32_t width, std::int32_t height) override {
        size = {width, height};
        if (record.creationFails) throw deviceError(DeviceFailure::NotAvailable, "no graphics");
        ++record.created;
        return std::make_unique<FakeDevice>(record);
    }

    DeviceRecord record;
    std::pair<std::int32_t, std::int32_t> size;
};

/// Runs the given steps, one at each turn of the events; a wait with none left fails the test.
class ScriptedPump : public EventPump {
public:
    void processPending() override {
        ++pending;
        if (whilePending) whilePending();
    }
    void waitForEvents() override {
        if (steps.empty()) throw std::logic_error{"waits for events that never come"};
        const auto step = std::move(steps.front());
        steps.erase(steps.begin());
        step();
    }

    std::vector<std::function<void()>> steps;
    std::function<void()> whilePending;
    int pending = 0;
};

} // namespace pelrath::test
