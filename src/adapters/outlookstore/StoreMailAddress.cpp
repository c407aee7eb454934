#include "adapters/outlookstore/StoreMailAddress.h"

#include "platform/Text.h"
#include "platform/outlook/PropertyNames.h"

#include <algorithm>

namespace wmoutlook::outlookstore {

namespace {

constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::string_view kMoreInLocalPart = ".!#$%&'*+/=?^_`{|}~-";
constexpr std::size_t kLongestAddress = 254;
constexpr std::size_t kLongestLocalPart = 64;
constexpr std::size_t kLongestLabel = 63;

bool consistsOf(std::string_view text, std::string_view letters, std::string_view more) {
    return std::all_of(text.begin(), text.end(), [&](char c) {
        return letters.find(c) != std::string_view::npos || more.find(c) != std::string_view::npos;
    });
}

bool isLabel(std::string_view label) {
    return !label.empty() && label.size() <= kLongestLabel && consistsOf(label, kLetters, "-") && label.front() != '-' &&
           label.back() != '-';
}

bool isHostName(std::string_view host) {
    for (;;) {
        const std::size_t dot = std::min(host.find('.'), host.size());
        if (!isLabel(host.substr(0, dot))) return false;
        if (dot == host.size()) return true;
        host.remove_prefix(dot + 1);
    }
}

std::string_view withoutQuotes(std::string_view name) {
    const bool isQuoted = name.size() >= 2 && name.front() == '"' && name.back() == '"';
    return isQuoted ? withoutWhiteSpaceAround(name.substr(1, name.size() - 2)) : name;
}

std::optional<MailAddress> readAddress(std::string_view text) {
    if (isMailAddress(text)) return MailAddress{std::string{text}, std::string{text}};
    const std::size_t mark = text.rfind('<');
    if (mark == std::string_view::npos || !text.ends_with('>')) return std::nullopt;
    const std::string_view address = withoutWhiteSpaceAround(text.substr(mark + 1, text.size() - mark - 2));
    if (!isMailAddress(address)) return std::nullopt;
    const std::string_view name = withoutQuotes(withoutWhiteSpaceAround(text.substr(0, mark)));
    return MailAddress{std::string{name.empty() ? address : name}, std::string{address}};
}

/// A contact's name as it may stand in a message's head.
std::string onOneLine(std::string name) {
    std::replace_if(
        name.begin(), name.end(),
        [](char c) {
            return hasControlCharacter({&c, 1});
        },
        ' ');
    return name;
}

MailAddress addressOf(const ItemData& contact) {
    const auto text = [&](std::string_view property) {
        return withoutWhiteSpaceAround(contact.text(contact.table().find(property).value()));
    };
    const std::string_view fullName = text(outlook::property::FullName);
    const std::string_view name = fullName.empty() ? text(outlook::property::FileAs) : fullName;
    return {onOneLine(std::string{name}), std::string{text(outlook::property::Email1Address)}};
}

/// The one address that the contacts of a name share.
class Candidate {
public:
    void consider(MailAddress contact) {
        if (found_ && !equalsTextually(found_->address, contact.address)) isAmbiguous_ = true;
        if (!found_) found_ = std::move(contact);
    }
    [[nodiscard]] bool isAmbiguous() const { return isAmbiguous_; }
    [[nodiscard]] std::optional<MailAddress> result() const {
        return found_ && !isAmbiguous_ && isMailAddress(found_->address) ? found_ : std::nullopt;
    }

private:
    std::optional<MailAddress> found_;
    bool isAmbiguous_ = false;
};

std::optional<MailAddress> findContact(StoreFile& file, std::string_view name) {
    const auto folder = file.folders().findDefault(outlook::DefaultFolder::contacts);
    if (!folder) return std::nullopt;
    Candidate candidate;
    for (std::size_t property = 0; property < kIndexedProperties.size(); ++property) {
        if (kIndexedProperties[property] == outlook::property::Subject) continue;
        const KeySearch search{property, lowerCase(name)};
        for (std::int64_t position = 0; !candidate.isAmbiguous();) {
            const auto contact = file.items().next(folder->number, position, &search, {});
            if (!contact) break;
            if (contact->head.type == outlook::ItemType::contact) candidate.consider(addressOf(contact->data));
        }
    }
    return candidate.result();
}

}  // namespace

bool hasControlCharacter(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; });
}

bool isMailAddress(std::string_view text) {
    const std::size_t at = text.find('@');
    if (at == std::string_view::npos || at == 0 || at > kLongestLocalPart || text.size() > kLongestAddress) return false;
    const std::string_view local = text.substr(0, at);
    const bool hasStrayDot = local.starts_with('.') || local.ends_with('.') || local.find("..") != std::string_view::npos;
    return !hasStrayDot && consistsOf(local, kLetters, kMoreInLocalPart) && isHostName(text.substr(at + 1));
}

std::optional<MailAddress> resolveRecipient(StoreFile& file, std::string_view text) {
    const std::string_view name = withoutWhiteSpaceAround(text);
    if (name.empty()) return std::nullopt;
    if (auto address = readAddress(name)) return address;
    return findContact(file, name);
}

}  // namespace wmoutlook::outlookstore
