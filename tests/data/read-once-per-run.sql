SELECT OutlookSync.* From OutlookSync WHERE DataFileID = 'F' AND FolderStoreID = 'S';
SELECT OutlookSync.* FROM OutlookSync WHERE OutlookSync.SchemeNum = 7;
SELECT OutlookScheme.* From OutlookScheme WHERE OutlookScheme.SyncObject = 1 AND OutlookScheme.DataFileID = 'F';
SELECT OutlookLogin.* From OutlookLogin;
SELECT Companies.* FROM Companies ORDER BY Companies.CompanyName;
SELECT Contacts.* FROM Contacts ORDER BY Contacts.DisplayName;
SELECT ContactLinks.*, Contacts.FirstName, Contacts.LastName, Contacts.DisplayName FROM ContactLinks INNER JOIN Contacts ON ContactLinks.ContactIDNum = Contacts.ContactID WHERE ContactLinks.IsPersonalTaxCategory = True ORDER BY Contacts.LastName, Contacts.FirstName;
SELECT ContactLinks.ContactIDNum, ContactLinks.CategoryNum, ContactLinks.IsPersonalTaxCategory, ContactLinks.FamilyRelationship, ContactLinks.DefaultContact, Contacts.FirstName, Contacts.LastName, Contacts.DisplayName FROM ContactLinks INNER JOIN Contacts ON ContactLinks.ContactIDNum = Contacts.ContactID WHERE ContactLinks.CategoryNum Is Not Null AND ContactLinks.isPersonalTaxCategory = True ORDER BY ContactLinks.CategoryNum, Contacts.FirstName, Contacts.LastName;
SELECT ContactLinks.ContactIDNum, ContactLinks.CompanyNum, ContactLinks.IsPersonalTaxCategory, ContactLinks.FamilyRelationship, ContactLinks.DefaultContact, Contacts.FirstName, Contacts.LastName, Contacts.DisplayName FROM ContactLinks INNER JOIN Contacts ON ContactLinks.ContactIDNum = Contacts.ContactID WHERE ContactLinks.CompanyNum Is Not Null AND ContactLinks.isPersonalTaxCategory = False ORDER BY ContactLinks.CompanyNum, Contacts.DisplayName;
SELECT ContactLinks.ContactIDNum, ContactLinks.ContactNum, ContactLinks.IsPersonalTaxCategory, ContactLinks.FamilyRelationship, ContactLinks.DefaultContact, Contacts.FirstName, Contacts.LastName, Contacts.DisplayName FROM ContactLinks INNER JOIN Contacts ON ContactLinks.ContactIDNum = Contacts.ContactID WHERE ContactLinks.ContactNum Is Not Null ORDER BY ContactLinks.ContactNum, Contacts.LastName, Contacts.FirstName;
SELECT AccountantEmployeeInfo.ContactID, AccountantEmployeeInfo.UserName FROM AccountantEmployeeInfo ORDER BY AccountantEmployeeInfo.UserName;
SELECT ClientData.ClientDataID, Companies.CompanyName FROM ClientData, Companies WHERE ClientData.CompanyIDNum = Companies.CompanyID AND ClientData.ShowThisClient = True AND NOT ClientData.ActiveStatus=1 ORDER BY Companies.ClientID, Companies.CompanyName;
SELECT Companies.CorporateName FROM Companies ORDER BY Companies.CorporateName;
SELECT Appointments.* FROM Appointments WHERE DateFrom >= 46000 AND DateFrom <= 46030;
SELECT Schedule.ClientNum, Schedule.ContactIDNum From Schedule GROUP BY Schedule.ClientNum, Schedule.ContactIDNum ORDER BY Schedule.ClientNum, Schedule.ContactIDNum;
SELECT CompanyProjects.CompanyIDNum, CompanyProjects.ContactIDNum From CompanyProjects GROUP BY CompanyProjects.CompanyIDNum, CompanyProjects.ContactIDNum ORDER BY CompanyProjects.CompanyIDNum, CompanyProjects.ContactIDNum;
SELECT PersonalTaxStatus.ContactNum, PersonalTaxStatus.TaxYear FROM PersonalTaxStatus WHERE TaxYear = 2025
SELECT PersonalTaxDataImportInfo.* FROM PersonalTaxDataImportInfo WHERE TaxYear = 2025
SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True;
SELECT CustomFields.RemittanceCustomType1, CustomFields.PersonalTaxTaskCustomType5, CustomFields.ProjectCustomType3, CustomFields.PersonalTaxTaskCustomInfo5 FROM CustomFields;
SELECT CustomAddressFields.* FROM CustomAddressFields;
SELECT DataVersion.* FROM DataVersion;
