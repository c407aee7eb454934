#pragma once

#include "platform/Variant.h"

#include <cstdint>
#include <string_view>

/// The controls of the host's windows into which templates are written.
namespace wmoutlook {

/// A list box. Items are numbered from 0. Every operation may throw.
class PickList {
public:
    virtual ~PickList() = default;

    virtual void Clear() = 0;
    virtual void AddItem(std::string_view text) = 0;
    [[nodiscard]] virtual std::int32_t NewIndex() = 0;  ///< of the item that was added last
    [[nodiscard]] virtual std::int32_t ItemData(std::int32_t index) = 0;
    virtual void ItemData(std::int32_t index, std::int32_t data) = 0;
    virtual void Refresh() = 0;
};

/// A rich-text box.
class RichTextBox {
public:
    virtual ~RichTextBox() = default;

    [[nodiscard]] virtual Variant SelStart() = 0;  ///< where the text is to go; null, or no number, when that is unknown
    /// Whether the text was put in.
    virtual bool insertText(std::string_view text, std::int32_t position) = 0;
};

}  // namespace wmoutlook
