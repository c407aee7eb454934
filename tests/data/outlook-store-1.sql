-- An Outlook store as version 1 made it, with the folders that every store has
PRAGMA application_id = 1330402132; PRAGMA user_version = 1;
CREATE TABLE Stores (
    StoreNumber INTEGER PRIMARY KEY,
    StoreKey TEXT NOT NULL UNIQUE,
    Name TEXT NOT NULL,
    NameKey TEXT NOT NULL UNIQUE
);
CREATE TABLE Folders (
    FolderNumber INTEGER PRIMARY KEY AUTOINCREMENT,
    StoreNumber INTEGER NOT NULL REFERENCES Stores,
    ParentNumber INTEGER NOT NULL,
    Name TEXT NOT NULL,
    NameKey TEXT NOT NULL,
    ItemType INTEGER NOT NULL,
    Role INTEGER,
    UNIQUE (ParentNumber, NameKey),
    UNIQUE (StoreNumber, Role)
);
CREATE TABLE Items (
    ItemNumber INTEGER PRIMARY KEY,
    FolderNumber INTEGER NOT NULL REFERENCES Folders,
    ItemType INTEGER NOT NULL,
    Version INTEGER NOT NULL,
    Created REAL NOT NULL,
    Modified REAL NOT NULL,
    FileAsKey TEXT,
    FullNameKey TEXT,
    SubjectKey TEXT,
    Email1AddressKey TEXT,
    Properties BLOB NOT NULL
);
CREATE INDEX ItemsByFolder ON Items (FolderNumber);
CREATE INDEX ItemsByFileAs ON Items (FolderNumber, FileAsKey) WHERE FileAsKey IS NOT NULL;
CREATE INDEX ItemsByFullName ON Items (FolderNumber, FullNameKey) WHERE FullNameKey IS NOT NULL;
CREATE INDEX ItemsBySubject ON Items (FolderNumber, SubjectKey) WHERE SubjectKey IS NOT NULL;
CREATE INDEX ItemsByEmail1Address ON Items (FolderNumber, Email1AddressKey) WHERE Email1AddressKey IS NOT NULL;
CREATE TABLE Counters (Name TEXT PRIMARY KEY, Value INTEGER NOT NULL) WITHOUT ROWID;
INSERT INTO Counters VALUES ('HighestDeletedItem', 0);
INSERT INTO Stores VALUES (1, '0123456789ABCDEF0123456789ABCDEF', 'Personal Folders', 'personal folders');
INSERT INTO Folders VALUES (1, 1, 0, 'Personal Folders', 'personal folders', 0, NULL),
    (2, 1, 1, 'Deleted Items', 'deleted items', 0, 3), (3, 1, 1, 'Inbox', 'inbox', 0, 6), (4, 1, 1, 'Outbox', 'outbox', 0, 4),
    (5, 1, 1, 'Sent Items', 'sent items', 0, 5), (6, 1, 1, 'Calendar', 'calendar', 1, 9),
    (7, 1, 1, 'Contacts', 'contacts', 2, 10), (8, 1, 1, 'Drafts', 'drafts', 0, 16), (9, 1, 1, 'Tasks', 'tasks', 3, 13);
