#include "merge/clsLookupFields.h"

#include "tests/merge/MergeFirm.h"
#include "tests/support/FaultyDatabase.h"

namespace wmoutlook::testing {
namespace {

class LookupColumns : public MergeFirm {
protected:
    LookupColumns() {
        fields.LookUpFieldsType = clsLookupFields::kTaskColumns;
        fields.customNumber = 2;
        fields.fieldName = "City";
        company = addCompany(*host.database, {{"CompanyName", "Birch"}, {"City", "Laval"}});
        contact = addContact(*host.database, {{"DisplayName", "Bob"}, {"HomeCity", "Hull"}});
    }
    void chooseKind(const std::string& column, const std::string& kind) {
        const RecordsetHandle rows =
            host.database->openRecordset("SELECT CustomFields.* FROM CustomFields;", LockCode::updatable);
        if (!host.database->hasRows(rows)) host.database->addNewRecord(rows), host.database->saveNewRecord(rows);
        host.database->updateField(rows, column, kind);
        host.database->closeRecordset(rows);
    }
    /// "Custom2" of each row.
    std::string columnOf(const std::string& table) {
        std::string values;
        const RecordsetHandle rows =
            host.database->openRecordset("SELECT " + table + ".* FROM " + table + ";", LockCode::readOnly);
        for (host.database->moveFirst(rows); !host.database->isEndOfRecordset(rows); host.database->moveNext(rows))
            values += host.database->getField(rows, "Custom2").toText() + "|";
        host.database->closeRecordset(rows);
        return values;
    }
    clsLookupFields fields;
    std::int32_t company = -1, contact = -1;
};

TEST_F(LookupColumns, AreKnownByTheirKind) {
    EXPECT_FALSE(fields.isLookupField());
    add("CustomFields", "", {{"RemittanceCustomType2", "3"}, {"ProjectCustomType2", "1"}});
    EXPECT_TRUE(fields.isLookupField());
    EXPECT_FALSE(fields.isClientRepeaterField());
    fields.LookUpFieldsType = clsLookupFields::kProjectColumns;
    EXPECT_TRUE(fields.isClientRepeaterField());
    fields.customNumber = 6;
    EXPECT_FALSE(fields.isClientRepeaterField());
    fields.LookUpFieldsType = 4;
    EXPECT_FALSE(fields.isTaskTypeRepeaterField());
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(LookupColumns, AreFilledFromTheClientAndEmptied) {
    for (const auto& client : {Fields{{"ClientNum", toText(company)}, {"ContactIDNum", "-1"}},
                               Fields{{"ClientNum", toText(company)}, {"ContactIDNum", "-1"}},
                               Fields{{"ClientNum", "-1"}, {"ContactIDNum", toText(contact)}}})
        add("Schedule", "ScheduleID", client);
    fields.populateLookupFieldValuesForAllClients();
    EXPECT_EQ(columnOf("Schedule"), "|||") << "the column is typed";
    chooseKind("RemittanceCustomType2", "3");
    fields.populateLookupFieldValuesForAllClients();
    EXPECT_EQ(columnOf("Schedule"), "Laval|Laval||");
    fields.fieldName = "HomeCity";
    fields.populateLookupFieldValuesForAllClients();
    EXPECT_EQ(columnOf("Schedule"), "||Hull|");
    fields.RepeatValue = "R";
    fields.clientIDNum = company;
    fields.populateClientRepeaterFieldValues();
    EXPECT_EQ(columnOf("Schedule"), "||Hull|");
    chooseKind("RemittanceCustomType2", "1");
    fields.populateTaskTypeRepeaterFieldValues();
    EXPECT_EQ(columnOf("Schedule"), "||Hull|");
    fields.populateClientRepeaterFieldValues();
    EXPECT_EQ(columnOf("Schedule"), "R|R|Hull|");
    chooseKind("RemittanceCustomType2", "2");
    EXPECT_TRUE(fields.isTaskTypeRepeaterField());
    fields.RepeatValue = "S";
    fields.populateTaskTypeRepeaterFieldValues();
    EXPECT_EQ(columnOf("Schedule"), "S|S|Hull|");
    fields.removeLookupFieldVales();
    EXPECT_EQ(columnOf("Schedule"), "S|S|Hull|") << "the column is no lookup";
    chooseKind("RemittanceCustomType2", "3");
    fields.removeLookupFieldVales();
    EXPECT_EQ(columnOf("Schedule"), "|||");
    EXPECT_TRUE(host.errors->reports.empty());
}

TEST_F(LookupColumns, TaxRecordsAreThoseOfTheYear) {
    for (const auto* const year : {"2024", "2025"})
        add("PersonalTaxStatus", "", {{"ContactNum", toText(contact)}, {"TaxYear", year}, {"Custom2", "old"}});
    fields.LookUpFieldsType = clsLookupFields::kPersonalTaxColumns;
    fields.PersonalTaxYear = 2025;
    fields.fieldName = "HomeCity";
    chooseKind("PersonalTaxTaskCustomType2", "3");
    fields.populateLookupFieldValuesForAllClients();
    EXPECT_EQ(columnOf("PersonalTaxStatus"), "old|Hull|");
    fields.removeLookupFieldVales();
    EXPECT_EQ(columnOf("PersonalTaxStatus"), "old||");
    chooseKind("PersonalTaxTaskCustomType2", "1");
    fields.contactIDNum = contact;  // whose they are, whatever kind of client is chosen
    fields.RepeatValue = "R";
    fields.populateClientRepeaterFieldValues();
    EXPECT_EQ(columnOf("PersonalTaxStatus"), "old|R|");
}

TEST_F(LookupColumns, FailingCallLeavesTheValueOfARowOrWritesTheRightOne) {
    chooseKind("RemittanceCustomType2", "3");
    add("Schedule", "ScheduleID", {{"ClientNum", toText(company)}, {"ContactIDNum", toText(contact)}});
    Faults faults;
    const auto faulty = host.component(std::make_shared<FaultyDatabase>(host.database, faults));
    for (const ErrorAnswer answer : {ErrorAnswer::goOn, ErrorAnswer::leaveRoutine}) {
        host.errors->answer = [&](const ErrorReport&) { return answer; };
        int call = 0;
        for (std::string column = "old|"; call == 0 || faults.failed > 0;) {
            faults = {};
            Recordset{"SELECT Schedule.* FROM Schedule;", LockCode::updatable}.update("Custom2", "old");
            faults = {};
            faults.failOnce(++call);
            fields.populateLookupFieldValuesForAllClients();
            column = columnOf("Schedule");
            EXPECT_TRUE(column == "Laval|" || (faults.failed > 0 && column == "old|"))
                << column << " " << call << " " << faults.firstFailed << " " << faults.firstField;
        }
        EXPECT_GT(call, 30);
        faults = {};
    }
}

TEST_F(LookupColumns, OneDataFileIsLeftOut) {
    add("CustomFields", "", {{"RemittanceCustomType2", "3"}});
    add("Schedule", "ScheduleID", {{"ClientNum", toText(company)}, {"Custom2", "own"}});
    const RecordsetHandle rows = host.database->openRecordset("SELECT DataVersion.* FROM DataVersion;", LockCode::updatable);
    if (!host.database->hasRows(rows)) host.database->addNewRecord(rows), host.database->saveNewRecord(rows);
    host.database->updateField(rows, "DataUniqueID", "Qxvnoe4MhKd9");
    host.database->closeRecordset(rows);
    EXPECT_FALSE(fields.isLookupField());
    fields.removeLookupFieldVales();
    fields.populateLookupFieldValuesForAllClients();
    EXPECT_EQ(columnOf("Schedule"), "own|");
}

}  // namespace
}  // namespace wmoutlook::testing
