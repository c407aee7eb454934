#pragma once

#include "adapters/sql/Driver.h"

#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::sql {

/// A literal that was lifted out of a text. True and False are integers that know of it.
struct Literal {
    Cell cell;
    bool isTruth = false;
};

/// A SELECT text without its literals, so that texts that differ in nothing else share a plan and its prepared statements.
/// Meant to be used again and again: its buffers stay.
class Shape {
public:
    /// Throws DatabaseError for anything but one SELECT, and for anything behind its semicolon.
    void read(std::string_view sql);

    /// The text with "?" for each literal, white space collapsed, without the semicolon.
    [[nodiscard]] const std::string& key() const { return key_; }
    /// In order of the marks. Their texts live until the next read.
    [[nodiscard]] const std::vector<Literal>& literals() const { return literals_; }

private:
    void lift(const Literal& literal);
    std::string_view unmarked(std::string_view content, char mark);

    std::string text_;  ///< the literals point in here
    std::string key_;
    std::vector<Literal> literals_;
};

}  // namespace wmoutlook::sql
