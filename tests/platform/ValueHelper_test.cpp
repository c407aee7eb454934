#include "platform/ValueHelper.h"

#include <gtest/gtest.h>

namespace wmoutlook {
namespace {

TEST(TheBlankTest, HoldsForNullEmptyAndBlankTextAndForNothingElse) {
    for (const Variant& value : {Variant{}, Variant{""}, Variant{"   "}, Variant{"\t\r\n"}})
        EXPECT_TRUE(ValueHelper::isNullOrEmpty(value)) << value.toText();
    for (const Variant& value : {Variant{0}, Variant{0.0}, Variant{false}, Variant{Date{}}, Variant{" x "}, Variant{"0"}})
        EXPECT_FALSE(ValueHelper::isNullOrEmpty(value)) << value.toText();
}

}  // namespace
}  // namespace wmoutlook
