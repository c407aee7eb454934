#include "adapters/exchange/MailExport.h"

#include "adapters/exchange/EncodedWords.h"
#include "adapters/files/NewFile.h"
#include "platform/Errors.h"

#include <gmime/gmime.h>

#include <algorithm>
#include <array>
#include <cerrno>
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
        safe.begin(), safe.end(), [](char c) { return c == '/' || c == '\\' || c == ':'; }, '_');
    if (safe.find_first_not_of(". ") == std::string::npos) safe.insert(0, "_");
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

struct AddressHeader {
    RecipientType type;
    const char* name;
};

constexpr std::array kAddressHeaders{AddressHeader{RecipientType::to, "To"}, AddressHeader{RecipientType::cc, "Cc"},
                                     AddressHeader{RecipientType::bcc, "Bcc"}};

/// One to a line.
std::string addressList(const std::vector<MailRecipient>& recipients, RecipientType type) {
    std::string list;
    for (const MailRecipient& recipient : recipients) {
        if (recipient.type != type) continue;
        const std::string name = onOneLine(recipient.name);
        const std::string address = onOneLine(recipient.address);
        if (!list.empty()) list += ",\n ";
        if (address.empty())
            list += encodedPhrase(name) + " :;";
        else if (name.empty() || name == address)
            list += address;
        else
            list += encodedPhrase(name) + "\n <" + address + ">";
    }
    return list;
}

/// As it stands: GMime would leave alone what looks like an encoded word, and does not cut long ones.
void setHeader(GMimeMessage* message, const char* name, const std::string& value) {
    g_mime_object_set_header(GMIME_OBJECT(message), name, "", nullptr);
    GMimeHeader* const header = g_mime_header_list_get_header(g_mime_object_get_header_list(GMIME_OBJECT(message)), name);
    g_mime_header_set_raw_value(header, (" " + value + "\n").c_str());
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
    setHeader(message.get(), "Subject", encodedText(onOneLine(mail.subject)));
    for (const AddressHeader& header : kAddressHeaders)
        if (mail.isDraft || header.type != RecipientType::bcc)
            if (const std::string list = addressList(mail.recipients, header.type); !list.empty())
                setHeader(message.get(), header.name, list);
    if (mail.isDraft) g_mime_object_set_header(GMIME_OBJECT(message.get()), "X-Unsent", "1", nullptr);
    addParts(message.get(), mail);
    return message;
}

/// Line feeds become the line ends of a message: what is in the parts is encoded, so that the change meets none of it.
bool writeMessage(GMimeMessage* message, const OpenFile& file) {
    const Owned<GMimeStream> stream{g_mime_stream_fs_new(file.descriptor())};
    g_mime_stream_fs_set_owner(GMIME_STREAM_FS(stream.get()), FALSE);
    const Owned<GMimeStream> buffered{g_mime_stream_buffer_new(stream.get(), GMIME_STREAM_BUFFER_BLOCK_WRITE)};
    const Owned<GMimeStream> filtered{g_mime_stream_filter_new(buffered.get())};
    const Owned<GMimeFilter> lineEnds{g_mime_filter_unix2dos_new(TRUE)};
    g_mime_stream_filter_add(GMIME_STREAM_FILTER(filtered.get()), lineEnds.get());
    GMimeFormatOptions* const options = g_mime_format_options_new();
    g_mime_format_options_set_param_encoding_method(options, GMIME_PARAM_ENCODING_METHOD_RFC2231);
    const auto written = g_mime_object_write_to_stream(GMIME_OBJECT(message), options, filtered.get());
    g_mime_format_options_free(options);
    return written >= 0 && g_mime_stream_flush(filtered.get()) == 0 && g_mime_stream_flush(buffered.get()) == 0;
}

[[noreturn]] void fail(const std::string& path, std::string_view fault, int number) {
    throw Failure{number, "The file \"" + path + "\" " + std::string{fault}};
}

[[noreturn]] void failAsTaken(const std::string& path) {
    fail(path, "exists already; name another one", EEXIST);
}

NewFile newFile(const std::string& path) {
    std::error_code error;
    if (std::filesystem::exists(std::filesystem::symlink_status(path, error))) failAsTaken(path);
    try {
        return NewFile{path};
    } catch (const FileFault& fault) {
        fail(path, "cannot be made; name one in a folder that can be written to", fault.number());
    }
}

}  // namespace

void writeMailFile(const Mail& mail, const std::string& path, const std::function<void()>& beforeTheEnd) {
    static const bool isReady = (g_mime_init(), true);
    static_cast<void>(isReady);
    const auto message = messageOf(mail);
    NewFile aside = newFile(path);
    bool isFree = false;
    try {
        if (!writeMessage(message.get(), aside.file())) failAsFile(errno);
        beforeTheEnd();
        isFree = aside.takeFreeName();
    } catch (const FileFault& fault) {
        fail(path, "cannot be written to the end", fault.number());
    }
    if (!isFree) failAsTaken(path);
}

}  // namespace wmoutlook::exchange
