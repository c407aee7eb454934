#include "settings/NewSettings.h"

#include "platform/PrivateProfile.h"

#include <algorithm>
#include <span>

namespace wmoutlook {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

enum class Ending { none, notSet, workingPicture, programPicture, windowKeys };
using enum Ending;

struct Line {
    std::string_view text;
    Ending ending = none;
};

/// Place and form of a window; 11655 and 8925 are twentieths of a point.
constexpr Line kWindowKeys[] = {{"WindowState=", notSet}, {"WindowTop=", notSet},    {"WindowLeft=", notSet},
                                {"WindowWidth=", notSet}, {"WindowHeight=", notSet}, {"FormWidth=11655"},
                                {"FormHeight=8925"}};

// Colours are the platform's colour numbers, as decimals; -1 is True.
constexpr Line kLines[] = {
    {"[TallowbrookInfo]"},
    {"dataLocation=", notSet},
    {"Province=", notSet},
    {"DefaultUser=", notSet},
    {"ProfileT1Folder="},
    {"ProfileT2Folder="},
    {"DefaultSynchFolderLocation="},

    {"[AddressBookInfo]"},
    {"dataLocation=", notSet},

    {"[templatesFolder]"},
    {"FolderLocation="},

    {"[WindowSettings]"},
    {"BackgroundType=3"},
    {"BackgroundPicturePosition=4"},
    {"BackgroundColour=5979440"},
    {"BackgroundPicPath=", workingPicture},
    {"BackgroundGradientColour1=5979440"},
    {"BackgroundGradientColour2=0"},
    {"BackgroundGradientAngle=0"},
    {"", windowKeys},
    {"DocumentSplitter=", notSet},
    {"SideBarBox1=1"},
    {"SideBarBox2=2"},
    {"SideBarBox3=1"},

    {"[AutoNotify]"},
    {"ShowTBPreview=0"},
    {"ShowEmailPreview=1"},

    {"[Popup]"},
    {"PopupColour=1"},
    {"PopupCorners=1"},
    {"PopupGradient=1"},
    {"PopupEffect=1"},
    {"PopupTiming=1"},
    {"PopupAlert=-1"},
    {"PopupWeekend=-1"},

    {"[Upgrade]"},
    {"UpgradeVisibility=2"},
    {"UpgradeAtStartup=-1"},
    {"UpgradeOnInterval=0"},
    {"numMonthsWait=10"},
    {"lastUpgrade=", notSet},

    {"[CompressFile]"},
    {"CompressAtStartup=0"},
    {"CompressOnInterval=-1"},
    {"numMonthsWait=3"},

    {"[AddressBookWindowSettings]"},
    {"BackgroundType=3"},
    {"BackgroundPicturePosition=2"},
    {"BackgroundColour=0"},
    {"BackgroundPicPath=", programPicture},
    {"BackgroundGradientColour1=16711680"},
    {"BackgroundGradientColour2=0"},
    {"BackgroundGradientAngle=0"},
    {"", windowKeys},
    {"FormSplitter=", notSet},

    {"[TallowbrookPadToolbars]"},
    {"EditToolbar=0"},
    {"FileToolbar=0"},
    {"FontToolbar=1"},
    {"FormatToolbar=1"},
    {"StandardToolbar=1"},
    {"WindowToolbar=0"},
    {"MergeToolbar=1"},

    {"[Document]"},
    {"ViewMode=2"},
    {"DefaultFont=Arial"},
    {"DefaultFontSize=10"},
    {"WindowState=2"},

    {"[DocumentTabs]"},
    {"Style=2"},
    {"ViewFocusRectangle=0"},
    {"ViewIcon=0"},

    {"[TallowbrookPadSettings]"},
    {"StayOnTop=0"},
    {"ShowStatusBar=1"},
    {"ShowRuler=0"},
    {"ShowFileTree=1"},
    {"ShowTipsAtStartup=0"},

    {"[TallowbrookPadWindowSettings]"},
    {"", windowKeys},
    {"BackgroundType=3"},
    {"BackgroundPicturePosition=3"},
    {"BackgroundColour=0"},
    {"BackgroundPicPath=", programPicture},
    {"BackgroundGradientColour1=16711680"},
    {"BackgroundGradientColour2=0"},
    {"BackgroundGradientAngle=0"},

    {"[TallowbrookPadMRU]"},
    {"Name1="},
    {"Name2="},
    {"Name3="},
    {"Name4="},
    {"Name5="},
    {"Name6="},
    {"Name7="},
    {"Name8="},
};

bool isSeparator(char c) {
    return c == '/' || c == '\\';
}

/// A service may tell its folder with or without a separator at the end.
std::string pictureOfWorkingFolder(std::string_view folder) {
    std::string path{folder};
    if (!path.empty() && !isSeparator(path.back())) path += path.find('\\') == std::string::npos ? '/' : '\\';
    return path + "Wrenmoore5.jpg";
}

std::string pictureOfProgram(std::string_view folder) {
    while (!folder.empty() && isSeparator(folder.back())) folder.remove_suffix(1);
    return std::string{folder} + "\\Backgrounds\\Wrenmoore3.jpg";
}

struct Pictures {
    std::string working;
    std::string program;
};

void append(std::string& text, std::span<const Line> lines, const Pictures& pictures) {
    for (const Line& line : lines) {
        if (line.ending == windowKeys) {
            append(text, kWindowKeys, pictures);
            continue;
        }
        if (line.text.front() == '[' && !text.empty()) text += kLineEnd;
        text += line.text;
        if (line.ending == notSet) text += kNotSet;
        if (line.ending == workingPicture) text += pictures.working;
        if (line.ending == programPicture) text += pictures.program;
        text += kLineEnd;
    }
}

void requireOneLine(std::string_view folder) {
    if (std::any_of(folder.begin(), folder.end(), [](char c) { return c == '\r' || c == '\n' || c == '\0'; }))
        throw SettingsError{SettingsError::kRefused, "A settings file cannot name a folder with a line break in its name"};
}

}  // namespace

std::string newSettings(std::string_view workingFolder, std::string_view programFolder) {
    requireOneLine(workingFolder);
    requireOneLine(programFolder);
    std::string text;
    append(text, kLines, {pictureOfWorkingFolder(workingFolder), pictureOfProgram(programFolder)});
    return text;
}

}  // namespace wmoutlook
