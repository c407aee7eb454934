#pragma once

#include "merge/FieldListBuilder.h"
#include "merge/FieldTables.h"
#include "merge/MergeRecords.h"
#include "merge/PickList.h"
#include "merge/RecentTemplates.h"
#include "platform/Event.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace wmoutlook {

/// Turns a template that holds placeholders into finished text for one client, appointment, time entry or task; also validates
/// templates, offers the placeholders in pick lists and puts a picked one into a rich-text box.
///
/// One object serves one merge: set ListType, the numbers of the records and the switches, call
/// initializeDataRecordsetsForSingleDocMerge, set TemplateText, call parseRTBComment. Failures go to the module-wide error service; a
/// field whose value cannot be had becomes empty text. One thread.
class clsInsertFieldsInRTB : public merge::MergeRecordIDs {
public:
    clsInsertFieldsInRTB() = default;
    ~clsInsertFieldsInRTB() noexcept;
    clsInsertFieldsInRTB(const clsInsertFieldsInRTB&) = delete;
    clsInsertFieldsInRTB& operator=(const clsInsertFieldsInRTB&) = delete;

    // What the list of fields holds: values of ListType and of MergeFieldListUse.

    static constexpr std::int32_t kCompanyWithDefaultContact = 1;
    static constexpr std::int32_t kCompanyAndContact = 2;
    static constexpr std::int32_t kContactAlone = 3;
    static constexpr std::int32_t kAppointment = 5;
    static constexpr std::int32_t kTimeEntry = 6;
    static constexpr std::int32_t kTask = 8;

    static constexpr std::int32_t kOrdinaryMerge = 1;
    static constexpr std::int32_t kWholeTables = 2;  ///< recordsets that are opened on demand hold every record
    static constexpr std::int32_t kAddressLines = 3;
    static constexpr std::int32_t kTaxColumns = 4;  ///< as an ordinary merge
    static constexpr std::int32_t kWriteBack = 5;   ///< recordsets can be written to

    std::int32_t ListType = 0;
    std::shared_ptr<RichTextBox> RTB;
    std::shared_ptr<PickList> ListBox;   ///< for the rows of clients and calendar records
    std::shared_ptr<PickList> ListBox2;  ///< for the rows of the firm
    bool ShowListCategoryHeaders = true;
    std::string TemplateText;
    bool TestComment = false;     ///< fields show their samples, and a display template is validated first
    bool ConvertStrToRTF = true;  ///< values are put into rich text
    bool ConvertCompanyNameToContactNameForContacts = false;

    [[nodiscard]] std::int32_t MergeFieldListUse() const { return mergeFieldListUse_; }
    void MergeFieldListUse(std::int32_t use);               ///< 3 and 5 also switch ShowListCategoryHeaders off
    void UseWordWrap(bool wraps) { useWordWrap_ = wraps; }  ///< how convertToRTF breaks lines
    void scheduleID(std::int32_t scheduleIDNum);            ///< sets taskID to the task of a schedule entry
    void resetAllItemIDs();

    /// Names that are valid as well, for a host that checks a template before it is known for which list.
    std::function<bool(std::string_view name)> isKnownElsewhere;

    /// A sentence of testRTBComment about an error in the text.
    Event<const std::string&> MergeCommentError;

    // The field list (clsInsertFieldsInRTB_List.cpp)

    /// Builds the list anew and fills the pick lists that are set. skipList comes back as whether there was no ListBox to fill.
    void createDefaultFieldListStructure(bool& skipList, bool& clearList);
    void createAccountantFieldListStructure(bool& skipList, bool& clearList);
    [[nodiscard]] std::string getDBFieldFromListItem(std::int32_t listIndex);
    [[nodiscard]] std::string parseListItem(std::int32_t listIndex, bool withMarks);
    bool onListClick(std::int32_t listIndex);  ///< whether the placeholder was put in
    [[nodiscard]] std::string insertCurrentDateMergeField(std::int32_t formatNumber, bool withMarks);
    bool insertCurrentDate(std::int32_t formatNumber);
    [[nodiscard]] std::string getDBFieldNameFromDisplayFieldName(std::string_view displayName);
    [[nodiscard]] std::string getDisplayFieldNameFromDBFieldName(std::string_view databaseField);

    // The merge (clsInsertFieldsInRTB_Merge.cpp)

    void initializeDataRecordsetsForSingleDocMerge();
    [[nodiscard]] std::string parseRTBComment();
    /// Whether the list was there; one that was not is built, and the answer is False all the same.
    bool verifyFieldListIsPopulated();
    [[nodiscard]] std::string convertProvinceFields(std::string text);
    [[nodiscard]] std::string convertFieldName(std::string_view text);
    [[nodiscard]] std::string convertToRTF(std::string value) const;
    [[nodiscard]] std::string getTodaysDate(std::string_view format) const;
    bool replaceUnfoundMergeFieldsWithBlanks(std::string& text);  ///< always False
    /// Gives the text back as it is: what was cleaned is dropped. Nobody relies on it.
    [[nodiscard]] std::string removeBlankLinesFromRTFText(std::string text);

    // Validation (clsInsertFieldsInRTB_Validation.cpp)

    /// True when the text has an error. The marks are the plain ones, or the escaped ones when it is treated as rich text.
    bool testRTBComment(std::string text, bool treatAsRtf, bool showMessages, bool skipFieldNameCheck);
    [[nodiscard]] bool testStr(std::string_view name);

    // Values (clsInsertFieldsInRTB_Values.cpp)

    [[nodiscard]] std::string getDataFieldInfo(std::int32_t rowIndex, std::string_view dateFormat);
    [[nodiscard]] std::string getMergeDataFromFieldName(std::string_view databaseField);
    [[nodiscard]] std::string getMergeDataFromDisplayName(std::string_view displayName);
    [[nodiscard]] std::string getContactAndSpouseName(std::int32_t contactIDToShow, bool lastNameFirst);
    [[nodiscard]] std::string getTimeDurationFieldValue(Date timeFrom, Date timeTo);

    /// Writes one value back to the record that it comes from (clsInsertFieldsInRTB_WriteBack.cpp).
    void writeDataToField(std::string_view dbFieldName, const Variant& value);

    // Texts of calendar records (clsInsertFieldsInRTB_Display.cpp)

    [[nodiscard]] std::string createDisplayTextByID();
    [[nodiscard]] std::string createTitleBarTextByID();

    [[nodiscard]] const merge::FieldList& fieldList() const { return fields_; }

private:
    struct CalendarSource;

    [[nodiscard]] merge::ListTerms listTerms() const;
    [[nodiscard]] LockCode lock() const;
    [[nodiscard]] merge::MergeRecords::Extent extent() const;
    void buildList();
    void addGroups(merge::FieldListBuilder& builder);
    void createAppointmentInfoFieldListStructure(merge::FieldListBuilder& builder);
    void createTaskInfoFieldListStructure(merge::FieldListBuilder& builder);
    void createDocketInfoFieldListStructure(merge::FieldListBuilder& builder);
    void createCompanyInfoFieldListStructure(merge::FieldListBuilder& builder);
    bool insertIntoBox(std::string_view text) const;
    [[nodiscard]] std::string faultOfName(std::string_view name, bool skipFieldNameCheck);

    [[nodiscard]] std::string valueOf(std::int32_t rank);
    /// Where and when templates are merged, as far as it can be told.
    [[nodiscard]] merge::RenameLocale renameLocale() const;
    [[nodiscard]] merge::Naming naming() const;

    [[nodiscard]] Variant valueOfRecord(const merge::Field& field);
    [[nodiscard]] Variant getDataFieldFromRecordset(const merge::Field& field);
    [[nodiscard]] Variant durationBetween(const Variant& from, const Variant& to);
    [[nodiscard]] Variant contactValue(const std::string& name);
    [[nodiscard]] std::optional<Variant> inheritedValue(const std::string& name);
    [[nodiscard]] std::string formatted(const Variant& value, merge::DataType type, std::string_view dateFormat) const;
    [[nodiscard]] bool locateContact(std::int32_t contactIDToShow);
    [[nodiscard]] std::string mergeDataOf(std::string_view value, std::size_t column);

    void writeToCompany(const merge::Field& field, const Variant& value);

    [[nodiscard]] const CalendarSource* calendarSource() const;  ///< by ListType; null for any other
    [[nodiscard]] std::string userText(const CalendarSource& source, std::string_view columnEnd) const;
    void nameTheClientThereIs(std::string& text);
    [[nodiscard]] std::string withTextsAround(merge::SourceKind source, std::string text);

    std::int32_t mergeFieldListUse_ = kOrdinaryMerge;
    bool useWordWrap_ = true;
    merge::FieldList fields_;
    merge::MergeRecords records_;
};

/// The text that the host's calendar shows for an appointment (kind 0), a task (1) or a time entry (2) of a user. Empty for any other.
[[nodiscard]] std::string createTextByID(std::int32_t itemKind, std::int32_t itemID, std::int32_t userID);

}  // namespace wmoutlook
