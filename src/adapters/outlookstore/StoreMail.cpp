#include "adapters/outlookstore/StoreMail.h"

#include "adapters/files/OpenFile.h"
#include "adapters/outlookstore/StoreMailAddress.h"
#include "platform/Errors.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <numeric>
#include <optional>
#include <utility>

namespace wmoutlook::outlookstore {

namespace {

using outlook::RecipientType;

struct AddressLine {
    RecipientType type;
    std::string_view property;
};

constexpr std::array kAddressLines{AddressLine{RecipientType::to, "To"}, AddressLine{RecipientType::cc, "CC"},
                                   AddressLine{RecipientType::bcc, "BCC"}};

std::size_t indexOf(const ItemData& data, std::string_view property) {
    return data.table().find(property).value();
}

bool isSubmittedIn(const ItemData& data) {
    return data.valueOrDefault(indexOf(data, "Submitted")).toBoolean();
}

[[noreturn]] void failAsSent() {
    throw OutlookError{-1, "The mail has been sent; it can be changed and sent no more"};
}

/// The folder in which the mail lies, nothing when it does not. It may be another handle that has sent it.
std::optional<std::int64_t> folderOfDraft(StoreFile& file, std::int64_t item) {
    std::int64_t store = 0;
    const auto loaded = item == 0 ? std::nullopt : file.items().load(item, store);
    if (!loaded) return std::nullopt;
    if (isSubmittedIn(loaded->data)) failAsSent();
    return loaded->head.folder;
}

[[noreturn]] void failAsAttachment(std::string_view fault) {
    throw OutlookError{-1, std::string{"An attachment cannot be added: "}.append(fault)};
}

std::string readFile(const std::string& path, std::int64_t most) {
    try {
        const auto file = openRegularFile(path);
        if (!file) failAsAttachment("there is no such file");
        return readAll(*file, static_cast<std::size_t>(most));
    } catch (const FileFault& fault) {
        if (fault.number() == EFBIG)
            failAsAttachment("all attachments of a mail together may have " + std::to_string(kMostAttached / 1024 / 1024) +
                             " MB");
        if (fault.number() == EISDIR) failAsAttachment("it is a folder");
        failAsAttachment(fault.number() == ENODEV ? "it is no regular file" : "it cannot be read");
    }
}

/// As it may be shown: the name of a file can hold anything.
std::string shownName(std::string_view name) {
    std::string shown;
    while (!name.empty()) {
        const std::string_view character = firstCharacters(name, 1);
        name.remove_prefix(character.size());
        const bool isLoneByte = character.size() == 1 && static_cast<unsigned char>(character[0]) >= 0x80;
        shown += isLoneByte ? "?" : hasControlCharacter(character) ? " " : character;
    }
    return shown;
}

std::string textOf(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

}  // namespace

MailParts::MailParts(std::shared_ptr<Instance> instance, std::shared_ptr<ItemData> data, std::int64_t item)
    : instance_(std::move(instance)), data_(std::move(data)) {
    if (item == 0) return;
    recipients_ = file().mails().recipients(item);
    attachments_ = file().mails().attachments(item);
}

bool MailParts::isSubmitted() const {
    return isSubmittedIn(*data_);
}

bool MailParts::isDraftStill(std::int64_t item) const {
    std::int64_t store = 0;
    const auto saved = item == 0 ? std::nullopt : file().items().load(item, store);
    return !isSubmitted() && (!saved || !isSubmittedIn(saved->data));
}

void MailParts::requireDraft() const {
    static_cast<void>(file());
    if (isSubmitted()) failAsSent();
}

void MailParts::requireWritable(std::string_view property) const {
    requireDraft();
    const auto isIt = [&](const AddressLine& line) { return line.property == property; };
    if (!recipients_.empty() && std::any_of(kAddressLines.begin(), kAddressLines.end(), isIt))
        throw OutlookError{-1, std::string{"MailItem."}.append(property) + " follows the recipients; add a recipient instead"};
}

void MailParts::addRecipient(std::string_view name) {
    requireDraft();
    if (withoutWhiteSpaceAround(name).empty()) throw OutlookError{-1, "A recipient needs a name or an address"};
    if (hasControlCharacter(name))
        throw OutlookError{-1, "A recipient's name cannot hold a line break or another control character"};
    recipients_.push_back({std::string{name}, {}, RecipientType::to});
    areLinesStale_ = true;
}

void MailParts::setRecipientType(std::size_t index, RecipientType type) {
    requireDraft();
    const auto isIt = [&](const AddressLine& line) { return line.type == type; };
    if (std::none_of(kAddressLines.begin(), kAddressLines.end(), isIt))
        throw OutlookError{-1, "There is no such type of recipient"};
    recipients_[index].type = type;
    areLinesStale_ = true;
}

bool MailParts::resolveRecipient(std::size_t index) {
    StoreFile& store = instance_->session();
    RecipientRow& recipient = recipients_[index];
    if (!recipient.address.empty()) return true;
    requireDraft();
    auto found = outlookstore::resolveRecipient(store, recipient.name);
    if (!found) return false;
    recipient.name = std::move(found->name);
    recipient.address = std::move(found->address);
    areLinesStale_ = true;
    return true;
}

void MailParts::requireAddresses() {
    if (recipients_.empty()) throw OutlookError{-1, "The mail cannot be sent: it has no recipient"};
    std::size_t unresolved = 0;
    for (std::size_t i = 0; i < recipients_.size(); ++i)
        if (!resolveRecipient(i)) ++unresolved;
    if (unresolved > 0)
        throw OutlookError{
            -1, "The mail cannot be sent: " + std::to_string(unresolved) + " of its " + std::to_string(recipients_.size()) +
                    " recipients cannot be resolved; give an e-mail address or the name of one contact that has one"};
}

/// As Outlook shows them: the names, in order.
void MailParts::bringAddressLinesUpToDate() const {
    if (!areLinesStale_) return;
    for (const AddressLine& line : kAddressLines) {
        std::string names;
        for (const RecipientRow& recipient : recipients_)
            if (recipient.type == line.type) names.append(names.empty() ? "" : "; ").append(recipient.name);
        data_->set(indexOf(*data_, line.property), Variant{std::move(names)});
    }
    areLinesStale_ = false;
}

void MailParts::addAttachment(std::string_view path) {
    requireDraft();
    if (path.find('\0') != std::string_view::npos)
        failAsAttachment("there is no such file");  // nor the one that a cut path names
    const std::filesystem::path file{std::u8string{path.begin(), path.end()}};
    const std::int64_t before = std::accumulate(attachments_.begin(), attachments_.end(), std::int64_t{0},
                                                [](std::int64_t sum, const AttachmentRow& row) { return sum + row.size; });
    auto content =
        std::make_shared<const std::string>(readFile(file.string(), std::max<std::int64_t>(kMostAttached - before, 0)));
    const std::string name = textOf(file.filename());
    attachments_.push_back({0, name, shownName(name), static_cast<std::int64_t>(content->size()), std::move(content)});
}

void MailParts::setDisplayName(std::size_t index, std::string_view name) {
    requireDraft();
    if (hasControlCharacter(name))
        throw OutlookError{-1, "An attachment's display name cannot hold a line break or another control character"};
    attachments_[index].displayName = name;
}

std::string MailParts::content(std::size_t index, std::int64_t item) const {
    const AttachmentRow& attachment = attachments_.at(index);
    return attachment.content ? *attachment.content : file().mails().content(item, attachment.number);
}

bool MailParts::write(ItemHead& head, const ItemData& data, bool keysChanged) {
    StoreFile& store = file();
    Savepoint whole{store.connection(), "saving a mail"};
    const auto folder = folderOfDraft(store, head.number);
    ItemHead saved = head;
    if (!store.items().save(saved, data, store.now(), keysChanged)) return false;
    if (folder && *folder != saved.folder) store.mails().move(saved.number, saved.folder);
    store.mails().saveRecipients(saved.number, recipients_);
    std::vector<AttachmentRow> attachments = attachments_;  // what they hold is not copied
    store.mails().saveAttachments(saved.number, attachments);
    whole.release();
    head = saved;
    attachments_ = std::move(attachments);
    return true;
}

bool MailParts::save(ItemHead& head, bool keysChanged) {
    requireDraft();
    bringAddressLinesUpToDate();
    return write(head, *data_, keysChanged);
}

bool MailParts::submit(ItemHead& head, std::int64_t store) {
    bringAddressLinesUpToDate();
    ItemData sent = *data_;
    sent.set(indexOf(sent, "Submitted"), Variant{true});
    sent.set(indexOf(sent, "SentOn"), Variant{file().now()});
    ItemHead moved = head;
    moved.folder = file().mails().outboxOf(store);
    if (!write(moved, sent, true)) return false;
    head = moved;
    *data_ = std::move(sent);
    return true;
}

}  // namespace wmoutlook::outlookstore
