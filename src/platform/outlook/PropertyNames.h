#pragma once

#include <string_view>

/// Outlook's names of the item properties that the logic touches.
namespace wmoutlook::outlook::property {

// Every item
inline constexpr std::string_view EntryID = "EntryID";
inline constexpr std::string_view Class = "Class";
inline constexpr std::string_view Subject = "Subject";
inline constexpr std::string_view Body = "Body";
inline constexpr std::string_view Categories = "Categories";
inline constexpr std::string_view Companies = "Companies";

// Contacts
inline constexpr std::string_view Title = "Title";
inline constexpr std::string_view FirstName = "FirstName";
inline constexpr std::string_view MiddleName = "MiddleName";
inline constexpr std::string_view LastName = "LastName";
inline constexpr std::string_view Suffix = "Suffix";
inline constexpr std::string_view FullName = "FullName";
inline constexpr std::string_view FileAs = "FileAs";
inline constexpr std::string_view CompanyName = "CompanyName";
inline constexpr std::string_view JobTitle = "JobTitle";
inline constexpr std::string_view Department = "Department";
inline constexpr std::string_view OfficeLocation = "OfficeLocation";
inline constexpr std::string_view HomeTelephoneNumber = "HomeTelephoneNumber";
inline constexpr std::string_view MobileTelephoneNumber = "MobileTelephoneNumber";
inline constexpr std::string_view PagerNumber = "PagerNumber";
inline constexpr std::string_view HomeFaxNumber = "HomeFaxNumber";
inline constexpr std::string_view BusinessTelephoneNumber = "BusinessTelephoneNumber";
inline constexpr std::string_view Business2TelephoneNumber = "Business2TelephoneNumber";
inline constexpr std::string_view BusinessFaxNumber = "BusinessFaxNumber";
inline constexpr std::string_view HomeAddressStreet = "HomeAddressStreet";
inline constexpr std::string_view HomeAddressCity = "HomeAddressCity";
inline constexpr std::string_view HomeAddressState = "HomeAddressState";
inline constexpr std::string_view HomeAddressPostalCode = "HomeAddressPostalCode";
inline constexpr std::string_view HomeAddressCountry = "HomeAddressCountry";
inline constexpr std::string_view BusinessAddressStreet = "BusinessAddressStreet";
inline constexpr std::string_view BusinessAddressCity = "BusinessAddressCity";
inline constexpr std::string_view BusinessAddressState = "BusinessAddressState";
inline constexpr std::string_view BusinessAddressPostalCode = "BusinessAddressPostalCode";
inline constexpr std::string_view BusinessAddressCountry = "BusinessAddressCountry";
inline constexpr std::string_view PersonalHomePage = "PersonalHomePage";
inline constexpr std::string_view WebPage = "WebPage";
inline constexpr std::string_view Spouse = "Spouse";
inline constexpr std::string_view Children = "Children";
inline constexpr std::string_view Email1Address = "Email1Address";
inline constexpr std::string_view Email2Address = "Email2Address";
inline constexpr std::string_view Email3Address = "Email3Address";
inline constexpr std::string_view Gender = "Gender";
inline constexpr std::string_view Birthday = "Birthday";
inline constexpr std::string_view Anniversary = "Anniversary";

// Appointments and tasks
inline constexpr std::string_view Start = "Start";
inline constexpr std::string_view End = "End";
inline constexpr std::string_view AllDayEvent = "AllDayEvent";
inline constexpr std::string_view IsRecurring = "IsRecurring";
inline constexpr std::string_view ReminderSet = "ReminderSet";
inline constexpr std::string_view ReminderMinutesBeforeStart = "ReminderMinutesBeforeStart";
inline constexpr std::string_view StartDate = "StartDate";
inline constexpr std::string_view DueDate = "DueDate";
inline constexpr std::string_view Complete = "Complete";

}  // namespace wmoutlook::outlook::property
