SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'F' AND FolderStoreID = 'S' AND CompanyNum = 7
SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'F' AND FolderStoreID = 'S' AND ContactNum = 7
SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'F' AND FolderStoreID = 'S' AND AppointmentNum = 7
SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'F' AND FolderStoreID = 'S' AND TaskNum = 7
SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'F' AND FolderStoreID = 'S' AND OutlookID = 'O'
SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'F' AND FolderStoreID = 'S' AND OutlookID='O' AND IsRecurringItem=True ORDER BY RecurringItemDate;
SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'F' AND FolderStoreID = 'S' AND IsRecurringItem=True AND RecurringItemDate=46000 AND OutlookID = 'O'
SELECT OutlookSchemeItems.* FROM OutlookSchemeItems WHERE OutlookSchemeItems.SchemeNum = 7;
SELECT Companies.CompanyID, Companies.CompanyName FROM Companies WHERE CompanyID=7;
SELECT Companies.CompanyID, Companies.CompanyNum, Companies.CategoryNum FROM Companies WHERE Companies.CompanyID = 7;
SELECT Companies.CompanyID, Companies.DefaultContactName, Companies.DefaultContactPhoneNumber, Companies.DefaultContactFaxNumber, Companies.DefaultContactEmail FROM Companies WHERE CompanyID = 7;
SELECT Companies.CompanyName, Companies.CompanyNum FROM Companies WHERE CompanyNum = 7
SELECT Companies.*, Companies.Custom1 AS CompanyCustom1, Companies.Custom2 AS CompanyCustom2, Companies.Custom3 AS CompanyCustom3, Companies.Custom4 AS CompanyCustom4, Companies.Custom5 AS CompanyCustom5 From Companies WHERE Companies.CompanyID=7;
SELECT Contacts.*, Contacts.Custom1 AS ContactCustom1, Contacts.Custom2 AS ContactCustom2, Contacts.Custom3 AS ContactCustom3, Contacts.Custom4 AS ContactCustom4, Contacts.Custom5 AS ContactCustom5 From Contacts WHERE Contacts.ContactID=7;
SELECT Contacts.ContactID, Contacts.Gender FROM Contacts WHERE ContactID=7;
SELECT Contacts.ContactID, Contacts.DisplayName, Contacts.BusinessPhone_Main, Contacts.BusinessPhone_Fax, Contacts.BusinessEmail FROM Contacts WHERE ContactID = 7;
SELECT Contacts.ContactID, Contacts.FirstName, Contacts.LastName, Contacts.DisplayName, Contacts.ContactPersonalTaxDisplayType, Contacts.SpouseFirstName, Contacts.SpouseLastName FROM Contacts WHERE ContactID=7;
SELECT CompaniesNotes.* From CompaniesNotes WHERE CompaniesNotes.CompanyNum=7;
SELECT CompaniesNotes.CompanyNum, CompaniesNotes.ContactNotes FROM CompaniesNotes WHERE CompanyNum=7;
SELECT ContactsNotes.* From ContactsNotes WHERE ContactsNotes.ContactNum=7;
SELECT Clients.* FROM Clients WHERE Clients.CompanyIDNum=7;
SELECT Clients.* FROM Clients WHERE Clients.ContactIDNum=7;
SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.ContactIDNum = 7 AND ContactLinks.CategoryNum = 8
SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.ContactIDNum = 7 AND ContactLinks.CompanyNum = 8
SELECT ContactLinks.* FROM ContactLinks WHERE ContactLinks.ContactIDNum = 7 AND ContactLinks.ContactNum = 8
SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.DefaultContact FROM ContactLinks WHERE ContactLinks.CompanyNum = 7;
SELECT ContactLinks.ContactIDNum, ContactLinks.ContactNum FROM ContactLinks WHERE ContactLinks.ContactNum = 7
SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, Companies.CompanyName FROM ContactLinks INNER JOIN Companies ON ContactLinks.CompanyNum = Companies.CompanyID WHERE ContactLinks.ContactIDNum=7 AND Not ContactLinks.CompanyNum Is Null;
SELECT Categories.CategoryName, ContactLinks.ContactIDNum FROM Categories INNER JOIN ContactLinks ON Categories.CategoryID = ContactLinks.CategoryNum WHERE ContactLinks.ContactIDNum=7
SELECT Categories.CategorySpecialCode, Categories.CategoryName FROM Categories WHERE CategorySpecialCode = 'Main';
SELECT Categories.CategorySpecialCode, Categories.CategoryName, Categories.CategoryNum, Categories.CategoryID, Categories.CategoryDescription FROM Categories WHERE CategorySpecialCode = 'TaxYear:2025';
SELECT Categories.CategoryID, Categories.CategoryNum FROM Categories WHERE CategoryID = 7;
SELECT Categories.CategoryID FROM Categories WHERE CategoryNum = 7
SELECT ClientData.* FROM ClientData WHERE CompanyIDNum=7;
SELECT ClientData.ActiveStatus, ClientData.ClientDataID FROM ClientData WHERE ClientDataID=7;
SELECT AccountingServices.* FROM AccountingServices WHERE AccountingServiceID=7;
SELECT ClientOptions.* FROM ClientOptions WHERE ClientOptionID=7;
SELECT ClientNotes.* FROM ClientNotes WHERE ClientNoteID=7;
SELECT CorpTaxInfo.* FROM CorpTaxInfo WHERE CorpTaxInfoID=7;
SELECT LawInfo.* FROM LawInfo WHERE LawInfoID=7;
SELECT OtherInfo.* FROM OtherInfo WHERE OtherInfoID=7;
SELECT WSIB_EHTInfo.* FROM WSIB_EHTInfo WHERE WSIB_EHTInfoID=7;
SELECT ClientUSInfo.* FROM ClientUSInfo WHERE ClientUSInfoID=7;
SELECT ClientUSInfo.*, ClientOptions.*, Companies.*, CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes, ClientData.*, AccountingServices.* FROM ClientData, AccountingServices, ClientOptions, Companies, CompaniesNotes, ClientUSInfo WHERE ClientData.ClientDataID = AccountingServices.AccountingServiceID AND ClientData.ClientDataID = ClientOptions.ClientOptionID AND ClientData.CompanyIDNum = Companies.CompanyID AND CompaniesNotes.CompanyNum = Companies.CompanyID AND ClientUSInfo.ClientUSInfoID = ClientData.ClientDataID AND ClientData.ClientDataID=7
SELECT CorpTaxInfo.*, LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*, ClientOptions.*, Companies.*, CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes, ClientData.*, AccountingServices.* FROM ClientData, AccountingServices, ClientOptions, Companies, CompaniesNotes, CorpTaxInfo, LawInfo, OtherInfo, WSIB_EHTInfo WHERE ClientData.ClientDataID = AccountingServices.AccountingServiceID AND ClientData.ClientDataID = ClientOptions.ClientOptionID AND ClientData.CompanyIDNum = Companies.CompanyID AND CompaniesNotes.CompanyNum = Companies.CompanyID AND CorpTaxInfo.CorpTaxInfoID = ClientData.ClientDataID AND LawInfo.LawInfoID = ClientData.ClientDataID AND OtherInfo.OtherInfoID = ClientData.ClientDataID AND WSIB_EHTInfo.WSIB_EHTInfoID = ClientData.ClientDataID AND ClientData.ClientDataID=7
SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND SoftwareInfo.CompanyIDNum=7;
SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True AND SoftwareInfo.ContactIDNum=7;
SELECT PersonalTaxInfo.* FROM PersonalTaxInfo WHERE ContactNum=7 AND TaxYear=2025;
SELECT PersonalTaxStatus.Custom1 FROM PersonalTaxStatus WHERE TaxYear = 2025 AND PersonalTaxStatus.ContactNum = 7;
SELECT PersonalTaxNotes.* FROM PersonalTaxNotes WHERE ContactNum=7 AND TaxYear=2025;
SELECT PersonalTaxProfileInfo.* FROM PersonalTaxProfileInfo WHERE PersonalTaxProfileInfo.ContactNum=7
SELECT PersonalTaxClientSummary.PersonalTaxNotes FROM PersonalTaxClientSummary WHERE ContactNum=7 AND TaxYear=2025;
SELECT PersonalTaxTasks.StepNum FROM PersonalTaxTasks WHERE ContactNum=7 AND TaxYear=2025;
SELECT PersonalTaxSteps.* FROM PersonalTaxSteps WHERE PersonalTaxSteps.TaxYear=2025
SELECT CompanyProjects.Custom1, CompanyProjects.CompanyIDNum FROM CompanyProjects WHERE CompanyProjects.CompanyIDNum = 7;
SELECT CompanyProjects.Custom1, CompanyProjects.ContactIDNum FROM CompanyProjects WHERE CompanyProjects.ContactIDNum = 7;
SELECT AccountantFirmInfo.*, AccountantFirmInfo.Custom1 AS FirmCustom1, AccountantFirmInfo.Custom2 AS FirmCustom2, AccountantFirmInfo.Custom3 AS FirmCustom3, AccountantFirmInfo.Custom4 AS FirmCustom4, AccountantFirmInfo.Custom5 AS FirmCustom5 From AccountantFirmInfo WHERE CompanyID=7;
SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo WHERE ContactID=7;
SELECT UserGeneralSettings.UserIDNum, UserGeneralSettings.OptionsFamilyDisplayOption FROM UserGeneralSettings WHERE UserIDNum=7;
SELECT UserCalendarSettings.* FROM UserCalendarSettings WHERE UserIDNum = 7;
SELECT Appointments.AppointmentID FROM Appointments WHERE AppointmentID = 7;
SELECT Appointments.*, Appointments.Custom1 AS ApptCustom1, Appointments.Custom2 AS ApptCustom2, Appointments.Custom3 AS ApptCustom3, Appointments.Custom4 AS ApptCustom4, Appointments.Custom5 AS ApptCustom5 From Appointments WHERE Appointments.AppointmentID=7;
SELECT Appointments.UserIDNum, Appointments.DateFrom, Appointments.TimeFrom, Appointments.TimeTo FROM Appointments WHERE Appointments.UserIDNum = 7 AND Appointments.DateFrom = 46000 ORDER BY Appointments.TimeTo;
SELECT Appointments.* FROM Appointments WHERE Appointments.UserIDNum = 7 AND Appointments.DateFrom = 46000 AND Appointments.Subject = 'Review' AND Appointments.TimeFrom = 0.375 AND Appointments.TimeTo = 0.5;
SELECT Appointments.RepeatNum FROM Appointments WHERE RepeatNum = 7
SELECT Tasks.TaskID, Tasks.ScheduleIDNum FROM Tasks WHERE ScheduleIDNum=7;
SELECT Tasks.RepeatNum FROM Tasks WHERE RepeatNum = 7
SELECT Tasks.UserIDNum, Tasks.DateFrom, Tasks.TimeFrom, Tasks.TimeTo FROM Tasks WHERE UserIDNum = 7 AND DateFrom = 46000 ORDER BY Tasks.TimeTo;
SELECT Schedule.*, Tasks.*, Schedule.Custom1 AS ScheduleCustom1, Schedule.Custom2 AS ScheduleCustom2, Schedule.Custom3 AS ScheduleCustom3, Schedule.Custom4 AS ScheduleCustom4, Schedule.Custom5 AS ScheduleCustom5, Tasks.Custom1 AS TaskCustom1, Tasks.Custom2 AS TaskCustom2, Tasks.Custom3 AS TaskCustom3, Tasks.Custom4 AS TaskCustom4, Tasks.Custom5 AS TaskCustom5 FROM Schedule INNER JOIN Tasks ON Schedule.ScheduleID = Tasks.ScheduleIDNum WHERE Tasks.TaskID=7;
SELECT Dockets.*, Dockets.Custom1 AS DocketCustom1, Dockets.Custom2 AS DocketCustom2, Dockets.Custom3 AS DocketCustom3, Dockets.Custom4 AS DocketCustom4, Dockets.Custom5 AS DocketCustom5 From Dockets WHERE Dockets.DocketID=7;
SELECT Dockets.TimeFrom, Dockets.TimeTo FROM Dockets WHERE Dockets.UserIDNum = 7 AND Dockets.DateFrom = 46000;
SELECT Schedule.ScheduleID, Schedule.scheduleNum, Schedule.totalNum FROM Schedule WHERE ScheduleID=7;
SELECT Schedule.Custom1, Schedule.ClientNum FROM Schedule WHERE Schedule.ClientNum = 7;
SELECT Schedule.Custom1, Schedule.ContactIDNum FROM Schedule WHERE Schedule.ContactIDNum = 7;
SELECT archiveTasks.oldTaskID, archiveTasks.ScheduleIDNum FROM archiveTasks WHERE ScheduleIDNum = 7;
SELECT Reminders.AppointmentIDNum, Reminders.Completed FROM Reminders WHERE AppointmentIDNum = 7;
SELECT Reminders.TaskIDNum, Reminders.Completed FROM Reminders WHERE TaskIDNum = 7;
SELECT ClientNotification.AppointmentNum, ClientNotification.NotificationSent FROM ClientNotification WHERE AppointmentNum = 7;
SELECT ClientNotification.DocketNum, ClientNotification.NotificationSent FROM ClientNotification WHERE DocketNum = 7;
SELECT ClientNotification.TaskNum, ClientNotification.NotificationSent FROM ClientNotification WHERE TaskNum = 7;
SELECT ClientNotification.ScheduleNum, ClientNotification.NotificationSent FROM ClientNotification WHERE ScheduleNum = 7;
