#pragma once

#include "adapters/outlookstore/FolderStorage.h"
#include "adapters/outlookstore/ItemStorage.h"
#include "adapters/outlookstore/OutlookStore.h"
#include "adapters/outlookstore/SeriesStorage.h"
#include "adapters/outlookstore/Sqlite.h"
#include "adapters/outlookstore/StoreMailRows.h"

#include <memory>
#include <string>

namespace wmoutlook::outlookstore {

/// An open file with everything that is prepared on it. Closed when the last object that came from it is released; a dry run
/// is one transaction from opening to closing, which is then rolled back.
class StoreFile {
public:
    StoreFile(const std::string& path, const OutlookStoreOptions& options);
    StoreFile(const StoreFile&) = delete;
    StoreFile& operator=(const StoreFile&) = delete;
    ~StoreFile();

    [[nodiscard]] FolderStorage& folders() { return *folders_; }
    [[nodiscard]] ItemStorage& items() { return *items_; }
    [[nodiscard]] SeriesStorage& series() { return *series_; }
    [[nodiscard]] MailRows& mails() { return *mails_; }
    [[nodiscard]] Date now();
    [[nodiscard]] Connection& connection() { return *connection_; }

private:
    std::shared_ptr<Clock> clock_;
    bool dryRun_;
    std::unique_ptr<Connection> connection_;
    std::unique_ptr<FolderStorage> folders_;
    std::unique_ptr<ItemStorage> items_;
    std::unique_ptr<SeriesStorage> series_;
    std::unique_ptr<MailRows> mails_;
};

/// A running Outlook, shared by all objects that were reached through it.
class Instance {
public:
    /// `loggedOn`: the user is logged on already, as in an Outlook that was found running.
    Instance(std::shared_ptr<StoreFile> file, bool acceptsLogon, bool loggedOn)
        : file_(std::move(file)), acceptsLogon_(acceptsLogon), isLoggedOn_(loggedOn) {}

    void logon();  ///< throws OutlookError when it is refused
    void quit() { isAlive_ = false; }
    [[nodiscard]] bool isAlive() const { return isAlive_; }
    /// Throws OutlookError after quit.
    [[nodiscard]] StoreFile& file() const;
    /// The same, for what needs a session: an Outlook that nobody has logged on to does so by itself.
    [[nodiscard]] StoreFile& session();

private:
    std::shared_ptr<StoreFile> file_;
    bool acceptsLogon_;
    bool isLoggedOn_;
    bool isAlive_ = true;
};

}  // namespace wmoutlook::outlookstore
