#include "apps/tallowsync/sample/Places.h"

#include "platform/Services.h"
#include "platform/Text.h"

#include <algorithm>

namespace wmoutlook::sample {

namespace {

constexpr Place kCanada[] = {
    {"AB", "Alberta", "Calgary", "T2P", "403"},
    {"AB", "Alberta", "Edmonton", "T5J", "780"},
    {"AB", "Alberta", "Lethbridge", "T1J", "403"},
    {"AB", "Alberta", "Red Deer", "T4N", "403"},
    {"BC", "British Columbia", "Vancouver", "V6B", "604"},
    {"BC", "British Columbia", "Victoria", "V8W", "250"},
    {"BC", "British Columbia", "Kelowna", "V1Y", "250"},
    {"BC", "British Columbia", "Prince George", "V2L", "250"},
    {"MB", "Manitoba", "Winnipeg", "R3C", "204"},
    {"MB", "Manitoba", "Brandon", "R7A", "204"},
    {"MB", "Manitoba", "Saint-Boniface", "R2H", "204", true},
    {"NB", "New Brunswick", "Fredericton", "E3B", "506"},
    {"NB", "New Brunswick", "Moncton", "E1C", "506"},
    {"NB", "New Brunswick", "Saint John", "E2L", "506"},
    {"NB", "New Brunswick", "Edmundston", "E3V", "506", true},
    {"NL", "Newfoundland", "St. John's", "A1C", "709"},
    {"NL", "Newfoundland", "Corner Brook", "A2H", "709"},
    {"NS", "Nova Scotia", "Halifax", "B3J", "902"},
    {"NS", "Nova Scotia", "Sydney", "B1P", "902"},
    {"NS", "Nova Scotia", "Truro", "B2N", "902"},
    {"NT", "Northwest Territories", "Yellowknife", "X1A", "867"},
    {"NU", "Nunavut", "Iqaluit", "X0A", "867"},
    {"ON", "Ontario", "Toronto", "M5V", "416"},
    {"ON", "Ontario", "Ottawa", "K1P", "613"},
    {"ON", "Ontario", "Hamilton", "L8P", "905"},
    {"ON", "Ontario", "London", "N6A", "519"},
    {"ON", "Ontario", "Kitchener", "N2G", "519"},
    {"ON", "Ontario", "Kingston", "K7L", "613"},
    {"ON", "Ontario", "Windsor", "N9A", "519"},
    {"ON", "Ontario", "Sudbury", "P3E", "705"},
    {"ON", "Ontario", "Thunder Bay", "P7B", "807"},
    {"ON", "Ontario", "Hawkesbury", "K6A", "613", true},
    {"ON", "Ontario", "Hearst", "P0L", "705", true},
    {"PE", "Prince Edward Island", "Charlottetown", "C1A", "902"},
    {"PE", "Prince Edward Island", "Summerside", "C1N", "902"},
    {"QC", "Quebec", "Montréal", "H2Y", "514", true},
    {"QC", "Quebec", "Québec", "G1R", "418", true},
    {"QC", "Quebec", "Laval", "H7N", "450", true},
    {"QC", "Quebec", "Gatineau", "J8X", "819", true},
    {"QC", "Quebec", "Sherbrooke", "J1H", "819", true},
    {"QC", "Quebec", "Trois-Rivières", "G9A", "819", true},
    {"QC", "Quebec", "Saint-Hyacinthe", "J2S", "450", true},
    {"QC", "Quebec", "Rimouski", "G5L", "418", true},
    {"QC", "Quebec", "L'Ancienne-Lorette", "G2E", "418", true},
    {"QC", "Quebec", "Westmount", "H3Z", "514"},
    {"SK", "Saskatchewan", "Regina", "S4P", "306"},
    {"SK", "Saskatchewan", "Saskatoon", "S7K", "306"},
    {"SK", "Saskatchewan", "Moose Jaw", "S6H", "306"},
    {"YT", "Yukon", "Whitehorse", "Y1A", "867"},
};

constexpr Place kUnitedStates[] = {
    {"AK", "Alaska", "Anchorage", "995", "907"},
    {"AL", "Alabama", "Birmingham", "352", "205"},
    {"AR", "Arkansas", "Little Rock", "722", "501"},
    {"AZ", "Arizona", "Phoenix", "850", "602"},
    {"AZ", "Arizona", "Tucson", "857", "520"},
    {"CA", "California", "Los Angeles", "900", "213"},
    {"CA", "California", "Sacramento", "958", "916"},
    {"CA", "California", "San Diego", "921", "619"},
    {"CA", "California", "San Francisco", "941", "415"},
    {"CO", "Colorado", "Denver", "802", "303"},
    {"CT", "Connecticut", "Hartford", "061", "860"},
    {"DC", "District of Columbia", "Washington", "200", "202"},
    {"DE", "Delaware", "Wilmington", "198", "302"},
    {"FL", "Florida", "Miami", "331", "305"},
    {"FL", "Florida", "Tampa", "336", "813"},
    {"GA", "Georgia", "Atlanta", "303", "404"},
    {"HI", "Hawaii", "Honolulu", "968", "808"},
    {"IA", "Iowa", "Des Moines", "503", "515"},
    {"ID", "Idaho", "Boise", "837", "208"},
    {"IL", "Illinois", "Chicago", "606", "312"},
    {"IL", "Illinois", "Springfield", "627", "217"},
    {"IN", "Indiana", "Indianapolis", "462", "317"},
    {"KS", "Kansas", "Wichita", "672", "316"},
    {"KY", "Kentucky", "Louisville", "402", "502"},
    {"LA", "Louisiana", "New Orleans", "701", "504"},
    {"MA", "Massachusetts", "Boston", "021", "617"},
    {"MD", "Maryland", "Baltimore", "212", "410"},
    {"ME", "Maine", "Portland", "041", "207"},
    {"MI", "Michigan", "Detroit", "482", "313"},
    {"MN", "Minnesota", "Minneapolis", "554", "612"},
    {"MO", "Missouri", "Kansas City", "641", "816"},
    {"MS", "Mississippi", "Jackson", "392", "601"},
    {"MT", "Montana", "Billings", "591", "406"},
    {"NC", "North Carolina", "Charlotte", "282", "704"},
    {"ND", "North Dakota", "Fargo", "581", "701"},
    {"NE", "Nebraska", "Omaha", "681", "402"},
    {"NH", "New Hampshire", "Manchester", "031", "603"},
    {"NJ", "New Jersey", "Newark", "071", "973"},
    {"NM", "New Mexico", "Albuquerque", "871", "505"},
    {"NV", "Nevada", "Las Vegas", "891", "702"},
    {"NY", "New York", "New York", "100", "212"},
    {"NY", "New York", "Albany", "122", "518"},
    {"NY", "New York", "Buffalo", "142", "716"},
    {"NY", "New York", "Rochester", "146", "585"},
    {"OH", "Ohio", "Cleveland", "441", "216"},
    {"OK", "Oklahoma", "Tulsa", "741", "918"},
    {"OR", "Oregon", "Portland", "972", "503"},
    {"PA", "Pennsylvania", "Philadelphia", "191", "215"},
    {"PA", "Pennsylvania", "Pittsburgh", "152", "412"},
    {"RI", "Rhode Island", "Providence", "029", "401"},
    {"SC", "South Carolina", "Charleston", "294", "843"},
    {"SD", "South Dakota", "Sioux Falls", "571", "605"},
    {"TN", "Tennessee", "Nashville", "372", "615"},
    {"TX", "Texas", "Austin", "787", "512"},
    {"TX", "Texas", "Dallas", "752", "214"},
    {"TX", "Texas", "Houston", "770", "713"},
    {"UT", "Utah", "Salt Lake City", "841", "801"},
    {"VA", "Virginia", "Richmond", "232", "804"},
    {"VT", "Vermont", "Burlington", "054", "802"},
    {"WA", "Washington", "Seattle", "981", "206"},
    {"WI", "Wisconsin", "Milwaukee", "532", "414"},
    {"WV", "West Virginia", "Charleston", "253", "304"},
    {"WY", "Wyoming", "Cheyenne", "820", "307"},
};

}  // namespace

std::span<const Place> placesOf(std::int32_t country) {
    if (country == country::kUnitedStates) return kUnitedStates;
    return kCanada;
}

std::span<const Place> placesOf(std::int32_t country, std::string_view provinceCode) {
    const auto all = placesOf(country);
    const auto isThere = [&](const Place& place) { return equalsTextually(place.provinceCode, provinceCode); };
    const auto first = std::find_if(all.begin(), all.end(), isThere);
    const auto last = std::find_if_not(first, all.end(), isThere);
    return {first, last};
}

}  // namespace wmoutlook::sample
