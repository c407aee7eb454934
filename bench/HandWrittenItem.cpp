#include "bench/HandWrittenItem.h"

#include <bit>
#include <cmath>
#include <stdexcept>

namespace wmoutlook::bench {

namespace {

constexpr char kFormat = 1;
constexpr std::uint8_t kNumberType = 3;
constexpr std::uint8_t kTextType = 1;
constexpr std::uint8_t kDateType = 5;

void appendNumber(std::string& bytes, std::uint64_t number) {
    for (; number >= 0x80; number >>= 7) bytes += static_cast<char>(number | 0x80);
    bytes += static_cast<char>(number);
}

}  // namespace

struct HandWrittenItem::Reader {
    const char* at;
    const char* end;

    [[nodiscard]] std::uint8_t byte() {
        if (at == end) throw std::runtime_error{"An item ends in the middle"};
        return static_cast<std::uint8_t>(*at++);
    }
    [[nodiscard]] std::uint64_t number() {
        std::uint64_t result = 0;
        for (unsigned shift = 0; shift < 63; shift += 7) {
            const std::uint8_t next = byte();
            result |= static_cast<std::uint64_t>(next & 0x7F) << shift;
            if (next < 0x80) break;
        }
        return result;
    }
    [[nodiscard]] std::string_view text() {
        const std::uint64_t size = number();
        if (size > static_cast<std::uint64_t>(end - at)) throw std::runtime_error{"An item ends in the middle"};
        const std::string_view result{at, static_cast<std::size_t>(size)};
        at += size;
        return result;
    }
    [[nodiscard]] double real() {
        std::uint64_t bits = 0;
        for (unsigned shift = 0; shift < 64; shift += 8) bits |= static_cast<std::uint64_t>(byte()) << shift;
        return std::bit_cast<double>(bits);
    }
    [[nodiscard]] Value value() {
        Value value;
        value.kind = static_cast<Kind>(byte());
        switch (value.kind) {
            case Kind::null: return value;
            case Kind::text: value.text = text(); return value;
            case Kind::boolean: value.integer = byte(); return value;
            case Kind::date:
            case Kind::number: value.number = real(); return value;
            case Kind::integer: {
                const std::uint64_t bits = number();
                value.integer =
                    static_cast<std::int32_t>(static_cast<std::int64_t>(bits >> 1) ^ -static_cast<std::int64_t>(bits & 1));
                return value;
            }
            case Kind::absent: break;
        }
        throw std::runtime_error{"An item holds a value of an unknown kind"};
    }
};

void HandWrittenItem::clear() {
    for (const std::uint16_t code : used_) values_[code] = {};
    used_.clear();
    userProperties_.clear();
}

void HandWrittenItem::read(std::string_view bytes) {
    clear();
    if (bytes.empty() || bytes.front() != kFormat) throw std::runtime_error{"An item is stored in an unknown form"};
    Reader reader{bytes.data() + 1, bytes.data() + bytes.size()};
    while (reader.at != reader.end) {
        const std::uint64_t code = reader.number();
        if (code == 0) {
            const std::uint8_t type = reader.byte();
            const std::string_view name = reader.text();
            userProperties_.push_back({name, type, reader.value()});
            continue;
        }
        if (code >= values_.size()) throw std::runtime_error{"An item holds an unknown property"};
        values_[code] = reader.value();
        used_.push_back(static_cast<std::uint16_t>(code));
    }
}

void HandWrittenItem::putText(Code code, std::string_view text) {
    Value& value = values_[static_cast<std::size_t>(code)];
    if (value.kind == Kind::absent) {
        if (text.empty()) return;
        used_.push_back(static_cast<std::uint16_t>(code));
    }
    value.kind = text.empty() ? Kind::absent : Kind::text;  // a default is not stored
    value.text = text;
}

void HandWrittenItem::putInteger(Code code, std::int32_t number) {
    Value& value = values_[static_cast<std::size_t>(code)];
    if (value.kind == Kind::absent) used_.push_back(static_cast<std::uint16_t>(code));
    value.kind = number == 0 ? Kind::absent : Kind::integer;
    value.integer = number;
}

void HandWrittenItem::putDay(Code code, double day) {
    Value& value = values_[static_cast<std::size_t>(code)];
    if (value.kind == Kind::absent) used_.push_back(static_cast<std::uint16_t>(code));
    value.kind = Kind::date;
    value.number = std::trunc(day);
}

HandWrittenItem::UserProperty& HandWrittenItem::userProperty(std::string_view name, std::uint8_t type) {
    for (UserProperty& property : userProperties_)
        if (property.name == name) return property;
    Value value;
    value.kind = Kind::null;
    return userProperties_.emplace_back(UserProperty{name, type, value});
}

void HandWrittenItem::stamp(Date today) {
    userProperty("TallowbrookID", kNumberType);
    userProperty("EntryID", kTextType);
    UserProperty& date = userProperty("DateLastSynched", kDateType);
    date.value.kind = Kind::date;
    date.value.number = today.days;
}

void HandWrittenItem::append(std::string& bytes, const Value& value) {
    bytes += static_cast<char>(value.kind);
    switch (value.kind) {
        case Kind::text:
            appendNumber(bytes, value.text.size());
            bytes += value.text;
            break;
        case Kind::integer:
            appendNumber(bytes, (static_cast<std::uint64_t>(std::int64_t{value.integer}) << 1) ^
                                    static_cast<std::uint64_t>(std::int64_t{value.integer} >> 63));
            break;
        case Kind::boolean: bytes += static_cast<char>(value.integer); break;
        case Kind::date:
        case Kind::number: {
            const auto bits = std::bit_cast<std::uint64_t>(value.number);
            for (unsigned shift = 0; shift < 64; shift += 8) bytes += static_cast<char>(bits >> shift);
            break;
        }
        case Kind::null:
        case Kind::absent: break;
    }
}

void HandWrittenItem::write(std::string& bytes) const {
    bytes.assign(1, kFormat);
    for (std::size_t code = 0; code < values_.size(); ++code) {
        if (values_[code].kind == Kind::absent) continue;
        appendNumber(bytes, code);
        append(bytes, values_[code]);
    }
    for (const UserProperty& property : userProperties_) {
        bytes += '\0';
        bytes += static_cast<char>(property.type);
        appendNumber(bytes, property.name.size());
        bytes += property.name;
        append(bytes, property.value);
    }
}

}  // namespace wmoutlook::bench
