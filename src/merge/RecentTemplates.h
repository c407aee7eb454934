#pragma once

#include "merge/FieldList.h"
#include "merge/MergeTemplate.h"
#include "merge/PlaceholderRenames.h"

#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wmoutlook::merge {

/// How the names of a template are brought to those of today.
struct Naming {
    RenameLocale locale;
    bool isContactAlone = false;  ///< the contact's name stands for that of the company

    friend bool operator==(const Naming&, const Naming&) = default;
};

/// The templates of the last merges, so that the letter that goes to all clients is searched for its placeholders once. Every merge has an
/// object of its own, with a list of its own: what is the same for all of them is told by comparing, which takes a small part of
/// the time that preparing takes.
class RecentTemplates {
public:
    /// `current` gives the text with the names of today; it is asked only when the template is not known.
    std::shared_ptr<const MergeTemplate> of(std::string_view text, const Naming& naming, const FieldList& list,
                                            const std::function<std::string()>& current);
    /// Forgets the templates; the lists stay.
    void clear() { entries_.clear(); }

private:
    static constexpr std::size_t kTemplates = 8;
    static constexpr std::size_t kBytes = std::size_t{4} << 20U;  ///< of texts of templates that are kept; the last one always is
    static constexpr std::size_t kLists = 8;

    struct Entry {
        std::string text;
        Naming naming;
        std::shared_ptr<const Placeholders> placeholders;
        std::shared_ptr<const MergeTemplate> prepared;
    };

    std::shared_ptr<const Placeholders> placeholdersOf(const FieldList& list);
    void dropOldest();

    std::list<Entry> entries_;                              ///< the last used in front
    std::list<std::shared_ptr<const Placeholders>> lists_;  ///< the last used in front
};

/// Those of this thread.
[[nodiscard]] RecentTemplates& recentTemplates();

}  // namespace wmoutlook::merge
