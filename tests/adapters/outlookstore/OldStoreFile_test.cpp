#include "TestStore.h"
#include "adapters/outlookstore/ItemBlob.h"
#include "platform/Errors.h"
#include "tests/support/Files.h"
#include "tests/support/RawDatabase.h"

namespace wmoutlook::testing {

namespace {

class OldFile : public RawDatabase {
public:
    explicit OldFile(const std::string& path) : RawDatabase(path) { run(bytesOf(TEST_DATA "/outlook-store-1.sql")); }

    void add(std::int64_t folder, outlook::ItemType type, std::string_view property, const Variant& value) {
        outlookstore::ItemData item{type};
        item.set(item.table().find(property).value(), value);
        std::string bytes;
        outlookstore::encodeItem(item, bytes);
        std::string digits;
        for (const char c : bytes) {
            constexpr const char* kDigits = "0123456789ABCDEF";
            const auto byte = static_cast<unsigned char>(c);
            digits.append({kDigits[byte / 16], kDigits[byte % 16]});
        }
        run("INSERT INTO Items VALUES (NULL, " + std::to_string(folder) + ", " + std::to_string(static_cast<int>(type)) +
            ", 1, 46000, 46000, NULL, NULL, NULL, NULL, x'" + digits + "')");
    }
};

TEST(OldStoreFile, AFileOfVersion1IsBroughtUpToDateWithItsItems) {
    const TestFolder folder;
    const std::string path = folder.file("old.db");
    {
        OldFile old{path};
        old.add(6, outlook::ItemType::appointment, "Start", *makeDate({2026, 11, 24, 9, 0, 0}));
        old.add(6, outlook::ItemType::appointment, "Start", *makeDate({2026, 11, 23, 9, 0, 0}));
        old.add(6, outlook::ItemType::appointment, "Location", "Room 1");
        old.add(7, outlook::ItemType::contact, "FileAs", "Tremblay, Zoé");
        old.add(9, outlook::ItemType::task, "DueDate", makeDay(2026, 11, 30));
        old.add(9, outlook::ItemType::task, "DueDate", makeDay(2026, 11, 29));
        old.run("INSERT INTO Items VALUES (NULL, 6, 1, 1, 46000, 46000, NULL, NULL, NULL, NULL, x'FF')");
    }
    const auto seconds = [](Date date) { return std::to_string(secondsSinceDayZero(date)); };
    for (int opening = 0; opening < 2; ++opening) {
        const Session session{path};
        EXPECT_EQ(session.contacts->items()->count(), 1);
        const auto mail = session.application->createItem(outlook::ItemType::mail);
        mail->recipients()->add("anne@example.ca");
        EXPECT_NO_THROW(mail->send());
    }
    const std::vector<std::string> expected{seconds(*makeDate({2026, 11, 24, 9, 0, 0})) + "|null",
                                            seconds(*makeDate({2026, 11, 23, 9, 0, 0})) + "|null",
                                            seconds(absentDate()) + "|null",
                                            "null|null",
                                            "null|" + seconds(makeDay(2026, 11, 30)),
                                            "null|" + seconds(makeDay(2026, 11, 29)),
                                            seconds(absentDate()) + "|null",
                                            "null|null",
                                            "null|null"};
    EXPECT_EQ(RawDatabase{path}.rows("SELECT StartKey, DueDateKey FROM Items ORDER BY ItemNumber"), expected)
        << "an item that cannot be read hinders nobody";
}

TEST(OldStoreFile, OneThatLacksWhatNoUpdateMakesIsRefusedAndNotUpdated) {
    const TestFolder folder;
    const std::string path = folder.file("old.db");
    struct Case {
        std::string damage, said;
    };
    for (const Case& c :
         {Case{"DROP TABLE Items", "no such table: Items"}, Case{"DROP TABLE Counters", R"(the table "Counters")"},
          Case{"ALTER TABLE Items DROP COLUMN Modified", R"(the column "Modified")"},
          Case{"UPDATE Folders SET Role = NULL WHERE Role = 13", R"(the default folder "Tasks")"}}) {
        SCOPED_TRACE(c.damage);
        std::filesystem::remove(path);
        OldFile{path}.run(c.damage);
        const std::string before = bytesOf(path);
        try {
            static_cast<void>(openOutlookStore(path));
            ADD_FAILURE() << "it was opened";
        } catch (const OutlookError& error) {
            EXPECT_NE(std::string{error.what()}.find(c.said), std::string::npos) << error.what();
            EXPECT_NE(std::string{error.what()}.find("; restore a backup"), std::string::npos) << error.what();
        }
        EXPECT_EQ(bytesOf(path), before);
    }
}

}  // namespace

}  // namespace wmoutlook::testing
