#include "platform/outlook/Handles.h"

#include "platform/outlook/PropertyNames.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace wmoutlook::outlook {
namespace {

class Reports : public ErrorService {
public:
    std::vector<std::int32_t> numbers;
    void enterFunction(std::string_view) override {}
    void leaveFunction() override {}
    ErrorAnswer reportError(const ErrorReport& report) override {
        numbers.push_back(report.number);
        return ErrorAnswer::goOn;
    }
};

class BrokenItem : public port::Item {
public:
    Variant get(std::string_view) const override { throw OutlookError{-5, "get"}; }
    void put(std::string_view, const Variant&) override { throw OutlookError{-6, "put"}; }
    void save() override { throw OutlookError{-7, "save"}; }
    void remove() override { throw OutlookError{-8, "remove"}; }
    std::shared_ptr<port::UserProperties> userProperties() override { return nullptr; }
    std::shared_ptr<port::Recipients> recipients() override { return nullptr; }
    std::shared_ptr<port::Attachments> attachments() override { return nullptr; }
    void display(bool) override { throw OutlookError{-9, "display"}; }
    void send() override { throw OutlookError{-10, "send"}; }
};

class Handles : public ::testing::Test {
protected:
    Handles() { setErrorService(reports); }
    ~Handles() override { setErrorService(nullptr); }

    void run(const std::function<void()>& body) {
        Routine routine{"routine"};
        routine.run(body);
    }

    std::shared_ptr<Reports> reports = std::make_shared<Reports>();
};

TEST_F(Handles, UsingNothingIsAFailureNumbered91AndGivesNothing) {
    const std::vector<std::function<void()>> uses{
        [] { EXPECT_TRUE(Item{}.get(property::Subject).isNull()); },
        [] { EXPECT_EQ(Item{}.text(property::Subject), ""); },
        [] { Item{}.put(property::Subject, "text"); },
        [] { Item{}.save(); },
        [] { Item{}.remove(); },
        [] { EXPECT_TRUE(Item{}.userProperties().isNothing()); },
        [] { EXPECT_TRUE(UserProperties{}.add("name", UserPropertyType::text).isNothing()); },
        [] { UserProperty{}.setValue(1); },
        [] { EXPECT_TRUE(Items{}.add().isNothing()); },
        [] { EXPECT_TRUE(Items{}.find("[FullName] = \"\"").isNothing()); },
        [] { EXPECT_TRUE(MAPIFolder{}.items().isNothing()); },
        [] { EXPECT_EQ(MAPIFolder{}.storeID(), ""); },
        [] { EXPECT_EQ(MAPIFolder{}.entryID(), ""); },
        [] { NameSpace{}.logon([] { return LogonArguments{}; }); },
        [] { EXPECT_TRUE(NameSpace{}.getDefaultFolder(DefaultFolder::contacts).isNothing()); },
        [] { EXPECT_TRUE(NameSpace{}.getFolderFromID("entry", "store").isNothing()); },
        [] { EXPECT_TRUE(Application{}.getNamespace("MAPI").isNothing()); },
        [] { EXPECT_TRUE(Application{}.createItem(ItemType::contact).isNothing()); },
        [] { Application{}.quit(); },
    };
    for (const auto& use : uses) run(use);
    EXPECT_EQ(reports->numbers, std::vector<std::int32_t>(uses.size(), 91));
}

TEST_F(Handles, AnItemThatCannotBeFetchedIsNothingWithoutAReport) {
    run([] { EXPECT_TRUE(NameSpace{}.findItemFromID("entry", "store").isNothing()); });
    EXPECT_TRUE(reports->numbers.empty());
}

TEST_F(Handles, EachOperationIsAStatementOfItsOwn) {
    const Item item{std::make_shared<BrokenItem>()};
    run([&] {
        EXPECT_EQ(item.text(property::Subject), "");
        item.put(property::Subject, "text");
        item.save();
        item.remove();
        EXPECT_TRUE(item.userProperties().isNothing());  // what the port gives as nothing is no failure yet
    });
    EXPECT_EQ(reports->numbers, (std::vector<std::int32_t>{-5, -6, -7, -8}));
}

}  // namespace
}  // namespace wmoutlook::outlook
