#include "hostdata/HostServices.h"

#include "platform/Errors.h"
#include "platform/Routine.h"

namespace wmoutlook {

namespace {

template <class Service>
Service& required(const std::shared_ptr<Service>& service, const char* what) {
    if (!service) throw ObjectNotSet{what};
    return *service;
}

HostDatabase& database() {
    return required(hostServices().database, "host database");
}

LocaleService& locale() {
    return required(hostServices().locale, "locale service");
}

}  // namespace

HostServices& hostServices() {
    static HostServices services;
    return services;
}

bool isDatabaseOpen() {
    return hostServices().database && statement([] { return database().isDatabaseOpen(); });
}

std::string quoteTextForSql(std::string_view text) {
    return statement([&] { return database().quoteTextForSql(text); });
}

std::string formatDateForSql(Date date) {
    return statement([&] { return database().formatDateForSql(date); });
}

std::optional<std::string> applicationName() {
    return statement([]() -> std::optional<std::string> { return locale().applicationName(); });
}

std::int32_t firmCountry() {
    return statement([] { return locale().country(); });
}

std::int32_t firmProvince() {
    return statement([] { return locale().province(); });
}

std::string applicationTitle() {
    return statement([] { return locale().applicationTitle(); });
}

bool isUnitedStates() {
    return statement([] { return locale().isUnitedStates(); });
}

std::optional<std::int32_t> currentUserID() {
    return statement([]() -> std::optional<std::int32_t> { return locale().currentUserID(); });
}

WindowObject ownerWindow() {
    return statement([] { return locale().ownerWindow(); });
}

Date now() {
    return statement([] { return required(hostServices().clock, "clock").now(); });
}

Date today() {
    return dayOf(now());
}

void showMessage(std::string_view text, MessageCode code) {
    const auto boxes = hostServices().messageBoxes;
    if (!boxes) return;
    Message message;
    message.text = text;
    message.code = code;
    if (hostServices().locale) {
        message.owner = statement([] { return locale().ownerWindow(); });
        message.picture = statement([] { return locale().applicationPicture(); });
    }
    statement([&] { boxes->showMessage(message); });
}

void yieldTwice() {
    for (int turn = 0; turn < 2; ++turn) statement([] { required(hostServices().messageLoop, "message loop").yield(); });
}

}  // namespace wmoutlook
