#include "adapters/outlookstore/PropertyRows.h"

#include <array>

namespace wmoutlook::outlookstore {

namespace {

constexpr PropertyRow text(std::uint16_t code, std::string_view name) {
    return {code, name, PropertyKind::text, PropertyAccess::readWrite, 0};
}

constexpr PropertyRow integer(std::uint16_t code, std::string_view name, std::int32_t byDefault = 0) {
    return {code, name, PropertyKind::integer, PropertyAccess::readWrite, byDefault};
}

constexpr PropertyRow boolean(std::uint16_t code, std::string_view name, std::int32_t byDefault = 0) {
    return {code, name, PropertyKind::boolean, PropertyAccess::readWrite, byDefault};
}

constexpr PropertyRow day(std::uint16_t code, std::string_view name) {
    return {code, name, PropertyKind::day, PropertyAccess::readWrite, 0};
}

constexpr PropertyRow moment(std::uint16_t code, std::string_view name) {
    return {code, name, PropertyKind::moment, PropertyAccess::readWrite, 0};
}

constexpr PropertyRow fixed(std::uint16_t code, std::string_view name, PropertyKind kind) {
    return {code, name, kind, PropertyAccess::readOnly, 0};
}

// The code is what the files hold: it stays with its property for good. A property of two types has one code and one kind.

constexpr std::array kEveryItemRows{
    fixed(1, "EntryID", PropertyKind::text),
    fixed(2, "Class", PropertyKind::integer),
    fixed(3, "CreationTime", PropertyKind::moment),
    fixed(4, "LastModificationTime", PropertyKind::moment),
    text(5, "Subject"),
    text(6, "Body"),
    text(7, "Categories"),
    text(8, "Companies"),
    integer(9, "Importance", 1),
    integer(10, "Sensitivity"),
    text(11, "Mileage"),
    text(12, "BillingInformation"),
    boolean(13, "NoAging"),
    boolean(14, "UnRead"),
    text(15, "MessageClass"),
    text(16, "ContactNames"),
};

constexpr std::array kReminderRows{
    boolean(30, "ReminderSet"),
    boolean(33, "ReminderOverrideDefault"),
    boolean(34, "ReminderPlaySound"),
    text(35, "ReminderSoundFile"),
};

constexpr std::array kFollowUpRows{
    moment(31, "ReminderTime"),   boolean(36, "IsMarkedAsTask"), day(37, "TaskStartDate"), day(38, "TaskDueDate"),
    day(39, "TaskCompletedDate"), text(40, "TaskSubject"),       text(41, "FlagRequest"),  integer(42, "FlagStatus"),
};

constexpr std::array kContactRows{
    // Name
    text(100, "FullName"),
    text(101, "FileAs"),
    text(102, "FirstName"),
    text(103, "MiddleName"),
    text(104, "LastName"),
    text(105, "Title"),
    text(106, "Suffix"),
    text(107, "Initials"),
    text(108, "NickName"),
    text(109, "YomiFirstName"),
    text(110, "YomiLastName"),
    text(111, "YomiCompanyName"),
    // Company
    text(120, "CompanyName"),
    text(121, "JobTitle"),
    text(122, "Department"),
    text(123, "OfficeLocation"),
    text(124, "Profession"),
    text(125, "ManagerName"),
    text(126, "AssistantName"),
    text(127, "ReferredBy"),
    text(128, "Account"),
    text(129, "CustomerID"),
    text(130, "GovernmentIDNumber"),
    text(131, "OrganizationalIDNumber"),
    // Telephone numbers
    text(140, "BusinessTelephoneNumber"),
    text(141, "Business2TelephoneNumber"),
    text(142, "BusinessFaxNumber"),
    text(143, "HomeTelephoneNumber"),
    text(144, "Home2TelephoneNumber"),
    text(145, "HomeFaxNumber"),
    text(146, "OtherTelephoneNumber"),
    text(147, "OtherFaxNumber"),
    text(148, "MobileTelephoneNumber"),
    text(149, "PagerNumber"),
    text(150, "CarTelephoneNumber"),
    text(151, "RadioTelephoneNumber"),
    text(152, "PrimaryTelephoneNumber"),
    text(153, "CallbackTelephoneNumber"),
    text(154, "AssistantTelephoneNumber"),
    text(155, "CompanyMainTelephoneNumber"),
    text(156, "ISDNNumber"),
    text(157, "TelexNumber"),
    text(158, "TTYTDDTelephoneNumber"),
    // Business address
    text(170, "BusinessAddress"),
    text(171, "BusinessAddressStreet"),
    text(172, "BusinessAddressCity"),
    text(173, "BusinessAddressState"),
    text(174, "BusinessAddressPostalCode"),
    text(175, "BusinessAddressCountry"),
    text(176, "BusinessAddressPostOfficeBox"),
    // Home address
    text(180, "HomeAddress"),
    text(181, "HomeAddressStreet"),
    text(182, "HomeAddressCity"),
    text(183, "HomeAddressState"),
    text(184, "HomeAddressPostalCode"),
    text(185, "HomeAddressCountry"),
    text(186, "HomeAddressPostOfficeBox"),
    // Other address
    text(190, "OtherAddress"),
    text(191, "OtherAddressStreet"),
    text(192, "OtherAddressCity"),
    text(193, "OtherAddressState"),
    text(194, "OtherAddressPostalCode"),
    text(195, "OtherAddressCountry"),
    text(196, "OtherAddressPostOfficeBox"),
    // Mailing address
    text(200, "MailingAddress"),
    text(201, "MailingAddressStreet"),
    text(202, "MailingAddressCity"),
    text(203, "MailingAddressState"),
    text(204, "MailingAddressPostalCode"),
    text(205, "MailingAddressCountry"),
    text(206, "MailingAddressPostOfficeBox"),
    integer(210, "SelectedMailingAddress"),
    // E-mail and the web
    text(220, "Email1Address"),
    text(221, "Email1DisplayName"),
    text(222, "Email1AddressType"),
    text(223, "Email2Address"),
    text(224, "Email2DisplayName"),
    text(225, "Email2AddressType"),
    text(226, "Email3Address"),
    text(227, "Email3DisplayName"),
    text(228, "Email3AddressType"),
    text(229, "IMAddress"),
    text(230, "WebPage"),
    text(231, "PersonalHomePage"),
    text(232, "BusinessHomePage"),
    text(233, "FTPSite"),
    text(234, "InternetFreeBusyAddress"),
    text(235, "ComputerNetworkName"),
    text(236, "NetMeetingAlias"),
    text(237, "NetMeetingServer"),
    // Person
    day(250, "Birthday"),
    day(251, "Anniversary"),
    integer(252, "Gender"),
    text(253, "Spouse"),
    text(254, "Children"),
    text(255, "Hobby"),
    text(256, "Language"),
    boolean(257, "Journal"),
    text(258, "User1"),
    text(259, "User2"),
    text(260, "User3"),
    text(261, "User4"),
    text(262, "UserCertificate"),
    fixed(263, "HasPicture", PropertyKind::boolean),
};

constexpr std::array kAppointmentRows{
    integer(32, "ReminderMinutesBeforeStart", 15),
    moment(300, "Start"),
    moment(301, "End"),
    integer(302, "Duration", 30),
    boolean(303, "AllDayEvent"),
    text(304, "Location"),
    integer(305, "BusyStatus", 2),
    fixed(306, "IsRecurring", PropertyKind::boolean),
    fixed(307, "RecurrenceState", PropertyKind::integer),
    integer(308, "MeetingStatus"),
    fixed(309, "Organizer", PropertyKind::text),
    text(310, "RequiredAttendees"),
    text(311, "OptionalAttendees"),
    text(312, "Resources"),
    boolean(313, "ResponseRequested", 1),
    fixed(314, "ResponseStatus", PropertyKind::integer),
    moment(315, "ReplyTime"),
    boolean(316, "ForceUpdateToAllAttendees"),
    boolean(317, "IsOnlineMeeting"),
};

constexpr std::array kTaskRows{
    moment(31, "ReminderTime"),
    fixed(306, "IsRecurring", PropertyKind::boolean),
    day(400, "StartDate"),
    day(401, "DueDate"),
    boolean(402, "Complete"),
    integer(403, "PercentComplete"),
    integer(404, "Status"),
    day(405, "DateCompleted"),
    integer(406, "TotalWork"),
    integer(407, "ActualWork"),
    text(408, "Owner"),
    fixed(409, "Ownership", PropertyKind::integer),
    fixed(410, "Delegator", PropertyKind::text),
    fixed(411, "DelegationState", PropertyKind::integer),
    fixed(412, "ResponseState", PropertyKind::integer),
    boolean(413, "TeamTask"),
    text(414, "Role"),
    text(415, "CardData"),
    text(416, "SchedulePlusPriority"),
    text(417, "StatusUpdateRecipients"),
    text(418, "StatusOnCompletionRecipients"),
    integer(419, "Ordinal"),
};

constexpr std::array kMailRows{
    text(500, "To"),
    text(501, "CC"),
    text(502, "BCC"),
    text(503, "HTMLBody"),
    integer(504, "BodyFormat", 1),
    text(505, "SentOnBehalfOfName"),
    fixed(506, "SenderName", PropertyKind::text),
    fixed(507, "SenderEmailAddress", PropertyKind::text),
    fixed(508, "Sent", PropertyKind::boolean),
    fixed(509, "Submitted", PropertyKind::boolean),
    fixed(510, "SentOn", PropertyKind::moment),
    fixed(511, "ReceivedTime", PropertyKind::moment),
    fixed(512, "ReplyRecipientNames", PropertyKind::text),
    moment(513, "DeferredDeliveryTime"),
    moment(514, "ExpiryTime"),
    boolean(515, "ReadReceiptRequested"),
    boolean(516, "OriginatorDeliveryReportRequested"),
    boolean(517, "DeleteAfterSubmit"),
    boolean(518, "AlternateRecipientAllowed", 1),
    boolean(519, "RecipientReassignmentProhibited"),
    boolean(520, "AutoForwarded"),
    text(521, "VotingOptions"),
    text(522, "VotingResponse"),
    moment(523, "FlagDueBy"),
};

}  // namespace

std::span<const PropertyRow> everyItemRows() {
    return kEveryItemRows;
}

std::span<const PropertyRow> reminderRows() {
    return kReminderRows;
}

std::span<const PropertyRow> followUpRows() {
    return kFollowUpRows;
}

std::span<const PropertyRow> contactRows() {
    return kContactRows;
}

std::span<const PropertyRow> appointmentRows() {
    return kAppointmentRows;
}

std::span<const PropertyRow> taskRows() {
    return kTaskRows;
}

std::span<const PropertyRow> mailRows() {
    return kMailRows;
}

}  // namespace wmoutlook::outlookstore
