#include "merge/PlaceholderRenames.h"

#include "merge/RenameTables.h"
#include "platform/TextSearch.h"

#include <gtest/gtest.h>

#include <random>

namespace wmoutlook::testing {
namespace {

using namespace merge;

std::string renamed(const std::string& text, std::int32_t country, std::int32_t province = 0, bool isHarmonized = true) {
    return PlaceholderRenames{{country, province, isHarmonized}}.apply(text);
}

TEST(PlaceholderRenames, OldNamesAreBroughtUpToDateEverywhere) {
    struct Case {
        std::string text, renamed;
    };
    for (const Case& c : {
             Case{"<<company name>>", "«company name»"},
             Case{"«(Due Date, d)» \\'ab(due date, d)\\'bb", "«(Task Due Date, d)» \\'ab(Task Due Date, d)\\'bb"},
             Case{"<<(Calendar Date, d)>>", "«(Task Calendar Due Date, d)»"},
             Case{"Contact full name \\'abContact Full Name\\'bb", "Contact Display Name \\'abContact Display Name\\'bb"},
             Case{"«Docket Name» docket", "«Time Entry Name» Time Entry"},
             Case{"«(Todays Date, Long Date)»", "«(Todays Date, dddd, mmmm d yyyy)»"},
             Case{"«(Task Due Date, medium date)» Short Date", "«(Task Due Date, mmm d yyyy)» dd/mm/yy"},
             Case{"«Weekday Date»\\'abNotified Date\\'bb", "«Calendar Date»\\'abCalendar Date\\'bb"},
             Case{"«Remittance Weekday Due Date»\\'abCustom Remitt Field 3\\'bb",
                  "«Task Calendar Date»\\'abCustom Task Field 3\\'bb"},
             Case{"Remittance Name «Remittance Names»", "Remittance Name «Remittance Names»"},
             Case{"«State» «HST Number» «ON Corp. Tax Number»", "«State» «HST Number» «ON Corp. Tax Number»"},
         })
        EXPECT_EQ(renamed(c.text, 0), c.renamed) << c.text;
}

TEST(PlaceholderRenames, EachPlaceHasItsOwnNames) {
    const std::string all =
        "«WSIB Number»|«NEQ Number»|«WHSCC Number»|«WCB Number»|«WSIB Premium Rate»|«WCB Firm Number»|«HST Number»|«GST Number»|"
        "«ON Corp. Tax Number»|«N.B. Corp. Tax Number»|«ON Corp. MCBS Number»|«Quebec ID Number»|«State»|«Your Zip Code»|«Spouse "
        "SSN»";
    struct Case {
        std::int32_t province;
        std::string renamed;
    };
    const std::string canadian = "|«Province»|«Your Postal Code»|«Spouse SIN»";
    const std::string wcb = "«WCB Number»|«WCB Number»|«WCB Number»|«WCB Number»|«WCB Premium Rate»|«WCB Firm Number»|";
    const std::string whscc =
        "«WHSCC Number»|«WHSCC Number»|«WHSCC Number»|«WHSCC Number»|«WHSCC Premium Rate»|«WCB Firm Number»|";
    const std::string gst = "«GST Number»|«GST Number»|";
    const std::string hst = "«HST Number»|«HST Number»|";
    const auto corporate = [](const std::string& name) {
        return "«" + name + " Corp. Tax Number»|«" + name + " Corp. Tax Number»|";
    };
    const std::string untouched = "«ON Corp. MCBS Number»|«Quebec ID Number»";
    for (const Case& c : {
             Case{0, wcb + gst + corporate("Alberta") + untouched},
             Case{1, wcb + gst + corporate("BC") + untouched},
             Case{2, wcb + gst + corporate("Manitoba") + untouched},
             Case{4, wcb + gst + corporate("Sask.") + untouched},
             Case{8, "«NEQ Number»|«NEQ Number»|«WCB Number»|«WCB Number»|«CSST Premium Rate»|«WCB Firm Number»|" + gst +
                         corporate("Que.") + "«Quebec ID Number»|«Quebec ID Number»"},
             Case{9, wcb + hst + corporate("N.S.") + untouched},
             Case{10, whscc + hst + corporate("N.B.") + untouched},
             Case{11, whscc + hst + corporate("Nfld.") + untouched},
             Case{12, wcb + gst + corporate("P.E.I.") + untouched},
             Case{3, "«WSIB Number»|«WSIB Number»|«WSIB Number»|«WSIB Number»|«WSIB Premium Rate»|«WSIB Firm Number»|" + gst +
                         corporate("ON") + "«ON Corp. MCBS Number»|«ON Corp. MCBS Number»"},
             Case{7, "«WSIB Number»|«WSIB Number»|«WSIB Number»|«WSIB Number»|«WSIB Premium Rate»|«WSIB Firm Number»|" + gst +
                         corporate("ON") + "«ON Corp. MCBS Number»|«ON Corp. MCBS Number»"},
         }) {
        SCOPED_TRACE(c.province);
        EXPECT_EQ(renamed(all, country::kCanada, c.province), c.renamed + canadian);
        EXPECT_EQ(renamed(all, country::kCanada, c.province, false), c.renamed + canadian)
            << "the tax ends at the GST either way";
    }
    EXPECT_EQ(renamed("«Province» «Contact Home Postal Code» «Contact SIN» \\'abProvince\\'bb", country::kUnitedStates),
              "«State» «Contact Home Zip Code» «Contact SSN» \\'abProvince\\'bb");
    EXPECT_TRUE(isHarmonizedOn(makeDay(2010, 7, 1)));
    EXPECT_FALSE(isHarmonizedOn(makeDay(2010, 6, 30)));
}

TEST(PlaceholderRenames, AreTheSameAsOneAfterTheOther) {
    static const std::vector<std::string> pieces{"<",
                                                 ">",
                                                 "<<",
                                                 ">>",
                                                 "«",
                                                 "»",
                                                 "Docket",
                                                 "Long ",
                                                 "Date",
                                                 "«(Due Date",
                                                 "HST Number",
                                                 "GST Number",
                                                 "«HST Number»",
                                                 "«State»",
                                                 "Weekday Date",
                                                 "\\'ab",
                                                 "\\'bb",
                                                 "Contact Full Name",
                                                 "Province"};
    const auto oneByOne = [](std::string text) {
        const auto apply = [&](std::string_view from, std::string_view to) { text = replaceTextually(text, from, to); };
        const auto between = [&](std::string_view from, std::string_view to, const Marks& marks) {
            apply(std::string{marks.open}.append(from).append(marks.close),
                  std::string{marks.open}.append(to).append(marks.close));
        };
        for (const Rename& rename : kGeneralRenames) apply(rename.from, rename.to);
        for (const Marks& marks : kAllMarks)
            for (const Rename& rename : kOldTaskNames) between(rename.from, rename.to, marks);
        for (const Rename& rename : kToWsib) between(rename.from, rename.to, kPlainMarks);
        between("GST Number", "HST Number", kPlainMarks);
        between("HST Number", "GST Number", kPlainMarks);
        for (const auto* const tax : {"BC", "Alberta", "Manitoba", "Sask.", "Que.", "N.B.", "N.S.", "Nfld.", "P.E.I."})
            between(std::string{tax} + " Corp. Tax Number", "ON Corp. Tax Number", kPlainMarks);
        for (const Rename& rename : kCountryNames) between(rename.to, rename.from, kPlainMarks);
        return text;
    };
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random{seed};
    const PlaceholderRenames ontario{{country::kCanada, province::kOntario, true}};
    for (int i = 0; i < 5000; ++i) {
        std::string text;
        for (std::size_t count = random() % 10; count > 0; --count) text += pieces[random() % pieces.size()];
        ASSERT_EQ(ontario.apply(text), oneByOne(text)) << text;
    }
}

}  // namespace
}  // namespace wmoutlook::testing
