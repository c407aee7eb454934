#include "adapters/headless/Machine.h"
#include "adapters/outlookstore/OutlookStore.h"
#include "adapters/outlookstore/StoreListing.h"
#include "apps/tallowsync/Command.h"
#include "apps/tallowsync/PlainText.h"
#include "apps/tallowsync/items/ItemJson.h"
#include "apps/tallowsync/items/ValueLimits.h"
#include "apps/tallowsync/run/FirstFailure.h"
#include "apps/tallowsync/run/RecordingOutlook.h"
#include "mail/clsOutlookSendMail.h"
#include "platform/Routine.h"
#include "platform/Text.h"

#include <filesystem>
#include <iterator>
#include <memory>
#include <optional>

namespace wmoutlook {

namespace {

struct MailTexts {
    std::string outlook, subject, body;
    std::vector<std::string> to, cc, bcc, attachments;
    bool isToBeSent = false, isToBeShown = false, asJson = false;
};

/// An option whose texts are recipients, and what takes one of them.
struct RecipientOption {
    std::string_view option;
    std::vector<std::string> MailTexts::*texts;
    void (clsOutlookSendMail::*add)(std::string_view name);
};

constexpr RecipientOption kRecipientOptions[] = {
    {"--to", &MailTexts::to, &clsOutlookSendMail::recipient_TO},
    {"--cc", &MailTexts::cc, &clsOutlookSendMail::recipient_CC},
    {"--bcc", &MailTexts::bcc, &clsOutlookSendMail::recipient_BCC},
};

struct AttachedFile {
    std::string path, displayName;
};

/// "FILE=NAME", or a file alone. Both can hold equals signs: the longest file that is there is meant, otherwise the shortest.
AttachedFile attachedFile(const std::string& text) {
    std::error_code error;
    if (std::filesystem::exists(text, error)) return {text, {}};
    std::size_t equals = text.rfind('=');
    while (equals != std::string::npos && equals > 0 && !std::filesystem::exists(text.substr(0, equals), error))
        equals = text.rfind('=', equals - 1);
    if (equals == std::string::npos || equals == 0) equals = text.find('=');
    if (equals == std::string::npos) return {text, {}};
    return {text.substr(0, equals), text.substr(equals + 1)};
}

std::vector<AttachedFile> attachedFiles(const std::vector<std::string>& texts) {
    std::vector<AttachedFile> files;
    for (const std::string& text : texts) {
        files.push_back(attachedFile(text));
        const std::string& name = files.back().displayName;
        if (const std::string fault = name.empty() ? std::string{} : faultOfName(name); !fault.empty())
            throw UsageError{"--attach: " + inQuotes(name) + " cannot be the name of an attachment, since it " + fault};
    }
    return files;
}

void requireStorable(const std::string& option, std::string_view property, std::string_view text) {
    if (const std::string fault = faultOfText(property, text); !fault.empty()) throw UsageError{option + ": the text " + fault};
}

/// The mail as a host composes it, with the host's services. Nothing of it is stored before it is shown or sent.
class Composition {
public:
    Composition(const MailTexts& texts, StopSignal stopSignal)
        : texts_(texts), record_(std::make_shared<OutlookRecord>()), store_(openOutlookStore(texts.outlook)) {
        record_->end = std::make_shared<RunEnd>(std::move(stopSignal));
        setErrorService(failure_);
    }
    ~Composition() { setErrorService(nullptr); }
    Composition(const Composition&) = delete;
    Composition& operator=(const Composition&) = delete;

    /// The mail as it lies in the store.
    outlookstore::ListedItem finish(Console& console);

private:
    void checkRecipients() const;
    void compose(const std::string& body, const std::vector<AttachedFile>& files);
    void requireDone(const std::string& what) const;

    const MailTexts& texts_;
    std::shared_ptr<OutlookRecord> record_;
    std::shared_ptr<outlook::port::Automation> store_;
    std::shared_ptr<FirstFailure> failure_ = std::make_shared<FirstFailure>();
    clsOutlookSendMail mail_{recordOutlook(store_, record_)};
};

/// A mail that cannot be sent is refused before it is made; to whom it cannot go is told by the option's own text.
void Composition::checkRecipients() const {
    const auto trial = store_->getRunning()->createItem(outlook::ItemType::mail)->recipients();
    std::size_t count = 0;
    for (const RecipientOption& row : kRecipientOptions)
        for (const std::string& text : texts_.*row.texts) {
            ++count;
            const std::string option{row.option};
            if (!faultOfName(text).empty())
                throw UsageError{option + ": " + inQuotes(text) + " cannot be a recipient, since it " + faultOfName(text)};
            if (texts_.isToBeSent && !trial->add(text)->resolve())
                throw UsageError{option + ": " + inQuotes(text) +
                                 " is neither an e-mail address nor the name of one contact that has one"};
        }
    if (texts_.isToBeSent && count == 0) throw UsageError{"A mail to nobody cannot be sent; name somebody with --to"};
}

void Composition::requireDone(const std::string& what) const {
    if (failure_->first()) throw InputError{what + failure_->first()->message};
}

void Composition::compose(const std::string& body, const std::vector<AttachedFile>& files) {
    mail_.startOutlook({}, {}, false, false);
    mail_.createNewMail();
    mail_.subject(texts_.subject);
    mail_.body(body);
    for (const RecipientOption& row : kRecipientOptions)
        for (const std::string& text : texts_.*row.texts) (mail_.*row.add)(text);
    requireDone({});
    for (const AttachedFile& file : files) {
        mail_.attachment(file.path, file.displayName);
        requireDone("--attach: " + inQuotes(file.path) + ": ");
    }
}

outlookstore::ListedItem Composition::finish(Console& console) {
    const std::string body = texts_.body == "-" ? wholeInput(console.in) : texts_.body;
    requireStorable("--subject", "Subject", texts_.subject);
    requireStorable("--body", "Body", body);
    checkRecipients();
    compose(body, attachedFiles(texts_.attachments));
    stopIfAsked(console.stopSignal);
    texts_.isToBeSent ? mail_.sendMail() : mail_.displayMail();
    requireDone({});
    return outlookstore::describe(*outlookstore::findItem(*store_, record_->items.created().front().get<std::string>()));
}

Action declareMail(CLI::App& line) {
    const auto texts = std::make_shared<MailTexts>();
    line.add_option("--outlook", texts->outlook, "The Outlook store")->required();
    for (const RecipientOption& row : kRecipientOptions)
        line.add_option(std::string{row.option}, (*texts).*row.texts,
                        "A recipient: an e-mail address or the name of a contact; may be repeated")
            ->allow_extra_args(false);
    line.add_option("--subject", texts->subject, "The subject");
    line.add_option("--body", texts->body, "The text; - reads it from standard input");
    line.add_option("--attach", texts->attachments, "A file, or FILE=NAME to show it under another name; may be repeated")
        ->allow_extra_args(false);
    auto* const actions = line.add_option_group("action");
    actions->add_flag("--display", texts->isToBeShown, "Leave it among the drafts, as a window without Outlook would");
    actions->add_flag("--send", texts->isToBeSent, "Put it into the Outbox; every recipient has to be known");
    actions->require_option(1);
    line.add_flag("--json", texts->asJson, "Print the mail as 'outlook FILE list --json' does; otherwise its identifier");
    return [texts](Console& console) {
        const auto mail = Composition{*texts, console.stopSignal}.finish(console);
        console.out << (texts->asJson ? jsonText(itemToJson(mail), 2) : mail.entryID) << '\n';
        return ExitStatus::done;
    };
}

constexpr Command kCommands[] = {
    {"mail", "Composes a mail and shows it as a draft or sends it.",
     "mail --outlook demo/outlook.db --to anne@example.ca --subject \"Your return\" --body \"It is done.\" \\\n"
     "    --attach return.pdf=\"Return 2025.pdf\" --send",
     declareMail, true},
};

}  // namespace

std::span<const Command> mailCommands() {
    return kCommands;
}

}  // namespace wmoutlook
