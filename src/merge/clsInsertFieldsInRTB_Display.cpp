#include "merge/clsInsertFieldsInRTB.h"

#include "hostdata/HostServices.h"
#include "hostdata/modDatabaseFunctions.h"
#include "platform/Routine.h"
#include "platform/TextSearch.h"
#include "platform/ValueHelper.h"

#include <array>

namespace wmoutlook {

using merge::SourceKind;
using ValueHelper::isNullOrEmpty;

/// A kind of calendar record and the texts that a user can have for it.
struct clsInsertFieldsInRTB::CalendarSource {
    std::int32_t listType;
    std::string_view columnStart;  ///< of its columns in UserCalendarSettings
    std::string_view defaultTemplate;
    SourceKind source;
};

namespace {

constexpr std::string_view kCompanyName = "«Company Name»";
constexpr std::string_view kContactName = "«Contact Display Name»";
constexpr std::string_view kLineBreak = "\r\n";
constexpr int kTurnsBeforeReading = 8;

void replaceFirst(std::string& text, std::string_view what, std::string_view by) {
    if (const auto match = findTextually(text, what)) text.replace(match->position, match->length, by);
}

/// What a user chose as a template when it is none.
bool isNoTemplate(const std::string& text) {
    return isNullOrEmpty(text) || text == "0";
}

}  // namespace

const clsInsertFieldsInRTB::CalendarSource* clsInsertFieldsInRTB::calendarSource() const {
    static constexpr std::array kSources{
        CalendarSource{kAppointment, "Appt",
                       "«Appointment Name» for «Company Name»\r\n«Appointment Start Time» to «Appointment End Time»",
                       SourceKind::appointment},
        CalendarSource{kTimeEntry, "Docket",
                       "«Time Entry Start Time» to «Time Entry End Time»\r\n«Company Name»\r\n«Time Entry Name»",
                       SourceKind::docket},
        CalendarSource{kTask, "Task", "«Task Name» for «Company Name»\r\n«Task Start Time» to «Task End Time»", SourceKind::task},
    };
    for (const CalendarSource& source : kSources)
        if (source.listType == ListType) return &source;
    return nullptr;
}

/// The user's own text for this kind of record; empty when there is none.
std::string clsInsertFieldsInRTB::userText(const CalendarSource& source, std::string_view columnEnd) const {
    if (!isDatabaseOpen()) return {};
    const Recordset settings{"SELECT UserCalendarSettings.* FROM UserCalendarSettings WHERE UserIDNum = " + toText(userID) + ";"};
    return settings.hasRows() ? settings.text(std::string{source.columnStart}.append(columnEnd)) : std::string{};
}

/// A client that is only a company shows its name where the template wants the contact's, and the other way round; a template that
/// names both stays as it is.
void clsInsertFieldsInRTB::nameTheClientThereIs(std::string& text) {
    const bool hasCompanyName = findTextually(text, kCompanyName).has_value();
    const bool hasContactName = findTextually(text, kContactName).has_value();
    if (companyID >= 0 && contactID < 0 && hasContactName && !hasCompanyName) replaceFirst(text, kContactName, kCompanyName);
    if (contactID >= 0 && companyID < 0 && hasCompanyName && !hasContactName) replaceFirst(text, kCompanyName, kContactName);
    if (companyID >= 0 && contactID < 0) contactID = modDatabaseFunctions::getDefaultContactIDFromCompanyID(companyID);
}

std::string clsInsertFieldsInRTB::withTextsAround(SourceKind source, std::string text) {
    for (int turn = 0; turn < kTurnsBeforeReading / 2; ++turn) yieldTwice();
    if (!records_.locate(source, merge::MergeRecords::idOf(source, *this))) return text;
    const Recordset& record = *records_.of(source);
    const std::string before = record.text("BeforeAppointmentText");
    const std::string after = record.text("AfterAppointmentText");
    if (!isNullOrEmpty(before)) text.insert(0, before + std::string{kLineBreak});
    if (!isNullOrEmpty(after)) text.append(kLineBreak).append(after);
    return text;
}

std::string clsInsertFieldsInRTB::createDisplayTextByID() {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-createDisplayTextByID"};
    routine.run([&] {
        MergeFieldListUse(kOrdinaryMerge);
        const CalendarSource* const source = calendarSource();
        if (source == nullptr) return;
        std::string wanted = userText(*source, "Template");
        if (isNoTemplate(wanted) || wanted == "Text Constant") wanted = source->defaultTemplate;
        wanted = convertProvinceFields(std::move(wanted));
        nameTheClientThereIs(wanted);
        if (TestComment && testRTBComment(wanted, false, false, true)) wanted = source->defaultTemplate;
        if (merge::MergeRecords::idOf(source->source, *this) < 0) return;
        initializeDataRecordsetsForSingleDocMerge();
        TemplateText = wanted;
        text = parseRTBComment();
        text = withTextsAround(source->source, text);
    });
    return text;
}

std::string clsInsertFieldsInRTB::createTitleBarTextByID() {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-createTitleBarTextByID"};
    routine.run([&] {
        MergeFieldListUse(kOrdinaryMerge);
        const CalendarSource* const source = calendarSource();
        if (source == nullptr) return;
        std::string wanted = userText(*source, "TitleBarText");
        if (isNullOrEmpty(wanted)) return;
        nameTheClientThereIs(wanted);
        if (!wanted.starts_with(merge::kPlainMarks.open)) wanted.insert(0, merge::kPlainMarks.open);
        if (!wanted.ends_with(merge::kPlainMarks.close)) wanted.append(merge::kPlainMarks.close);
        TemplateText = convertProvinceFields(std::move(wanted));
        if (merge::MergeRecords::idOf(source->source, *this) < 0) return;
        initializeDataRecordsetsForSingleDocMerge();
        text = parseRTBComment();
    });
    return text;
}

std::string createTextByID(std::int32_t itemKind, std::int32_t itemID, std::int32_t userID) {
    namespace Look = modDatabaseFunctions;
    struct Kind {
        std::int32_t itemKind, listType;
        std::int32_t (*companyOf)(std::int32_t);
        std::int32_t (*contactOf)(std::int32_t);
        std::int32_t merge::MergeRecordIDs::*id;
    };
    static constexpr Kind kKinds[] = {
        {0, clsInsertFieldsInRTB::kAppointment, Look::getCompanyIDFromAppointmentID, Look::getContactIDFromAppointmentID,
         &merge::MergeRecordIDs::AppointmentID},
        {2, clsInsertFieldsInRTB::kTimeEntry, Look::getCompanyIDFromDocketID, Look::getContactIDFromDocketID,
         &merge::MergeRecordIDs::docketId},
        {1, clsInsertFieldsInRTB::kTask, Look::getCompanyIDFromTaskID, Look::getContactIDFromTaskID,
         &merge::MergeRecordIDs::taskID},
    };
    std::string text;
    Routine routine{"Tallowbrook.exe-modDatabaseFunctions-createTextByID"};
    routine.run([&] {
        for (const Kind& kind : kKinds) {
            if (kind.itemKind != itemKind) continue;
            clsInsertFieldsInRTB merge;
            merge.ListType = kind.listType;
            merge.companyID = kind.companyOf(itemID);
            merge.contactID = kind.contactOf(itemID);
            merge.*kind.id = itemID;
            merge.userID = userID;
            text = merge.createDisplayTextByID();
        }
    });
    return text;
}

}  // namespace wmoutlook
