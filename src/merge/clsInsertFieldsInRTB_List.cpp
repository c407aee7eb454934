#include "merge/clsInsertFieldsInRTB.h"

#include "hostdata/HostServices.h"
#include "merge/FieldListBuilder.h"
#include "platform/Errors.h"
#include "platform/Routine.h"

#include <charconv>

namespace wmoutlook {

using merge::FieldListBuilder;
using merge::SourceKind;
namespace fieldColumn = merge::fieldColumn;

namespace {

/// Between marks, as it stands in a template.
std::string betweenMarks(const std::string& text) {
    return std::string{merge::kPlainMarks.open} + text + std::string{merge::kPlainMarks.close};
}

std::string todaysDateIn(std::int32_t formatNumber) {
    const bool isThere = formatNumber >= 1 && static_cast<std::size_t>(formatNumber) <= merge::kDateFormats.size();
    const std::string_view format = isThere ? merge::kDateFormats[static_cast<std::size_t>(formatNumber) - 1].written : "";
    return "(" + std::string{merge::kTodaysDate} + ", " + std::string{format} + ")";
}

std::string dateExpression(std::string_view name) {
    return "(" + std::string{name} + ", " + std::string{merge::kFormatOfPickedDate} + ")";
}

}  // namespace

merge::ListTerms clsInsertFieldsInRTB::listTerms() const {
    return {firmCountry(), firmProvince(), merge::isHarmonizedOn(today()), mergeFieldListUse_ == kAddressLines};
}

void clsInsertFieldsInRTB::createDefaultFieldListStructure(bool& skipList, bool& clearList) {
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-createDefaultFieldListStructure"};
    routine.run([&] {
        const auto box = ListBox;
        skipList = box == nullptr;
        fields_.clear();
        if (!skipList && clearList) statement([&] { box->Clear(); });
        const merge::ListTerms terms = listTerms();
        FieldListBuilder builder{fields_, box, terms, ShowListCategoryHeaders};
        if (terms.hasWholeLines) builder.show("Not Assigned");
        addGroups(builder);
        if (!skipList) {
            statement([&] { box->Refresh(); });
            yieldTwice();
        }
        bool skipFirmList = skipList;
        createAccountantFieldListStructure(skipFirmList, clearList);
    });
}

void clsInsertFieldsInRTB::addGroups(FieldListBuilder& builder) {
    if (ListType == kAppointment) createAppointmentInfoFieldListStructure(builder);
    if (ListType == kTimeEntry) createDocketInfoFieldListStructure(builder);
    if (ListType == kTask) createTaskInfoFieldListStructure(builder);
    const bool isAboutCompany = ListType == kCompanyAndContact || ListType == kCompanyWithDefaultContact ||
                                ListType == kAppointment || ListType == kTimeEntry || ListType == kTask;
    if (!isAboutCompany && ListType != kContactAlone) return;

    if (isAboutCompany) {
        builder.header("[Company Address Info]",
                       ListType == kTimeEntry ? FieldListBuilder::Blank::none : FieldListBuilder::Blank::before);
        createCompanyInfoFieldListStructure(builder);
    }
    const bool isOwnContact = ListType == kCompanyAndContact || ListType == kContactAlone;
    builder.header(isOwnContact ? "[Contact Name]" : "[Default Contact Name]");
    builder.rows(merge::contactNameRows(), SourceKind::contact);
    if (isAboutCompany) {
        builder.header("[Company Accounting Info]");
        builder.rows(merge::clientRows(), SourceKind::client);
        builder.customRows(merge::kCustomClientRows, SourceKind::client);
        builder.header("[Company Software Info]");
        builder.rows(merge::softwareRows(), SourceKind::software);
    }
    builder.header("[More Contact Info]");
    builder.rows(merge::moreContactRows(), SourceKind::contact);
    builder.customRows(merge::kCustomContactRows, SourceKind::contact);
    builder.notes("Contact Notes", SourceKind::contactNotes);
    if (ListType == kContactAlone && companyID >= 0) {
        builder.header("[Company Info]");
        createCompanyInfoFieldListStructure(builder);
    }
}

void clsInsertFieldsInRTB::createAppointmentInfoFieldListStructure(FieldListBuilder& builder) {
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-createAppointmentInfoFieldListStructure"};
    routine.run([&] {
        builder.header("[Appointment Info]");
        builder.rows(merge::appointmentRows(), SourceKind::appointment);
        builder.customRows(merge::kCustomAppointmentRows, SourceKind::appointment);
    });
}

void clsInsertFieldsInRTB::createTaskInfoFieldListStructure(FieldListBuilder& builder) {
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-createTaskInfoFieldListStructure"};
    routine.run([&] {
        builder.header("[Task Info]");
        builder.rows(merge::taskScheduleRows(), SourceKind::task);
        builder.customRows(merge::kCustomScheduleRows, SourceKind::task);
        builder.header("[Task Info]");
        builder.rows(merge::taskCalendarRows(), SourceKind::task);
        builder.customRows(merge::kCustomTaskRows, SourceKind::task);
    });
}

void clsInsertFieldsInRTB::createDocketInfoFieldListStructure(FieldListBuilder& builder) {
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-createDocketInfoFieldListStructure"};
    routine.run([&] {
        builder.header("[Time Entry Info]");
        builder.rows(merge::docketRows(), SourceKind::docket);
        builder.customRows(merge::kCustomDocketRows, SourceKind::docket);
    });
}

void clsInsertFieldsInRTB::createCompanyInfoFieldListStructure(FieldListBuilder& builder) {
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-createCompanyInfoFieldListStructure"};
    routine.run([&] {
        builder.rows(merge::companyRows(), SourceKind::company);
        builder.customRows(merge::kCustomCompanyRows, SourceKind::company);
        builder.notes("Company Notes", SourceKind::companyNotes);
    });
}

void clsInsertFieldsInRTB::createAccountantFieldListStructure(bool& skipList, bool& clearList) {
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-createAccountantFieldListStructure"};
    routine.run([&] {
        const auto box = ListBox2;
        skipList = box == nullptr;
        if (!skipList && clearList) statement([&] { box->Clear(); });
        const merge::ListTerms terms = listTerms();
        FieldListBuilder builder{fields_, box, terms, false};
        builder.show("Insert your Letterhead");
        builder.rows(merge::firmRows(), SourceKind::firm);
        builder.customRows(merge::kCustomFirmRows, SourceKind::firm);
    });
}

std::string clsInsertFieldsInRTB::getDBFieldFromListItem(std::int32_t listIndex) {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-getDBFieldFromListItem"};
    routine.run([&] {
        if (listIndex < 0 || !fields_.moveTo(listIndex)) return;
        const merge::Field& field = *fields_.current();
        text = field.type == merge::DataType::date ? dateExpression(field.displayName) : field.databaseField;
    });
    return text;
}

std::string clsInsertFieldsInRTB::parseListItem(std::int32_t listIndex, bool withMarks) {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-parseListItem"};
    routine.run([&] {
        if (listIndex < 0 || !fields_.moveTo(listIndex)) return;
        const merge::Field& field = *fields_.current();
        text = field.type == merge::DataType::date ? dateExpression(field.displayName) : field.displayName;
        if (withMarks) text = betweenMarks(text);
    });
    return text;
}

/// At the place of the cursor; where that is unknown, at 1.
bool clsInsertFieldsInRTB::insertIntoBox(std::string_view text) const {
    constexpr std::int32_t kUnknownPlace = 1;
    const auto box = RTB;
    const Variant start = statement([&] {
        if (!box) throw ObjectNotSet{"RTB"};
        return box->SelStart();
    });
    const std::int32_t position = quietly([&] { return std::optional{start.toInteger()}; }).value_or(kUnknownPlace);
    if (!box || text.empty()) return false;
    return statement([&] { return box->insertText(text, position); });
}

bool clsInsertFieldsInRTB::onListClick(std::int32_t listIndex) {
    bool isInserted = false;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-onListClick"};
    routine.run([&] { isInserted = insertIntoBox(parseListItem(listIndex, true)); });
    return isInserted;
}

std::string clsInsertFieldsInRTB::insertCurrentDateMergeField(std::int32_t formatNumber, bool withMarks) {
    std::string text;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-insertCurrentDateMergeField"};
    routine.run([&] { text = withMarks ? betweenMarks(todaysDateIn(formatNumber)) : todaysDateIn(formatNumber); });
    return text;
}

bool clsInsertFieldsInRTB::insertCurrentDate(std::int32_t formatNumber) {
    bool isInserted = false;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-insertCurrentDate"};
    routine.run([&] { isInserted = insertIntoBox(insertCurrentDateMergeField(formatNumber, true)); });
    return isInserted;
}

std::string clsInsertFieldsInRTB::getDBFieldNameFromDisplayFieldName(std::string_view displayName) {
    std::string name;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-getDBFieldNameFromDisplayFieldName"};
    routine.run([&] {
        if (fields_.find(displayName, fieldColumn::kDisplayName) != merge::FieldList::kNotFound)
            name = fields_.current()->databaseField;
    });
    return name;
}

std::string clsInsertFieldsInRTB::getDisplayFieldNameFromDBFieldName(std::string_view databaseField) {
    std::string name;
    Routine routine{"Tallowbrook.exe-clsInsertFieldsInRTB-getDisplayFieldNameFromDBFieldName"};
    routine.run([&] {
        if (fields_.find(databaseField, fieldColumn::kDatabaseField) != merge::FieldList::kNotFound)
            name = fields_.current()->displayName;
    });
    return name;
}

}  // namespace wmoutlook
