#include "adapters/files/SafeFile.h"
#include "adapters/headless/AnsiText.h"
#include "adapters/headless/PrivateProfileFile.h"
#include "adapters/headless/WorkingFolders.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The input is a section, a key and a value, a line each, and then the bytes of a file. Reading changes nothing, and every name that
/// is listed can be read. Writing the key is refused and changes nothing, or it changes one line alone and the value is read back. What
/// is deleted is gone.
namespace {

using namespace wmoutlook;

constexpr std::size_t kRoom = 1U << 20U;  // no limit for inputs of a fuzzer

void require(bool holds) {
    if (!holds) std::abort();
}

std::string takeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string line{text.substr(0, end)};
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

std::vector<std::string> split(const std::string& names) {
    std::vector<std::string> parts;
    for (std::size_t start = 0; start < names.size();) {
        const std::size_t end = names.find('\0', start);
        parts.push_back(names.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

/// At most one line of the old text is another one in the new text; all others are there as they were.
void requireOneChange(std::string_view before, std::string_view after) {
    const auto [end, ignored] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto prefix = static_cast<std::size_t>(end - before.begin());
    before.remove_prefix(prefix);
    after.remove_prefix(prefix);
    const auto [tail, ignoredToo] = std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend());
    before.remove_suffix(static_cast<std::size_t>(tail - before.rbegin()));
    require(before.find('\n') == std::string_view::npos);
}

class OneFile {
public:
    explicit OneFile(std::string_view bytes) : bytes_(bytes) {
        profile_.makeFile("", PrivateProfile::IfThere::replace, path_);
        put(bytes_);
    }

    void checkReading(const std::string& section, const std::string& key) {
        static_cast<void>(profile_.readKey(section, key, "", 255, path_));
        require(profile_.sectionNames("", 1024, path_).text.size() <= 3 * 1022);
        for (const std::string& name : split(profile_.sectionNames("", kRoom, path_).text))
            for (const std::string& listed : split(profile_.keyNames(name, kRoom, path_).text))
                require(profile_.readKey(name, listed, "", kRoom, path_).systemError == 0);
        require(bytes() == bytes_);
    }

    void checkWriting(const std::string& section, const std::string& key, const std::string& value) {
        try {
            profile_.write(section, key, value, path_);
        } catch (const SettingsError&) {
            return require(bytes() == bytes_);
        }
        requireOneChange(bytes_, bytes());
        const bool isUtf8 = bytes_.starts_with("\xEF\xBB\xBF");
        const ProfileAnswer read = profile_.readKey(section, key, "", kRoom, path_);
        require(read.systemError == 0 && read.text == (isUtf8 ? value : utf8FromAnsi(ansiFromUtf8(value))));
        // What is deleted is gone, and the next one of its name comes to light.
        for (std::size_t size = bytes().size() + 1; isThere(section, key); profile_.write(section, key, std::nullopt, path_))
            require(bytes().size() < std::exchange(size, bytes().size()));
        for (std::size_t size = bytes().size() + 1; hasKeys(section); profile_.write(section, std::nullopt, std::nullopt, path_))
            require(bytes().size() < std::exchange(size, bytes().size()));
    }

private:
    bool isThere(const std::string& section, const std::string& key) {
        return profile_.readKey(section, key, "", kRoom, path_).systemError != SettingsError::kNotFound;
    }
    bool hasKeys(const std::string& section) { return !profile_.keyNames(section, kRoom, path_).text.empty(); }
    [[nodiscard]] std::string bytes() const { return readWholeFile(path_).value_or("(none)"); }
    void put(const std::string& content) {
        rewriteFile(path_, [&](const auto&) { return std::optional{content}; });
    }

    std::string bytes_;
    PrivateProfileFile profile_;
    static inline TemporaryWorkingFolder folder_;
    std::string path_ = folder_.workingFolderPath() + "/settings.ini";
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input{data, data + size};
    std::string_view rest = input;
    const std::string section = takeLine(rest);
    const std::string key = takeLine(rest);
    const std::string value = takeLine(rest);
    if (rest.starts_with("\xFF\xFE") || rest.starts_with("\xFE\xFF")) return 0;  // refused as a whole
    OneFile file{rest};
    file.checkReading(section, key);
    file.checkWriting(section, key, value);
    return 0;
}
