#pragma once

#include <filesystem>
#include <vector>

namespace wmoutlook {

/// The files and folders that a command has begun to make: removed again unless they are kept. What was there before is never
/// among them.
class HalfMade {
public:
    HalfMade() = default;
    ~HalfMade();
    HalfMade(const HalfMade&) = delete;
    HalfMade& operator=(const HalfMade&) = delete;

    /// Makes the folder with the folders above it. Throws DatabaseError with one sentence when it cannot.
    void makeFolder(const std::filesystem::path& folder);
    /// A database that this program has just made.
    void madeDatabase(const std::filesystem::path& file) { databases_.push_back(file); }
    void keep();

private:
    std::vector<std::filesystem::path> folders_;  ///< the uppermost first
    std::vector<std::filesystem::path> databases_;
};

}  // namespace wmoutlook
