#include "tests/architecture/Layers.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace wmoutlook {
namespace {

std::string read(const std::filesystem::path& file) {
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

TEST(Layers, NoArrowOfTheSourcesPointsUpwardOrOutward) {
    const std::filesystem::path root = WMOUTLOOK_ROOT;
    int files = 0;
    for (const char* top : {"src", "apps"}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root / top)) {
            const auto extension = entry.path().extension();
            if (extension != ".h" && extension != ".cpp") continue;
            ++files;
            for (const std::string& violation :
                 findLayerViolations(entry.path().lexically_relative(root).generic_string(), read(entry.path())))
                ADD_FAILURE() << violation;
        }
    }
    EXPECT_GT(files, 30) << "the sources were not found in " << root;
}

TEST(Layers, EachArrowThatPointsTheWrongWayIsFound) {
    struct Case {
        std::string_view path, line, complaint;  // no complaint: the line is allowed
    };
    for (const Case& c : {
             Case{"src/platform/Text.cpp", "#include \"platform/Text.h\"", ""},
             Case{"src/platform/outlook/Handles.h", "#include \"platform/Routine.h\"", ""},
             Case{"src/platform/Text.cpp", "#include \"hostdata/Recordset.h\"", "src/platform may not use hostdata/Recordset.h"},
             Case{"src/hostdata/Recordset.cpp", "#include \"hostdata/clients/x.h\"", "may not use hostdata/clients/x.h"},
             Case{"src/hostdata/clients/x.cpp", "#include \"hostdata/Recordset.h\"", ""},
             Case{"src/hostdata/clients/x.cpp", "  #  include \"merge/x.h\"  // why", ""},
             Case{"src/merge/x.cpp", "#include \"summaries/x.h\"", "src/merge may not use summaries/x.h"},
             Case{"src/contacts/x.cpp", "#include \"calendar/x.h\"", "may not use calendar/x.h"},
             Case{"src/contacts/x.cpp", "#include \"component/clsOutlookSynchronization.h\"", "may not use component/"},
             Case{"src/contacts/x.cpp", "#include \"syncstore/ContactLinks.h\"", ""},
             Case{"src/contacts/x.cpp", "#include \"adapters/sql/SqliteDatabase.h\"", "may not use adapters/sql/"},
             Case{"src/contacts/x.cpp", "#include \"ContactLinks.h\"", "may not use ContactLinks.h"},
             Case{"src/contacts/x.cpp", "#include \"../adapters/sql/SqliteDatabase.h\"", "may not use ../adapters"},
             Case{"src/contacts/x.cpp", "#include HEADER", "may not use HEADER"},
             Case{"src/contacts/x.cpp", "#include <string_view>", ""},
             Case{"src/contacts/x.cpp", "#include <sqlite3.h>", "standard library alone, not sqlite3.h"},
             Case{"src/contacts/x.cpp", "#include <nlohmann/json>", "standard library alone"},
             Case{"src/contacts/x.cpp", "#ifdef _WIN32", "_WIN32"},
             Case{"src/adapters/sql/x.cpp", "#include <sqlite3.h>", ""},
             Case{"src/adapters/sql/x.cpp", "#if defined(_WIN32)", ""},
             Case{"src/adapters/sql/x.cpp", "#include \"hostdata/Recordset.h\"", "may not use hostdata/Recordset.h"},
             Case{"src/adapters/outlookstore/x.h", "#include \"adapters/sql/SqliteDatabase.h\"", ""},
             Case{"src/adapters/outlookstore/x.h", "#include \"adapters/sql/Dialect.h\"", "may not use adapters/sql/Dialect.h"},
             Case{"src/adapters/newcomer/x.cpp", "", "not in the table of layers"},
             Case{"src/newcomer/x.cpp", "", "not in the table of layers"},
             Case{"apps/tallowsync/x.cpp", "#include \"adapters/sql/SqliteDatabase.h\"", ""},
             Case{"apps/tallowsync/x.cpp", "#include \"apps/tallowsync/x.h\"", ""},
             Case{"src/adapters/headless/x.cpp", "#include \"apps/tallowsync/x.h\"", "may not use apps/tallowsync/x.h"},
             Case{"src/component/x.cpp", "#include \"apps/tallowsync/x.h\"", "may not use apps/tallowsync/x.h"},
             Case{"apps/tallowsync/x.cpp", "#ifdef _WIN32", "_WIN32"},
             Case{"apps/tallowsync/main.cpp", "#ifdef _WIN32", ""},
         }) {
        SCOPED_TRACE(std::string(c.path) + ": " + std::string(c.line));
        const auto violations = findLayerViolations(c.path, std::string("// text\n") + std::string(c.line) + "\nint x;\n");
        ASSERT_EQ(violations.size(), c.complaint.empty() ? 0U : 1U);
        EXPECT_TRUE(violations.empty() || violations[0].find(c.complaint) != std::string::npos) << violations[0];
    }
}

}  // namespace
}  // namespace wmoutlook
