#include "adapters/outlookstore/PropertyTable.h"

#include "adapters/outlookstore/PropertyRows.h"

#include <bit>
#include <string>

namespace wmoutlook::outlookstore {

namespace {

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

std::size_t hashOf(std::string_view name) {
    std::uint32_t hash = 2166136261u;
    for (const char c : name) hash = (hash ^ static_cast<unsigned char>(lowered(c))) * 16777619u;
    return hash ^ (hash >> 15);
}

bool isSameName(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) return false;
    if (left == right) return true;
    for (std::size_t i = 0; i < left.size(); ++i)
        if (lowered(left[i]) != lowered(right[i])) return false;
    return true;
}

}  // namespace

Variant PropertyRow::defaultValue() const {
    switch (kind) {
        case PropertyKind::text: return Variant{std::string{}};
        case PropertyKind::integer: return Variant{defaultNumber};
        case PropertyKind::boolean: return Variant{defaultNumber != 0};
        case PropertyKind::day:
        case PropertyKind::moment: break;
    }
    return Variant{absentDate()};
}

PropertyTable::PropertyTable(std::span<const std::span<const PropertyRow>> blocks) {
    for (const auto block : blocks) rows_.insert(rows_.end(), block.begin(), block.end());
    slots_.resize(std::bit_ceil(rows_.size() * 4));
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        std::size_t slot = hashOf(rows_[i].name) & (slots_.size() - 1);
        while (slots_[slot] != 0) slot = (slot + 1) & (slots_.size() - 1);
        slots_[slot] = static_cast<std::uint16_t>(i + 1);
        if (rows_[i].code >= codeToIndex_.size()) codeToIndex_.resize(rows_[i].code + std::size_t{1});
        codeToIndex_[rows_[i].code] = static_cast<std::uint16_t>(i + 1);
    }
}

const PropertyTable& PropertyTable::of(outlook::ItemType type) {
    using Blocks = std::array<std::span<const PropertyRow>, 4>;
    static const PropertyTable mail{Blocks{everyItemRows(), reminderRows(), followUpRows(), mailRows()}};
    static const PropertyTable appointment{Blocks{everyItemRows(), reminderRows(), appointmentRows()}};
    static const PropertyTable contact{Blocks{everyItemRows(), reminderRows(), followUpRows(), contactRows()}};
    static const PropertyTable task{Blocks{everyItemRows(), reminderRows(), taskRows()}};
    switch (type) {
        case outlook::ItemType::appointment: return appointment;
        case outlook::ItemType::contact: return contact;
        case outlook::ItemType::task: return task;
        case outlook::ItemType::mail: break;
    }
    return mail;
}

std::optional<std::size_t> PropertyTable::find(std::string_view name) const {
    for (std::size_t slot = hashOf(name) & (slots_.size() - 1); slots_[slot] != 0; slot = (slot + 1) & (slots_.size() - 1)) {
        const std::size_t index = slots_[slot] - std::size_t{1};
        if (isSameName(rows_[index].name, name)) return index;
    }
    return std::nullopt;
}

std::optional<std::size_t> PropertyTable::findCode(std::uint64_t code) const {
    if (code >= codeToIndex_.size() || codeToIndex_[static_cast<std::size_t>(code)] == 0) return std::nullopt;
    return codeToIndex_[static_cast<std::size_t>(code)] - std::size_t{1};
}

std::string_view typeName(outlook::ItemType type) {
    switch (type) {
        case outlook::ItemType::appointment: return "AppointmentItem";
        case outlook::ItemType::contact: return "ContactItem";
        case outlook::ItemType::task: return "TaskItem";
        case outlook::ItemType::mail: break;
    }
    return "MailItem";
}

}  // namespace wmoutlook::outlookstore
