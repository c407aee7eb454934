#include "apps/tallowsync/sample/HalfMade.h"

#include "platform/Errors.h"

#include <string>
#include <system_error>

namespace wmoutlook {

namespace {

namespace fs = std::filesystem;

/// The folder itself and those above it that are not there, the uppermost first.
std::vector<fs::path> missingFolders(fs::path folder) {
    std::vector<fs::path> missing;
    std::error_code error;
    for (; !folder.empty() && !fs::exists(fs::symlink_status(folder, error)); folder = folder.parent_path())
        missing.insert(missing.begin(), folder);
    return missing;
}

}  // namespace

HalfMade::~HalfMade() {
    std::error_code ignored;
    for (const fs::path& database : databases_)
        for (const char* const suffix : {"-wal", "-shm", ""}) fs::remove(database.string() + suffix, ignored);
    for (auto folder = folders_.rbegin(); folder != folders_.rend(); ++folder)
        fs::remove(*folder, ignored);  // only while nobody else has put anything into it
}

void HalfMade::makeFolder(const fs::path& folder) {
    if (folder.empty()) throw DatabaseError{-1, "The name of the folder is empty; name another one"};
    std::error_code error;
    for (const fs::path& missing : missingFolders(folder.lexically_normal())) {
        if (fs::create_directory(missing, error)) folders_.push_back(missing);
        if (error) break;
    }
    if (!error && !fs::is_directory(folder, error)) error = std::make_error_code(std::errc::not_a_directory);
    if (error)
        throw DatabaseError{error.value(), "The folder \"" + folder.string() + "\" cannot be made (" + error.message() +
                                               "); name one in a folder that can be written to"};
}

void HalfMade::keep() {
    folders_.clear();
    databases_.clear();
}

}  // namespace wmoutlook
