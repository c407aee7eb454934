#pragma once

#include "platform/outlook/PropertyNames.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace wmoutlook::testing {

/// Two companies, one of them with a default contact, and two contacts, one of them of a company.
struct SmallFirm {
    std::int32_t birch, alder, ann, bob;

    explicit SmallFirm(HostDatabase& database)
        : birch(addCompany(database, {{"CompanyName", "Birch Inc."}, {"City", "Ottawa"}})),
          alder(addCompany(database, {{"CompanyName", "Alder Ltée"}})),
          ann(addContact(database, {{"DisplayName", "Ann Birch"}, {"BusinessEmail", "ann@example.com"}})),
          bob(addContact(database, {{"DisplayName", "Bob"}, {"Birthday", "1980-05-06"}, {"Gender", "Male"}})) {
        makeDefaultContact(database, birch, ann);
    }

    void selectAll(clsOutlookSynchronization& component) const {
        TestHost::select(component, {birch, alder}, {{ann, birch}, {bob, kNoRecord}});
    }

    /// What holds after every complete run: one link for each record, which leads to an item filed under its name.
    void expectComplete(TestHost& host) const {
        std::vector<std::string> names;
        for (const Link& link : linksOf(*host.database)) {
            // A row that lost its data file, store or number to a skipped statement is no link any more.
            if (link.dataFileID != "DF" || link.storeID.empty() || link.companyNum + link.contactNum == "") continue;
            std::string name = "gone";
            for (const auto& item : contactItems(*host.outlookStore))
                if (textOf(*item, outlook::property::EntryID) == link.outlookID) name = textOf(*item, outlook::property::FileAs);
            names.push_back((link.companyNum.empty() ? "contact " + link.contactNum : "company " + link.companyNum) + ": " +
                            name);
        }
        std::sort(names.begin(), names.end());
        EXPECT_EQ(names, (std::vector<std::string>{
                             "company " + toText(birch) + ": Birch Inc.", "company " + toText(alder) + ": Alder Ltée",
                             "contact " + toText(ann) + ": Ann Birch", "contact " + toText(bob) + ": Bob"}));
    }
};

}  // namespace wmoutlook::testing
