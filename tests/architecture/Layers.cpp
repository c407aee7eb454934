#include "tests/architecture/Layers.h"

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>

namespace wmoutlook {

namespace {

enum class Kind { logic, outside };
using enum Kind;

/// One folder, its subfolders included unless they have a row of their own.
struct Layer {
    std::string_view folder;
    Kind kind = logic;
    int height = 0;                            ///< logic may use the logic that stands lower, never what stands beside it
    std::vector<std::string_view> alsoUses{};  ///< folders or single headers; an adapter or program may use nothing else
};

// The folders in the order of the picture in docs/architecture.md, with the arrows that are allowed.
const std::array kLayers{
    Layer{"src/platform", logic, 0},
    Layer{"src/hostdata", logic, 1},
    Layer{"src/merge", logic, 2},
    Layer{"src/settings", logic, 2},
    Layer{"src/summaries", logic, 2},
    Layer{"src/trees", logic, 2},
    Layer{"src/hostdata/clients", logic, 3},  // making a client resolves merge fields and writes summaries
    Layer{"src/syncstore", logic, 3},
    Layer{"src/calendar", logic, 4},
    Layer{"src/contacts", logic, 4},
    Layer{"src/mail", logic, 4},
    Layer{"src/component", logic, 5},
    Layer{"src/wizard", logic, 6},
    Layer{"src/adapters/exchange", outside, 0, {"src/platform", "src/adapters/files"}},
    Layer{"src/adapters/files", outside, 0, {}},
    Layer{"src/adapters/headless", outside, 0, {"src/platform", "src/adapters/files"}},
    Layer{"src/adapters/outlookstore",
          outside,
          0,
          {"src/platform", "src/adapters/files", "src/adapters/sql/SqliteDatabase.h"}},  // Durability
    Layer{"src/adapters/sql", outside, 0, {"src/platform"}},
    Layer{"src/adapters/windows", outside, 0, {"src/platform", "src/component", "src/mail", "src/wizard"}},
    Layer{"apps/tallowsync", outside, 0, {"src", "apps/tallowsync"}},
};

bool isUnder(std::string_view path, std::string_view folderOrHeader) {
    return path == folderOrHeader || (path.starts_with(folderOrHeader) && path[folderOrHeader.size()] == '/');
}

/// The row with the longest folder that holds the file.
const Layer* layerOf(std::string_view path) {
    const Layer* found = nullptr;
    for (const Layer& layer : kLayers)
        if (isUnder(path, layer.folder) && (found == nullptr || layer.folder.size() > found->folder.size())) found = &layer;
    return found;
}

bool mayUse(const Layer& user, std::string_view header) {
    const auto isListed = [&](std::string_view used) { return isUnder(header, used); };
    if (std::ranges::any_of(user.alsoUses, isListed)) return true;
    const Layer* used = layerOf(header);
    if (used == nullptr) return false;
    return used == &user || (user.kind == logic && used->kind == logic && used->height < user.height);
}

struct Include {
    std::string name;
    bool isProject = false;  ///< in quotes, not in angle brackets
};

std::optional<Include> readInclude(std::string_view line) {
    const auto skipBlanks = [&] { line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size())); };
    skipBlanks();
    if (!line.starts_with('#')) return std::nullopt;
    line.remove_prefix(1);
    skipBlanks();
    constexpr std::string_view kDirective = "include";
    if (!line.starts_with(kDirective)) return std::nullopt;
    line.remove_prefix(kDirective.size());
    skipBlanks();
    if (line.empty() || (line[0] != '<' && line[0] != '"')) return Include{std::string(line), true};
    const bool isProject = line[0] == '"';
    return Include{std::string(line.substr(1, line.find(isProject ? '"' : '>', 1) - 1)), isProject};
}

/// The standard library's headers, unlike those of C, of systems and of nearly all libraries, have neither a dot nor a slash.
bool isStandardHeader(std::string_view name) {
    return name.find_first_of("./") == std::string_view::npos;
}

/// Includes are written from src/; those of a program may also name its own headers, from the root of the project.
std::string pathOfHeader(std::string_view name) {
    return (name.starts_with("apps/") ? "" : "src/") + std::string(name);
}

}  // namespace

std::vector<std::string> findLayerViolations(std::string_view path, std::string_view content) {
    const Layer* layer = layerOf(path);
    const std::string here(path);
    if (layer == nullptr) return {here + ": its folder is not in the table of layers"};

    std::vector<std::string> violations;
    const bool mayAskForWindows = layer->kind == outside && (path.starts_with("src/") || path.ends_with("/main.cpp"));
    std::istringstream lines{std::string(content)};
    for (std::string line; std::getline(lines, line);) {
        if (!mayAskForWindows && line.find("_WIN32") != std::string::npos)
            violations.push_back(here + ": only adapters and main ask for _WIN32");
        const auto include = readInclude(line);
        if (!include) continue;
        if (include->isProject) {
            if (!mayUse(*layer, pathOfHeader(include->name)))
                violations.push_back(here + ": " + std::string(layer->folder) + " may not use " + include->name);
        } else if (layer->kind == logic && !isStandardHeader(include->name)) {
            violations.push_back(here + ": logic includes the standard library alone, not " + include->name);
        }
    }
    return violations;
}

}  // namespace wmoutlook
