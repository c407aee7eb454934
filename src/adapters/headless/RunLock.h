#pragma once

#include <string>

namespace wmoutlook {

/// Held by a run on each file that it writes to: two runs at once would each find the same records without a link, and write them
/// twice. It is advice among runs; everybody else reads and writes the file as always. Make it before the file is opened and let it
/// live until the file is closed: where locks belong to a process, closing it early would free those of the database.
class RunLock {
public:
    /// Throws Failure, one sentence, when another run holds the file. A file that cannot be opened, or a file system without locks,
    /// is no hindrance here.
    explicit RunLock(const std::string& path);
    ~RunLock();
    RunLock(const RunLock&) = delete;
    RunLock& operator=(const RunLock&) = delete;

private:
    int descriptor_ = -1;
};

}  // namespace wmoutlook
