#pragma once

#include "platform/Event.h"
#include "platform/Services.h"

#include <cstdint>
#include <string_view>

namespace wmoutlook {

/// Private to the host's library; handed on as they are, in this order.
struct ProgressDisplayOptions {
    bool first = false;
    bool second = false;
    bool third = false;
    bool fourth = false;
};

/// A modal window with a message and a bar. It raises StartProgress once, when it is shown, and stays up until it is closed.
class ProgressDialog {
public:
    virtual ~ProgressDialog() = default;

    virtual void setMessage(std::string_view message) = 0;
    virtual void setBarStyle(std::int32_t style) = 0;
    virtual void setOwner(const WindowObject& owner) = 0;
    virtual void setMinimum(std::int32_t minimum) = 0;
    virtual void setMaximum(std::int32_t maximum) = 0;
    [[nodiscard]] virtual std::int32_t value() = 0;
    virtual void setValue(std::int32_t value) = 0;  ///< above the maximum the bar is full, and the value is kept
    virtual void setDisplayOptions(const ProgressDisplayOptions& options) = 0;
    virtual void setIcon(std::int32_t icon) = 0;
    virtual void setCaption(std::string_view caption) = 0;

    virtual void show(bool modal) = 0;  ///< returns when the dialog has been closed
    virtual void close() = 0;

    Event<> StartProgress;
};

}  // namespace wmoutlook
