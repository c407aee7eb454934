#include "apps/tallowsync/sample/Names.h"

#include "platform/Services.h"

namespace wmoutlook::sample {

namespace {

constexpr FirstName kEnglishFirstNames[] = {
    {"Aaron", true},   {"Abigail"},      {"Alan", true},    {"Alice"},          {"Amanda"},        {"Andrew", true},
    {"Anna"},          {"Arjun", true},  {"Barbara"},       {"Benjamin", true}, {"Brian", true},   {"Carol"},
    {"Charles", true}, {"Chloe"},        {"Christine"},     {"Daniel", true},   {"David", true},   {"Deborah"},
    {"Dennis", true},  {"Diane"},        {"Donald", true},  {"Edward", true},   {"Elizabeth"},     {"Emily"},
    {"Eric", true},    {"Fatima"},       {"Frank", true},   {"George", true},   {"Grace"},         {"Hannah"},
    {"Harold", true},  {"Heather"},      {"Helen"},         {"Ian", true},      {"Irene"},         {"Jack", true},
    {"James", true},   {"Janet"},        {"Jason", true},   {"Jennifer"},       {"John", true},    {"Joyce"},
    {"Karen"},         {"Keith", true},  {"Kevin", true},   {"Laura"},          {"Lin"},           {"Linda"},
    {"Margaret"},      {"Mark", true},   {"Mary"},          {"Matthew", true},  {"Mei"},           {"Michael", true},
    {"Nancy"},         {"Neil", true},   {"Olivia"},        {"Patricia"},       {"Patrick", true}, {"Paul", true},
    {"Peter", true},   {"Priya"},        {"Rachel"},        {"Ralph", true},    {"Raymond", true}, {"Rebecca"},
    {"Richard", true}, {"Robert", true}, {"Rose"},          {"Ruth"},           {"Samuel", true},  {"Sandra"},
    {"Sean", true},    {"Sharon"},       {"Stephen", true}, {"Susan"},          {"Thomas", true},  {"Timothy", true},
    {"Victor", true},  {"Victoria"},     {"Walter", true},  {"Wendy"},          {"William", true}, {"Yusuf", true},
};

constexpr FirstName kFrenchFirstNames[] = {
    {"Adèle"},
    {"Alain", true},
    {"Amélie"},
    {"André", true},
    {"Andrée"},
    {"Anne-Marie"},
    {"Antoine", true},
    {"Aurélie"},
    {"Benoît", true},
    {"Bernard", true},
    {"Camille"},
    {"Cécile"},
    {"Céline"},
    {"Chantal"},
    {"Claire"},
    {"Daniel", true},
    {"Danièle"},
    {"Denis", true},
    {"Édith"},
    {"Édouard", true},
    {"Élise"},
    {"Émile", true},
    {"Étienne", true},
    {"Ève"},
    {"François", true},
    {"Françoise"},
    {"Frédéric", true},
    {"Gaétan", true},
    {"Geneviève"},
    {"Gérard", true},
    {"Gilles", true},
    {"Ginette"},
    {"Guy", true},
    {"Hélène"},
    {"Hervé", true},
    {"Isabelle"},
    {"Jacques", true},
    {"Jean-François", true},
    {"Jean-Guy", true},
    {"Joëlle"},
    {"Julien", true},
    {"Léo", true},
    {"Line"},
    {"Loïc", true},
    {"Louise"},
    {"Luc", true},
    {"Lucie"},
    {"Marie-Ève"},
    {"Marie-Josée"},
    {"Mathieu", true},
    {"Mélanie"},
    {"Michel", true},
    {"Mireille"},
    {"Noëlla"},
    {"Normand", true},
    {"Océane"},
    {"Pascal", true},
    {"Pierre", true},
    {"Réal", true},
    {"Rémi", true},
    {"Renée"},
    {"Robert", true},
    {"Sébastien", true},
    {"Simone"},
    {"Solange"},
    {"Stéphane", true},
    {"Sylvie"},
    {"Thérèse"},
    {"Valérie"},
    {"Yvan", true},
    {"Yves", true},
    {"Zoé"},
};

constexpr std::string_view kEnglishLastNames[] = {
    "Abbott",     "Ahmed",      "Anderson", "Armstrong", "Bailey",    "Baker",     "Bell",      "Bennett",  "Blackwood",
    "Brooks",     "Campbell",   "Carter",   "Chan",      "Chapman",   "Clarke",    "Cooper",    "Crawford", "D'Angelo",
    "Davidson",   "de la Cruz", "Dhillon",  "Dixon",     "Douglas",   "Edwards",   "Elliott",   "Evans",    "Ferguson",
    "Fisher",     "Fletcher",   "Foster",   "Fraser",    "Gibson",    "Gill",      "Gordon",    "Graham",   "Grant",
    "Gray",       "Hamilton",   "Harris",   "Hayes",     "Henderson", "Hill",      "Hughes",    "Hunter",   "Ivanov",
    "Jackson",    "Jenkins",    "Johnston", "Kaur",      "Kelly",     "Kennedy",   "Khan",      "Kim",      "King",
    "Kowalski",   "Lawson",     "Lee",      "Lewis",     "Li",        "MacDonald", "MacLeod",   "Marshall", "Martin",
    "McKenzie",   "Mitchell",   "Morrison", "Murphy",    "Murray",    "Nelson",    "Nguyen",    "O'Brien",  "O'Connor",
    "O'Neill",    "Oakley",     "Owens",    "Palmer",    "Park",      "Patel",     "Pearson",   "Perry",    "Peters",
    "Quinn",      "Reid",       "Reynolds", "Richards",  "Robertson", "Rogers",    "Ross",      "Russell",  "Schmidt",
    "Scott",      "Shaw",       "Simpson",  "Singh",     "Smith",     "Spencer",   "St. John",  "Stewart",  "Stone",
    "Sullivan",   "Taylor",     "Thompson", "Tremaine",  "Turner",    "Underhill", "Van Horne", "Walker",   "Wallace",
    "Watson",     "Webb",       "Wilson",   "Wong",      "Wood",      "Wright",    "Yamamoto",  "Young",    "Zhang",
    "Zimmermann", "Ziółkowski", "Żak",
};

constexpr std::string_view kFrenchLastNames[] = {
    "Arsenault",    "Beauchamp",  "Beaudoin",  "Bélanger",   "Bergeron",    "Bernier",      "Bissonnette", "Blanchette",
    "Boisvert",     "Bouchard",   "Boulanger", "Caron",      "Charbonneau", "Chrétien",     "Cloutier",    "Côté",
    "Courtemanche", "D'Amour",    "D'Astous",  "Deschênes",  "Desrosiers",  "Dubé",         "Ducharme",    "Dufresne",
    "Fontaine",     "Fortin",     "Gagné",     "Gagnon",     "Garçon",      "Gauthier",     "Gélinas",     "Girard",
    "Guérin",       "Hébert",     "L'Écuyer",  "L'Heureux",  "Lachance",    "Lacœur",       "Landry",      "Lapointe",
    "Larivière",    "Lavoie",     "Leblanc",   "Lefebvre",   "Lemieux",     "Létourneau",   "Lévesque",    "Maçon",
    "Martel",       "Ménard",     "Morin",     "Nadeau",     "Ouellet",     "Paquette",     "Paré",        "Pelletier",
    "Perrault",     "Poirier",    "Pronovost", "Prud'homme", "Quévillon",   "Racine",       "Rœsler",      "Rousseau",
    "Roy",          "Saint-Onge", "Savoie",    "Sénéchal",   "Simard",      "St-Pierre",    "Tétreault",   "Théberge",
    "Thériault",    "Tremblay",   "Trudel",    "Turcotte",   "Vachon",      "Vaillancourt", "Veilleux",    "Vézina",
};

constexpr std::string_view kEnglishStreets[] = {
    "Main Street",    "King Street West", "Queen Street East", "Church Street",     "Park Avenue",
    "Mill Road",      "Maple Drive",      "Victoria Street",   "Wellington Street", "Lakeshore Road",
    "Elm Crescent",   "Station Street",   "Albert Street",     "College Avenue",    "Dufferin Street",
    "Harbour Street", "High Street",      "Concession 4",      "St. George Street", "Queen's Park Circle",
};

constexpr std::string_view kFrenchStreets[] = {
    "rue Saint-Denis",         "boulevard René-Lévesque", "rue Sherbrooke Ouest",   "chemin Sainte-Foy", "avenue des Érables",
    "rue de l'Église",         "rue Principale",          "boulevard Saint-Joseph", "rue du Moulin",     "rang de la Rivière",
    "avenue Cartier",          "rue Notre-Dame",          "côte de la Montagne",    "rue des Pins",      "place d'Armes",
    "boulevard Père-Lelièvre",
};

constexpr Industry kIndustries[] = {
    {"Agriculture", "Farms", "Ferme"},
    {"Automotive", "Auto Repair", "Garage"},
    {"Bakeries", "Bakery", "Boulangerie"},
    {"Construction", "Construction", "Construction"},
    {"Dental Care", "Dental Clinic", "Clinique dentaire"},
    {"Design", "Design Studio", "Atelier de création"},
    {"Electrical", "Electric", "Électricité"},
    {"Forestry", "Lumber", "Scierie"},
    {"Hospitality", "Inn", "Auberge"},
    {"Information Technology", "Software", "Logiciels"},
    {"Insurance", "Insurance Brokers", "Assurances"},
    {"Law", "Law Office", "Étude"},
    {"Manufacturing", "Manufacturing", "Fabrication"},
    {"Medical", "Medical Centre", "Clinique médicale"},
    {"Plumbing", "Plumbing & Heating", "Plomberie"},
    {"Real Estate", "Properties", "Immobilier"},
    {"Restaurants", "Grill", "Café"},
    {"Retail", "Hardware", "Quincaillerie"},
    {"Transport", "Trucking", "Transport"},
    {"Veterinary", "Animal Hospital", "Hôpital vétérinaire"},
};

// A sole proprietorship has nothing behind its name.
constexpr LegalForm kEnglishCanada[] = {
    {" Inc.", 0},  {" Inc.", 0}, {" Ltd.", 0},        {" Ltd.", 0}, {" Limited", 0},
    {" Corp.", 0}, {" LLP", 7},  {" & Sons Ltd.", 0}, {"", 1},      {" Co-op", 3},
};
constexpr LegalForm kFrenchCanada[] = {
    {" Inc.", 0},        {" inc.", 0},      {" Ltée", 0},         {" Ltée", 0}, {" & Fils", 1},
    {" & Fils Ltée", 0}, {", S.E.N.C.", 2}, {" S.E.N.C.R.L.", 7}, {" Enr.", 1}, {"", 1},
};
constexpr LegalForm kUnitedStates[] = {
    {" Inc.", 0}, {" Inc.", 6},         {" LLC", 8}, {" LLC", 8}, {" Corp.", 0},
    {" LLP", 7},  {" & Sons, Inc.", 6}, {" Co.", 0}, {"", 1},     {" Foundation", 3},
};

constexpr std::string_view kJobTitles[] = {
    "President",           "Owner",   "Controller",           "Bookkeeper", "Office Manager", "Vice President",
    "Directrice générale", "Partner", "Secrétaire-trésorier", "Treasurer",
};

constexpr std::string_view kCompanyNotes[] = {
    "Prefers to be called before noon.",
    "Books are kept by an outside bookkeeper.",
    "Asked for a quote on payroll services.",
    "Préfère la correspondance en français.",
    "Fiscal year end was changed; confirm with the tax office.",
    "Signing officer is the owner's daughter.",
};

constexpr CalendarText kAppointmentTexts[] = {
    {"Year-end planning", "Bring last year's working papers."},
    {"Tax interview", "Slips are still missing from the bank."},
    {"Payroll review", ""},
    {"Rencontre de fin d'année", "Apporter les états financiers préliminaires."},
    {"Budget meeting", ""},
    {"Review of financial statements", "Open points: inventory, accrued liabilities {see list}."},
    {"Rencontre d'impôt", ""},
    {"Lunch with client", ""},
    {"Loan application", "The lender asks for a three-year forecast."},
    {"Estate planning", "Œuvre de bienfaisance: discuter du don prévu."},
    {"Telephone conference", ""},
    {"Site visit and stock count", "Safety boots are required."},
};

constexpr std::string_view kAllDayTexts[] = {
    "Out of office", "Conference", "Statutory holiday", "Vacances", "Filing deadline", "Training day",
};

constexpr CalendarText kTaskTexts[] = {
    {"Prepare corporate tax return", "Instalments have to be confirmed."},
    {"File sales tax return", ""},
    {"Déclaration de TPS/TVQ", ""},
    {"Bank reconciliation", "Statements for two months are missing."},
    {"Send engagement letter", ""},
    {"Prepare payroll slips", ""},
    {"Annual return", ""},
    {"Call back about assessment", "Avis de cotisation reçu; vérifier les intérêts."},
    {"Review trial balance", ""},
    {"Order new minute book", ""},
};

constexpr std::string_view kReminderPeriods[] = {
    "5 Min", "15 Min", "15 Min", "30 Min", "1 Hr", "2 Hr", "1 Day", "2 Days", "1 Week", "2 Weeks",
};

}  // namespace

std::span<const FirstName> firstNames(bool isFrench) {
    if (isFrench) return kFrenchFirstNames;
    return kEnglishFirstNames;
}

std::span<const std::string_view> lastNames(bool isFrench) {
    if (isFrench) return kFrenchLastNames;
    return kEnglishLastNames;
}

std::span<const std::string_view> streets(bool isFrench) {
    if (isFrench) return kFrenchStreets;
    return kEnglishStreets;
}

std::span<const Industry> industries() {
    return kIndustries;
}

std::span<const LegalForm> legalForms(std::int32_t country, bool isFrench) {
    if (country == country::kUnitedStates) return kUnitedStates;
    if (isFrench) return kFrenchCanada;
    return kEnglishCanada;
}

std::span<const std::string_view> jobTitles() {
    return kJobTitles;
}

std::span<const std::string_view> companyNotes() {
    return kCompanyNotes;
}

std::span<const CalendarText> appointmentTexts() {
    return kAppointmentTexts;
}

std::span<const std::string_view> allDayTexts() {
    return kAllDayTexts;
}

std::span<const CalendarText> taskTexts() {
    return kTaskTexts;
}

std::span<const std::string_view> reminderPeriods() {
    return kReminderPeriods;
}

}  // namespace wmoutlook::sample
