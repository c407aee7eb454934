#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace wmoutlook {

/// A statement that failed. The message names the thing (table, column, property, folder, file), never a person's data.
class Failure : public std::runtime_error {
public:
    Failure(std::int32_t number, const std::string& message) : std::runtime_error(message), number_(number) {}

    /// The number under which the error service reports it: 13 and 91 as the host's language counts them, otherwise the
    /// code of the engine behind the port.
    [[nodiscard]] std::int32_t number() const { return number_; }

private:
    std::int32_t number_;
};

/// A value that cannot be read as the wanted kind.
class ConversionError : public Failure {
public:
    explicit ConversionError(const std::string& message) : Failure(13, message) {}
};

/// The use of an object that is nothing.
class ObjectNotSet : public Failure {
public:
    explicit ObjectNotSet(const std::string& what) : Failure(91, "Object not set: " + what) {}
};

/// What every HostDatabase throws: what was attempted, on what, and the engine's own code.
class DatabaseError : public Failure {
public:
    using Failure::Failure;
};

/// What every Outlook adapter throws.
class OutlookError : public Failure {
public:
    using Failure::Failure;
};

}  // namespace wmoutlook
