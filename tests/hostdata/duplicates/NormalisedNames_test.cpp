#include "hostdata/duplicates/NormalisedNames.h"

#include <gtest/gtest.h>

namespace wmoutlook {
namespace {

TEST(NormalisedNames, OneFirmHoweverItIsWritten) {
    struct Case {
        std::string_view normalised;
        std::vector<std::string_view> written;
    };
    for (const Case& c : {
             Case{"dubeandfils", {"Dubé & Fils Ltée", "DUBE ET FILS LTEE.", "Dube+Fils limitée", "Dubé and Fils, Ltd."}},
             Case{"dubeandfils",
                  {"Dube\xCC\x81 & Fils",
                   "Dubé\xC2\xA0&\xC2\xA0"
                   "Fils\xE2\x84\xA2",
                   "«Dubé» & Fils (Inc.)"}},
             Case{"oneillsshop", {"O'Neill's Shop", "O\xE2\x80\x99Neill\xE2\x80\x99s Shop Inc", "O`Neills  shop INCORPORATED"}},
             Case{"royllamarche",
                  {"Roy, L. Lamarche S.E.N.C.R.L./s.r.l.", "Roy L Lamarche SENCRL", "Roy L Lamarche S.E.N.C. R.L."}},
             Case{"royllamarche", {"Roy/L. Lamarche, société en nom collectif à responsabilité limitée", "Roy L-Lamarche LLP"}},
             Case{"abcgroup", {"A.B.C. Group", "ABC Group Corp.", "A B C Group Corporation Ltd"}},
             Case{"91234567quebec",
                  {"9123-4567 Québec inc.",
                   "9123\xE2\x80\x93"
                   "4567 Quebec Inc./Ltée"}},
             Case{"smithandco", {"Smith & Company Limited", "Smith et cie", "Smith and Co. Ltd."}},
             Case{"oeuvredart", {"Œuvre d'art enr.", "Oeuvre d’Art Reg'd"}},
             Case{"khandental", {"Khan Dental Professional Corporation", "Khan Dental P.C.", "Khan Dental Prof. Corp."}},
         })
        for (const std::string_view name : c.written) EXPECT_EQ(normalisedCompanyName(name), c.normalised) << name;
}

TEST(NormalisedNames, WhatTellsFirmsApartStays) {
    struct Case {
        std::string_view name, normalised;
    };
    for (const Case& c : {
             Case{"Limited Editions Inc.", "limitededitions"},  // a legal form stands at the end
             Case{"Smith Partnership", "smithpartnership"},     // half of one is none
             Case{"Inc. Ltd.", "inc"},                          // something must be left
             Case{"Limited Liability Company", "limitedliabilityco"},
             Case{"Smith Jones", "smithjones"},
             Case{"Smith & Jones", "smithandjones"},
             Case{"Prince", "prince"},  // "inc" is part of a word
             Case{"東京 Ltd.", "東京"},
             Case{" - & . ", "and"},
             Case{" -.' ", ""},
             Case{"", ""},
         })
        EXPECT_EQ(normalisedCompanyName(c.name), c.normalised) << c.name;
}

TEST(NormalisedNames, TelephonesAreTheirDigits) {
    for (const std::string_view number : {"(514) 555-0123", "514.555.0123", "+1 514 555 0123", "1-514-555-0123"})
        EXPECT_EQ(telephoneKey(number), "5145550123") << number;
    EXPECT_EQ(telephoneKey("+33 1 23 45 67 89"), "33123456789");
    EXPECT_EQ(telephoneKey("none"), "");
}

}  // namespace
}  // namespace wmoutlook
