#pragma once

#include "platform/message_boxes.hpp"

#include <functional>

namespace pelrath {

/// Runs work of an insertion. What fails is told in a message and gives false: an error, or an archive that
/// must not be written into (ArchiveRefused).
bool attemptInsertion(MessageBoxes& boxes, const std::function<void()>& work);

} // namespace pelrath
