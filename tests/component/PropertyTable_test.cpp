#include "component/PropertyTable.h"

#include "platform/Errors.h"
#include "tests/support/TestFirm.h"

#include <gtest/gtest.h>

namespace wmoutlook::testing {
namespace {

class PropertiesByName : public ::testing::Test {
protected:
    TestHost host;
    clsOutlookSynchronization component{host.platform()};
};

TEST_F(PropertiesByName, TakeTextsOfTheirKind) {
    struct Case {
        const char *name, *text;
        Variant value;
    };
    for (const Case& c :
         {Case{"syncObjects", "syncTasks", 3}, Case{"syncobjects", "2", 2}, Case{"syncDirectionType", "7", 7},
          Case{"importCategory", "-1", -1}, Case{"showProgress", "false", false}, Case{"outlookCategory", "Privé", "Privé"},
          Case{"mvarApptSynchStartRange", "2026-01-31", makeDay(2026, 1, 31)},
          Case{"mvarAppointmentSynchDateRangeType", "3", 3}}) {
        SCOPED_TRACE(c.name);
        const PublicProperty* property = findPublicProperty(c.name);
        ASSERT_NE(property, nullptr);
        property->put(component, c.text);
        EXPECT_EQ(property->get(component), c.value);
    }
}

TEST_F(PropertiesByName, RefuseWhatIsNotOfTheirKindAndChangeNothing) {
    struct Case {
        const char *name, *text;
    };
    for (const Case& c : {Case{"syncObjects", "contacts"}, Case{"syncObjects", "1.5"}, Case{"syncObjects", "99999999999"},
                          Case{"showProgress", "maybe"}, Case{"mvarApptSynchEndRange", "31/12/2026"}, Case{"importCategory", ""},
                          Case{"connectedToOutlook", "True"}, Case{"failedToInitializeFlag", "False"}}) {
        SCOPED_TRACE(c.name);
        const PublicProperty* property = findPublicProperty(c.name);
        ASSERT_NE(property, nullptr);
        const auto before = property->get(component);
        EXPECT_THROW(property->put(component, c.text), ConversionError);
        EXPECT_EQ(property->get(component), before);
    }
    EXPECT_EQ(findPublicProperty("errorClass"), nullptr);
}

TEST_F(PropertiesByName, ReadingThemAllChangesNothing) {
    component.syncBothsWaysPriority(enumOutlookSyncBothsWaysPriority::syncPriorityTallowbrook);
    for (const PublicProperty& property : publicProperties()) (void)property.get(component);
    EXPECT_EQ(component.syncDirectionType(), outlookSyncTypeEnum::syncFromTallowbrookToOutlook);
}

}  // namespace
}  // namespace wmoutlook::testing
