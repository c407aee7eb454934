#include "adapters/sql/Shape.h"
#include "adapters/sql/SqliteDatabase.h"
#include "platform/Errors.h"

#include <unistd.h>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

/// The input is a text of the dialect, and once more criteria. Whatever it is, it is refused or opened, its shape has a mark for
/// each literal, and the one row that the file has is still there and as it was.
namespace {

using namespace wmoutlook;

std::shared_ptr<HostDatabase> smallFirm() {
    const std::string path = (std::filesystem::temp_directory_path() / ("fuzz_" + std::to_string(getpid()))).string();
    createSqliteDatabase(path);
    auto database = openSqliteDatabase(path);
    for (const char* const suffix : {"", "-wal", "-shm"})
        std::filesystem::remove(path + suffix);  // open, but nameless from here on
    const auto rows = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::updatable);
    database->addNewRecord(rows);
    database->setNewField(rows, "DisplayName", "Ann");
    database->saveNewRecord(rows);
    database->closeRecordset(rows);
    return database;
}

void open(HostDatabase& database, std::string_view sql) {
    RecordsetHandle rows = kNoRecordset;
    try {
        rows = database.openRecordset(sql, LockCode::updatable);
        for (database.moveFirst(rows); !database.isEndOfRecordset(rows); database.moveNext(rows)) (void)database.hasRows(rows);
        (void)database.findFirst(rows, "DisplayName", sql);
    } catch (const DatabaseError&) {
        // refused: what most inputs deserve
    }
    if (database.isRecordsetOpen(rows)) database.closeRecordset(rows);
}

void require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::shared_ptr<HostDatabase> database = smallFirm();
    const std::string_view text{reinterpret_cast<const char*>(data), size};

    static sql::Shape shape;
    try {
        shape.read(text);
        const auto marks = static_cast<std::size_t>(std::count(shape.key().begin(), shape.key().end(), '?'));
        const bool hasNames = shape.key().find('[') != std::string::npos;  // a bracketed name may hold a question mark
        require(hasNames || marks == shape.literals().size());
    } catch (const DatabaseError&) {}
    open(*database, text);

    const auto rows = database->openRecordset("SELECT Contacts.* FROM Contacts;", LockCode::updatable);
    try {
        (void)database->findByCriteria(rows, text);
    } catch (const DatabaseError&) {}
    database->moveFirst(rows);
    require(database->recordCount(rows) == 1 && database->getField(rows, "DisplayName").toText() == "Ann");
    database->closeRecordset(rows);
    return 0;
}
