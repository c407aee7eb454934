#pragma once

#include "platform/Date.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::bench {

/// The properties of a contact that the hand-written loop writes, by the codes under which a store's file keeps them.
enum class Code : std::uint16_t {
    Categories = 7,
    FullName = 100,
    FileAs = 101,
    FirstName = 102,
    MiddleName = 103,
    LastName = 104,
    Title = 105,
    Suffix = 106,
    CompanyName = 120,
    JobTitle = 121,
    Department = 122,
    OfficeLocation = 123,
    BusinessTelephoneNumber = 140,
    Business2TelephoneNumber = 141,
    BusinessFaxNumber = 142,
    HomeTelephoneNumber = 143,
    HomeFaxNumber = 145,
    MobileTelephoneNumber = 148,
    PagerNumber = 149,
    BusinessAddressStreet = 171,
    BusinessAddressCity = 172,
    BusinessAddressState = 173,
    BusinessAddressPostalCode = 174,
    BusinessAddressCountry = 175,
    HomeAddressStreet = 181,
    HomeAddressCity = 182,
    HomeAddressState = 183,
    HomeAddressPostalCode = 184,
    HomeAddressCountry = 185,
    Email1Address = 220,
    Email2Address = 223,
    Email3Address = 226,
    WebPage = 230,
    PersonalHomePage = 231,
    Birthday = 250,
    Anniversary = 251,
    Gender = 252,
    Spouse = 253,
    Children = 254,
};

/// What an item's row holds, as views: of the bytes that were read and of the texts that were put. Nothing is copied before it
/// is written. Properties that were read and are not put stay as they are.
class HandWrittenItem {
public:
    void clear();
    void read(std::string_view bytes);  ///< throws std::runtime_error for bytes that are no item's

    [[nodiscard]] std::string_view text(Code code) const { return values_[static_cast<std::size_t>(code)].text; }
    void putText(Code code, std::string_view text);
    void putInteger(Code code, std::int32_t number);
    void putDay(Code code, double day);
    /// The three user properties of every written item, the third with its value.
    void stamp(Date today);

    void write(std::string& bytes) const;

private:
    enum class Kind : std::uint8_t { null = 0, text = 1, integer = 2, boolean = 3, date = 4, number = 5, absent = 255 };

    struct Value {
        Kind kind = Kind::absent;
        std::int32_t integer = 0;
        double number = 0;
        std::string_view text{};
    };
    struct UserProperty {
        std::string_view name;
        std::uint8_t type = 0;
        Value value;
    };
    struct Reader;

    UserProperty& userProperty(std::string_view name, std::uint8_t type);
    static void append(std::string& bytes, const Value& value);

    std::array<Value, 600> values_{};  ///< by code
    std::vector<std::uint16_t> used_;  ///< the codes that have a value or had one, in the order of reading and putting
    std::vector<UserProperty> userProperties_;
};

}  // namespace wmoutlook::bench
