#pragma once

#include "desktop/background.hpp"
#include "desktop/refresh.hpp"
#include "platform/file_associations.hpp"
#include "platform/posix/desktop_associations.hpp"

#include <QElapsedTimer>
#include <QObject>

namespace pelrath::desktop {

/// Opens files in the desktop's programs behind the program's own active window.
class QtFileAssociations : public QObject, public FileAssociations {
public:
    explicit QtFileAssociations(Refresh& refresh);

    [[nodiscard]] std::string executableFor(const std::string& file) override {
        return DesktopAssociations::executableFor(file);
    }
    void open(const std::string& file, const Failed& failed) override;

private:
    void tell(const Failed& failed, const RuntimeError& error);
    void comeBack();

    Refresh& refresh_;
    Background background_;
    QElapsedTimer sinceStart_;
    bool guarding_ = false;
};

} // namespace pelrath::desktop
