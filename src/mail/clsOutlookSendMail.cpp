#include "mail/clsOutlookSendMail.h"

#include "platform/Errors.h"
#include "platform/Routine.h"
#include "platform/outlook/PropertyNames.h"

namespace wmoutlook {

namespace {

outlook::Application reachOutlook(const std::shared_ptr<outlook::port::Automation>& automation) {
    auto application = quietly([&] { return automation ? automation->getRunning() : nullptr; });
    if (!application)
        application = statement([&] {
            if (!automation) throw ObjectNotSet{"Outlook"};
            return automation->createNew();
        });
    return outlook::Application{application};
}

/// Without a profile there is no password to pass either.
outlook::LogonArguments logonArguments(std::string_view profile, std::string_view password) {
    outlook::LogonArguments arguments;
    if (profile.empty()) return arguments;
    arguments.profile = profile;
    if (!password.empty()) arguments.password = password;
    return arguments;
}

template <class Work>
void runPublic(std::string_view errorTag, Work work) {
    publicOperation([&] {
        Routine routine{errorTag};
        routine.run(work);
    });
}

}  // namespace

bool clsOutlookSendMail::startOutlook(std::string_view strProfile, std::string_view strPassword, bool blnDisplayDialog,
                                      bool blnNewSession) {
    bool isLoggedOn = false;
    runPublic("wmoutlooktb.dll-clsOutlookSendMail-startOutlook", [&] {
        application_ = reachOutlook(automation_);
        if (application_.isNothing()) return;
        nameSpace_ = application_.getNamespace("MAPI");
        isLoggedOn = nameSpace_.logon([&] {
            outlook::LogonArguments arguments = logonArguments(strProfile, strPassword);
            arguments.showDialog = blnDisplayDialog;
            arguments.newSession = blnNewSession;
            return arguments;
        });
    });
    return isLoggedOn;
}

bool clsOutlookSendMail::createNewMail() {
    bool isCreated = false;
    runPublic("wmoutlooktb.dll-clsOutlookSendMail-createNewMail", [&] {
        const outlook::Item mail = application_.createItem(outlook::ItemType::mail);
        isCreated = !mail.isNothing();
        if (isCreated) mail_ = mail;
    });
    return isCreated;
}

void clsOutlookSendMail::closeOutlook() {
    runPublic("wmoutlooktb.dll-clsOutlookSendMail-closeOutlook", [&] {
        mail_.release();
        nameSpace_.release();
        application_.release();
    });
}

/// Whether there is a mail, whatever becomes of the work on it.
template <class Work>
bool clsOutlookSendMail::withMail(std::string_view errorTag, Work work) {
    const bool isThere = !mail_.isNothing();
    runPublic(errorTag, [&] {
        if (isThere) work();
    });
    return isThere;
}

bool clsOutlookSendMail::displayMail() {
    return withMail("wmoutlooktb.dll-clsOutlookSendMail-displayMail", [&] { mail_.display(); });
}

bool clsOutlookSendMail::sendMail() {
    return withMail("wmoutlooktb.dll-clsOutlookSendMail-sendMail", [&] { mail_.send(); });
}

bool clsOutlookSendMail::attachment(std::string_view strNewValue, std::string_view strNewDisplayName) {
    return withMail("wmoutlooktb.dll-clsOutlookSendMail-attachment", [&] {
        const outlook::Attachment added = mail_.attachments().add(strNewValue);
        if (!strNewDisplayName.empty()) added.setDisplayName(strNewDisplayName);
    });
}

void clsOutlookSendMail::body(std::string_view text) {
    withMail("wmoutlooktb.dll-clsOutlookSendMail-body", [&] { mail_.put(outlook::property::Body, text); });
}

void clsOutlookSendMail::subject(std::string_view text) {
    withMail("wmoutlooktb.dll-clsOutlookSendMail-subject", [&] { mail_.put(outlook::property::Subject, text); });
}

void clsOutlookSendMail::recipient_CC(std::string_view name) {
    addRecipient("wmoutlooktb.dll-clsOutlookSendMail-recipient_CC", name, outlook::RecipientType::cc);
}

void clsOutlookSendMail::recipient_BCC(std::string_view name) {
    addRecipient("wmoutlooktb.dll-clsOutlookSendMail-recipient_BCC", name, outlook::RecipientType::bcc);
}

void clsOutlookSendMail::recipient_TO(std::string_view name) {
    addRecipient("wmoutlooktb.dll-clsOutlookSendMail-recipient_TO", name, outlook::RecipientType::to);
}

void clsOutlookSendMail::addRecipient(std::string_view errorTag, std::string_view name, outlook::RecipientType type) {
    withMail(errorTag, [&] {
        const outlook::Recipient recipient = mail_.recipients().add(name);
        recipient.setType(type);
        recipient.resolve();
    });
}

}  // namespace wmoutlook
