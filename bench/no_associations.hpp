#pragma once

#include "platform/file_associations.hpp"

namespace pelrath::bench {

/// A desktop with a program for nothing.
struct NoAssociations : FileAssociations {
    [[nodiscard]] std::string executableFor(const std::string& /*file*/) override { return {}; }
    void open(const std::string& /*file*/, const Failed& /*failed*/) override {}
};

} // namespace pelrath::bench
