#pragma once

#include "platform/Platform.h"
#include "platform/Services.h"
#include "tests/support/Faults.h"

#include <functional>
#include <string>
#include <vector>

/// What stands in for the person in front of the host, and for its windows.
namespace wmoutlook::testing {

class ErrorRecorder : public ErrorService {
public:
    std::vector<std::string> entered;
    std::vector<std::string> open;  ///< routines entered and not yet left
    std::vector<ErrorReport> reports;
    std::function<ErrorAnswer(const ErrorReport&)> answer = [](const ErrorReport&) { return ErrorAnswer::goOn; };

    void enterFunction(std::string_view errorTag) override {
        entered.emplace_back(errorTag);
        open.emplace_back(errorTag);
    }
    void leaveFunction() override { open.pop_back(); }
    ErrorAnswer reportError(const ErrorReport& report) override {
        reports.push_back(report);
        return answer(report);
    }
};

class MessageRecorder : public MessageBoxService {
public:
    std::vector<Message> messages;
    void showMessage(const Message& message) override { messages.push_back(message); }
    bool askQuestion(const Message& question) override {
        messages.push_back(question);
        return true;
    }
};

class TestLocale : public LocaleService {
public:
    std::int32_t userID = 1;
    std::int32_t countryNumber = country::kCanada;
    std::int32_t provinceNumber = province::kOntario;
    WindowObject owner = std::make_shared<int>(1);
    PictureObject picture = std::make_shared<int>(2);

    PictureObject applicationPicture() override { return picture; }
    std::string applicationName() override { return "Tallow Brook"; }
    bool isUnitedStates() override { return countryNumber == country::kUnitedStates; }
    std::int32_t workerProvince() override { return province::kOntario; }
    std::string applicationTitle() override { return "Tallow Brook"; }
    std::int32_t country() override { return countryNumber; }
    std::int32_t province() override { return provinceNumber; }
    std::int32_t currentTaxYear() override { return 2025; }
    std::int32_t currentUserID() override { return userID; }
    WindowObject ownerWindow() override { return owner; }
    std::string localStoreAccessText() override { return {}; }
};

class TestProgressDialog : public ProgressDialog {
public:
    explicit TestProgressDialog(Faults* faults = nullptr) : faults_(faults) {}

    std::vector<std::string> calls;
    std::vector<std::string> messages;
    std::vector<std::string> captions;
    std::int32_t minimum = -1;
    std::int32_t maximum = -1;
    std::int32_t shownValue = 0;
    bool isUp = false;

    void setMessage(std::string_view message) override {
        note("message");
        messages.emplace_back(message);
    }
    void setBarStyle(std::int32_t style) override { note("barStyle " + std::to_string(style)); }
    void setOwner(const WindowObject& owner) override { note(owner ? "owner" : "no owner"); }
    void setMinimum(std::int32_t value) override {
        note("minimum");
        minimum = value;
    }
    void setMaximum(std::int32_t value) override {
        note("maximum");
        maximum = value;
    }
    std::int32_t value() override { return shownValue; }
    void setValue(std::int32_t value) override {
        if (faults_) faults_->hit("ProgressDialog.setValue");
        shownValue = value;
    }
    void setDisplayOptions(const ProgressDisplayOptions& o) override {
        note("options " + std::to_string(o.first) + std::to_string(o.second) + std::to_string(o.third) +
             std::to_string(o.fourth));
    }
    void setIcon(std::int32_t icon) override { note("icon " + std::to_string(icon)); }
    void setCaption(std::string_view caption) override {
        note("caption");
        captions.emplace_back(caption);
    }
    void show(bool modal) override {
        note(modal ? "show modal" : "show");
        isUp = true;
        StartProgress.raise();
    }
    void close() override {
        note("close");
        isUp = false;
    }

private:
    void note(std::string call) {
        if (faults_) faults_->hit("ProgressDialog");
        calls.push_back(std::move(call));
    }
    Faults* faults_;
};

class TestClock : public Clock {
public:
    Date time = makeDay(2026, 11, 22);
    Date now() override { return time; }
};

class TestMessageLoop : public MessageLoop {
public:
    int yields = 0;
    Faults* faults = nullptr;
    void yield() override {
        if (faults) faults->hit("MessageLoop.yield");
        ++yields;
    }
};

class TestRandom : public RandomSource {
public:
    double next() override {
        state_ = (state_ * 1103515245U + 12345U) % 2147483648U;
        return static_cast<double>(state_) / 2147483648.0;
    }

private:
    std::uint64_t state_ = 1;
};

class TestWorkingFolder : public WorkingFolderService {
public:
    std::string path = "/work";
    std::string workingFolderPath() override { return path; }
};

class TestFiles : public FileHelper {
public:
    bool fileExists(const std::string&) override { return false; }
    bool isUsableFile(const std::string&) override { return false; }
    bool copyFile(const std::string&, const std::string&) override { return false; }
    bool deleteFile(const std::string&) override { return false; }
    bool makeFolder(const std::string&) override { return false; }
    std::string retireFile(const std::string&) override { return {}; }
    std::string normalizeFolder(std::string_view path) override { return std::string{path} + "/"; }
    std::string suffixForFolder(std::string_view) override { return "1"; }
};

/// Settings that are not there and are never kept.
class TestProfile : public PrivateProfile {
public:
    ProfileAnswer readKey(std::string_view, std::string_view, std::string_view fallback, std::size_t,
                          const std::string&) override {
        return {std::string{fallback}, SettingsError::kNotFound};
    }
    ProfileAnswer sectionNames(std::string_view fallback, std::size_t, const std::string&) override {
        return {std::string{fallback}, SettingsError::kNotFound};
    }
    ProfileAnswer keyNames(std::string_view, std::size_t, const std::string&) override { return {{}, SettingsError::kNotFound}; }
    void write(std::string_view, std::optional<std::string_view>, std::optional<std::string_view>, const std::string&) override {}
    bool isSameName(std::string_view left, std::string_view right, const std::string&) override { return left == right; }
    void makeFile(std::string_view, IfThere, const std::string&) override {}
};

}  // namespace wmoutlook::testing
