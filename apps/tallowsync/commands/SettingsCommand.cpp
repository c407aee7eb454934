#include "adapters/headless/DiskFiles.h"
#include "adapters/headless/Machine.h"
#include "adapters/headless/PrivateProfileFile.h"
#include "adapters/headless/WorkingFolders.h"
#include "apps/tallowsync/Command.h"
#include "apps/tallowsync/Json.h"
#include "apps/tallowsync/PlainText.h"
#include "apps/tallowsync/run/FirstFailure.h"
#include "hostdata/HostServices.h"
#include "platform/Routine.h"
#include "settings/clsINI.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace wmoutlook {

namespace {

/// Before: what may be there when a command names the file to the component, which makes one that is not there.
enum class Before { isThere, isNotThere, either };

/// The settings file as a host has it: in its working folder, with the host's services.
class SettingsHost {
public:
    SettingsHost(const std::string& path, Before before) {
        requireBefore(path, before);
        HostServices& services = hostServices();
        services.files = std::make_shared<DiskFiles>();
        services.privateProfile = std::make_shared<PrivateProfileFile>();
        services.workingFolder = std::make_shared<FixedWorkingFolder>(std::filesystem::absolute(path).parent_path().string());
        services.programFolder = folderOfThisProgram();
        setErrorService(failure_);
        settings.iniFile(path);
        requireDone();
    }
    ~SettingsHost() {
        setErrorService(nullptr);
        hostServices() = {};
    }
    SettingsHost(const SettingsHost&) = delete;
    SettingsHost& operator=(const SettingsHost&) = delete;

    void requireDone() const {
        const auto& failure = failure_->first();
        if (failure && failure->number == SettingsError::kRefused) throw UsageError{failure->message};
        if (failure) throw InputError{failure->message};
    }

    clsINI settings;

private:
    static void requireBefore(const std::string& path, Before before) {
        const bool isThere = std::filesystem::exists(path);
        if (before == Before::isThere && !isThere)
            throw InputError{inQuotes(path) + " is not there; 'tallowsync settings FILE new' makes it"};
        if (before == Before::isNotThere && isThere) throw InputError{inQuotes(path) + " is there already and was left alone"};
    }

    std::shared_ptr<FirstFailure> failure_ = std::make_shared<FirstFailure>();
};

struct SettingsTexts {
    std::string section, value;
    std::optional<std::string> key;
    bool asJson = false;
};

/// Before a file is made for it. An empty name would stand for a whole section, or for the host's own one.
void requireNames(const SettingsTexts& texts, bool isWritten) {
    if (texts.key && texts.key->empty()) throw UsageError{"KEY is empty; name a key"};
    if (!isWritten) return;
    try {
        requireStorable(texts.section, texts.key.value_or("-"), texts.value);
    } catch (const SettingsError& error) {
        throw UsageError{error.what()};
    }
}

void requireSection(const CLI::App& line, const SettingsTexts& texts) {
    if (line.get_option_no_throw("SECTION") != nullptr && texts.section.empty())
        throw UsageError{"SECTION is empty; name a section"};
}

/// One command: its positional options have been declared; `work` gives the result as JSON and as lines.
struct Result {
    Json json;
    std::string lines;
    std::string warning{};  ///< a sentence; empty for none
};

using Work = Result (*)(clsINI& settings, const SettingsTexts& texts);

Action settingsAction(CLI::App& line, const std::shared_ptr<SettingsTexts>& texts, Before before, Work work) {
    line.add_flag("--json", texts->asJson, "Print JSON");
    return [&line, texts, before, work](Console& console) {
        requireSection(line, *texts);
        requireNames(*texts, before == Before::either);
        const auto file = line.get_parent()->get_option("FILE")->as<std::string>();
        if (file.empty()) throw UsageError{"FILE is empty; name a settings file"};
        SettingsHost host{file, before};
        const Result result = work(host.settings, *texts);
        host.requireDone();
        if (!result.warning.empty()) tellFailure(console, result.warning);
        console.out << (texts->asJson ? jsonText(result.json, 2) + '\n' : result.lines);
        return ExitStatus::done;
    };
}

void declareSectionAndKey(CLI::App& line, SettingsTexts& texts) {
    line.add_option("SECTION", texts.section, "The section, such as WindowSettings")->required();
    line.add_option("KEY", texts.key, "The key, such as BackgroundType")->required();
}

Result namesResult(Json json, const char* key, std::string_view names, const clsINI& settings) {
    Result result{std::move(json), {}};
    const bool isCut = settings.lastSystemError() == SettingsError::kMoreData;
    if (isCut) result.warning = "The list ends at 1022 characters, its last name may be cut; there are more names";
    result.json["cut"] = isCut;
    result.json[key] = Json::array();
    while (!names.empty()) {
        const std::size_t end = std::min(names.find('\0'), names.size());
        const std::string name{names.substr(0, end)};
        result.json[key].push_back(name);
        result.lines += onOneLine(name) + '\n';
        names.remove_prefix(std::min(end + 1, names.size()));
    }
    return result;
}

Action declareGroup(CLI::App& line) {
    line.add_option("FILE", "The settings file; 'get' and 'set' make one that is not there, as the host does")->required();
    return {};
}

Action declareGet(CLI::App& line) {
    const auto texts = std::make_shared<SettingsTexts>();
    declareSectionAndKey(line, *texts);
    line.add_option("DEFAULT", texts->value, "Given and written when the key is missing or empty; <not_set> without it");
    return settingsAction(line, texts, Before::either, [](clsINI& settings, const SettingsTexts& given) {
        const std::string value = settings.getKeyString(given.section, *given.key, given.value);
        const bool isCut = settings.lastSystemError() == SettingsError::kMoreData;
        return Result{{{"section", given.section}, {"key", *given.key}, {"value", value}, {"cut", isCut}},
                      onOneLine(value) + '\n',
                      isCut ? "The value is longer than the 254 characters that are given" : ""};
    });
}

Action declareSet(CLI::App& line) {
    const auto texts = std::make_shared<SettingsTexts>();
    declareSectionAndKey(line, *texts);
    line.add_option("VALUE", texts->value, "The new value; one that begins with a hyphen stands behind --")->required();
    return settingsAction(line, texts, Before::either, [](clsINI& settings, const SettingsTexts& given) {
        settings.setKeyValue(given.section, *given.key, given.value);
        constexpr std::size_t kRoom = 1U << 16U;  // for every value that can be stored
        const auto stored = hostServices().privateProfile->readKey(given.section, *given.key, "", kRoom, settings.iniFile()).text;
        return Result{{{"section", given.section}, {"key", *given.key}, {"value", stored}},
                      {},
                      stored == given.value ? "" : "The value has characters that the file's code page lacks; they became \"?\""};
    });
}

Action declareSections(CLI::App& line) {
    return settingsAction(line, std::make_shared<SettingsTexts>(), Before::isThere, [](clsINI& settings, const SettingsTexts&) {
        return namesResult(Json::object(), "sections", settings.getSections(), settings);
    });
}

Action declareKeys(CLI::App& line) {
    const auto texts = std::make_shared<SettingsTexts>();
    line.add_option("SECTION", texts->section, "The section")->required();
    return settingsAction(line, texts, Before::isThere, [](clsINI& settings, const SettingsTexts& given) {
        return namesResult({{"section", given.section}}, "keys", settings.getKeysInSection(given.section), settings);
    });
}

Action declareDelete(CLI::App& line) {
    const auto texts = std::make_shared<SettingsTexts>();
    line.add_option("SECTION", texts->section, "The section")->required();
    line.add_option("KEY", texts->key, "The key; the whole section without it");
    return settingsAction(line, texts, Before::isThere, [](clsINI& settings, const SettingsTexts& given) {
        given.key ? settings.deleteKey(given.section, *given.key) : settings.deleteSection(given.section);
        return Result{{{"section", given.section}, {"key", given.key ? Json(*given.key) : Json(nullptr)}}, {}};
    });
}

Action declareNew(CLI::App& line) {
    return settingsAction(line, std::make_shared<SettingsTexts>(), Before::isNotThere,
                          [](clsINI& settings, const SettingsTexts&) {
                              return Result{{{"file", settings.iniFile()}}, {}};
                          });
}

constexpr Command kFileCommands[] = {
    {"get", "Prints a value, its first 254 characters. A key that is missing or empty is written with the default.",
     "settings Tbinitbd.dni get Popup PopupColour 1", declareGet, true},
    {"set", "Writes a value.", "settings Tbinitbd.dni set Document DefaultFont Arial", declareSet, true},
    {"sections", "Lists the sections, as far as 1022 characters go.", "settings Tbinitbd.dni sections --json", declareSections},
    {"keys", "Lists the keys of a section, as far as 1022 characters go.", "settings Tbinitbd.dni keys WindowSettings",
     declareKeys},
    {"delete", "Deletes a key, or a section with all its keys. What is not there is as good as deleted.",
     "settings Tbinitbd.dni delete Document DefaultFont", declareDelete, true},
    {"new", "Makes the file with the host's first settings; it must not exist yet.", "settings Tbinitbd.dni new", declareNew,
     true},
};

constexpr Command kCommands[] = {
    {"settings", "Shows and changes the host's settings file.", "settings Tbinitbd.dni get Popup PopupColour", declareGroup,
     false, kFileCommands},
};

}  // namespace

std::span<const Command> settingsCommands() {
    return kCommands;
}

}  // namespace wmoutlook
