#pragma once

#include "platform/outlook/PropertyNames.h"

#include <array>
#include <string_view>

/// Which field of the host goes to which property of an Outlook contact, in the order of writing.
namespace wmoutlook::contactmaps {

namespace property = outlook::property;

struct PropertyRow {
    std::string_view hostField;
    std::string_view property;
};

// Contacts

inline constexpr std::array kNameRows{
    PropertyRow{"NamePrefix", property::Title},      PropertyRow{"FirstName", property::FirstName},
    PropertyRow{"MiddleName", property::MiddleName}, PropertyRow{"LastName", property::LastName},
    PropertyRow{"NameSuffix", property::Suffix},     PropertyRow{"DisplayName", property::FullName},
};

/// Telephones, home address, web page and family.
inline constexpr std::array kPersonRows{
    PropertyRow{"HomePhone_Main", property::HomeTelephoneNumber},
    PropertyRow{"HomePhone_Cell", property::MobileTelephoneNumber},
    PropertyRow{"HomePhone_Pager", property::PagerNumber},
    PropertyRow{"HomePhone_Fax", property::HomeFaxNumber},
    PropertyRow{"HomeAddress", property::HomeAddressStreet},
    PropertyRow{"HomeCity", property::HomeAddressCity},
    PropertyRow{"HomeProvince", property::HomeAddressState},
    PropertyRow{"HomePostalCode", property::HomeAddressPostalCode},
    PropertyRow{"HomeCountry", property::HomeAddressCountry},
    PropertyRow{"PersonalWebSite", property::PersonalHomePage},
    PropertyRow{"SpouseName", property::Spouse},
    PropertyRow{"Children", property::Children},
};

inline constexpr std::array kJobRows{
    PropertyRow{"BusinessJobTitle", property::JobTitle},
    PropertyRow{"BusinessDepartment", property::Department},
    PropertyRow{"BusinessOffice", property::OfficeLocation},
};

/// The business block of a contact whose company is not used.
inline constexpr std::array kOwnBusinessRows{
    PropertyRow{"BusinessName", property::CompanyName},
    PropertyRow{"BusinessAddress", property::BusinessAddressStreet},
    PropertyRow{"BusinessCity", property::BusinessAddressCity},
    PropertyRow{"BusinessProvince", property::BusinessAddressState},
    PropertyRow{"BusinessPostalCode", property::BusinessAddressPostalCode},
    PropertyRow{"BusinessCountry", property::BusinessAddressCountry},
    PropertyRow{"BusinessPhone_Main", property::BusinessTelephoneNumber},
    PropertyRow{"BusinessPhone_Fax", property::BusinessFaxNumber},
    PropertyRow{"BusinessPhone_Cell", property::Business2TelephoneNumber},
    PropertyRow{"BusinessWebSite", property::WebPage},
};

/// A telephone of the contact, where blank that of the company; where both are blank the item keeps what it has.
struct PhoneRow {
    std::string_view contactField;
    std::string_view companyField;
    std::string_view property;
};

inline constexpr std::array kBusinessPhoneRows{
    PhoneRow{"BusinessPhone_Main", "OfficeNumber", property::BusinessTelephoneNumber},
    PhoneRow{"BusinessPhone_Fax", "FaxNumber", property::BusinessFaxNumber},
};

/// What a default contact adds to a company's item only where the company left the property blank.
inline constexpr std::array kWhereCompanyIsBlankRows{
    PropertyRow{"BusinessPhone_Main", property::BusinessTelephoneNumber},
    PropertyRow{"BusinessPhone_Fax", property::BusinessFaxNumber},
    PropertyRow{"BusinessWebSite", property::WebPage},
};

inline constexpr PropertyRow kBusinessCellRow{"BusinessPhone_Cell", property::Business2TelephoneNumber};

// Companies

inline constexpr PropertyRow kFiledByCompanyRow{"CompanyName", property::FileAs};
inline constexpr PropertyRow kCompanyNameRow{"CompanyName", property::CompanyName};

inline constexpr std::array kCompanyAddressRows{
    PropertyRow{"Address", property::BusinessAddressStreet},  PropertyRow{"City", property::BusinessAddressCity},
    PropertyRow{"Province", property::BusinessAddressState},  PropertyRow{"PostalCode", property::BusinessAddressPostalCode},
    PropertyRow{"Country", property::BusinessAddressCountry},
};

inline constexpr std::array kCompanyNumberRows{
    PropertyRow{"OfficeNumber", property::BusinessTelephoneNumber},
    PropertyRow{"FaxNumber", property::BusinessFaxNumber},
    PropertyRow{"WebSite", property::WebPage},
};

}  // namespace wmoutlook::contactmaps
