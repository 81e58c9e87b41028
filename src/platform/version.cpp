#include "platform/version.hpp"

namespace pelrath {

const char* const programVersion = PELRATH_VERSION;

} // namespace pelrath
