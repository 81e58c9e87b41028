#pragma once

#include "mainwindow/viewer/device.hpp"

#include <cstdint>
#include <memory>

namespace pelrath {

/// The viewport of the real window, as a place that can have a device.
class ViewportSurface {
public:
    virtual ~ViewportSurface() = default;

    /// A device with a back buffer of width x height pixels, times its scale. Fails where there is no usable
    /// graphics.
    [[nodiscard]] virtual std::unique_ptr<Device> createDevice(std::int32_t width, std::int32_t height) = 0;
};

} // namespace pelrath
