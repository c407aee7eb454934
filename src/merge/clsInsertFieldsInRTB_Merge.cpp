#include "merge/clsInsertFieldsInRTB.h"

#include "hostdata/HostServices.h"
#include "hostdata/modDatabaseFunctions.h"
#include "platform/DateHelper.h"
#include "platform/Routine.h"
#include "platform/Text.h"
#include "platform/TextSearch.h"
#include "platform/ValueHelper.h"

#include <array>

namespace wmoutlook {

using merge::TextKind;

namespace {

/// A client that is a contact alone has no company name to show.
void exchangeCompanyName(std::string& text) {
    for (const merge::Marks& marks : merge::kAllMarks) {
        const auto between = [&](std::string_view name) { return std::string{marks.open}.append(name).append(marks.close); };
        const std::string company = between("Company Name");
        const std::string contact = between("Contact Display Name");
        if (!findTextually(text, company) || findTextually(text, contact)) continue;
        text = replaceTextually(text, company, contact);
        return;
    }
}

std::string withCurrentNames(std::string text, const merge::Naming& naming) {
    text = merge::renamesFor(naming.locale).apply(std::move(text));
    if (naming.isContactAlone) exchangeCompanyName(text);
    return text;
}

}  // namespace

clsInsertFieldsInRTB::~clsInsertFieldsInRTB() noexcept {
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-Class_Terminate", nullptr, Routine::OnFailure::ignore};
    routine.run([&] {
        fields_.clear();
        records_.closeAll();
    });
}

void clsInsertFieldsInRTB::MergeFieldListUse(std::int32_t use) {
    mergeFieldListUse_ = use;
    if (use == kAddressLines || use == kWriteBack) ShowListCategoryHeaders = false;
}

void clsInsertFieldsInRTB::scheduleID(std::int32_t scheduleIDNum) {
    taskID = modDatabaseFunctions::getTaskIDFromScheduleIDNum(scheduleIDNum);
}

void clsInsertFieldsInRTB::resetAllItemIDs() {
    static_cast<merge::MergeRecordIDs&>(*this) = {};
}

LockCode clsInsertFieldsInRTB::lock() const {
    return mergeFieldListUse_ == kWriteBack ? LockCode::updatable : LockCode::readOnly;
}

merge::MergeRecords::Extent clsInsertFieldsInRTB::extent() const {
    using merge::MergeRecords;
    return mergeFieldListUse_ == kWholeTables ? MergeRecords::Extent::wholeTable : MergeRecords::Extent::oneRecord;
}

void clsInsertFieldsInRTB::buildList() {
    bool skipList = true;
    bool clearList = true;
    createDefaultFieldListStructure(skipList, clearList);
}

void clsInsertFieldsInRTB::initializeDataRecordsetsForSingleDocMerge() {
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-initializeDataRecordsetsForSingleDocMerge"};
    routine.run([&] {
        records_.closeAll();
        if (isDatabaseOpen()) records_.openForMerge(*this, lock());
        buildList();
    });
}

bool clsInsertFieldsInRTB::verifyFieldListIsPopulated() {
    bool isPopulated = false;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-verifyFieldListIsPopulated"};
    routine.run([&] {
        isPopulated = fields_.count() > 0;
        if (isPopulated) return;
        if (AppointmentID >= 0)
            ListType = kAppointment;
        else if (taskID >= 0)
            ListType = kTask;
        else if (docketId >= 0)
            ListType = kTimeEntry;
        else if (companyID >= 0 || contactID >= 0)
            ListType = kCompanyAndContact;
        buildList();
    });
    return isPopulated;
}

merge::RenameLocale clsInsertFieldsInRTB::renameLocale() const {
    merge::RenameLocale locale;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-convertProvinceFields"};
    routine.run([&] {
        locale.country = firmCountry();
        if (locale.country != country::kCanada) return;
        locale.province = firmProvince();
        locale.isHarmonized = merge::isHarmonizedOn(today());
    });
    return locale;
}

std::string clsInsertFieldsInRTB::convertProvinceFields(std::string text) {
    return merge::renamesFor(renameLocale()).apply(std::move(text));
}

std::string clsInsertFieldsInRTB::convertFieldName(std::string_view text) {
    std::string converted;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-convertFieldName"};
    routine.run([&] { converted = merge::convertFieldName(text); });
    return converted;
}

std::string clsInsertFieldsInRTB::convertToRTF(std::string value) const {
    return replaceAll(std::move(value), "\r\n", useWordWrap_ ? "\\par \r\n" : ", \r\n");
}

std::string clsInsertFieldsInRTB::getTodaysDate(std::string_view format) const {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-getTodaysDate"};
    routine.run([&] {
        text = DateHelper::format(today(), ValueHelper::isNullOrEmpty(format) ? merge::kDefaultDateFormat : format);
        if (ConvertStrToRTF && !ValueHelper::isNullOrEmpty(text)) text = convertToRTF(std::move(text));
    });
    return text;
}

merge::Naming clsInsertFieldsInRTB::naming() const {
    return {renameLocale(), ConvertCompanyNameToContactNameForContacts && companyID <= 0 && contactID >= 1};
}

std::string clsInsertFieldsInRTB::valueOf(std::int32_t rank) {
    using merge::PlaceholderRank;
    const std::int32_t row = PlaceholderRank::row(rank);
    const merge::DateFormat& format = merge::kDateFormats[static_cast<std::size_t>(PlaceholderRank::format(rank))];
    if (row == 0) return getTodaysDate(format.written);
    const bool isDate = fields_.moveTo(row) && fields_.current()->type == merge::DataType::date;
    return getDataFieldInfo(row, isDate ? format.ofField : std::string_view{});
}

std::string clsInsertFieldsInRTB::parseRTBComment() {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-parseRTBComment"};
    routine.run([&] {
        const merge::Naming names = naming();
        const auto current = [&] { return withCurrentNames(TemplateText, names); };
        if (!verifyFieldListIsPopulated()) {
            text = current();
            return;
        }
        const auto prepared = merge::recentTemplates().of(TemplateText, names, fields_, current);
        text = prepared->text();
        text = prepared->merged(ConvertStrToRTF ? TextKind::rich : TextKind::plain,
                                [&](std::int32_t rank) { return valueOf(rank); });
    });
    return text;
}

bool clsInsertFieldsInRTB::replaceUnfoundMergeFieldsWithBlanks(std::string& text) {
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-replaceUnfoundMergeFieldsWithBlanks"};
    routine.run([&] {
        if (fields_.count() > 0) merge::replaceUnfoundMergeFieldsWithBlanks(text);
    });
    return false;
}

std::string clsInsertFieldsInRTB::removeBlankLinesFromRTFText(std::string text) {
    const Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-removeBlankLinesFromRTFText"};
    return text;
}

}  // namespace wmoutlook
