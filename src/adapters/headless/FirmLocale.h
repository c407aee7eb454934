#pragma once

#include "platform/HostDatabase.h"
#include "platform/Platform.h"
#include "platform/Services.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

/// Country and province as the host numbers them, from what a firm's address says ("Canada", "QC", "Québec", "U.S.A."). A text that
/// names none gives nothing. A state of the United States has no number.
[[nodiscard]] std::optional<std::int32_t> countryFromText(std::string_view text);
[[nodiscard]] std::optional<std::int32_t> provinceFromText(std::string_view text);

/// The locale that a firm's file tells: the address of its first row of AccountantFirmInfo (Ontario, Canada, when there is none),
/// its staff, and the clock. The tax year is the one whose returns are prepared now, the calendar year before the clock's.
class FirmLocale : public LocaleService {
public:
    /// Reads the firm's file once; `user` is the staff member at work, by default the first by name. Throws DatabaseError.
    FirmLocale(HostDatabase& database, std::shared_ptr<Clock> clock, std::optional<std::int32_t> user);
    /// Of no firm in particular, without a user.
    FirmLocale(std::shared_ptr<Clock> clock, std::int32_t country, std::int32_t province)
        : clock_(std::move(clock)), country_(country), province_(province) {}

    [[nodiscard]] PictureObject applicationPicture() override { return nullptr; }
    [[nodiscard]] std::string applicationName() override { return "Tallow Brook"; }
    [[nodiscard]] bool isUnitedStates() override { return country_ == country::kUnitedStates; }
    [[nodiscard]] std::int32_t workerProvince() override { return province_; }
    [[nodiscard]] std::string applicationTitle() override { return "Tallow Brook"; }
    [[nodiscard]] std::int32_t country() override { return country_; }
    [[nodiscard]] std::int32_t province() override { return province_; }
    [[nodiscard]] std::int32_t currentTaxYear() override;
    [[nodiscard]] std::int32_t currentUserID() override { return user_; }
    [[nodiscard]] WindowObject ownerWindow() override { return nullptr; }
    [[nodiscard]] std::string localStoreAccessText() override { return {}; }

private:
    void readFirm(HostDatabase& database);

    std::shared_ptr<Clock> clock_;
    std::int32_t country_ = country::kCanada;
    std::int32_t province_ = province::kOntario;
    std::int32_t user_ = kNoRecord;
};

}  // namespace wmoutlook
