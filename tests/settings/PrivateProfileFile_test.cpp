#include "tests/settings/SettingsFolder.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <optional>

namespace wmoutlook::testing {
namespace {

using namespace std::string_literals;

class ProfileFile : public SettingsFolder {
protected:
    std::string read(const std::string& section, const std::string& key) {
        return profile.readKey(section, key, "(none)", 255, file).text;
    }

    void expectError(const char* named, const std::function<void()>& call) {
        try {
            call();
            ADD_FAILURE() << "no error: " << named;
        } catch (const SettingsError& error) {
            EXPECT_NE(std::string{error.what()}.find(named), std::string::npos) << error.what();
        }
    }
};

TEST_F(ProfileFile, FilesOfOtherProgramsAreRead) {
    struct Case {
        std::string bytes, section, key, value;
    };
    for (const Case& c : {
             Case{"[S]\r\nk=v\r\n", "s", "K", "v"},
             Case{"[S]\nk=v", "S", "k", "v"},
             Case{" \t[ S ] ; note\r\n\t k \t=  v w \t\r\n", "S", "k", "v w"},
             Case{"[S]\nk=\"v\"\nl='w'\n", "S", "l", "w"},
             Case{"[S]\nk=\" v \"\n", "S", "k", " v "},
             Case{"[S]\nk=\"v'\n", "S", "k", "\"v'"},
             Case{"[S]\nk=\"\n", "S", "k", "\""},
             Case{"[S]\nk=a=b;c\n", "S", "k", "a=b;c"},
             Case{"[S]\n;k=v\n", "S", "k", "(none)"},
             Case{"[S]\nk\n", "S", "k", "(none)"},
             Case{"k=v\n[S]\n", "S", "k", "(none)"},
             Case{"[S\nk=v\n", "S", "k", "v"},
             Case{"[S]\rk=v\rl=w\r", "S", "k", "v"},
             Case{"[S]\nk=v\x1A", "S", "k", "v"},
             Case{"[S]\n[T]\nk=v\n", "S", "k", "(none)"},
             Case{"[S]\n[T\nk=v\n", "S", "k", "(none)"},
             Case{"[S]\nk=1\nK=2\n[s]\nk=3\nl=4\n", "S", "k", "1"},
             Case{"[S]\nk=1\n[s]\nl=4\n", "S", "l", "(none)"},
             Case{"[\xC9t\xE9]\n\x8Cuvre=\x80\x9F\x81\n", "éTÉ", "œuvre", "€Ÿ\xC2\x81"},
             Case{"\xEF\xBB\xBF[Été]\nk=é\n", "éTÉ", "K", "é"},
             Case{"[S]\0x\nk=v\0w\n"s, "S", "k", "v\0w"s},
             Case{"", "S", "k", "(none)"},
         }) {
        SCOPED_TRACE(c.bytes);
        put(c.bytes);
        EXPECT_EQ(read(c.section, c.key), c.value);
        EXPECT_EQ(bytes(), c.bytes);
    }
}

TEST_F(ProfileFile, ChangeTouchesNoOtherByte) {
    using Text = std::optional<std::string>;
    struct Case {
        std::string before;
        Text key, value;
        std::string after;
    };
    const std::string foreign = "junk\n[S]\n  k\t=  old value \r\n;c\n\n\n[T]\r\nx=1";
    for (const Case& c : {
             Case{foreign, "K", "new", "junk\n[S]\n  k\t=  new\r\n;c\n\n\n[T]\r\nx=1"},
             Case{foreign, "l", "new", "junk\n[S]\n  k\t=  old value \r\nl=new\r\n;c\n\n\n[T]\r\nx=1"},
             Case{foreign, "k", {}, "junk\n[S]\n;c\n\n\n[T]\r\nx=1"},
             Case{foreign, "none", {}, foreign},
             Case{foreign, {}, {}, "junk\n;c\n[T]\r\nx=1"},
             Case{"[S]\nx=1\n[T\nk=v\n", {}, {}, "[T\nk=v\n"},
             Case{"[S]\rk=v\rx=1\ny=2", "k", "new", "[S]\rk=new\rx=1\ny=2"},
             Case{"[T]\nx=1", "k", "v", "[T]\nx=1\r\n\r\n[S]\r\nk=v\r\n"},
             Case{"[T]\nx=1\n\n", "k", "v", "[T]\nx=1\n\n[S]\r\nk=v\r\n"},
             Case{"[S]", "k", "v", "[S]\r\nk=v\r\n"},
             Case{"[S]\nk=1", "k", "2", "[S]\nk=2"},
             Case{"[S]\nk=1\nk=2\n[S]\nk=3\n", "k", {}, "[S]\nk=2\n[S]\nk=3\n"},  // the next one comes to light
             Case{"[S]\n[T]\n[s]\nk=3\n", {}, {}, "[T]\n[s]\nk=3\n"},
             Case{"[S]\nk=1\n; of T\n; too\n[T]\n", {}, {}, "; of T\n; too\n[T]\n"},
             Case{"[S]\n;a\nk=1\n\n;b", {}, {}, ";a\n;b"},
             Case{"[S]\n", " k ", " v ", "[S]\nk=\" v \"\r\n"},
             Case{"[S]\n", "k", "'v'", "[S]\nk=\"'v'\"\r\n"},
             Case{"[S]\n", "k", "日é", "[S]\nk=?\xE9\r\n"},
             Case{"\xEF\xBB\xBF", "k", "日é", "\xEF\xBB\xBF[S]\r\nk=日é\r\n"},
             Case{"\0\n[S]\nk=\0\n\0"s, "k", "v", "\0\n[S]\nk=v\n\0"s},
         }) {
        SCOPED_TRACE(c.before);
        put(c.before);
        profile.write("S", c.key, c.value, file);
        EXPECT_EQ(bytes(), c.after);
    }
}

TEST_F(ProfileFile, NothingCanBeginALineOfItsOwn) {
    struct Case {
        std::string section, key, value;
    };
    const std::string before = "[S]\r\nk=v\r\n";
    put(before);
    for (const Case& c : {
             Case{"S", "k", "v\nx=1"},
             Case{"S", "k", "v\r[T]"},
             Case{"S", "k", "v\0w"s},
             Case{"S", "k\r\nx", "v"},
             Case{"S", "k=x", "v"},
             Case{"S", ";k", "v"},
             Case{"S", " [k", "v"},
             Case{"S", " ", "v"},
             Case{"S", "\x1A\t", "v"},
             Case{"S", "\x1A;k", "v"},
             Case{"S]\r\n[T", "k", "v"},
             Case{"S]x", "k", "v"},
             Case{"", "k", "v"},
             Case{"S", std::string(256, 'k'), "v"},
             Case{std::string(256, 'S'), "k", "v"},
             Case{"S", "k", std::string(32768, 'v')},
         }) {
        SCOPED_TRACE(c.section + "/" + c.key);
        expectError("settings file", [&] { profile.write(c.section, c.key, c.value, file); });
        EXPECT_EQ(bytes(), before);
    }
}

TEST_F(ProfileFile, FilesThatCannotBeUsedAreToldAndStayAsTheyAre) {
    struct Case {
        const char* named;
        std::function<void()> make;
    };
    const Case cases[] = {
        {"directory", [&] { std::filesystem::create_directory(file); }},
        {"regular", [&] { ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0); }},
        {"symbolic links", [&] { std::filesystem::create_symlink(file, file); }},
        {"UTF-16", [&] { put("\xFF\xFE[\0S\0]\0"s); }},
        {"large", [&] { put(""), std::filesystem::resize_file(file, 1ULL << 40U); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.named);
        std::filesystem::remove(file);
        c.make();
        expectError(c.named, [&] { static_cast<void>(read("S", "k")); });
        expectError(c.named, [&] { profile.write("S", "k", "v", file); });
        EXPECT_EQ(filesInFolder(), 1);
    }
    expectError("folder is not there", [&] { profile.write("S", "k", "v", path("none/x.ini")); });
    EXPECT_EQ(profile.readKey("S", "k", "d", 255, path("none/x.ini")).text, "d");
}

TEST_F(ProfileFile, LargeFileWithBytesOfAllKindsIsRead) {
    std::string content(50'000'000, '\0');
    for (std::size_t i = 0; i < content.size(); i += 97) content[i] = '\n';
    content += "\n[S]\nk=v\n";
    put(content);
    profile.write("S", "k", "w", file);
    EXPECT_EQ(read("S", "k"), "w");
    content[content.size() - 2] = 'w';
    EXPECT_TRUE(bytes() == content);
}

TEST_F(ProfileFile, ReplacementKeepsModeAndLink) {
    const std::string target = path("real.ini");
    std::filesystem::create_symlink("real.ini", file);
    profile.write("S", "k", "v", file);  // the link leads to nothing yet
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(target)));
    using std::filesystem::perms;
    std::filesystem::permissions(target, perms::owner_read | perms::owner_write | perms::others_read);
    profile.write("S", "k", "w", file);
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(read("S", "k"), "w");
    EXPECT_EQ(std::filesystem::status(target).permissions(), perms::owner_read | perms::owner_write | perms::others_read);
    EXPECT_EQ(filesInFolder(), 2);
}

TEST_F(ProfileFile, ManyProcessesLoseNoKeyOfEachOther) {
    constexpr int kProcesses = 4;
    constexpr int kKeys = 25;
    for (int process = 0; process < kProcesses; ++process) {
        if (::fork() != 0) continue;
        for (int key = 0; key < kKeys; ++key) profile.write("S", std::to_string(process) + "-" + std::to_string(key), "v", file);
        _exit(0);
    }
    for (int process = 0; process < kProcesses; ++process) {
        int status = 0;
        ::wait(&status);
        EXPECT_EQ(status, 0);
    }
    for (int process = 0; process < kProcesses; ++process)
        for (int key = 0; key < kKeys; ++key) EXPECT_EQ(read("S", std::to_string(process) + "-" + std::to_string(key)), "v");
    EXPECT_EQ(filesInFolder(), 1);
}

}  // namespace
}  // namespace wmoutlook::testing
