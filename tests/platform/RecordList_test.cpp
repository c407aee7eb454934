#include "platform/RecordList.h"

#include <gtest/gtest.h>

namespace wmoutlook {
namespace {

using selection::kCompanyNum;
using selection::kContactNum;
using selection::kOutlookID;

class ThreeContacts : public ::testing::Test {
protected:
    ThreeContacts() {
        list.add({7, 70});
        list.add({8, 80});
        list.add({7, 71});
    }
    RecordList list;
};

TEST_F(ThreeContacts, AreWalkedFromTheFirstToTheEnd) {
    EXPECT_TRUE(list.isAtEnd());  // nothing is current before the first move
    std::string contacts;
    for (list.moveFirst(); !list.isAtEnd(); list.moveNext()) contacts += list.value(kContactNum).toText() + ' ';
    EXPECT_EQ(contacts, "70 80 71 ");
    list.moveNext();
    EXPECT_TRUE(list.isAtEnd());
    EXPECT_TRUE(list.value(kContactNum).isNull());
    EXPECT_TRUE(list.moveFirst());
    EXPECT_EQ(list.value(kContactNum), Variant{70});
}

TEST_F(ThreeContacts, AreFoundByTheTextOfANumberFirstOfEquals) {
    EXPECT_EQ(list.find("71", kContactNum), 3);
    EXPECT_EQ(list.value(kContactNum), Variant{71});
    EXPECT_EQ(list.find("7", kCompanyNum), 1);
    EXPECT_EQ(list.value(kContactNum), Variant{70});
    list.add({7, 72});
    list.add({9, 90});
    EXPECT_EQ(list.find("7", kCompanyNum), 1);  // a row added later never comes before an earlier equal
    EXPECT_EQ(list.find("9", kCompanyNum), 5);
    EXPECT_EQ(list.value(kContactNum), Variant{90});
}

TEST_F(ThreeContacts, StayWhereTheyAreWhenASearchFindsNothing) {
    ASSERT_EQ(list.find("80", kContactNum), 2);
    for (const std::string_view missing : {"8", "080", " 80", "80.0", ""}) {
        EXPECT_LT(list.find(missing, kContactNum), 0) << missing;
        EXPECT_EQ(list.currentIndex(), 2);
    }
    EXPECT_FALSE(list.moveTo(0));
    EXPECT_FALSE(list.moveTo(4));
    EXPECT_EQ(list.currentIndex(), 2);
    EXPECT_TRUE(list.moveTo(3));
    EXPECT_EQ(list.value(kContactNum), Variant{71});
}

TEST_F(ThreeContacts, HaveNullsInColumnsLeftOut) {
    list.moveFirst();
    EXPECT_TRUE(list.value(0).isNull());
    EXPECT_TRUE(list.value(kOutlookID).isNull());
    EXPECT_TRUE(list.value(99).isNull());
    list.add({Variant{}, Variant{}, Variant{}, "00AF"});
    EXPECT_EQ(list.find("00AF", kOutlookID), 4);
    EXPECT_LT(list.find("00af", kOutlookID), 0);
    EXPECT_EQ(list.find("", kCompanyNum), 4);  // a contact without company
    EXPECT_LT(list.find("70", 99), 0);
}

TEST_F(ThreeContacts, KeepTheirCurrentRowWhileOneIsAdded) {
    list.moveTo(2);
    list.add({9, 90});
    EXPECT_EQ(list.currentIndex(), 2);
    list.moveTo(4);
    list.moveNext();
    list.add({9, 91});
    EXPECT_TRUE(list.isAtEnd());  // a list walked to its end stays there
    EXPECT_EQ(list.count(), 5);
}

TEST_F(ThreeContacts, AreForgottenWithTheirIndex) {
    ASSERT_EQ(list.find("80", kContactNum), 2);
    list.clear();
    EXPECT_TRUE(list.isEmpty() && list.isAtEnd() && !list.moveFirst());
    EXPECT_LT(list.find("80", kContactNum), 0);
    list.add({1, 80});
    EXPECT_EQ(list.find("80", kContactNum), 1);
}

}  // namespace
}  // namespace wmoutlook
