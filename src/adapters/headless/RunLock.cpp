#include "adapters/headless/RunLock.h"

#include "platform/Errors.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace wmoutlook {

RunLock::RunLock(const std::string& path) : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {
    if (descriptor_ < 0 || ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
    ::close(descriptor_);
    throw Failure{EWOULDBLOCK, "Another run is at work on \"" + path + "\"; start this one again when it is done"};
}

RunLock::~RunLock() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

}  // namespace wmoutlook
