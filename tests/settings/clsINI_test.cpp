#include "settings/clsINI.h"

#include "adapters/headless/DiskFiles.h"
#include "hostdata/HostServices.h"
#include "platform/Routine.h"
#include "tests/settings/SettingsFolder.h"
#include "tests/support/Recorders.h"

#include <algorithm>
#include <functional>
#include <set>

namespace wmoutlook::testing {
namespace {

using namespace std::string_literals;

class Settings : public SettingsFolder {
protected:
    Settings() {
        HostServices& services = hostServices();
        services.files = std::make_shared<DiskFiles>();
        services.privateProfile = std::make_shared<PrivateProfileFile>();
        services.workingFolder = std::make_shared<FixedWorkingFolder>("C:\\Work");
        services.programFolder = "C:\\Program";
        setErrorService(errors);
    }
    ~Settings() override {
        setErrorService(nullptr);
        hostServices() = {};
    }

    /// The bytes go in before the file is named, so that naming it makes none.
    void name(const std::string& content) {
        put(content);
        settings.iniFile(file);
    }

    void makeReadOnly() {
        std::filesystem::permissions(file, std::filesystem::perms::owner_read | std::filesystem::perms::group_read);
    }

    std::shared_ptr<ErrorRecorder> errors = std::make_shared<ErrorRecorder>();
    clsINI settings;
};

TEST_F(Settings, NewFileHasItsFirstContents) {
    settings.iniFile(file);
    std::ostringstream expected;
    expected << std::ifstream{TEST_DATA "/new-settings.dni", std::ios::binary}.rdbuf();
    EXPECT_EQ(bytes(), expected.str());
    EXPECT_EQ(settings.getNumberOfSections(), 15);
    EXPECT_EQ(settings.getVersion(), "1.0");
    EXPECT_EQ(bytes(), expected.str() + "\r\n[Tallowbrook]\r\nVersion=1.0\r\n");
    settings.writeNewINI();
    EXPECT_EQ(bytes(), expected.str());
    EXPECT_TRUE(errors->reports.empty());
}

TEST_F(Settings, NamingAFileThatIsThereLeavesItAlone) {
    for (const char* content : {"", "anything"}) {
        name(content);
        EXPECT_EQ(bytes(), content);
    }
}

TEST_F(Settings, FoldersOfThePicturesKeepTheirSeparators) {
    hostServices().workingFolder = std::make_shared<FixedWorkingFolder>("/home/Zoë/");
    hostServices().programFolder = "/";
    settings.iniFile(file);
    EXPECT_EQ(settings.getKeyString("WindowSettings", "BackgroundPicPath"), "/home/Zoë/Wrenmoore5.jpg");
    EXPECT_EQ(settings.getKeyString("AddressBookWindowSettings", "BackgroundPicPath"), "\\Backgrounds\\Wrenmoore3.jpg");
    hostServices().workingFolder = std::make_shared<FixedWorkingFolder>("/home/x\n[Popup]");
    settings.iniFile(path("other.ini"));
    EXPECT_FALSE(std::filesystem::exists(path("other.ini")));
    EXPECT_EQ(errors->reports.size(), 1U);
}

TEST_F(Settings, ReadingAKey) {
    struct Case {
        std::string before, key, defaultValue, value, after;
    };
    const std::string longest(254, 'x');
    for (const Case& c : {
             Case{"[S]\nk=v\n", "K", "d", "v", "[S]\nk=v\n"},
             Case{"[S]\nk=v\n", "other", "", "<not_set>", "[S]\nk=v\nother=<not_set>\r\n"},
             Case{"[S]\nk=\n", "k", "d", "d", "[S]\nk=d\n"},
             Case{"[S]\nk=''\n", "k", "d", "d", "[S]\nk=d\n"},
             Case{"", "k", "", "<not_set>", "[S]\r\nk=<not_set>\r\n"},
             Case{"[S]\nk=" + longest + "y\n", "k", "", longest, "[S]\nk=" + longest + "y\n"},
         }) {
        SCOPED_TRACE(c.before + c.key);
        name(c.before);
        EXPECT_EQ(settings.getKeyString("S", c.key, c.defaultValue), c.value);
        EXPECT_EQ(bytes(), c.after);
    }
    EXPECT_TRUE(errors->reports.empty());
}

TEST_F(Settings, ChangesOfTheFile) {
    struct Case {
        const char* what;
        std::string before;
        std::function<void(clsINI&)> change;
        std::string after;
    };
    const Case cases[] = {
        {"setKey", "[S]\r\nk=v\r\n", [](clsINI& s) { s.setKey("S", "k"); }, "[S]\r\nk=\r\n"},
        {"setKeyValue", "[S]\r\n", [](clsINI& s) { s.setKeyValue("S", "k", "é€"); }, "[S]\r\nk=\xE9\x80\r\n"},
        {"default section", "", [](clsINI& s) { s.setKeyValue("", "k", "v"); }, "[Tallowbrook]\r\nk=v\r\n"},
        {"deleteKey", "[S]\nk=v\nl=w\n", [](clsINI& s) { s.deleteKey("S", "K"); }, "[S]\nl=w\n"},
        {"deleteKeyValue", "[S]\nk=v\n", [](clsINI& s) { s.deleteKeyValue("S", "k"); }, "[S]\nk=\n"},
        {"deleteSection", "[S]\nk=v\n[T]\nl=w\n", [](clsINI& s) { s.deleteSection("S"); }, "[T]\nl=w\n"},
        {"deleteAllSections", "; head\n[S]\nk=v\n\n[T]\n[s]\n", [](clsINI& s) { s.deleteAllSections(); }, "; head\n"},
        {"deleteAllSections of none", "junk", [](clsINI& s) { s.deleteAllSections(); }, "junk"},
        {"renameSection", "[S]\na=1\nb=\n", [](clsINI& s) { s.renameSection("S", "T"); }, "[T]\r\na=1\r\nb=<not_set>\r\n"},
        {"renameSection into one", "[S]\na=1\n[T]\na=2\n", [](clsINI& s) { s.renameSection("S", "T"); }, "[T]\na=1\n"},
        {"renameSection to itself", "[S]\na=1\n", [](clsINI& s) { s.renameSection("S", "s "); }, "[S]\na=1\n"},
        {"renameSection of none", "[S]\na=1\n", [](clsINI& s) { s.renameSection("T", "U"); }, "[S]\na=1\n"},
        {"renameKey", "[S]\na=1\n", [](clsINI& s) { s.renameKey("S", "a", "b"); }, "[S]\nb=1\r\n"},
        {"renameKey of none", "[S]\n", [](clsINI& s) { s.renameKey("S", "a", "b"); }, "[S]\nb=<not_set>\r\n"},
        {"renameKey to itself", "[S]\na=1\n", [](clsINI& s) { s.renameKey("S", "a", "A"); }, "[S]\na=1\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        name(c.before);
        c.change(settings);
        EXPECT_EQ(bytes(), c.after);
    }
    EXPECT_TRUE(errors->reports.empty());
}

TEST_F(Settings, AnotherFileAndSectionCanBeTheUsualOnes) {
    name("");
    settings.sectionName("Popup");
    settings.setKeyValue("", "k", "v", path("other.ini"));
    EXPECT_EQ(bytes(), "");
    EXPECT_EQ(settings.getKeyString("popup", "k", "", path("other.ini")), "v");
    EXPECT_EQ(settings.getKeysInSection("", path("other.ini")), "k");
    EXPECT_EQ(clsINI::defaultSectionName(), "Tallowbrook");
}

TEST_F(Settings, EnumerationsHaveACharacterZeroBetweenTheNames) {
    name("; c\n[A]\nk=1\n;l=2\nno key\nm = 3\n[B]\n[a]\nn=4\n");
    EXPECT_EQ(settings.getSections(), "A\0B\0a"s);
    EXPECT_EQ(settings.getNumberOfSections(), 3);
    EXPECT_EQ(settings.getKeysInSection("A"), "k\0m"s);
    EXPECT_EQ(settings.getNumberOfKeysInSection("A"), 2);
    EXPECT_EQ(settings.getNumberOfKeysInSection("B"), 0);
    name("");
    EXPECT_EQ(settings.getNumberOfSections(), 0);
    settings.DefaultReturnValue("none");
    EXPECT_EQ(settings.getSections(), "none");
}

TEST_F(Settings, EnumerationsHoldAsMuchAsTheirBuffer) {
    std::string content = "[S]\r\n";
    for (int i = 0; i < 400; ++i) content += std::to_string(1000 + i) + "=v\r\n";
    name(content);
    const std::string keys = settings.getKeysInSection("S");
    EXPECT_EQ(keys.size(), 1022U);  // 204 names of 4 and their ends, and two characters of the next
    EXPECT_EQ(keys.substr(1015),
              "1203\0"
              "12"s);
    settings.renameSection("S", "T");  // would lose the keys behind the cut
    EXPECT_EQ(bytes(), content);
    EXPECT_EQ(errors->reports.size(), 1U);
    errors->answer = [&](const ErrorReport&) {
        put("[S]\r\na=1\r\n");
        return errors->reports.size() < 5 ? ErrorAnswer::tryAgain : ErrorAnswer::leaveRoutine;
    };
    settings.renameSection("S", "T");  // the keys are counted anew
    EXPECT_EQ(bytes(), "[T]\r\na=1\r\n");
}

TEST_F(Settings, FailureLosesNothingAndIsToldOnce) {
    struct Case {
        const char* what;
        std::function<void(clsINI&)> change;
        std::size_t reports;
    };
    const std::string content = "[S]\r\na=1\r\nb=2\r\n";
    name(content);
    makeReadOnly();
    const Case cases[] = {
        {"set", [](clsINI& s) { s.setKeyValue("S", "a", "3"); }, 1},
        {"default", [](clsINI& s) { EXPECT_EQ(s.getKeyString("S", "c", "d"), "d"); }, 1},
        {"rename", [](clsINI& s) { s.renameKey("S", "a", "c"); }, 1},
        {"rename section", [](clsINI& s) { s.renameSection("S", "T"); }, 2},
        {"new", [](clsINI& s) { s.writeNewINI(); }, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        errors->reports.clear();
        c.change(settings);
        EXPECT_EQ(errors->reports.size(), c.reports);
        EXPECT_EQ(settings.lastSystemError(), EACCES);
        EXPECT_EQ(bytes(), content);
    }
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(Settings, RenamingToTheSameNameLosesNothing) {
    struct Case {
        std::string content;
        std::function<void(clsINI&)> rename;
    };
    const Case cases[] = {
        {"[S]\na=1\n", [](clsINI& s) { s.renameKey("S", "a\t", "A"); }},
        {"[S]\na=1\n", [](clsINI& s) { s.renameKey("S", "a", "a\t"); }},
        {"[S]\n?=1\n", [](clsINI& s) { s.renameKey("S", "?", "日"); }},
        {"[?]\na=1\n", [](clsINI& s) { s.renameSection("日", "本"); }},
        {"[S]\na=1\n", [](clsINI& s) { s.renameSection("S\t", "s"); }},
    };
    for (const Case& c : cases) {
        name(c.content);
        c.rename(settings);
        EXPECT_EQ(bytes(), c.content);
    }
    name("[S]\na=1\n;kept\n[T]\nx=1\n[S]\nb=2\n");
    settings.renameSection("S", "U");
    EXPECT_EQ(bytes(), ";kept\n[T]\nx=1\n[S]\nb=2\n\r\n[U]\r\na=1\r\n");
    EXPECT_TRUE(errors->reports.empty());
}

/// A file of which one call fails.
class FailingOnce : public PrivateProfileFile {
public:
    int calls = 0;
    int failing = 0;
    ProfileAnswer readKey(std::string_view section, std::string_view key, std::string_view fallback, std::size_t capacity,
                          const std::string& path) override {
        hit();
        return PrivateProfileFile::readKey(section, key, fallback, capacity, path);
    }
    ProfileAnswer sectionNames(std::string_view fallback, std::size_t capacity, const std::string& path) override {
        hit();
        return PrivateProfileFile::sectionNames(fallback, capacity, path);
    }
    ProfileAnswer keyNames(std::string_view section, std::size_t capacity, const std::string& path) override {
        hit();
        return PrivateProfileFile::keyNames(section, capacity, path);
    }
    bool isSameName(std::string_view left, std::string_view right, const std::string& path) override {
        hit();
        return PrivateProfileFile::isSameName(left, right, path);
    }
    void write(std::string_view section, std::optional<std::string_view> key, std::optional<std::string_view> value,
               const std::string& path) override {
        hit();
        PrivateProfileFile::write(section, key, value, path);
    }
    void makeFile(std::string_view text, IfThere ifThere, const std::string& path) override {
        hit();
        PrivateProfileFile::makeFile(text, ifThere, path);
    }

private:
    void hit() {
        if (++calls == failing) throw SettingsError{5, "fault"};
    }
};

TEST_F(Settings, AnyFailingCallIsToldOnceAndLosesNothing) {
    const std::function<void(clsINI&)> operations[] = {
        [](clsINI& s) { static_cast<void>(s.getKeyString("S", "a", "d")); },
        [](clsINI& s) { s.setKeyValue("S", "a", "1"); },
        [](clsINI& s) { s.renameKey("S", "a", "z"); },
        [](clsINI& s) { s.renameSection("S", "Z"); },
        [](clsINI& s) { static_cast<void>(s.getNumberOfSections()); },
        [](clsINI& s) { static_cast<void>(s.getNumberOfKeysInSection("S")); },
        [](clsINI& s) { s.deleteKeyValue("S", "c"); },
    };
    const auto failingProfile = std::make_shared<FailingOnce>();
    hostServices().privateProfile = failingProfile;
    for (const ErrorAnswer answer :
         {ErrorAnswer::goOn, ErrorAnswer::leaveRoutine, ErrorAnswer::endProgram, ErrorAnswer::tryAgain})
        for (const auto& operation : operations)
            for (bool isClean = false; !isClean;) {
                const int call = failingProfile->failing + 1;
                failingProfile->failing = 0;
                name("[S]\r\na=1\r\nb=2\r\n");
                errors->reports.clear();
                errors->answer = [&](const ErrorReport&) { return answer; };
                failingProfile->calls = 0;
                failingProfile->failing = call;
                operation(settings);
                isClean = failingProfile->calls < call;
                if (isClean) failingProfile->failing = 0;
                SCOPED_TRACE("call " + std::to_string(call) + ", answer " + std::to_string(static_cast<int>(answer)));
                EXPECT_EQ(errors->reports.size(), isClean ? 0U : 1U);
                EXPECT_TRUE(errors->open.empty());
                for (const char* const kept : {"=1\r\n", "b=2\r\n"}) EXPECT_NE(bytes().find(kept), std::string::npos) << bytes();
            }
}

/// Everything can be written and nothing can be read.
class Unreadable : public PrivateProfileFile {
public:
    ProfileAnswer readKey(std::string_view, std::string_view, std::string_view, std::size_t, const std::string&) override {
        throw SettingsError{5, "no"};
    }
    ProfileAnswer keyNames(std::string_view, std::size_t, const std::string&) override { throw SettingsError{5, "no"}; }
};

TEST_F(Settings, WhatCannotBeReadIsNotTakenForMissing) {
    name("[S]\r\na=1\r\n");
    hostServices().privateProfile = std::make_shared<Unreadable>();
    EXPECT_EQ(settings.getKeyString("S", "a", "default"), "default");
    settings.renameKey("S", "a", "b");
    settings.renameSection("S", "T");
    EXPECT_EQ(bytes(), "[S]\r\na=1\r\n");
    EXPECT_EQ(settings.lastSystemError(), 5);
    EXPECT_EQ(errors->reports.size(), 3U);
}

TEST_F(Settings, SystemErrorIsThatOfTheLastCall) {
    name("[S]\r\na=1\r\n");
    EXPECT_EQ(settings.getKeyString("S", "a"), "1");
    EXPECT_EQ(settings.lastSystemError(), 0);
    EXPECT_EQ(settings.getNumberOfKeysInSection("T"), 0);
    EXPECT_EQ(settings.lastSystemError(), 2);
    settings.setKeyValue("S", "a", "1\r\n[T]");
    EXPECT_EQ(settings.lastSystemError(), SettingsError::kRefused);
    settings.setKey("S", "b");
    EXPECT_EQ(settings.lastSystemError(), 0);
}

TEST_F(Settings, WorksWithoutAnyService) {
    setErrorService(nullptr);
    settings.setKeyValue("S", "k", "v");  // no file is named
    EXPECT_EQ(settings.getKeyString("S", "k"), "<not_set>");
    hostServices() = {};
    settings.iniFile(file);
    settings.writeNewINI();
    EXPECT_EQ(settings.getKeyString("S", "k", "d"), "d");
    EXPECT_EQ(settings.getNumberOfSections(), 0);
    EXPECT_EQ(filesInFolder(), 0);
}

TEST_F(Settings, EachOperationIsTracedUnderItsName) {
    settings.iniFile(file);
    settings.setKey("S", "k");
    settings.renameKey("S", "k", "l");
    settings.renameSection("S", "T");
    settings.deleteKeyValue("T", "l");
    static_cast<void>(settings.getNumberOfKeysInSection("T") + settings.getNumberOfSections());
    static_cast<void>(settings.getVersion());
    static_cast<void>(settings.testIsPriorVersion("1", "2"));
    settings.deleteAllSections();
    settings.upgradeINI();
    const std::set<std::string> told{errors->entered.begin(), errors->entered.end()};
    std::set<std::string> expected;
    for (const char* operation :
         {"iniFile", "setKey", "setKeyValue", "getKeyString", "getSections", "getNumberOfSections", "getKeysInSection",
          "getNumberOfKeysInSection", "deleteSection", "deleteAllSections", "deleteKey", "deleteKeyValue", "renameSection",
          "renameKey", "writeNewINI", "upgradeINI", "getVersion", "testIsPriorVersion", "parseVersion"})
        expected.insert("wmoutlooktb.dll-clsINI-"s + operation);
    EXPECT_EQ(told, expected);
    EXPECT_TRUE(errors->open.empty());
}

TEST_F(Settings, VersionsInParts) {
    struct Case {
        std::string text;
        bool isParsed;
        clsINI::VersionParts parts;
    };
    for (const Case& c : {Case{"1.2.3", true, {1, 2, 3}}, Case{"1.2.3.4", true, {1, 2, 3}}, Case{"2", true, {2, 0, 0}},
                          Case{"2.10", true, {2, 10, 0}}, Case{"", true, {0, 0, 0}}, Case{"a.5b.-1", true, {0, 5, -1}},
                          Case{"1..2", true, {1, 0, 2}}, Case{" 7 . 8 ", true, {7, 8, 0}}, Case{"32767", true, {32767, 0, 0}},
                          Case{"32768", false, {9, 9, 9}}, Case{"1.2.99999999999", false, {9, 9, 9}}}) {
        SCOPED_TRACE(c.text);
        clsINI::VersionParts parts{9, 9, 9};
        EXPECT_EQ(settings.parseVersion(c.text, parts), c.isParsed);
        EXPECT_EQ(parts, c.parts);
    }
}

TEST_F(Settings, EachPartOfAVersionIsComparedAlone) {
    struct Case {
        const char *first, *second;
        bool isPrior;
    };
    for (const Case& c :
         {Case{"2.0.0", "1.0.0", true}, Case{"1.9.0", "2.0.0", true}, Case{"1.0.1", "2.0.0", true}, Case{"1.0.0", "2.0.0", false},
          Case{"1.2.3", "1.2.3", false}, Case{"99999", "1", false}, Case{"5", "99999", false}}) {
        SCOPED_TRACE(std::string{c.first} + " " + c.second);
        EXPECT_EQ(settings.testIsPriorVersion(c.first, c.second), c.isPrior);
    }
}

}  // namespace
}  // namespace wmoutlook::testing
