#include "adapters/headless/ProfileText.h"

#include "adapters/headless/AnsiText.h"
#include "platform/Text.h"

#include <algorithm>

namespace wmoutlook {

namespace {

constexpr std::string_view kBlanks = " \t\v\f\r\x1A";  // 1A ends files of old programs
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t start = text.find_first_not_of(kBlanks);
    if (start == std::string_view::npos) return text.substr(text.size());
    return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

bool isQuoted(std::string_view text) {
    return text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
}

std::string quotedWhereNeeded(const std::string& value) {
    const bool isLost = isQuoted(value) || withoutBlanks(value).size() != value.size();
    return isLost ? '"' + value + '"' : value;
}

}  // namespace

struct ProfileText::Line {
    std::size_t start = 0;
    std::size_t lineEnd = 0;  ///< where its line end begins
    std::size_t end = 0;      ///< behind its line end
    std::string_view text;    ///< without the blanks around it

    [[nodiscard]] char first() const { return text.empty() ? '\0' : text.front(); }

    [[nodiscard]] std::optional<std::string_view> sectionName() const {
        if (first() != '[') return std::nullopt;
        return withoutBlanks(text.substr(1, text.substr(1).find(']')));
    }

    /// Nothing when the line is no key.
    [[nodiscard]] std::optional<std::string_view> keyName() const {
        if (first() == ';' || first() == '[') return std::nullopt;
        const std::size_t equals = text.find('=');
        if (equals == std::string_view::npos) return std::nullopt;
        return withoutBlanks(text.substr(0, equals));
    }

    [[nodiscard]] std::string_view value() const { return withoutBlanks(text.substr(text.find('=') + 1)); }
};

class ProfileText::Lines {
public:
    Lines(std::string_view bytes, std::size_t from) : bytes_(bytes), next_(from) {}

    bool read(Line& line) {
        if (next_ >= bytes_.size()) return false;
        if (!newLine_ || *newLine_ < next_) newLine_ = std::min(bytes_.find('\n', next_), bytes_.size());
        const std::size_t newLine = *newLine_;
        line.start = next_;
        line.lineEnd = next_ + std::min(bytes_.substr(next_, newLine - next_).find('\r'), newLine - next_);
        const bool isPair = line.lineEnd + 1 == newLine;  // a carriage return alone ends a line too
        line.end = std::min(isPair ? newLine + 1 : line.lineEnd + 1, bytes_.size());
        std::size_t first = next_;
        std::size_t last = line.lineEnd;
        while (first < last && isBlank(bytes_[first])) ++first;
        while (last > first && isBlank(bytes_[last - 1])) --last;
        line.text = bytes_.substr(first, last - first);
        next_ = line.end;
        return true;
    }

private:
    static bool isBlank(char c) { return c == ' ' || c == '\x1A' || (c >= '\t' && c <= '\r' && c != '\n'); }

    std::string_view bytes_;
    std::size_t next_;
    std::optional<std::size_t> newLine_;  ///< the next one, which lone carriage returns do not pass
};

struct ProfileText::Section {
    std::size_t start = 0;  ///< of its head
    std::size_t body = 0;   ///< behind its head
};

/// Names as they are collected for an enumeration.
class ProfileText::Names {
public:
    Names(const ProfileText& text, std::size_t most) : text_(text), most_(most) {}

    /// False when there is no room for more. A name with a character 0 in it would be taken for two.
    bool add(std::string_view name) {
        if (name.empty() || name.find('\0') != std::string_view::npos) return true;
        const std::string decoded = text_.decoded(name);
        answer_.text.append(decoded).append(1, '\0');
        count_ += characterCount(decoded) + 1;
        answer_.isCut = count_ > most_;
        return !answer_.isCut;
    }

    ProfileAnswer answer() && {
        if (answer_.isCut) {
            answer_.text.resize(firstCharacters(answer_.text, most_).size());
            answer_.systemError = SettingsError::kMoreData;
        }
        if (answer_.text.empty()) answer_.systemError = SettingsError::kNotFound;
        return std::move(answer_);
    }

private:
    const ProfileText& text_;
    std::size_t most_;
    std::size_t count_ = 0;
    ProfileAnswer answer_;
};

ProfileText::ProfileText(std::string_view bytes)
    : bytes_(bytes), start_(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0), isUtf8_(start_ != 0) {}

bool ProfileText::isSame(std::string_view left, std::string_view right) const {
    return isUtf8_ ? equalsTextually(left, right) : equalsInAnsi(left, right);
}

std::string ProfileText::encoded(std::string_view utf8) const {
    return isUtf8_ ? std::string{utf8} : ansiFromUtf8(utf8);
}

std::string ProfileText::decoded(std::string_view bytes) const {
    return isUtf8_ ? std::string{bytes} : utf8FromAnsi(bytes);
}

std::optional<ProfileText::Section> ProfileText::findSection(std::string_view name) const {
    Lines lines{bytes_, start_};
    for (Line line; lines.read(line);) {
        const auto found = line.sectionName();
        if (found && isSame(*found, name)) return Section{line.start, line.end};
    }
    return std::nullopt;
}

std::optional<ProfileText::Line> ProfileText::findKey(const Section& section, std::string_view name) const {
    Lines lines{bytes_, section.body};
    for (Line line; lines.read(line);) {
        if (line.sectionName()) break;
        const auto found = line.keyName();
        if (found && isSame(*found, name)) return line;
    }
    return std::nullopt;
}

bool ProfileText::isSameName(std::string_view left, std::string_view right) const {
    const std::string leftBytes = encoded(left);
    const std::string rightBytes = encoded(right);
    return isSame(withoutBlanks(leftBytes), withoutBlanks(rightBytes));
}

std::optional<ProfileAnswer> ProfileText::value(std::string_view section, std::string_view key, std::size_t most) const {
    const std::string sectionBytes = encoded(section);
    const std::string keyBytes = encoded(key);
    const auto found = findSection(withoutBlanks(sectionBytes));
    if (!found) return std::nullopt;
    const auto line = findKey(*found, withoutBlanks(keyBytes));
    if (!line) return std::nullopt;
    std::string_view text = line->value();
    if (isQuoted(text)) text = text.substr(1, text.size() - 2);
    const std::string_view given = isUtf8_ ? firstCharacters(text, most) : text.substr(0, most);
    const bool isCut = given.size() < text.size();
    return ProfileAnswer{decoded(given), isCut ? SettingsError::kMoreData : 0, isCut};
}

ProfileAnswer ProfileText::sectionNames(std::size_t most) const {
    Names names{*this, most};
    Lines lines{bytes_, start_};
    for (Line line; lines.read(line);) {
        const auto name = line.sectionName();
        if (name && !names.add(*name)) break;
    }
    return std::move(names).answer();
}

ProfileAnswer ProfileText::keyNames(std::string_view section, std::size_t most) const {
    Names names{*this, most};
    const std::string sectionBytes = encoded(section);
    const auto found = findSection(withoutBlanks(sectionBytes));
    Lines lines{bytes_, found ? found->body : bytes_.size()};
    for (Line line; lines.read(line) && !line.sectionName();) {
        const auto name = line.keyName();
        if (name && !names.add(*name)) break;
    }
    return std::move(names).answer();
}

std::size_t ProfileText::endOfKeys(const Section& section) const {
    std::size_t end = section.body;
    Lines lines{bytes_, section.body};
    for (Line line; lines.read(line) && !line.sectionName();)
        if (line.keyName()) end = line.end;
    return end;
}

std::string ProfileText::withInserted(std::size_t place, std::string_view lines) const {
    std::string text;
    text.reserve(bytes_.size() + lines.size() + kLineEnd.size());
    text.append(bytes_.substr(0, place));
    if (place > start_ && bytes_[place - 1] != '\n' && bytes_[place - 1] != '\r') text += kLineEnd;
    return text.append(lines).append(bytes_.substr(place));
}

std::string ProfileText::withValue(std::string_view section, std::string_view key, std::string_view value) const {
    const std::string sectionBytes = encoded(section);
    const std::string keyBytes = encoded(key);
    const std::string_view name = withoutBlanks(keyBytes);
    const std::string valueBytes = quotedWhereNeeded(encoded(value));
    const std::string newLine = std::string{name} + '=' + valueBytes + std::string{kLineEnd};

    const auto found = findSection(withoutBlanks(sectionBytes));
    if (!found) {
        const std::string_view rest = bytes_.substr(start_);
        const bool hasEmptyLine = rest.empty() || rest.ends_with("\n\n") || rest.ends_with("\n\r\n");
        const std::string head = '[' + std::string{withoutBlanks(sectionBytes)} + ']' + std::string{kLineEnd};
        return withInserted(bytes_.size(), (hasEmptyLine ? "" : std::string{kLineEnd}) + head + newLine);
    }
    const auto line = findKey(*found, name);
    if (!line) return withInserted(endOfKeys(*found), newLine);
    const auto endOfText = static_cast<std::size_t>(line->text.data() + line->text.size() - bytes_.data());
    const std::size_t startOfValue = endOfText - line->value().size();
    std::string text;
    text.reserve(bytes_.size() + valueBytes.size());
    return text.append(bytes_.substr(0, startOfValue)).append(valueBytes).append(bytes_.substr(line->lineEnd));
}

std::string ProfileText::withoutKey(std::string_view section, std::string_view key) const {
    const std::string sectionBytes = encoded(section);
    const std::string keyBytes = encoded(key);
    const auto found = findSection(withoutBlanks(sectionBytes));
    const auto line = found ? findKey(*found, withoutBlanks(keyBytes)) : std::nullopt;
    if (!line) return std::string{bytes_};
    return std::string{bytes_.substr(0, line->start)}.append(bytes_.substr(line->end));
}

std::string ProfileText::withoutSection(std::string_view section) const {
    const std::string sectionBytes = encoded(section);
    const auto found = findSection(withoutBlanks(sectionBytes));
    if (!found) return std::string{bytes_};
    std::string text{bytes_.substr(0, found->start)};
    std::size_t end = found->body;
    Lines lines{bytes_, found->body};
    for (Line line; lines.read(line) && !line.sectionName(); end = line.end)
        if (line.first() == ';') text.append(bytes_.substr(line.start, line.end - line.start));
    return text.append(bytes_.substr(end));
}

}  // namespace wmoutlook
