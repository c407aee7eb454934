#include "component/PropertyTable.h"

#include "platform/Errors.h"
#include "platform/Text.h"

namespace wmoutlook {

namespace {

using Component = clsOutlookSynchronization;

template <class Enumeration>
constexpr std::int32_t of(Enumeration value) {
    return static_cast<std::int32_t>(value);
}

constexpr EnumerationValue kSyncObjects[] = {{"syncContacts", of(outlookSyncObjectsEnum::syncContacts)},
                                             {"syncAppointments", of(outlookSyncObjectsEnum::syncAppointments)},
                                             {"syncTasks", of(outlookSyncObjectsEnum::syncTasks)}};
constexpr EnumerationValue kSyncType[] = {
    {"syncBothsWays", of(outlookSyncTypeEnum::syncBothsWays)},
    {"syncFromTallowbrookToOutlook", of(outlookSyncTypeEnum::syncFromTallowbrookToOutlook)},
    {"syncFromOutlookToTallowbrook", of(outlookSyncTypeEnum::syncFromOutlookToTallowbrook)}};
constexpr EnumerationValue kPriority[] = {
    {"syncPriorityTallowbrook", of(enumOutlookSyncBothsWaysPriority::syncPriorityTallowbrook)},
    {"syncPriorityOutlook", of(enumOutlookSyncBothsWaysPriority::syncPriorityOutlook)},
    {"syncPriorityMostRecentChange", of(enumOutlookSyncBothsWaysPriority::syncPriorityMostRecentChange)}};
constexpr EnumerationValue kCompanyInformation[] = {
    {"companyOnly", of(syncCompanyInformationEnum::companyOnly)},
    {"companyWithDefaultContact", of(syncCompanyInformationEnum::companyWithDefaultContact)}};
constexpr EnumerationValue kCompanyDisplay[] = {{"companyShowContactName", of(syncCompanyDisplayEnum::companyShowContactName)},
                                                {"companyShowCompanyName", of(syncCompanyDisplayEnum::companyShowCompanyName)}};
constexpr EnumerationValue kContactInformation[] = {
    {"contactOnly", of(syncContactInformationEnum::contactOnly)},
    {"contactWithCompanyInfo", of(syncContactInformationEnum::contactWithCompanyInfo)}};
constexpr EnumerationValue kContactDisplay[] = {{"contactShowContactName", of(syncContactDisplayEnum::contactShowContactName)},
                                                {"contactShowCompanyName", of(syncContactDisplayEnum::contactShowCompanyName)}};
constexpr EnumerationValue kImportLocation[] = {
    {"importAllSelectedOutlookContactsIntoBusinessSection",
     of(importTallowbrookLocationEnum::importAllSelectedOutlookContactsIntoBusinessSection)},
    {"importOnlySelectedOutlookContactsIntoBusinessSectioncompanyWithValueBusinessName",
     of(importTallowbrookLocationEnum::importOnlySelectedOutlookContactsIntoBusinessSectioncompanyWithValueBusinessName)},
    {"importAllSelectedOutlookContactsIntoPersonalTaxSection",
     of(importTallowbrookLocationEnum::importAllSelectedOutlookContactsIntoPersonalTaxSection)},
    {"importOnlySelectedOutlookContactsIntoPersonalTaxSectioncompanyWithValueIndividualName",
     of(importTallowbrookLocationEnum::importOnlySelectedOutlookContactsIntoPersonalTaxSectioncompanyWithValueIndividualName)},
    {"importAllSelectedOutlookContactsIntoSpecifiedCategory",
     of(importTallowbrookLocationEnum::importAllSelectedOutlookContactsIntoSpecifiedCategory)}};
constexpr EnumerationValue kCompanyList[] = {{"Tallowbrook", of(companyListType::Tallowbrook)},
                                             {"AddressBook", of(companyListType::AddressBook)}};

template <class Enumeration>
Variant number(Enumeration value) {
    return of(value);
}

/// The enumeration value of this number, also one that has no name: the component then does nothing with it.
template <class Enumeration>
Enumeration as(const Variant& value) {
    return static_cast<Enumeration>(value.toInteger());
}

constexpr auto kText = PropertyKind::text;
constexpr auto kNumber = PropertyKind::number;
constexpr auto kTruth = PropertyKind::truth;
constexpr auto kDate = PropertyKind::date;
constexpr auto kEnumeration = PropertyKind::enumeration;

constexpr PublicProperty kProperties[] = {
    {"syncObjects", kEnumeration, kSyncObjects, [](const Component& c) { return number(c.syncObjects()); },
     [](Component& c, const Variant& v) { c.syncObjects(as<outlookSyncObjectsEnum>(v)); }},
    {"syncDirectionType", kEnumeration, kSyncType, [](const Component& c) { return number(c.syncDirectionType()); },
     [](Component& c, const Variant& v) { c.syncDirectionType(as<outlookSyncTypeEnum>(v)); }},
    {"syncBothsWaysPriority", kEnumeration, kPriority, nullptr,  // reading it would change syncDirectionType
     [](Component& c, const Variant& v) { c.syncBothsWaysPriority(as<enumOutlookSyncBothsWaysPriority>(v)); }},
    {"syncCompanyInformation", kEnumeration, kCompanyInformation,
     [](const Component& c) { return number(c.syncCompanyInformation()); },
     [](Component& c, const Variant& v) { c.syncCompanyInformation(as<syncCompanyInformationEnum>(v)); }},
    {"syncCompanyDisplayType", kEnumeration, kCompanyDisplay,
     [](const Component& c) { return number(c.syncCompanyDisplayType()); },
     [](Component& c, const Variant& v) { c.syncCompanyDisplayType(as<syncCompanyDisplayEnum>(v)); }},
    {"syncContactInformation", kEnumeration, kContactInformation,
     [](const Component& c) { return number(c.syncContactInformation()); },
     [](Component& c, const Variant& v) { c.syncContactInformation(as<syncContactInformationEnum>(v)); }},
    {"syncContactDisplayType", kEnumeration, kContactDisplay,
     [](const Component& c) { return number(c.syncContactDisplayType()); },
     [](Component& c, const Variant& v) { c.syncContactDisplayType(as<syncContactDisplayEnum>(v)); }},
    {"importTallowbrookLocation", kEnumeration, kImportLocation,
     [](const Component& c) { return number(c.importTallowbrookLocation()); },
     [](Component& c, const Variant& v) { c.importTallowbrookLocation(as<importTallowbrookLocationEnum>(v)); }},
    {"importCategory",
     kNumber,
     {},
     [](const Component& c) { return Variant{c.importCategory()}; },
     [](Component& c, const Variant& v) { c.importCategory(v.toInteger()); }},
    {"outlookCategory",
     kText,
     {},
     [](const Component& c) { return Variant{c.outlookCategory()}; },
     [](Component& c, const Variant& v) { c.outlookCategory(v.toText()); }},
    {"outlookImportFolderStoreID",
     kText,
     {},
     [](const Component& c) { return Variant{c.outlookImportFolderStoreID()}; },
     [](Component& c, const Variant& v) { c.outlookImportFolderStoreID(v.toText()); }},
    {"outlookImportFolderEntryID",
     kText,
     {},
     [](const Component& c) { return Variant{c.outlookImportFolderEntryID()}; },
     [](Component& c, const Variant& v) { c.outlookImportFolderEntryID(v.toText()); }},
    {"showProgress",
     kTruth,
     {},
     [](const Component& c) { return Variant{c.showProgress()}; },
     [](Component& c, const Variant& v) { c.showProgress(v.toBoolean()); }},
    {"refreshData",
     kTruth,
     {},
     [](const Component& c) { return Variant{c.refreshData()}; },
     [](Component& c, const Variant& v) { c.refreshData(v.toBoolean()); }},
    {"dataFileUniqueID",
     kText,
     {},
     [](const Component& c) { return Variant{c.dataFileUniqueID()}; },
     [](Component& c, const Variant& v) { c.dataFileUniqueID(v.toText()); }},
    {"syncDatabaseLocation",
     kText,
     {},
     [](const Component& c) { return Variant{c.syncDatabaseLocation()}; },
     [](Component& c, const Variant& v) { c.syncDatabaseLocation(v.toText()); }},
    {"SchemeID",
     kNumber,
     {},
     [](const Component& c) { return Variant{c.SchemeID()}; },
     [](Component& c, const Variant& v) { c.SchemeID(v.toInteger()); }},
    {"openForAddressBook",
     kTruth,
     {},
     [](const Component& c) { return Variant{c.openForAddressBook()}; },
     [](Component& c, const Variant& v) { c.openForAddressBook(v.toBoolean()); }},
    {"companyList", kEnumeration, kCompanyList, [](const Component& c) { return number(c.companyList()); },
     [](Component& c, const Variant& v) { c.companyList(as<companyListType>(v)); }},
    {"tempFolder",
     kText,
     {},
     [](const Component& c) { return Variant{c.tempFolder()}; },
     [](Component& c, const Variant& v) { c.tempFolder(v.toText()); }},
    {"failedToInitializeFlag", kTruth, {}, [](const Component& c) { return Variant{c.failedToInitializeFlag()}; }, nullptr},
    {"profile",
     kText,
     {},
     [](const Component& c) { return Variant{c.profile()}; },
     [](Component& c, const Variant& v) { c.profile(v.toText()); }},
    {"password",
     kText,
     {},
     nullptr,  // put only by name, so that no listing shows it
     [](Component& c, const Variant& v) { c.password(v.toText()); }},
    {"displayLoginDialog",
     kTruth,
     {},
     [](const Component& c) { return Variant{c.displayLoginDialog()}; },
     [](Component& c, const Variant& v) { c.displayLoginDialog(v.toBoolean()); }},
    {"openNewSession",
     kTruth,
     {},
     [](const Component& c) { return Variant{c.openNewSession()}; },
     [](Component& c, const Variant& v) { c.openNewSession(v.toBoolean()); }},
    {"connectedToOutlook", kTruth, {}, [](const Component& c) { return Variant{c.connectedToOutlook()}; }, nullptr},
    {"closeOutlookWhenFinished",
     kTruth,
     {},
     [](const Component& c) { return Variant{c.closeOutlookWhenFinished()}; },
     [](Component& c, const Variant& v) { c.closeOutlookWhenFinished(v.toBoolean()); }},
    {"mvarUseAppointmentDateRange",
     kTruth,
     {},
     [](const Component& c) { return Variant{c.mvarUseAppointmentDateRange}; },
     [](Component& c, const Variant& v) { c.mvarUseAppointmentDateRange = v.toBoolean(); }},
    {"mvarAppointmentSynchDateRangeType",
     kNumber,
     {},
     [](const Component& c) { return Variant{c.mvarAppointmentSynchDateRangeType}; },
     [](Component& c, const Variant& v) { c.mvarAppointmentSynchDateRangeType = v.toInteger(); }},
    {"mvarApptSynchStartRange",
     kDate,
     {},
     [](const Component& c) { return Variant{c.mvarApptSynchStartRange}; },
     [](Component& c, const Variant& v) { c.mvarApptSynchStartRange = v.toDate(); }},
    {"mvarApptSynchEndRange",
     kDate,
     {},
     [](const Component& c) { return Variant{c.mvarApptSynchEndRange}; },
     [](Component& c, const Variant& v) { c.mvarApptSynchEndRange = v.toDate(); }},
    {"mvarApptSynchDeleteMissingOutlookApptInTallowbrook",
     kTruth,
     {},
     [](const Component& c) { return Variant{c.mvarApptSynchDeleteMissingOutlookApptInTallowbrook}; },
     [](Component& c, const Variant& v) { c.mvarApptSynchDeleteMissingOutlookApptInTallowbrook = v.toBoolean(); }},
    {"mvarApptSynchDeleteMissingTallowbrookApptInOutlook",
     kTruth,
     {},
     [](const Component& c) { return Variant{c.mvarApptSynchDeleteMissingTallowbrookApptInOutlook}; },
     [](Component& c, const Variant& v) { c.mvarApptSynchDeleteMissingTallowbrookApptInOutlook = v.toBoolean(); }},
};

std::string namesOf(std::span<const EnumerationValue> values) {
    std::string names;
    for (const EnumerationValue& value : values) {
        if (!names.empty()) names += ", ";
        names += value.name;
    }
    return names;
}

std::string expectation(const PublicProperty& property) {
    switch (property.kind) {
        case PropertyKind::number: return "a whole number";
        case PropertyKind::truth: return "True or False";
        case PropertyKind::date: return "a date such as 2026-11-22";
        case PropertyKind::enumeration: return "one of " + namesOf(property.enumeration) + ", or a number";
        case PropertyKind::text: break;
    }
    return "a text";
}

Variant parsed(const PublicProperty& property, std::string_view text) {
    Variant given{text};
    switch (property.kind) {
        case PropertyKind::enumeration:
            for (const EnumerationValue& value : property.enumeration)
                if (equalsTextually(value.name, text)) return value.value;
            [[fallthrough]];
        case PropertyKind::number:
            if (given.toDouble() != given.toInteger()) throw ConversionError{"a fraction"};
            return given.toInteger();
        case PropertyKind::truth: return given.toBoolean();
        case PropertyKind::date: return given.toDate();
        case PropertyKind::text: break;
    }
    return given;
}

}  // namespace

std::optional<Variant> PublicProperty::get(const clsOutlookSynchronization& component) const {
    if (read == nullptr) return std::nullopt;
    return read(component);
}

void PublicProperty::put(clsOutlookSynchronization& component, std::string_view text) const {
    if (write == nullptr) throw ConversionError{std::string{name} + " cannot be set."};
    Variant value;
    try {
        value = parsed(*this, text);
    } catch (const ConversionError&) {
        throw ConversionError{std::string{name} + " takes " + expectation(*this) + "."};
    }
    write(component, value);
}

std::span<const PublicProperty> publicProperties() {
    return kProperties;
}

const PublicProperty* findPublicProperty(std::string_view name) {
    for (const PublicProperty& property : kProperties)
        if (equalsTextually(property.name, name)) return &property;
    return nullptr;
}

}  // namespace wmoutlook
