#include "adapters/headless/BarProgressDialog.h"

#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace wmoutlook {

namespace {

constexpr auto kQuietTime = std::chrono::seconds{1};
constexpr auto kBetweenDrawings = std::chrono::milliseconds{100};
constexpr std::int64_t kBarWidth = 30;
constexpr std::size_t kMessageWidth = 44;  // with the bar and the counts it stays on one line of 80 or more columns

constexpr std::string_view kEraseLine = "\r\x1b[K";
constexpr std::string_view kGreen = "\x1b[32m";
constexpr std::string_view kPlain = "\x1b[0m";

std::string barOf(std::int64_t done, std::int64_t whole) {
    const std::int64_t filled = whole <= 0 ? kBarWidth : std::clamp<std::int64_t>(done * kBarWidth / whole, 0, kBarWidth);
    return std::string(static_cast<std::size_t>(filled), '#') + std::string(static_cast<std::size_t>(kBarWidth - filled), '.');
}

/// A message names clients, and a name from outside must not steer the terminal.
std::string onOneLine(std::string_view message) {
    std::string line{firstCharacters(message, kMessageWidth)};
    for (std::size_t i = 0; i < line.size(); ++i) {
        const auto byte = static_cast<unsigned char>(line[i]);
        if (byte < 0x20 || byte == 0x7F) line[i] = ' ';
        const auto next = i + 1 < line.size() ? static_cast<unsigned char>(line[i + 1]) : 0;
        if (byte == 0xC2 && next >= 0x80 && next < 0xA0)
            line.replace(i, 2, " ");  // terminals take these for escape sequences too
    }
    return line;
}

}  // namespace

BarProgressDialog::BarProgressDialog(BarOutput output, std::shared_ptr<ProgressRecord> record)
    : output_(std::move(output)), record_(std::move(record)) {}

BarProgressDialog::~BarProgressDialog() {
    erase();
}

void BarProgressDialog::setMessage(std::string_view message) {
    message_ = message;
    record_->messages.push_back(message_);
    drawWhenDue();
}

void BarProgressDialog::setMaximum(std::int32_t maximum) {
    record_->maximum = maximum;
    drawWhenDue();
}

void BarProgressDialog::setValue(std::int32_t value) {
    record_->value = value;
    drawWhenDue();
}

void BarProgressDialog::show(bool) {
    isUp_ = true;
    nextDrawing_ = output_.clock() + kQuietTime;
    StartProgress.raise();
    close();  // without a person nobody else would close a dialog that its run has left up
}

void BarProgressDialog::close() {
    isUp_ = false;
    erase();
}

void BarProgressDialog::drawWhenDue() {
    if (!isUp_ || output_.stream == nullptr || !output_.isTerminal) return;
    const Moment moment = output_.clock();
    if (moment < nextDrawing_) return;
    nextDrawing_ = moment + kBetweenDrawings;
    draw();
}

void BarProgressDialog::draw() {
    const std::int64_t done = std::int64_t{record_->value} - minimum_;
    const std::int64_t whole = std::int64_t{record_->maximum} - minimum_;
    std::string bar = "[" + barOf(done, whole) + "]";
    if (output_.mayColour) bar = std::string{kGreen} + bar + std::string{kPlain};
    *output_.stream << kEraseLine << bar << ' ' << done << ' ' << onOneLine(message_) << std::flush;
    isDrawn_ = true;
}

void BarProgressDialog::erase() {
    if (std::exchange(isDrawn_, false)) *output_.stream << kEraseLine << std::flush;
}

}  // namespace wmoutlook
