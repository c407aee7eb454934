#pragma once

#include <array>
#include <string_view>

/// The categories with a fixed role and the steps of a tax year, as a new firm gets them.
namespace wmoutlook::categories {

/// A category with a fixed role. The default name and description are put behind the parts that name the application.
struct FixedCategory {
    std::string_view code;
    bool startsWithApplicationName;
    std::string_view nameEnd;
    std::string_view descriptionStart;
    std::string_view descriptionEnd;  ///< behind the application name; blank when the description does not name it
};

inline constexpr FixedCategory kMain{"Main", true, " Address Book", "", ""};
inline constexpr FixedCategory kBusiness{"BusinessCategory", true, " Business Clients", "This category contains all of the ",
                                         " Business clients."};
inline constexpr FixedCategory kPersonal{
    "PersonalCategory", true, " Personal Clients", "This category contains all of the ",
    " Personal Tax clients.  Drag your contacts into this category to add them to your personal tax clients list."};
inline constexpr FixedCategory kFirm{"FirmCategory", false, "Firm Staff", "This category contains all of your staff members.",
                                     ""};

/// The children that a new root brings along, in this order.
inline constexpr std::array kChildrenOfMain{kBusiness, kPersonal, kFirm};

/// What the root is called when it has no row.
inline constexpr std::string_view kAddressBook = "Address Book";

inline constexpr std::string_view kTaxYearCode = "TaxYear:";

struct TaxStep {
    std::string_view name;
    std::string_view columnName;
    std::string_view description;
};

inline constexpr TaxStep kDefaultTaxSteps[] = {
    {"Contacted Client", "Contacted",
     "Indicates whether the client has been notified to submit their information and submit any changes"},
    {"Had Meeting With Client", "Meeting", "Indicates whether a meeting has been scheduled with the client"},
    {"Received Information from Client", "Info Received",
     "Indicates whether all the relevant documentation has been received by the client"},
    {"Processed Tax Return", "Processed", "Indicates whether whether the tax return has been processed"},
    {"Verified Tax Return", "Verified", "Indicates whether the tax return has been verified"},
    {"Approved Tax Return", "Approved", "Indicates whether the tax return has received final approval"},
    {"Printed Tax Return", "Printed", "Indicates whether the tax return has been printed"},
    {"Tax Return Completed", "Completed", "Indicates whether the tax return has been completed"},
    {"Received Client Signature", "Signature", "Indicates whether the final client signature and approval has been obtained"},
    {"Efiled Return", "eFiled", "Indicates whether the tax return has been eFiled or mailed to government"},
    {"Received Refund", "Refund Received", "Indicates whether the refund has been received by the client"},
    {"Received Notice of Assessment", "NOA Received", "Indicates whether the client has received their notice of assessment"},
};

inline constexpr std::string_view kDefaultStepWidth = "1000";

}  // namespace wmoutlook::categories
