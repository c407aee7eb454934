#pragma once

#include <cstdint>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace wmoutlook::bench {

/// A statement of the engine, prepared once. Errors are std::runtime_error.
class Prepared {
public:
    Prepared(sqlite3* database, std::string_view text);
    ~Prepared();
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;

    Prepared& bind(int parameter, std::int64_t number);
    Prepared& bind(int parameter, double number);
    Prepared& bind(int parameter, std::string_view text);  ///< borrowed until the reset; an empty one is bound as null
    Prepared& bindBlob(int parameter, std::string_view bytes);
    bool step();
    void run();  ///< steps once and resets
    void reset();

    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] double real(int column) const;
    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] std::string_view text(int column) const;  ///< until the next step or reset; empty for null
    [[nodiscard]] std::string_view blob(int column) const;

private:
    sqlite3_stmt* statement_ = nullptr;
};

}  // namespace wmoutlook::bench
