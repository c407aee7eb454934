#pragma once

#include "bench/BenchFirm.h"
#include "bench/Cost.h"
#include "bench/HandWrittenItem.h"
#include "bench/Prepared.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::bench {

/// What a good programmer writes who has only this one job: companies with their default contacts to Outlook, with prepared
/// statements on both files, whose form is known. The same rows are read, the same links and names looked up through the same
/// indexes, the same items and links written, each write a transaction of its own, with the same pragmas. There is no error
/// handling beyond ending, no other option, and no text is copied that need not be.
class HandWrittenLoop {
public:
    explicit HandWrittenLoop(const Files& files, std::int32_t companies);
    ~HandWrittenLoop();

    Cost run();

private:
    struct Connections;
    struct Statements;
    struct Link {
        std::int64_t row = 0;  ///< 0: there is none
        std::int64_t item = 0;
        bool isCurrent = false;  ///< of today, so that there is nothing to store
    };

    void carryCompany(std::int32_t companyID);
    [[nodiscard]] Link findLink(std::int32_t companyID);
    [[nodiscard]] std::int64_t findItemFiledUnder(std::string_view name);
    [[nodiscard]] bool loadItem(std::int64_t number);
    void fillItem(std::int32_t companyID);
    void fillFromContact(std::string_view companyEmail);
    [[nodiscard]] std::int64_t insertItem();
    void updateItem(std::int64_t number);
    void bindKeys(Prepared& statement, int first);
    void saveLink(std::int32_t companyID, Link link, std::int64_t item);
    [[nodiscard]] std::string_view entryID(std::int64_t item);

    std::unique_ptr<Connections> connections_;
    std::unique_ptr<Statements> statements_;
    std::vector<std::int32_t> selection_;
    HandWrittenItem item_;
    std::string bytes_, key_, entryID_, storeID_, storeKey_;
    std::string fileAsKey_, fullNameKey_, emailKey_;
    std::int64_t folder_ = 0;
    bool keysChanged_ = false;
};

}  // namespace wmoutlook::bench
