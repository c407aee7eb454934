#pragma once

#include "platform/ProgressDialog.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace wmoutlook {

/// Where a bar may be drawn.
struct BarOutput {
    std::ostream* stream = nullptr;  ///< nothing: no bar at all
    bool isTerminal = false;         ///< a bar is drawn on a terminal only
    bool mayColour = false;
    std::function<std::chrono::steady_clock::time_point()> clock = std::chrono::steady_clock::now;
};

/// What a dialog was told, for whoever reports the run when the dialog is gone.
struct ProgressRecord {
    std::int32_t maximum = 0;
    std::int32_t value = 0;
    std::vector<std::string> messages;
};

/// A progress dialog on one line of a terminal. It stays empty for the first second, so that short work shows nothing; a
/// value above the maximum shows a full bar. Where nothing is drawn, everything is recorded all the same.
class BarProgressDialog : public ProgressDialog {
public:
    BarProgressDialog(BarOutput output, std::shared_ptr<ProgressRecord> record);
    ~BarProgressDialog() override;

    void setMessage(std::string_view message) override;
    void setBarStyle(std::int32_t) override {}
    void setOwner(const WindowObject&) override {}
    void setMinimum(std::int32_t minimum) override { minimum_ = minimum; }
    void setMaximum(std::int32_t maximum) override;
    [[nodiscard]] std::int32_t value() override { return record_->value; }
    void setValue(std::int32_t value) override;
    void setDisplayOptions(const ProgressDisplayOptions&) override {}
    void setIcon(std::int32_t) override {}
    void setCaption(std::string_view caption) override { setMessage(caption); }  ///< there is one line for both

    void show(bool modal) override;
    void close() override;

private:
    using Moment = std::chrono::steady_clock::time_point;

    void drawWhenDue();
    void draw();
    void erase();

    BarOutput output_;
    std::shared_ptr<ProgressRecord> record_;
    std::string message_;
    std::int32_t minimum_ = 0;
    bool isUp_ = false;
    bool isDrawn_ = false;
    Moment nextDrawing_;
};

}  // namespace wmoutlook
