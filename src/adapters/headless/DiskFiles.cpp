#include "adapters/headless/DiskFiles.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace wmoutlook {

namespace {

namespace fs = std::filesystem;

constexpr int kMostRetiredFiles = 10000;

fs::path pathOf(std::string_view utf8) {
    return fs::path{std::u8string{utf8.begin(), utf8.end()}};
}

std::string textOf(const fs::path& path) {
    const std::u8string utf8 = path.generic_u8string();
    return {utf8.begin(), utf8.end()};
}

enum class Move { done, nameIsTaken, failed };

/// A rename replaces what has the new name; a hard link never does. Where the file system knows no links, the name is looked at
/// first.
Move moveWithoutReplacing(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::create_hard_link(from, to, error);
    if (!error) {
        if (fs::remove(from, error)) return Move::done;
        fs::remove(to, error);
        return Move::failed;
    }
    if (fs::exists(fs::symlink_status(to, error))) return Move::nameIsTaken;
    fs::rename(from, to, error);
    return error ? Move::failed : Move::done;
}

std::string hexadecimal(std::uint64_t number) {
    std::string digits(16, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, number >>= 4) *digit = "0123456789abcdef"[number & 0xF];
    return digits;
}

}  // namespace

bool DiskFiles::fileExists(const std::string& path) {
    std::error_code error;
    return fs::is_regular_file(pathOf(path), error);
}

bool DiskFiles::isUsableFile(const std::string& path) {
    if (!fileExists(path)) return false;
    std::ifstream file{pathOf(path), std::ios::binary};
    return file && file.peek() != std::ifstream::traits_type::eof();
}

bool DiskFiles::copyFile(const std::string& from, const std::string& to) {
    std::error_code error;
    return fs::copy_file(pathOf(from), pathOf(to), fs::copy_options::none, error) && !error;
}

bool DiskFiles::deleteFile(const std::string& path) {
    std::error_code error;
    return fileExists(path) && fs::remove(pathOf(path), error);
}

bool DiskFiles::makeFolder(const std::string& path) {
    std::error_code error;
    fs::create_directories(pathOf(path), error);
    return fs::is_directory(pathOf(path), error);
}

std::string DiskFiles::retireFile(const std::string& path) {
    if (!fileExists(path)) return {};
    for (int number = 1; number <= kMostRetiredFiles; ++number) {
        const std::string aside = path + ".retired" + (number == 1 ? std::string{} : "-" + std::to_string(number));
        switch (moveWithoutReplacing(pathOf(path), pathOf(aside))) {
            case Move::done: return aside;
            case Move::failed: return {};
            case Move::nameIsTaken: break;
        }
    }
    return {};
}

std::string DiskFiles::normalizeFolder(std::string_view path) {
    std::string folder{path};
    std::replace(folder.begin(), folder.end(), '\\', '/');
    if (folder.empty()) return folder;
    while (folder.ends_with('/')) folder.pop_back();
    return folder + '/';
}

std::string DiskFiles::suffixForFolder(std::string_view folder) {
    std::error_code error;
    const fs::path given = pathOf(normalizeFolder(folder));
    fs::path whole = fs::weakly_canonical(given, error);
    if (error) whole = fs::absolute(given, error).lexically_normal();
    std::uint64_t hash = 14695981039346656037U;  // FNV-1a: the same on every machine, unlike std::hash
    for (const char c : normalizeFolder(textOf(whole))) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    return hexadecimal(hash);
}

}  // namespace wmoutlook
