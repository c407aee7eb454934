#include "adapters/outlookstore/StoreMail.h"
#include "platform/Errors.h"

#include <utility>

namespace wmoutlook::outlookstore {

namespace {

// Neither a recipient nor an attachment is ever taken away, so their places stay.

class StoreRecipient : public outlook::port::Recipient {
public:
    StoreRecipient(std::shared_ptr<MailParts> mail, std::size_t index) : mail_(std::move(mail)), index_(index) {}

    std::string name() const override { return row().name; }
    std::string address() const override { return row().address; }
    outlook::RecipientType type() const override { return row().type; }
    void setType(outlook::RecipientType type) override { mail_->setRecipientType(index_, type); }
    bool resolve() override { return mail_->resolveRecipient(index_); }

private:
    [[nodiscard]] const RecipientRow& row() const { return mail_->recipients()[index_]; }

    std::shared_ptr<MailParts> mail_;
    std::size_t index_;
};

class StoreAttachment : public outlook::port::Attachment {
public:
    StoreAttachment(std::shared_ptr<MailParts> mail, std::size_t index) : mail_(std::move(mail)), index_(index) {}

    std::string fileName() const override { return row().fileName; }
    std::string displayName() const override { return row().displayName; }
    void setDisplayName(std::string_view name) override { mail_->setDisplayName(index_, name); }

private:
    [[nodiscard]] const AttachmentRow& row() const { return mail_->attachments()[index_]; }

    std::shared_ptr<MailParts> mail_;
    std::size_t index_;
};

std::size_t placeOf(std::int32_t index, std::size_t count, const char* what) {
    if (index < 1 || static_cast<std::size_t>(index) > count)
        throw OutlookError{-1, std::string{"There is no "} + what + " with this index"};
    return static_cast<std::size_t>(index) - 1;
}

class StoreRecipients : public outlook::port::Recipients {
public:
    explicit StoreRecipients(std::shared_ptr<MailParts> mail) : mail_(std::move(mail)) {}

    std::shared_ptr<outlook::port::Recipient> add(std::string_view name) override {
        mail_->addRecipient(name);
        return std::make_shared<StoreRecipient>(mail_, mail_->recipients().size() - 1);
    }
    std::int32_t count() const override { return static_cast<std::int32_t>(mail_->recipients().size()); }
    std::shared_ptr<outlook::port::Recipient> item(std::int32_t index) override {
        return std::make_shared<StoreRecipient>(mail_, placeOf(index, mail_->recipients().size(), "recipient"));
    }

private:
    std::shared_ptr<MailParts> mail_;
};

class StoreAttachments : public outlook::port::Attachments {
public:
    explicit StoreAttachments(std::shared_ptr<MailParts> mail) : mail_(std::move(mail)) {}

    std::shared_ptr<outlook::port::Attachment> add(std::string_view path) override {
        mail_->addAttachment(path);
        return std::make_shared<StoreAttachment>(mail_, mail_->attachments().size() - 1);
    }
    std::int32_t count() const override { return static_cast<std::int32_t>(mail_->attachments().size()); }
    std::shared_ptr<outlook::port::Attachment> item(std::int32_t index) override {
        return std::make_shared<StoreAttachment>(mail_, placeOf(index, mail_->attachments().size(), "attachment"));
    }

private:
    std::shared_ptr<MailParts> mail_;
};

}  // namespace

std::shared_ptr<outlook::port::Recipients> recipientsOf(std::shared_ptr<MailParts> mail) {
    return std::make_shared<StoreRecipients>(std::move(mail));
}

std::shared_ptr<outlook::port::Attachments> attachmentsOf(std::shared_ptr<MailParts> mail) {
    return std::make_shared<StoreAttachments>(std::move(mail));
}

}  // namespace wmoutlook::outlookstore
