#include "adapters/exchange/MailExport.h"

#include "adapters/headless/WorkingFolders.h"
#include "platform/Errors.h"

#include <gmime/gmime.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

#include <sys/resource.h>
#include <csignal>

namespace wmoutlook::testing {
namespace {

using exchange::Mail;
using outlook::RecipientType;

class MailFile : public ::testing::Test {
protected:
    [[nodiscard]] std::string path() { return folder.workingFolderPath() + "/mail.eml"; }
    [[nodiscard]] std::string bytes() {
        std::ostringstream content;
        content << std::ifstream{path(), std::ios::binary}.rdbuf();
        return content.str();
    }
    /// The file as a mail program reads it, one fact a line.
    [[nodiscard]] std::string read();
    /// The subject, and the names of the first To and the first Cc.
    [[nodiscard]] std::vector<std::string> headTexts();

    TemporaryWorkingFolder folder;
    Mail mail{"00ABC", "Return", "Attached.", *makeDate({2026, 11, 22, 9, 0, 0}), false, {}, {}};
};

/// A file as a mail program opens it.
class Message {
public:
    explicit Message(const std::string& path) {
        GMimeStream* const stream = g_mime_stream_fs_open(path.c_str(), 0, 0, nullptr);
        GMimeParser* const parser = g_mime_parser_new_with_stream(stream);
        message_ = g_mime_parser_construct_message(parser, nullptr);
        g_object_unref(parser);
        g_object_unref(stream);
    }
    ~Message() { g_object_unref(message_); }
    Message(const Message&) = delete;
    Message& operator=(const Message&) = delete;
    [[nodiscard]] GMimeMessage* get() const { return message_; }

private:
    GMimeMessage* message_;
};

/// Of a text the lines, which end as a message's lines do.
std::string contentOf(GMimePart* part) {
    GMimeStream* const stream = g_mime_stream_mem_new();
    g_mime_data_wrapper_write_to_stream(g_mime_part_get_content(part), stream);
    const GByteArray* const bytes = g_mime_stream_mem_get_byte_array(GMIME_STREAM_MEM(stream));
    std::string content{bytes->data, bytes->data + bytes->len};
    g_object_unref(stream);
    if (g_mime_content_type_is_type(g_mime_object_get_content_type(GMIME_OBJECT(part)), "text", "*")) std::erase(content, '\r');
    return content;
}

std::string addressesOf(GMimeMessage* message, GMimeAddressType type) {
    char* const text = internet_address_list_to_string(g_mime_message_get_addresses(message, type), nullptr, FALSE);
    std::string addresses = text != nullptr ? text : "";
    g_free(text);
    return addresses;
}

std::vector<std::string> MailFile::headTexts() {
    const Message message{path()};
    std::vector<std::string> texts{g_mime_message_get_subject(message.get())};
    for (const GMimeAddressType type : {GMIME_ADDRESS_TYPE_TO, GMIME_ADDRESS_TYPE_CC})
        texts.emplace_back(
            internet_address_get_name(internet_address_list_get_address(g_mime_message_get_addresses(message.get(), type), 0)));
    return texts;
}

std::string MailFile::read() {
    const Message parsed{path()};
    GMimeMessage* const message = parsed.get();
    std::string facts = std::string{g_mime_message_get_subject(message)} + "\n" + addressesOf(message, GMIME_ADDRESS_TYPE_TO) +
                        "\n" + addressesOf(message, GMIME_ADDRESS_TYPE_CC) + "\n" + addressesOf(message, GMIME_ADDRESS_TYPE_BCC) +
                        "\n";
    g_mime_message_foreach(
        message,
        [](GMimeObject*, GMimeObject* part, gpointer to) {
            if (!GMIME_IS_PART(part)) return;
            const char* const name = g_mime_part_get_filename(GMIME_PART(part));
            *static_cast<std::string*>(to) +=
                (name != nullptr ? name : "body") + std::string{": "} + contentOf(GMIME_PART(part)) + "\n";
        },
        &facts);
    return facts;
}

TEST_F(MailFile, IsReadAsItWasWritten) {
    const std::string longName = "Relevé d'impôt «2025» très très très long nom de fichier pour un client.pdf";
    const std::string allBytes = [] {
        std::string all;
        for (int i = 0; i < 3000; ++i) all += static_cast<char>(i % 256);
        return all;
    }();
    mail.subject = "Déclaration " + std::string(90, 'x') + " année";
    mail.body = "Été\r\nFrom me\r.\n=\n--=-00ABC\n" + std::string(1200, 'y');
    mail.recipients = {{RecipientType::to, "Tremblay, Zoé", "zoe@example.ca"},
                       {RecipientType::to, "a@example.ca", "a@example.ca"},
                       {RecipientType::cc, "Unknown", ""},
                       {RecipientType::bcc, "Hidden", "hidden@example.ca"}};
    mail.attachments = {{longName, allBytes}, {"../a\\b.txt", ""}};
    exchange::writeMailFile(mail, path());
    const std::string parts =
        "body: Été\nFrom me\n.\n=\n--=-00ABC\n" + std::string(1200, 'y') + "\n" + longName + ": " + allBytes + "\n.._a_b.txt: \n";
    EXPECT_EQ(read(), mail.subject + "\n\"Tremblay, Zoé\" <zoe@example.ca>, a@example.ca\nUnknown: ;\n\n" + parts);
    EXPECT_EQ(bytes().find("hidden"), std::string::npos) << "others read what was sent";
    EXPECT_EQ(bytes().find("X-Unsent"), std::string::npos);

    std::filesystem::remove(path());
    mail.isDraft = true;
    exchange::writeMailFile(mail, path());
    EXPECT_NE(read().find("\nHidden <hidden@example.ca>\n"), std::string::npos);
    EXPECT_NE(bytes().find("\r\nX-Unsent: 1\r\n"), std::string::npos);
}

TEST_F(MailFile, HeadTakesNoLineFromWhatIsWrittenIntoIt) {
    mail.subject = "Hello\r\nBcc: x@example.ca\n\nBody";
    mail.recipients = {{RecipientType::to, "B\r\nX-One: y", "b@example.ca\r\nX-Two: y"}};
    mail.attachments = {{"a\"\r\nX-Three: y.pdf", "x"}};
    mail.body = std::string{"nul \0 and \xFF", 11};
    exchange::writeMailFile(mail, path());
    std::istringstream lines{bytes()};
    std::size_t longest = 0;
    for (std::string line; std::getline(lines, line);) {
        EXPECT_TRUE(line.ends_with('\r')) << line;
        EXPECT_FALSE(line.starts_with("Bcc") || line.starts_with("X-")) << line;
        longest = std::max(longest, line.size());
    }
    EXPECT_LE(longest, 999U);
    EXPECT_EQ(read().find('\xFF'), std::string::npos);
}

TEST_F(MailFile, HeadIsReadAsItWasWritten) {
    const std::string manyAccents = [] {
        std::string text;
        for (int i = 0; i < 1500; ++i) text += "é";
        return text;
    }();
    for (const std::string& text :
         {std::string{"=?utf-8?Q?Hi=0D=0ABcc:_x=40y.ca?="}, std::string{"=?utf-8?B?SGk=?= trick"}, manyAccents,
          std::string{"The return of last year, with two  blanks and the notes that the accountant has asked for in the spring"},
          std::string(300, 'x'), std::string{"Anne  Smith"}, std::string(60, '"'), std::string{"O'Brien (\"Bob\"), a\\b; c"},
          std::string{"日本語 été"}}) {
        SCOPED_TRACE(text);
        std::filesystem::remove(path());
        mail.subject = text;
        mail.recipients = {{RecipientType::to, text, "a@example.ca"}, {RecipientType::cc, text, ""}};
        exchange::writeMailFile(mail, path());
        EXPECT_EQ(headTexts(), (std::vector<std::string>{text, text, text}));
        std::istringstream lines{bytes()};
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 77U) << line;
    }
}

TEST_F(MailFile, NoFileIsOverwrittenAndNoneIsLeftHalf) {
    std::ofstream{path()} << "mine";
    const auto messageOfWriting = [&](const std::string& to) {
        try {
            exchange::writeMailFile(mail, to);
        } catch (const Failure& failure) {
            return std::string{failure.what()};
        }
        return std::string{};
    };
    EXPECT_EQ(messageOfWriting(path()), "The file \"" + path() + "\" exists already; name another one");
    EXPECT_EQ(bytes(), "mine");
    const std::string nowhere = folder.workingFolderPath() + "/none/mail.eml";
    EXPECT_EQ(messageOfWriting(nowhere),
              "The file \"" + nowhere + "\" cannot be made; name one in a folder that can be written to");

    const std::string fresh = folder.workingFolderPath() + "/fresh.eml";
    mail.attachments = {{"big", std::string(300'000, 'x')}};
    const rlimit small{100'000, RLIM_INFINITY};
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string message = messageOfWriting(fresh);
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(message, "The file \"" + fresh + "\" cannot be written to the end");
    EXPECT_THROW(exchange::writeMailFile(mail, fresh, [] { throw std::runtime_error{"stopped"}; }), std::runtime_error);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator{folder.workingFolderPath()}, {}), 1);
}

}  // namespace
}  // namespace wmoutlook::testing
