#pragma once

#include "desktop/background.hpp"
#include "desktop/refresh.hpp"

#include <string>
#include <vector>

namespace pelrath::desktop {

/// The desktop's file manager, which nobody waits for.
class FileManager : public QObject {
public:
    using Failed = std::function<void(const std::string& why)>;

    /// `failed` tells the user, once nothing else runs, why nothing is shown.
    FileManager(Refresh& refresh, Failed failed) : refresh_(refresh), failed_(std::move(failed)) {}

    void show(const std::vector<std::string>& files);

private:
    Refresh& refresh_;
    Failed failed_;
    Background background_;
};

} // namespace pelrath::desktop
