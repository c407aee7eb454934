#pragma once

#include "apps/tallowsync/sample/Rows.h"
#include "platform/Platform.h"
#include "platform/Services.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>

namespace wmoutlook {

/// What a new firm's file says of the firm and of the one who opens it first.
struct FirmProfile {
    std::string name = "New Firm";
    std::int32_t country = country::kCanada;  ///< see namespace country
    std::string province = "ON";              ///< code of the province or state; decides the wording of taxes
    std::string userFirstName = "Office";
    std::string userLastName = "Manager";
    std::shared_ptr<RandomSource> random;  ///< gives the identifier of the data file; has to be set
};

/// Creates a firm's file with the firm, its first member of staff and the categories that have a role. An existing file
/// is an error and stays as it is. Throws DatabaseError.
void createFirm(const std::string& path, const FirmProfile& profile);

namespace sample {

/// The numbers that the first rows got.
struct FirmNumbers {
    std::int32_t firm = kNoRecord;
    std::int32_t mainCategory = kNoRecord;
    std::int32_t businessCategory = kNoRecord;
    std::int32_t personalCategory = kNoRecord;
    std::int32_t firmCategory = kNoRecord;
};

/// The firm, its categories and the identifier of the data file, without staff.
[[nodiscard]] FirmNumbers addFirm(Rows& rows, const FirmProfile& profile, std::span<const Field> more = {});
/// A member of the staff: a person of the firm's category who can sign on. Gives the ContactID.
std::int32_t addStaffMember(Rows& rows, const FirmNumbers& numbers, const std::string& firstName, const std::string& lastName,
                            std::initializer_list<Field> more);

}  // namespace sample
}  // namespace wmoutlook
