#pragma once

#include "adapters/sql/Driver.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace wmoutlook::sql {

/// One connection to one SQLite file, with this system's collation and with everything off that a foreign file could abuse.
class SqliteConnection {
public:
    enum class Mode { readWrite, readOnly, immutable };

    /// Never creates a file. Throws DatabaseError.
    SqliteConnection(const std::string& path, Mode mode, int busyTimeoutMilliseconds);
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;

    [[nodiscard]] sqlite3* get() const { return database_; }
    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::unique_ptr<Statement> prepare(const std::string& text, TextOrigin origin);
    void execute(const std::string& text);
    [[nodiscard]] std::int64_t preparedStatements() const { return preparedStatements_; }

    /// From now on up to kSharedReads reads in a row share one read transaction, since taking and giving back the file's lock
    /// costs more than a keyed read. Another process's write is seen when it ends: before a write of ours, after
    /// the last of these reads, or at endSharedRead.
    void shareReads();
    void endSharedRead() noexcept;
    /// A file without a write-ahead log gets one when something is written for the first time, not for being opened. While others
    /// hold the file that write fails, and the next one tries again. Where the engine has no log to offer it stays without.
    void startLogAtFirstWrite() { isLogWanted_ = true; }
    [[nodiscard]] bool isViewOld() const { return sharedReads_ > 1; }
    /// Begins the transaction in which everything is done from now on, to be undone by ROLLBACK. Some failures of the file make
    /// the engine undo it by itself; from then on every statement fails, since it would be stored for good.
    void beginTrial();
    void beforeStatement(bool isReading);  ///< what each statement tells when it begins to run

    static constexpr int kSharedReads = 16;

    /// Throws the error that the engine reports, behind a word on what was attempted.
    [[noreturn]] void fail(std::string_view attempted) const;

private:
    void configure(int busyTimeoutMilliseconds);
    void startLog();
    static int authorize(void* self, int action, const char* first, const char* second, const char* schema, const char* inner);

    std::string path_;
    sqlite3* database_ = nullptr;
    bool isHostText_ = false;        ///< a text from outside is being prepared
    sqlite3_stmt* begin_ = nullptr;  ///< null while reads are not shared
    sqlite3_stmt* commit_ = nullptr;
    bool isTrial_ = false;
    bool isLogWanted_ = false;
    int sharedReads_ = 0;  ///< in the transaction that is open; 0: none is
    std::int64_t preparedStatements_ = 0;
};

}  // namespace wmoutlook::sql
