#pragma once

#include "platform/file_associations.hpp"

#include <QElapsedTimer>
#include <QObject>

namespace pelrath::desktop {

/// Opens files in the desktop's programs behind the program's own active window.
class QtFileAssociations : public QObject, public FileAssociations {
public:
    QtFileAssociations();

    [[nodiscard]] std::string executableFor(const std::string& file) override {
        return desktop_.executableFor(file);
    }
    void open(const std::string& file) override;

private:
    void comeBack();

    DesktopAssociations desktop_;
    QElapsedTimer sinceStart_;
    bool guarding_ = false;
};

} // namespace pelrath::desktop
