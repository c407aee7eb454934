#include "adapters/sql/SqliteDatabase.h"
#include "platform/Errors.h"
#include "tests/adapters/sql/SqlTest.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>

#include <limits>
#include <map>

namespace wmoutlook {
namespace {

/// A file system in which one read of a file fails, as a disk that is going does.
class FailingReads {
public:
    FailingReads() {
        sqlite3_vfs* const real = sqlite3_vfs_find(nullptr);
        realOpen_ = real->xOpen;
        vfs_ = *real;
        vfs_.zName = "failing";
        vfs_.xOpen = &open;
        sqlite3_vfs_register(&vfs_, 1);
    }
    ~FailingReads() {
        left_ = 0;
        sqlite3_vfs_unregister(&vfs_);
    }
    FailingReads(const FailingReads&) = delete;
    FailingReads& operator=(const FailingReads&) = delete;

    void failRead(int number) {
        left_ = number;
        hasFailed_ = false;
    }
    [[nodiscard]] bool hasFailed() const { return hasFailed_; }

private:
    static int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
        const int result = realOpen_(vfs, name, file, flags, outFlags);
        if (file->pMethods == nullptr || (flags & SQLITE_OPEN_MAIN_DB) == 0) return result;
        const auto [methods, isNew] = methods_.try_emplace(file->pMethods, *file->pMethods);
        realRead_ = file->pMethods->xRead;
        methods->second.xRead = &read;
        methods->second.xFetch = [](sqlite3_file*, sqlite3_int64, int, void** page) { return *page = nullptr, SQLITE_OK; };
        file->pMethods = &methods->second;
        return result;
    }
    static int read(sqlite3_file* file, void* bytes, int size, sqlite3_int64 offset) {
        if (left_ > 0 && --left_ == 0) {
            hasFailed_ = true;
            return SQLITE_IOERR_READ;
        }
        return realRead_(file, bytes, size, offset);
    }

    static inline sqlite3_vfs vfs_{};
    static inline std::map<const sqlite3_io_methods*, sqlite3_io_methods> methods_;
    static inline int (*realOpen_)(sqlite3_vfs*, const char*, sqlite3_file*, int, int*) = nullptr;
    static inline int (*realRead_)(sqlite3_file*, void*, int, sqlite3_int64) = nullptr;
    static inline int left_ = 0;
    static inline bool hasFailed_ = false;
};

/// Five appointments, each of which fills pages of its own.
class ReadFaults : public ::testing::Test {
protected:
    ReadFaults() {
        createSqliteDatabase(path_);
        const auto database = openSqliteDatabase(path_);
        const std::string wide(20000, 'x');
        for (const std::string_view name : {"Ann", "Bob", "Cid", "Dee", "Eve"})
            addRow(*database, "Appointments", {{"Subject", name}, {"TextBody", wide}, {"ReminderPeriod", "Here"}});
        for (int i = 0; i < 400; ++i) addRow(*database, "Companies", {{"CompanyName", "Company " + std::to_string(i)}});
    }

    /// The same with each read failing in turn, until the work goes through.
    void sweep(const SqliteOptions& options, const std::function<void(HostDatabase& database)>& work) {
        int read = 0;
        for (;;) {
            SCOPED_TRACE("read " + std::to_string(read + 1));
            const auto database = openSqliteDatabase(path_, options);
            files_.failRead(++read);
            work(*database);
            const bool hasFailed = files_.hasFailed();
            files_.failRead(0);
            if (!hasFailed || HasFailure()) break;
        }
        EXPECT_GT(read, 2);
    }

    static bool fails(const std::function<void()>& operation) {
        try {
            operation();
            return false;
        } catch (const DatabaseError&) {
            return true;
        }
    }

    FailingReads files_;
    TestFolder folder_;
    std::string path_ = (folder_.path() / "firm.tallow").string();
};

TEST_F(ReadFaults, SetStaysOnItsRowWhenTheNextOneCannotBeRead) {
    using Step = void (*)(HostDatabase&, RecordsetHandle);
    const Step walk = [](HostDatabase& database, RecordsetHandle rows) { database.moveNext(rows); };
    const Step search = [](HostDatabase& database, RecordsetHandle rows) {
        const bool isLast = database.getField(rows, "Subject").toText() == "Dee";
        (void)database.findFirst(rows, "Subject", isLast ? "Eve" : "Dee");  // an index from the second search on
    };
    for (const Step step : {walk, search})
        sweep({}, [&](HostDatabase& database) {
            const auto rows = database.openRecordset("SELECT Appointments.* FROM Appointments;", LockCode::updatable);
            if (fails([&] { database.moveFirst(rows); })) return;
            std::string standsOn = "Ann";
            for (int i = 0; i < 4; ++i) {
                if (!fails([&] { step(database, rows); })) {
                    standsOn = database.getField(rows, "Subject").toText();
                    continue;
                }
                database.updateField(rows, "ReminderPeriod", "was here");
                EXPECT_EQ(database.getField(rows, "Subject").toText(), standsOn);
                return;
            }
        });
}

TEST_F(ReadFaults, SetThatCouldNotBeReadIsNotTakenForAnEmptyOne) {
    sweep({}, [&](HostDatabase& database) {
        RecordsetHandle rows = kNoRecordset;
        if (fails([&] { rows = database.openRecordset("SELECT Appointments.* FROM Appointments;", LockCode::readOnly); })) return;
        if (!fails([&] { (void)database.hasRows(rows); })) return;
        EXPECT_FALSE(database.isEndOfRecordset(rows));
        EXPECT_EQ(database.getField(rows, "Subject").toText(), "Ann");
    });
}

TEST_F(ReadFaults, SearchThatFailedIsAnsweredInFullTheNextTime) {
    sweep({}, [&](HostDatabase& database) {
        RecordsetHandle rows = kNoRecordset;
        if (fails([&] { rows = database.openRecordset("SELECT Appointments.* FROM Appointments;", LockCode::readOnly); })) return;
        for (const std::string_view name : {"Bob", "Dee", "Eve"}) {  // no key: an index from the second on
            bool isFound = false;
            if (fails([&] { isFound = database.findFirst(rows, "Subject", name); }))
                isFound = database.findFirst(rows, "Subject", name);
            EXPECT_TRUE(isFound) << name;
        }
    });
}

TEST_F(ReadFaults, DryRunThatTheEngineHasUndoneStoresNothingMore) {
    int ended = 0;
    sweep({.dryRun = true}, [&](HostDatabase& database) {
        const auto add = [&] { addRow(database, "Appointments", {{"Subject", "Trial"}}); };
        const bool isAddUndone = fails(add);
        const bool isReadUndone = fails([&] {
            const auto rows = database.openRecordset("SELECT Companies.* FROM Companies;", LockCode::readOnly);
            (void)database.findFirst(rows, "WebSite", "nowhere");
        });
        ended += (isAddUndone || isReadUndone) && fails(add) ? 1 : 0;
    });
    EXPECT_GT(ended, 0);
    const auto database = openSqliteDatabase(path_);
    const auto rows = database->openRecordset("SELECT Appointments.* FROM Appointments;", LockCode::readOnly);
    EXPECT_EQ(database->recordCount(rows), 5);
}

}  // namespace
}  // namespace wmoutlook
