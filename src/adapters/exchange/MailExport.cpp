#include "adapters/exchange/MailExport.h"

#include "platform/Errors.h"

#include <gmime/gmime.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>
#include <utility>

namespace wmoutlook::exchange {

namespace {

using outlook::RecipientType;

constexpr const char* kHost = "tallowsync.invalid";  // a name that no machine can have: nobody else gives such identifiers

template <class Object>
struct Unref {
    void operator()(Object* object) const { g_object_unref(object); }
};
template <class Object>
using Owned = std::unique_ptr<Object, Unref<Object>>;

struct Free {
    void operator()(void* memory) const { g_free(memory); }
};

std::string validUtf8(std::string_view text) {
    const std::unique_ptr<char, Free> valid{g_utf8_make_valid(text.data(), static_cast<gssize>(text.size()))};
    return valid.get();
}

/// As it may stand in the head of a message, where a line break would begin another field.
std::string onOneLine(std::string_view text) {
    std::string line{text};
    std::replace_if(
        line.begin(), line.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }, ' ');
    return validUtf8(line);
}

/// A name that leads nowhere else, on whichever system the attachment is saved.
std::string fileName(std::string_view name) {
    std::string safe = onOneLine(name);
    std::replace_if(
        safe.begin(), safe.end(), [](char c) { return c == '/' || c == '\\'; }, '_');
    return safe;
}

/// Each of the three kinds of line end as a line feed.
std::string withLineFeeds(std::string_view text) {
    std::string lines;
    lines.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!isPair) lines += text[i] == '\r' ? '\n' : text[i];
    }
    return validUtf8(lines);
}

GMimeAddressType addressType(RecipientType type) {
    switch (type) {
        case RecipientType::cc: return GMIME_ADDRESS_TYPE_CC;
        case RecipientType::bcc: return GMIME_ADDRESS_TYPE_BCC;
        case RecipientType::to: break;
    }
    return GMIME_ADDRESS_TYPE_TO;
}

void addRecipient(GMimeMessage* message, const MailRecipient& recipient) {
    const std::string name = onOneLine(recipient.name);
    const std::string address = onOneLine(recipient.address);
    if (!address.empty()) {
        const bool isNamed = !name.empty() && name != address;
        return g_mime_message_add_mailbox(message, addressType(recipient.type), isNamed ? name.c_str() : nullptr,
                                          address.c_str());
    }
    const Owned<InternetAddress> nobody{internet_address_group_new(name.c_str())};
    internet_address_list_add(g_mime_message_get_addresses(message, addressType(recipient.type)), nobody.get());
}

Owned<GMimePart> newPart(const char* type, const char* subtype, std::string_view content, GMimeContentEncoding encoding) {
    Owned<GMimePart> part{g_mime_part_new_with_type(type, subtype)};
    const Owned<GMimeStream> stream{g_mime_stream_mem_new_with_buffer(content.data(), content.size())};
    const Owned<GMimeDataWrapper> data{g_mime_data_wrapper_new_with_stream(stream.get(), GMIME_CONTENT_ENCODING_DEFAULT)};
    g_mime_part_set_content(part.get(), data.get());
    g_mime_part_set_content_encoding(part.get(), encoding);
    return part;
}

Owned<GMimePart> bodyPart(const Mail& mail) {
    auto part = newPart("text", "plain", withLineFeeds(mail.body), GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
    g_mime_object_set_content_type_parameter(GMIME_OBJECT(part.get()), "charset", "utf-8");
    return part;
}

Owned<GMimePart> attachmentPart(const MailAttachment& attachment) {
    auto part = newPart("application", "octet-stream", attachment.content, GMIME_CONTENT_ENCODING_BASE64);
    g_mime_object_set_disposition(GMIME_OBJECT(part.get()), GMIME_DISPOSITION_ATTACHMENT);
    g_mime_part_set_filename(part.get(), fileName(attachment.name).c_str());
    return part;
}

void addParts(GMimeMessage* message, const Mail& mail) {
    const auto body = bodyPart(mail);
    if (mail.attachments.empty()) return g_mime_message_set_mime_part(message, GMIME_OBJECT(body.get()));
    const Owned<GMimeMultipart> whole{g_mime_multipart_new_with_subtype("mixed")};
    // The same mail gives the same file. No encoded part can hold it: there an equals sign is followed by two digits.
    g_mime_multipart_set_boundary(whole.get(), ("=-" + mail.identifier).c_str());
    g_mime_multipart_add(whole.get(), GMIME_OBJECT(body.get()));
    for (const MailAttachment& attachment : mail.attachments)
        g_mime_multipart_add(whole.get(), GMIME_OBJECT(attachmentPart(attachment).get()));
    g_mime_message_set_mime_part(message, GMIME_OBJECT(whole.get()));
}

/// With the difference from universal time that this machine has on that day.
void setDate(GMimeMessage* message, Date date) {
    const CivilDate parts = civil(date);
    GDateTime* const moment = g_date_time_new_local(parts.year, parts.month, parts.day, parts.hour, parts.minute, parts.second);
    if (moment == nullptr) return;
    g_mime_message_set_date(message, moment);
    g_date_time_unref(moment);
}

Owned<GMimeMessage> messageOf(const Mail& mail) {
    Owned<GMimeMessage> message{g_mime_message_new(TRUE)};
    setDate(message.get(), mail.date);
    g_mime_message_set_message_id(message.get(), (mail.identifier + "@" + kHost).c_str());
    g_mime_message_set_subject(message.get(), onOneLine(mail.subject).c_str(), "utf-8");
    for (const MailRecipient& recipient : mail.recipients)
        if (mail.isDraft || recipient.type != RecipientType::bcc) addRecipient(message.get(), recipient);
    if (mail.isDraft) g_mime_object_set_header(GMIME_OBJECT(message.get()), "X-Unsent", "1", nullptr);
    addParts(message.get(), mail);
    return message;
}

/// A new file that is gone again unless it is kept.
class NewFile {
public:
    /// Opened for exclusive creation: what another program makes at this moment is not overwritten either.
    explicit NewFile(const std::string& path) : path_(path), file_(std::fopen(path.c_str(), "wbx")) {
        std::error_code error;
        if (file_ == nullptr)
            throw Failure{errno, named(std::filesystem::exists(path, error)
                                           ? "exists already; name another one"
                                           : "cannot be made; name one in a folder that can be written to")};
    }
    ~NewFile() {
        if (file_ != nullptr) std::fclose(file_);
        if (isKept_) return;
        std::error_code error;
        std::filesystem::remove(path_, error);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    [[nodiscard]] std::FILE* handle() const { return file_; }
    void keep() {
        if (std::fclose(std::exchange(file_, nullptr)) != 0) fail();
        isKept_ = true;
    }
    [[noreturn]] void fail() const { throw Failure{errno, named("cannot be written to the end")}; }

private:
    [[nodiscard]] std::string named(std::string_view fault) const { return "The file \"" + path_ + "\" " + std::string{fault}; }

    std::string path_;
    std::FILE* file_;
    bool isKept_ = false;
};

/// Line feeds become the line ends of a message: what is in the parts is encoded, so that the change meets none of it.
void writeMessage(GMimeMessage* message, const NewFile& file) {
    const Owned<GMimeStream> stream{g_mime_stream_file_new(file.handle())};
    g_mime_stream_file_set_owner(GMIME_STREAM_FILE(stream.get()), FALSE);
    const Owned<GMimeStream> filtered{g_mime_stream_filter_new(stream.get())};
    const Owned<GMimeFilter> lineEnds{g_mime_filter_unix2dos_new(TRUE)};
    g_mime_stream_filter_add(GMIME_STREAM_FILTER(filtered.get()), lineEnds.get());
    GMimeFormatOptions* const options = g_mime_format_options_new();
    g_mime_format_options_set_param_encoding_method(options, GMIME_PARAM_ENCODING_METHOD_RFC2231);
    const auto written = g_mime_object_write_to_stream(GMIME_OBJECT(message), options, filtered.get());
    g_mime_format_options_free(options);
    if (written < 0 || g_mime_stream_flush(filtered.get()) != 0) file.fail();
}

}  // namespace

void writeMailFile(const Mail& mail, const std::string& path) {
    static const bool isReady = (g_mime_init(), true);
    static_cast<void>(isReady);
    const auto message = messageOf(mail);
    NewFile file{path};
    writeMessage(message.get(), file);
    file.keep();
}

}  // namespace wmoutlook::exchange
