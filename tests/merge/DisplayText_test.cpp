#include "tests/merge/MergeFirm.h"

namespace wmoutlook::testing {
namespace {

class DisplayText : public MergeFirm {
protected:
    std::int32_t company = addCompany(*host.database, {{"CompanyName", "Birch Inc."}});
    std::int32_t contact = addContact(*host.database, {{"DisplayName", "Bob Alder"}});

    std::int32_t appointment(Fields fields = {}) {
        fields.insert(fields.begin(),
                      {{"Subject", "Meeting"}, {"DateFrom", "2026-11-24"}, {"TimeFrom", "09:00:00"}, {"TimeTo", "10:30:00"}});
        return add("Appointments", "AppointmentID", fields);
    }
    void choose(const std::string& column, const std::string& text) {
        add("UserCalendarSettings", "", {{"UserIDNum", "1"}, {column, text}});
    }
};

/// A value at the start of a line gets a blank in front, as in rich text.
TEST_F(DisplayText, DefaultTemplatesNameTheClientThereIs) {
    EXPECT_EQ(createTextByID(0, appointment({{"CompanyIDNum", toText(company)}}), 1),
              "Meeting for Birch Inc.\r\n 9:00 am to 10:30 am");
    EXPECT_EQ(createTextByID(0, appointment({{"ContactIDNum", toText(contact)}}), 1),
              "Meeting for Bob Alder\r\n 9:00 am to 10:30 am");
    const Fields times{
        {"DateFrom", "2026-11-24"}, {"TimeFrom", "13:00:00"}, {"TimeTo", "14:00:00"}, {"CompanyIDNum", toText(company)}};
    Fields task{{"Subject", "File"}};
    task.insert(task.end(), times.begin(), times.end());
    EXPECT_EQ(createTextByID(1, add("Tasks", "TaskID", task), 1), "File for Birch Inc.\r\n 1:00 pm to 2:00 pm");
    EXPECT_EQ(createTextByID(2, add("Dockets", "DocketID", task), 1), "1:00 pm to 2:00 pm\r\n Birch Inc.\r\n File");
    EXPECT_EQ(createTextByID(0, -1, 1), "");
    EXPECT_EQ(createTextByID(0, 999, 1), " for \r\n  to ");
    EXPECT_EQ(createTextByID(7, 1, 1), "");
}

TEST_F(DisplayText, UsersHaveTemplatesOfTheirOwn) {
    struct Case {
        std::string chosen, text;
    };
    for (const Case& c :
         {Case{"«Appointment Name» (c/o «Contact Display Name»)", "Meeting (c/o Birch Inc.)"},
          Case{"«Contact Display Name», «Contact Display Name»", "Birch Inc., "},  // the first alone is exchanged
          Case{"0", "Meeting for Birch Inc.\r\n 9:00 am to 10:30 am"},
          Case{"Text Constant", "Meeting for Birch Inc.\r\n 9:00 am to 10:30 am"}, Case{"«Time Duration»", "1 hr 30 min"}}) {
        SCOPED_TRACE(c.chosen);
        const RecordsetHandle rows =
            host.database->openRecordset("SELECT UserCalendarSettings.* FROM UserCalendarSettings;", LockCode::updatable);
        if (host.database->hasRows(rows)) host.database->deleteRecord(rows);
        host.database->closeRecordset(rows);
        choose("ApptTemplate", c.chosen);
        EXPECT_EQ(createTextByID(0, appointment({{"CompanyIDNum", toText(company)}}), 1), c.text);
    }
    EXPECT_EQ(createTextByID(0,
                             appointment({{"ContactIDNum", toText(contact)},
                                          {"BeforeAppointmentText", "Before"},
                                          {"AfterAppointmentText", "After"}}),
                             2),
              "Before\r\nMeeting for Bob Alder\r\n 9:00 am to 10:30 am\r\nAfter");
}

TEST_F(DisplayText, CompanyIsShownWithItsDefaultContact) {
    add("ContactLinks", "", {{"CompanyNum", toText(company)}, {"ContactIDNum", toText(contact)}, {"DefaultContact", "True"}});
    choose("ApptTemplate", "«Company Name» / «Contact Display Name»");
    EXPECT_EQ(createTextByID(0, appointment({{"CompanyIDNum", toText(company)}}), 1), "Birch Inc. / Bob Alder");
    EXPECT_EQ(createTextByID(0, appointment({{"ContactIDNum", toText(contact)}}), 1), " / Bob Alder");
}

TEST_F(DisplayText, TitleIsAFieldNameOrATemplate) {
    merge.ListType = clsInsertFieldsInRTB::kAppointment;
    merge.userID = 1;
    merge.companyID = company;
    merge.AppointmentID = appointment({{"CompanyIDNum", toText(company)}});
    EXPECT_EQ(merge.createTitleBarTextByID(), "");
    choose("ApptTitleBarText", "Appointment Name");
    EXPECT_EQ(merge.createTitleBarTextByID(), "Meeting");
}

}  // namespace
}  // namespace wmoutlook::testing
