#pragma once

#include "platform/outlook/Handles.h"

#include <memory>
#include <string_view>

namespace wmoutlook {

/// The second public class: composes one message in Outlook, and shows or sends it. It has its own connection to Outlook, apart
/// from any synchronization, and one current mail, which createNewMail replaces. Without a current mail every other operation
/// on it does nothing and gives false.
///
/// Failures go to the error service that clsOutlookSynchronization was handed. One thread. Nothing throws, but for what the host
/// itself throws from ExitProgram.
class clsOutlookSendMail {
public:
    explicit clsOutlookSendMail(std::shared_ptr<outlook::port::Automation> automation) : automation_(std::move(automation)) {}

    /// Attaches to the running Outlook, or starts one, and logs on. Without a profile the logon is made without profile and
    /// password, without a password with the profile alone. Whether there is a session.
    bool startOutlook(std::string_view strProfile, std::string_view strPassword, bool blnDisplayDialog, bool blnNewSession);
    bool createNewMail();  ///< whether there is a new one; otherwise the present one stays current
    void closeOutlook();   ///< lets go of the mail and of Outlook, which stays open
    bool displayMail();    ///< without waiting for the user
    bool sendMail();
    /// Outlook takes a copy of the file at once. An empty display name leaves the one that Outlook gives.
    bool attachment(std::string_view strNewValue, std::string_view strNewDisplayName = {});

    // Write only

    void body(std::string_view text);
    void subject(std::string_view text);

    // Each adds a recipient, whether or not Outlook can resolve it.

    void recipient_CC(std::string_view name);
    void recipient_BCC(std::string_view name);
    void recipient_TO(std::string_view name);

private:
    template <class Work>
    bool withMail(std::string_view errorTag, Work work);
    void addRecipient(std::string_view errorTag, std::string_view name, outlook::RecipientType type);

    std::shared_ptr<outlook::port::Automation> automation_;
    outlook::Application application_;
    outlook::NameSpace nameSpace_;
    outlook::Item mail_;
};

}  // namespace wmoutlook
